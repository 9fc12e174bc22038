#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace TAMO::TEV::System::detail {

// Gives the value of a name, or null; the pointer need only last until the next call.
using NameLookup = std::function<const std::string*(const std::string& name)>;

// Replaces every %NAME% that `lookup` knows, once from left to right: a value put in is not
// expanded again. Unknown names and a lone "%" stay as they are. So the result is at most as long
// as the text and, for every two "%" in it, the longest value.
std::string ExpandReferences(std::string_view text, const NameLookup& lookup);

// Whether a text holds a reference, known or not.
bool HasReference(std::string_view text);

}  // namespace TAMO::TEV::System::detail
