#pragma once

#include <string>
#include <vector>

#include "tools/tevsys_console.h"

namespace tevsys {

// Shows why a module loads or does not, as a tree or as JSON. kFailed when it does not load, or
// something in it is wrong.
ExitCode Doctor(const std::string& module, const std::vector<std::string>& directories,
                bool asJson);

}  // namespace tevsys
