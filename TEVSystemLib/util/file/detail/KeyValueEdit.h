#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace TAMO::TEV::System::Util::detail {

using TextPairs = std::map<std::string, std::string>;

// The pairs of a key=value text; the last line for a key counts.
TextPairs PairsOf(std::string_view text);

// A key=value text in which the line that counts for each of the keys has the value given, and
// nothing else is changed; keys without a line come at the end. Nothing when a line cannot hold one
// of the pairs.
std::optional<std::string> WithPairs(std::string_view text, const TextPairs& pairs);

}  // namespace TAMO::TEV::System::Util::detail
