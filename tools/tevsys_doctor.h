#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace tevsys {

// Tells why a module loads or does not, as a tree or as JSON, in UTF-8. False when it does not
// load, or something in it is wrong; throws std::runtime_error when the library gives no answer.
bool ShowDoctor(std::ostream& out, const std::string& module,
                const std::vector<std::string>& directories, bool asJson);

}  // namespace tevsys
