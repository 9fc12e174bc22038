#include "tools/tevsys_store.h"

#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <TEVSystemLib/util/windows/TEVUtilWindows.h>

#include <cstddef>

namespace tevsys {

namespace {

using TAMO::TEV::System::Util::TEVUtilString;
using TAMO::TEV::System::Util::TEVUtilWindows;

// Strings that the library handed out.
struct Strings {
    Strings() = default;
    ~Strings() { TEVUtilString::DeleteCStringArray(array, count); }
    Strings(const Strings&) = delete;
    Strings& operator=(const Strings&) = delete;

    char** array = nullptr;
    std::size_t count = 0;
};

}  // namespace

// The instance is no Store, so a protected member is reached through a pointer to it.
const Table& Store::System() { return (get().*(&Store::getProperties))(); }
const Table& Store::User() { return (get().*(&Store::getUserProperties))(); }

Table EnvironmentVariables() {
    Strings names;
    Strings values;
    std::size_t count = 0;
    if (!TEVUtilWindows::GetCurrentProcessEnvironmentVariables(names.array, values.array, count))
        return {};
    names.count = values.count = count;
    Table variables;
    for (std::size_t i = 0; i < count; ++i) variables.emplace(names.array[i], values.array[i]);
    return variables;
}

std::optional<std::string> FindVariable(const Table& variables, const std::string& name) {
    constexpr bool kIgnoreCase = true;
    for (const auto& [candidate, value] : variables)
        if (TEVUtilString::Compare(kIgnoreCase, candidate, name) == 0) return value;
    return std::nullopt;
}

}  // namespace tevsys
