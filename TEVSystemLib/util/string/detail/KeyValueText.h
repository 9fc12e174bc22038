#pragma once

#include <optional>
#include <string_view>

// The two halves of one "key=value" text, split at the first "=". A text that begins with a plain
// space is trimmed at its start first. Nothing when the text has no such half.
namespace TAMO::TEV::System::Util::detail {

// The text before the "=" without the blanks at its end; never empty. The pair must have at least
// three characters.
std::optional<std::string_view> KeyOf(std::string_view pair);

// All that follows the "=", as it stands; may be empty.
std::optional<std::string_view> ValueOf(std::string_view pair);

}  // namespace TAMO::TEV::System::Util::detail
