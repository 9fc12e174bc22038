#pragma once

#include <string>

// What the loaded TEVSystemLib.dll says under a name of its version resource; empty when nothing.
std::string VersionText(const std::string& name);
// Its file version and its product version as numbers, "1.0.0.0 1.0.0.0".
std::string VersionNumbers();
