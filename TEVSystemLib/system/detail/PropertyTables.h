#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>

namespace TAMO::TEV::System::detail {

using Properties = std::map<std::string, std::string>;

// The store's two tables, seen from inside.
struct PropertyTables {
    Properties& system;
    Properties& user;
};

// Reads an environment variable; nothing when it is not set or cannot be read.
using VariableReader = std::function<std::optional<std::string>(const std::string& name)>;

// The entry that the environment's answer makes in the system table, which must not have the key
// yet. Null when the variable is not set. Throws when memory is exhausted. `readVariable` is a
// VariableReader or anything like it.
template <typename Key, typename Reader>
const Properties::value_type* CacheVariable(Properties& system, const Key& key,
                                            const Reader& readVariable) {
    // KEEP: cached for good; a later change of the variable is not seen until the store is
    // reloaded.
    std::optional<std::string> value = readVariable(key);
    return value ? &*system.emplace(key, *std::move(value)).first : nullptr;
}

// The value of a key: user table, system table, environment, whose answer is cached in the system
// table. Null when none has it. Throws when memory is exhausted.
template <typename Reader>
const std::string* LookUp(PropertyTables tables, const std::string& key,
                          const Reader& readVariable) {
    if (const auto found = tables.user.find(key); found != tables.user.end()) return &found->second;
    if (const auto found = tables.system.find(key); found != tables.system.end())
        return &found->second;
    const auto* cached = CacheVariable(tables.system, key, readVariable);
    return cached == nullptr ? nullptr : &cached->second;
}

}  // namespace TAMO::TEV::System::detail
