#pragma once

#include <optional>
#include <set>
#include <string>

#include "TEVSystemLib/system/detail/PropertyIndex.h"
#include "TEVSystemLib/system/detail/PropertyTables.h"

// The tables of this process's store.
namespace TAMO::TEV::System::detail {

// As LookUp, in the environment of this process.
const std::string* Lookup(PropertyTables tables, const std::string& key);

// Rebuilds both tables from their files and executes the environment directives. A step that fails
// is skipped.
void LoadTables(PropertyTables tables) noexcept;

// Executes the environment directives of the system table.
void ExecuteDirectives(const Properties& system);

struct StoreState {
    PropertyTables tables;
    PropertyIndex& index;
    // Keys of the user properties set since they were loaded or saved faithfully.
    std::set<std::string>& unsaved;
};

// The store, if it has been made.
std::optional<StoreState> ExistingStore();
// The store, made and loaded by the first call. Throws when memory is exhausted.
StoreState MadeStore();

}  // namespace TAMO::TEV::System::detail
