#pragma once

#include <string>
#include <vector>

#include "tools/tevsys_console.h"

namespace tevsys {

// Shows what the environment directives would do.
ExitCode ShowPlan(const std::vector<std::string>& redacted, bool asJson);

}  // namespace tevsys
