#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace TAMO::TEV::System::Util::detail {

// The part of a folder text in front of `tail`, which is lower-case and ends with "\" and which the
// text must end with in any letter case; slashes are turned and the last separator may be missing.
std::optional<std::string> RootBefore(std::string_view tail, std::string_view folder);

}  // namespace TAMO::TEV::System::Util::detail
