#pragma once

#include <TEVSystemLib/system/TEVSystemProperties.h>

#include <map>
#include <optional>
#include <string>

namespace tevsys {

using Table = std::map<std::string, std::string>;

// The store's tables, which the library shows to derived classes only.
class Store : private TAMO::TEV::System::TEVSystemProperties {
 public:
    Store() = delete;

    static const Table& System();
    static const Table& User();
};

// The variables of this process by name.
Table EnvironmentVariables();

// The value of a variable in any letter case of its name.
std::optional<std::string> FindVariable(const Table& variables, const std::string& name);

}  // namespace tevsys
