#include "TEVSystemLib/util/windows/detail/AnsiText.h"

#include <windows.h>

#include <limits>
#include <stdexcept>

namespace TAMO::TEV::System::Util::detail {

namespace {

// The count as the system takes it.
int CountOf(std::size_t size) {
    if (size > static_cast<std::size_t>(std::numeric_limits<int>::max()))
        throw std::length_error("text too long to convert");
    return static_cast<int>(size);
}

void Require(bool isConverted) {
    if (!isConverted) throw std::runtime_error("text does not convert");
}

std::wstring Widen(UINT codePage, std::string_view text) {
    if (text.empty()) return {};
    const int count = CountOf(text.size());
    const int size = MultiByteToWideChar(codePage, 0, text.data(), count, nullptr, 0);
    Require(size > 0);
    std::wstring wide(static_cast<std::size_t>(size), L'\0');
    Require(MultiByteToWideChar(codePage, 0, text.data(), count, wide.data(), size) == size);
    return wide;
}

std::string Narrow(UINT codePage, std::wstring_view text) {
    if (text.empty()) return {};
    const int count = CountOf(text.size());
    const int size =
        WideCharToMultiByte(codePage, 0, text.data(), count, nullptr, 0, nullptr, nullptr);
    Require(size > 0);
    std::string narrow(static_cast<std::size_t>(size), '\0');
    Require(WideCharToMultiByte(codePage, 0, text.data(), count, narrow.data(), size, nullptr,
                                nullptr) == size);
    return narrow;
}

}  // namespace

std::wstring FromAnsi(std::string_view text) { return Widen(CP_ACP, text); }
std::string ToAnsi(std::wstring_view text) { return Narrow(CP_ACP, text); }
std::wstring FromUtf8(std::string_view text) { return Widen(CP_UTF8, text); }
std::string ToUtf8(std::wstring_view text) { return Narrow(CP_UTF8, text); }

}  // namespace TAMO::TEV::System::Util::detail
