#pragma once

#include <windows.h>
// oleauto.h needs windows.h before it.
#include <oleauto.h>

#include "TEVSystemLib/util/windows/detail/Handle.h"

namespace TAMO::TEV::System::Util::detail {

struct BstrTraits {
    using Type = BSTR;
    static BSTR Invalid() { return nullptr; }
    static void Close(BSTR text) { SysFreeString(text); }
};
using OwnedBstr = Handle<BstrTraits>;

struct SafeArrayTraits {
    using Type = SAFEARRAY*;
    static SAFEARRAY* Invalid() { return nullptr; }
    static void Close(SAFEARRAY* array) { SafeArrayDestroy(array); }
};
using OwnedSafeArray = Handle<SafeArrayTraits>;

// A lock on an array, as long as it lasts; invalid when the system refused it.
struct SafeArrayLockTraits {
    using Type = SAFEARRAY*;
    static SAFEARRAY* Invalid() { return nullptr; }
    static void Close(SAFEARRAY* array) { SafeArrayUnlock(array); }
};
using LockedSafeArray = Handle<SafeArrayLockTraits>;

inline LockedSafeArray Lock(SAFEARRAY* array) {
    return LockedSafeArray(SUCCEEDED(SafeArrayLock(array)) ? array : nullptr);
}

struct TaskMemoryTraits {
    using Type = wchar_t*;
    static wchar_t* Invalid() { return nullptr; }
    static void Close(wchar_t* memory) { CoTaskMemFree(memory); }
};
using TaskMemory = Handle<TaskMemoryTraits>;

}  // namespace TAMO::TEV::System::Util::detail
