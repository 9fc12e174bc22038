#pragma once

#include <string>
#include <string_view>

// Letters and blanks of ASCII, whatever the locale; every other byte is left alone.
namespace TAMO::TEV::System::Util::detail {

// Space, tab, line feed, vertical tab, form feed, carriage return.
constexpr bool IsBlank(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

constexpr bool IsDigit(char c) { return c >= '0' && c <= '9'; }

constexpr char ToLower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; }
constexpr char ToUpper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c; }

std::string ToLower(std::string_view text);
std::string ToUpper(std::string_view text);
// Into a buffer of that size.
void ToLower(std::string_view text, char* to);
void ToUpper(std::string_view text, char* to);

// -1, 0 or 1: unsigned bytes, then length.
int Compare(std::string_view first, std::string_view second);
int CompareIgnoringCase(std::string_view first, std::string_view second);
int CompareIgnoringCase(const char* first, const char* second);
bool EqualsIgnoringCase(std::string_view first, std::string_view second);

// Without the blanks at the ends asked for. A text of blanks leaves nothing when an end is
// trimmed, nor does a single blank in any case; the empty view then stands where the scan
// stopped.
std::string_view Trim(std::string_view text, bool start = true, bool end = true);

// The place of the first occurrence, or npos. An empty pattern stands at the start of every text.
std::size_t Find(std::string_view text, std::string_view pattern);

std::string_view ViewOf(const char* text);
// A null pointer counts as the empty text.
std::string_view OrEmpty(const char* text);
inline bool IsNullOrEmpty(const char* text) { return text == nullptr || *text == '\0'; }

// The rule for names, values and paths: trimmed at both ends, but only when a plain space stands at
// one of them.
std::string_view TrimIfSpaced(std::string_view text);

}  // namespace TAMO::TEV::System::Util::detail
