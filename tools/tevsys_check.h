#pragma once

#include <string>
#include <vector>

#include "tools/tevsys_console.h"

namespace tevsys {

// Shows what is odd in properties files, in those that the store finds when none is named.
ExitCode Check(std::vector<std::string> files, const std::vector<std::string>& redacted,
               bool asJson);

}  // namespace tevsys
