#include "fault/ComCalls.h"

#include <windows.h>
// oleauto.h needs windows.h before it.
#include <oleauto.h>

namespace {

std::ptrdiff_t live = 0;
std::ptrdiff_t liveArrays = 0;
std::ptrdiff_t taskMemoryReleases = 0;
int untilFailure = -1;

}  // namespace

// The pointers through which the library's objects call the system, and the linker's names for the
// true ones.
extern "C" {
extern BSTR(WINAPI* __real___imp_SysAllocString)(const OLECHAR*);
extern void(WINAPI* __real___imp_SysFreeString)(BSTR);

extern SAFEARRAY*(WINAPI* __real___imp_SafeArrayCreate)(VARTYPE, UINT, SAFEARRAYBOUND*);
extern HRESULT(WINAPI* __real___imp_SafeArrayDestroy)(SAFEARRAY*);

static SAFEARRAY* WINAPI CreateCounted(VARTYPE type, UINT dimensions, SAFEARRAYBOUND* bounds) {
    SAFEARRAY* made = __real___imp_SafeArrayCreate(type, dimensions, bounds);
    if (made != nullptr) ++liveArrays;
    return made;
}

static HRESULT WINAPI DestroyCounted(SAFEARRAY* array) {
    --liveArrays;
    return __real___imp_SafeArrayDestroy(array);
}

SAFEARRAY*(WINAPI* __wrap___imp_SafeArrayCreate)(VARTYPE, UINT, SAFEARRAYBOUND*) = CreateCounted;
HRESULT(WINAPI* __wrap___imp_SafeArrayDestroy)(SAFEARRAY*) = DestroyCounted;

extern void(WINAPI* __real___imp_CoTaskMemFree)(void*);

static void WINAPI FreeTaskMemoryCounted(void* memory) {
    if (memory != nullptr) ++taskMemoryReleases;
    __real___imp_CoTaskMemFree(memory);
}

void(WINAPI* __wrap___imp_CoTaskMemFree)(void*) = FreeTaskMemoryCounted;

static BSTR WINAPI AllocateCounted(const OLECHAR* text) {
    if (untilFailure >= 0 && untilFailure-- == 0) return nullptr;
    BSTR made = __real___imp_SysAllocString(text);
    if (made != nullptr) ++live;
    return made;
}

static void WINAPI FreeCounted(BSTR text) {
    if (text != nullptr) --live;
    __real___imp_SysFreeString(text);
}

BSTR(WINAPI* __wrap___imp_SysAllocString)(const OLECHAR*) = AllocateCounted;
void(WINAPI* __wrap___imp_SysFreeString)(BSTR) = FreeCounted;
}

namespace tev::fault {

std::ptrdiff_t LiveBstrs() { return live; }

std::ptrdiff_t TaskMemoryReleases() { return taskMemoryReleases; }

std::ptrdiff_t LiveArrays() { return liveArrays; }

void FailBstr(int n) { untilFailure = n; }

}  // namespace tev::fault
