#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace TAMO::TEV::System::Util::detail {

// The full file name and the folder, ending with "\", of a module loaded in this process. Names are
// trimmed if a plain space stands at an end.
std::optional<std::string> ModuleFileName(std::string_view name);
std::optional<std::string> ModuleFolder(std::string_view name);

}  // namespace TAMO::TEV::System::Util::detail
