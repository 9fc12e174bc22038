#include "TEVSystemLib/util/windows/detail/ProcessModules.h"

#include <windows.h>

#include "TEVSystemLib/util/file/detail/PathText.h"
#include "TEVSystemLib/util/string/detail/AsciiText.h"

namespace TAMO::TEV::System::Util::detail {

std::optional<std::string> ModuleFileName(std::string_view name) {
    constexpr DWORD kMaxPathChars = 32767;
    const std::string module(TrimIfSpaced(name));
    if (module.empty()) return std::nullopt;
    const HMODULE handle = GetModuleHandleA(module.c_str());
    if (handle == nullptr) return std::nullopt;
    std::string path(kMaxPathChars, '\0');
    SetLastError(ERROR_SUCCESS);
    const DWORD length = GetModuleFileNameA(handle, path.data(), kMaxPathChars);
    const DWORD error = GetLastError();
    if (length == 0 || error == ERROR_INSUFFICIENT_BUFFER) return std::nullopt;
    path.resize(length);
    return path;
}

std::optional<std::string> ModuleFolder(std::string_view name) {
    const auto path = ModuleFileName(name);
    // KEEP: a module asked for by its full path has no folder here; the name alone is wanted.
    if (!path || path->size() <= TrimIfSpaced(name).size()) return std::nullopt;
    const auto folder = FolderOf(*path);
    if (!folder || folder->size() <= 1) return std::nullopt;
    return WithEndingSeparator(*folder);
}

}  // namespace TAMO::TEV::System::Util::detail
