#pragma once

#include <sstream>
#include <string>
#include <vector>

#include "support/Soak.h"

// Calls of what promises to be safe on distinct data. soak_coverage_test.sh looks in their objects
// for each function that is exported.
namespace tev::test {

std::vector<Job> TextJobs();
std::vector<Job> MemoryJobs();
std::vector<Job> ComJobs();
std::vector<Job> OverloadJobs();
std::vector<Job> ProcessJobs();

inline std::string Number(unsigned seed) { return std::to_string(seed * 7919 + 1) + ".5"; }

inline std::string Narrow(const std::wstring& wide) { return {wide.begin(), wide.end()}; }

// What the values are, one behind the other.
template <typename... Values>
std::string Line(const Values&... values) {
    std::ostringstream line;
    ((line << values << '|'), ...);
    return line.str();
}

}  // namespace tev::test
