#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "TEVSystemLib/util/memory/detail/OwnedArray.h"

// Variables of this process. Names are trimmed if a plain space stands at an end; an empty value
// reads as not set.
namespace TAMO::TEV::System::Util::detail {

// Null when it is not set. Throws when the value has no form in the C locale, or memory for it is
// exhausted.
OwnedText ReadVariableText(std::string_view name);
std::optional<std::string> ReadVariable(std::string_view name);

// Trimmed and ended with "/" unless it ends with a separator. Throws as above.
std::optional<std::string> ReadPathVariable(std::string_view name);

// Never throws: what cannot be read is not set.
std::optional<std::string> TryReadVariable(std::string_view name) noexcept;

}  // namespace TAMO::TEV::System::Util::detail
