#pragma once

#include <cstdint>
#include <cstdlib>

namespace tev::test {

// How often a random comparison is repeated: `quick` times; fifty times that when the variable
// TEV_TEST_EFFORT is "all"; a twentieth under the sanitizers, which look for other things.
inline std::int64_t Repetitions(std::int64_t quick) {
    constexpr std::int64_t kAll = 50;
    const char* effort = std::getenv("TEV_TEST_EFFORT");
    const bool isAll = effort != nullptr && effort[0] == 'a';
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    quick /= 20;
#endif
    return isAll ? kAll * quick : quick;
}

}  // namespace tev::test
