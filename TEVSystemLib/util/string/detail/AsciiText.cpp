#include "TEVSystemLib/util/string/detail/AsciiText.h"

#include <algorithm>

#include "TEVSystemLib/util/string/detail/wide/Kernels.h"

namespace TAMO::TEV::System::Util::detail {

std::string ToLower(std::string_view text) {
    std::string mapped(text);
    ToLower(mapped, mapped.data());
    return mapped;
}

std::string ToUpper(std::string_view text) {
    std::string mapped(text);
    ToUpper(mapped, mapped.data());
    return mapped;
}

void ToLower(std::string_view text, char* to) {
    wide::Best().toLower(text.data(), text.size(), to);
}

void ToUpper(std::string_view text, char* to) {
    wide::Best().toUpper(text.data(), text.size(), to);
}

int Compare(std::string_view first, std::string_view second) {
    const int order = first.compare(second);
    return (order > 0) - (order < 0);
}

namespace {

int CompareBytes(char first, char second) {
    const auto a = static_cast<unsigned char>(ToLower(first));
    const auto b = static_cast<unsigned char>(ToLower(second));
    return (a > b) - (a < b);
}

}  // namespace

int CompareIgnoringCase(std::string_view first, std::string_view second) {
    const std::size_t shared = std::min(first.size(), second.size());
    const std::size_t at = wide::Best().mismatchIgnoringCase(first.data(), second.data(), shared);
    if (at == shared) return (first.size() > second.size()) - (first.size() < second.size());
    return CompareBytes(first[at], second[at]);
}

int CompareIgnoringCase(const char* first, const char* second) {
    const std::size_t at = wide::Best().textMismatchIgnoringCase(first, second);
    return CompareBytes(first[at], second[at]);
}

bool EqualsIgnoringCase(std::string_view first, std::string_view second) {
    // Words take less than the way to the registers.
    constexpr std::size_t kShort = 8;
    if (first.size() != second.size()) return false;
    if (first.size() < kShort)
        return std::equal(first.begin(), first.end(), second.begin(),
                          [](char a, char b) { return ToLower(a) == ToLower(b); });
    return wide::Best().mismatchIgnoringCase(first.data(), second.data(), first.size()) ==
           first.size();
}

std::size_t Find(std::string_view text, std::string_view pattern) {
    if (pattern.empty()) return 0;
    const std::size_t found =
        wide::Best().find(text.data(), text.size(), pattern.data(), pattern.size());
    return found == text.size() ? std::string_view::npos : found;
}

std::string_view ViewOf(const char* text) { return {text, wide::Best().length(text)}; }

std::string_view OrEmpty(const char* text) {
    return text == nullptr ? std::string_view() : ViewOf(text);
}

std::string_view Trim(std::string_view text, bool start, bool end) {
    if (text.empty()) return text;
    std::size_t first = 0;
    std::size_t last = text.size() - 1;
    if (start) {
        while (first < last && IsBlank(text[first])) ++first;
    }
    if (end) {
        while (last > first && IsBlank(text[last])) --last;
    }
    // KEEP: the scan stops at the last character it can keep, so that a text of blanks whose start
    // stays keeps its place there, and a single blank is nothing even untrimmed.
    const bool nothingLeft = first == last && IsBlank(text[first]);
    return text.substr(first, nothingLeft ? 0 : last - first + 1);
}

std::string_view TrimIfSpaced(std::string_view text) {
    // KEEP: only a plain space starts the trimming; a text between tabs keeps them.
    if (text.empty() || (text.front() != ' ' && text.back() != ' ')) return text;
    return Trim(text);
}

}  // namespace TAMO::TEV::System::Util::detail
