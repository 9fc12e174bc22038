#pragma once

#include <cstddef>

// The program's operators new and delete, replaced: they count, fail on demand, and fill new blocks
// with a non-zero byte. From StartGuarding on every block is guarded memory (GuardedMemory.h).
namespace tev::fault {

struct Counters {
    std::ptrdiff_t live = 0;      // allocations that are alive now
    std::ptrdiff_t attempts = 0;  // calls of new and new[], failed ones too
    // Releases of what was not allocated here, was released before, was allocated with the other of
    // new and new[], or was written outside its bounds.
    std::ptrdiff_t wrong = 0;
    std::ptrdiff_t refused = 0;    // attempts that failed on demand
    std::ptrdiff_t unguarded = 0;  // blocks made after StartGuarding for which no guard was left
    std::size_t lastSize = 0;      // bytes asked for by the last attempt
};

Counters Now();

// What was made before, the registration of the tests above all, lives as long as the program and
// would use up the guards.
void StartGuarding();

enum class Mode { Once, FromThenOn };

// Lets the n-th attempt from now on fail, counted from 0: that one, or it and all that follow.
void FailAllocation(std::ptrdiff_t n, Mode mode);
void StopFailing();

}  // namespace tev::fault
