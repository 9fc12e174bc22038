#pragma once

#include <map>
#include <string>

namespace TAMO::TEV::System::detail {

using Properties = std::map<std::string, std::string>;

// The store's two tables, seen from inside.
struct PropertyTables {
    Properties& system;
    Properties& user;
};

// The value of a key: user table, system table, process environment, whose answer is cached in the
// system table. Null when none has it. Throws when memory is exhausted.
const std::string* Lookup(PropertyTables tables, const std::string& key);

// Rebuilds both tables from their files and executes the environment directives. A step that fails
// is skipped.
void LoadTables(PropertyTables tables) noexcept;

// Executes the environment directives of the system table.
void ExecuteDirectives(const Properties& system);

}  // namespace TAMO::TEV::System::detail
