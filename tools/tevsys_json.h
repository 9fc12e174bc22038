#pragma once

#include <nlohmann/json.hpp>
#include <ostream>

namespace tevsys {

using Json = nlohmann::ordered_json;

// One value, indented, with a line end.
void Write(std::ostream& out, const Json& value);

}  // namespace tevsys
