#pragma once

#include <string>
#include <string_view>

// Text between the process's ANSI code page and UTF-16; the only place where it is converted. What
// the other side lacks comes out as the system's replacement character. Both throw when the system
// refuses to convert, or writes less or more than it has announced.
namespace TAMO::TEV::System::Util::detail {

std::wstring FromAnsi(std::string_view text);
std::string ToAnsi(std::wstring_view text);

// The same with UTF-8, for the file layer.
std::wstring FromUtf8(std::string_view text);
std::string ToUtf8(std::wstring_view text);

}  // namespace TAMO::TEV::System::Util::detail
