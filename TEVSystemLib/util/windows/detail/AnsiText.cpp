#include "TEVSystemLib/util/windows/detail/AnsiText.h"

#include <windows.h>

namespace TAMO::TEV::System::Util::detail {

std::wstring FromAnsi(std::string_view text) {
    const auto count = static_cast<int>(text.size());
    std::wstring wide(
        static_cast<std::size_t>(MultiByteToWideChar(CP_ACP, 0, text.data(), count, nullptr, 0)),
        L'\0');
    MultiByteToWideChar(CP_ACP, 0, text.data(), count, wide.data(), static_cast<int>(wide.size()));
    return wide;
}

std::string ToAnsi(std::wstring_view text) {
    const auto count = static_cast<int>(text.size());
    std::string narrow(static_cast<std::size_t>(WideCharToMultiByte(CP_ACP, 0, text.data(), count,
                                                                    nullptr, 0, nullptr, nullptr)),
                       '\0');
    WideCharToMultiByte(CP_ACP, 0, text.data(), count, narrow.data(),
                        static_cast<int>(narrow.size()), nullptr, nullptr);
    return narrow;
}

}  // namespace TAMO::TEV::System::Util::detail
