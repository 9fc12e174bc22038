#pragma once

#include <cstddef>

// The program's operators new and delete, replaced. New blocks are filled with a non-zero byte and
// have a guard behind them, which is checked on release.
namespace tev::fault {

struct Counters {
    std::ptrdiff_t live = 0;      // allocations that are alive now
    std::ptrdiff_t attempts = 0;  // calls of new and new[], failed ones too
    // Releases of what was not allocated here, was released before, was allocated with the other of
    // new and new[], or was written behind its end.
    std::ptrdiff_t wrong = 0;
    std::size_t lastSize = 0;  // bytes asked for by the last attempt
};

Counters Now();

}  // namespace tev::fault
