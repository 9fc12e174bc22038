#pragma once

#include <cstddef>

// The calls that the library's objects make for BSTRs and SAFEARRAYs, counted and made to fail. The
// linker leads them here: the library itself has no seam.
namespace tev::fault {

// BSTRs that the library has made and not given back. One that it hands out is released by the test
// through the library too.
std::ptrdiff_t LiveBstrs();

// SAFEARRAYs that the library has made and not destroyed; those that a variant took over stay
// counted.
std::ptrdiff_t LiveArrays();

// How often the library has given task memory back.
std::ptrdiff_t TaskMemoryReleases();

// Lets the n-th SysAllocString from now on fail, counted from 0, and no other; negative lets none
// fail.
void FailBstr(int n);

}  // namespace tev::fault
