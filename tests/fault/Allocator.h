#pragma once

#include <cstddef>

// The program's operators new and delete, replaced: they count.
namespace tev::fault {

// Allocations that are alive now.
std::ptrdiff_t LiveAllocations();

// Releases so far of what was not allocated here, was released before, or was allocated with the
// other of new and new[].
std::ptrdiff_t WrongReleases();

}  // namespace tev::fault
