#include "TEVSystemLib/util/string/detail/wide/Kernels.h"

#include <algorithm>

#if defined(TEV_WIDE_SSSE3) && defined(_MSC_VER)
#include <intrin.h>
#endif

namespace TAMO::TEV::System::Util::detail::wide {

namespace {

#ifdef TEV_WIDE_SSSE3
constexpr const Kernels* kLevels[] = {&kPortable, &kSsse3, &kAvx2};

#ifdef _MSC_VER
bool HasSsse3() {
    constexpr int kBit = 1 << 9;
    int registers[4];
    __cpuid(registers, 1);
    return (registers[2] & kBit) != 0;
}

// The system must save the wide registers too.
bool HasAvx2() {
    constexpr int kSavesRegisters = 1 << 27;
    constexpr int kAvx2Bit = 1 << 5;
    constexpr unsigned long long kWideState = 6;
    int registers[4];
    __cpuid(registers, 1);
    if ((registers[2] & kSavesRegisters) == 0 || (_xgetbv(0) & kWideState) != kWideState)
        return false;
    __cpuidex(registers, 7, 0);
    return (registers[1] & kAvx2Bit) != 0;
}
#else
bool HasSsse3() { return __builtin_cpu_supports("ssse3") != 0; }
bool HasAvx2() { return __builtin_cpu_supports("avx2") != 0; }
#endif
#else
constexpr const Kernels* kLevels[] = {&kPortable};

bool HasSsse3() { return false; }
bool HasAvx2() { return false; }
#endif

// The highest level that this build may use; see TEV_WIDE_LEVEL.
#ifndef TEV_WIDE_HIGHEST
constexpr std::size_t kHighest = 3;
#else
constexpr std::size_t kHighest = TEV_WIDE_HIGHEST;
#endif

}  // namespace

Levels LevelsOf(Processor processor) noexcept {
    const std::size_t runnable = !processor.hasSsse3 ? 1 : !processor.hasAvx2 ? 2 : 3;
    return {kLevels, std::min(runnable, kHighest)};
}

Levels RunnableLevels() noexcept {
    static const Levels runnable = LevelsOf({HasSsse3(), HasAvx2()});
    return runnable;
}

const Kernels* best = &kPortable;

namespace {

// Chooses while the module is loaded, so that no call has to ask.
struct Choice {
    Choice() noexcept {
        const Levels levels = RunnableLevels();
        best = levels.first[levels.count - 1];
    }
};
const Choice choice;

}  // namespace

}  // namespace TAMO::TEV::System::Util::detail::wide
