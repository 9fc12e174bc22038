#pragma once

#include <string>

#include "tools/tevsys_console.h"

namespace tevsys {

// Prints a measured value and its uncertainty as the uncertainty allows.
ExitCode Figures(const std::string& value, const std::string& uncertainty, bool scientific);

}  // namespace tevsys
