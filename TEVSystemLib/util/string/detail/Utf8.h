#pragma once

#include <cstddef>
#include <string_view>

// Between valid UTF-8 and UTF-16. `Unit` is char16_t, or wchar_t holding such units. What is not
// valid is not converted here: overlong forms, lone surrogates, numbers above 10FFFF and sequences
// that break off.
namespace TAMO::TEV::System::Util::detail {

// How many units a valid text has; for any other at least as many as the start of it that is valid.
std::size_t Utf16Size(std::string_view text);
template <typename Unit>
std::size_t Utf8Size(std::basic_string_view<Unit> text);

// Into a buffer of that size. False at the first sequence that is not valid; what the buffer holds
// is then open.
template <typename Unit>
bool WidenUtf8(std::string_view text, Unit* to);
template <typename Unit>
bool NarrowUtf16(std::basic_string_view<Unit> text, char* to);

// Copies the ASCII characters at the front of a text; gives their count.
template <typename Unit>
std::size_t WidenAscii(std::string_view text, Unit* to);
template <typename Unit>
std::size_t NarrowAscii(std::basic_string_view<Unit> text, char* to);

}  // namespace TAMO::TEV::System::Util::detail
