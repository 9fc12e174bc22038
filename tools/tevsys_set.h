#pragma once

#include <string>

#include "tools/tevsys_console.h"

namespace tevsys {

// Sets a user property and saves it in the user file, in which nothing else changes.
ExitCode Set(const std::string& key, const std::string& value);

}  // namespace tevsys
