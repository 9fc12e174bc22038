#pragma once

#include <optional>
#include <string_view>

namespace TAMO::TEV::System::detail {

// The boolean that a switch word stands for, in any letter case; nothing for any other text.
std::optional<bool> SwitchValue(std::string_view word);

// The value that a property must have for its well-known key (in any letter case): a switch in
// canonical form, a valid value as it stands, the key's default for an invalid one. Nothing when
// the key is not well known or the value may stay. The result has static storage.
std::optional<std::string_view> CorrectedValue(std::string_view key, std::string_view value);

}  // namespace TAMO::TEV::System::detail
