#pragma once

#include <string_view>
#include <vector>

namespace TAMO::TEV::System::Util::detail {

// Cuts a text at every character of the set `delimiters`. Runs of delimiters, and those at the
// ends, count as one separator: no token is empty. The tokens point into `text`.
std::vector<std::string_view> Tokens(std::string_view delimiters, std::string_view text);

}  // namespace TAMO::TEV::System::Util::detail
