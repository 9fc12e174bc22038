#include "fault/SystemCalls.h"

namespace tev::fault {

namespace {

const DWORD testThread = GetCurrentThreadId();

}  // namespace

bool IsTestThread() { return GetCurrentThreadId() == testThread; }

std::set<std::string> NeverFailed() {
    std::set<std::string> names;
#define TEV_SYSTEM_CALL(NAME) \
    if (calls::NAME.Failures() == 0) names.insert(#NAME);
#include "SystemCallNames.inc"
#undef TEV_SYSTEM_CALL
    return names;
}

}  // namespace tev::fault

// For each name the system's pointer to the function and the pointer that the objects find in its
// place, as the linker calls them. Objects whose header does not say that the function is imported
// call a jump through that pointer instead.
#define TEV_SYSTEM_CALL(NAME)                                                                 \
    extern "C" {                                                                              \
    extern decltype(&::NAME) __real___imp_##NAME;                                             \
    decltype(&::NAME) __wrap___imp_##NAME =                                                   \
        decltype(tev::fault::calls::NAME)::Enter<tev::fault::calls::NAME>;                    \
    __attribute__((naked)) void __wrap_##NAME() { asm("jmp *__wrap___imp_" #NAME "(%rip)"); } \
    }                                                                                         \
    decltype(tev::fault::calls::NAME) tev::fault::calls::NAME{&__real___imp_##NAME};
#include "SystemCallNames.inc"
#undef TEV_SYSTEM_CALL
