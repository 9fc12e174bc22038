#include <TEVSystemLib/util/windows/TEVUtilWindows.h>
#include <windows.h>
// comdef.h needs windows.h before it.
#include <comdef.h>

#include <new>

#include "TEVSystemLib/util/string/detail/AsciiText.h"
#include "TEVSystemLib/util/string/detail/Errors.h"
#include "TEVSystemLib/util/string/detail/HandOut.h"
#include "TEVSystemLib/util/windows/detail/BstrText.h"

namespace TAMO::TEV::System::Util {

int TEVUtilWindows::CompareBSTR(bool ignoreCase, wchar_t* const& first, wchar_t* const& second) {
    constexpr int kTerminated = -1;
    const DWORD flags = ignoreCase ? NORM_IGNORECASE : 0;
    switch (CompareStringW(LOCALE_INVARIANT, flags, first, kTerminated, second, kTerminated)) {
        case CSTR_LESS_THAN:
            return -1;
        case CSTR_EQUAL:
            return 0;
        case CSTR_GREATER_THAN:
            return 1;
        default:
            // KEEP: a null text, which the system refuses, throws too.
            detail::ThrowRuntimeError("BSTR comparison operation failed.");
    }
}

bool TEVUtilWindows::CopyBSTR(wchar_t* source, wchar_t** copy) {
    if (copy == nullptr) return false;
    *copy = SysAllocString(source);
    return *copy != nullptr;
}

void TEVUtilWindows::FreeBSTR(wchar_t** text) {
    if (text == nullptr) return;
    SysFreeString(*text);
    *text = nullptr;
}

std::uint64_t TEVUtilWindows::GetBSTRLength(wchar_t* const& text) { return SysStringLen(text); }

bool TEVUtilWindows::FromBSTRToMultibyteChar(wchar_t* const& text, char** out) try {
    if (out == nullptr) return false;
    *out = nullptr;
    return detail::HandOutUnlessEmpty(detail::FromBstr(text), out);
} catch (...) {
    return false;
}

bool TEVUtilWindows::FromMultibyteCharToBSTR(char const* text, wchar_t** out) try {
    if (out == nullptr) return false;
    *out = nullptr;
    if (detail::IsNullOrEmpty(text)) return false;
    *out = detail::ToBstr(text).release();
    return true;
} catch (const std::bad_alloc&) {
    // KEEP: exhausted memory leaves as the platform's own error, which COM hosts expect.
    throw _com_error(E_OUTOFMEMORY);
} catch (...) {
    return false;
}

}  // namespace TAMO::TEV::System::Util
