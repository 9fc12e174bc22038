#pragma once

#include <optional>
#include <string_view>

namespace TAMO::TEV::System::detail {

enum class PropertyKind { Switch, Level, LoggerList, Mode, FreeText };

struct WellKnownProperty {
    const char* key;
    PropertyKind kind;
    const char* defaultValue;
};

// The row of a well-known key, in any letter case; null for any other key. It has static storage.
const WellKnownProperty* FindWellKnown(std::string_view key);

// The boolean that a switch word stands for, in any letter case; nothing for any other text.
std::optional<bool> SwitchValue(std::string_view word);

// Whether a value is right for that kind.
bool IsValid(PropertyKind kind, std::string_view value);

// The value that a property must have for its well-known key (in any letter case): a switch in
// canonical form, a valid value as it stands, the key's default for an invalid one. Nothing when
// the key is not well known or the value may stay. The result has static storage.
std::optional<std::string_view> CorrectedValue(std::string_view key, std::string_view value);

}  // namespace TAMO::TEV::System::detail
