#pragma once

#include <cstdint>
#include <cstdlib>
#include <string>

namespace tev::test {

// Only such a part of every repetition is run. A program whose allocations are slow sets it before
// its tests.
inline std::int64_t effortDivisor = 1;

// How often a random comparison is repeated: `quick` times; fifty times that when the variable
// TEV_TEST_EFFORT is "all", and a fiftieth when it is "little"; a twentieth under the sanitizers,
// which look for other things.
inline std::int64_t Repetitions(std::int64_t quick) {
    constexpr std::int64_t kFactor = 50;
    // Asked once: loops call this for every repetition.
    static const std::string effort = [] {
        const char* set = std::getenv("TEV_TEST_EFFORT");
        return std::string(set == nullptr ? "" : set);
    }();
    quick /= effortDivisor;
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    quick /= 20;
#endif
    if (effort == "all") return quick * kFactor;
    return effort == "little" ? quick / kFactor : quick;
}

}  // namespace tev::test
