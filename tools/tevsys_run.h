#pragma once

#include <string>
#include <vector>

namespace tevsys {

// Starts a program in the environment that the directives have prepared, and gives its exit code.
int RunProgram(const std::vector<std::string>& command);

}  // namespace tevsys
