#include <TEVSystemLib/system/TEVSysCnst.h>
#include <TEVSystemLib/util/file/TEVIO.h>
#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <TEVSystemLib/util/windows/TEVUtilWindows.h>
#include <windows.h>
// shlobj.h needs windows.h before it.
#include <shlobj.h>

#include "TEVSystemLib/util/file/detail/PathText.h"
#include "TEVSystemLib/util/string/detail/HandOut.h"
#include "TEVSystemLib/util/windows/detail/AnsiText.h"
#include "TEVSystemLib/util/windows/detail/ComOwners.h"
#include "TEVSystemLib/util/windows/detail/ProcessEnvironment.h"
#include "TEVSystemLib/util/windows/detail/ToolkitRoot.h"

namespace TAMO::TEV::System::Util {

namespace {

// KEEP: the marker may stand anywhere in a module's path; callers rely on its leading backslash.
std::optional<std::string> FolderOfMarker(const char* marker) {
    std::string folder;
    if (!TEVUtilWindows::RetrieveFullyQualifiedModulePath(marker, GetCurrentProcessId(), folder) ||
        !TEVIO::dirExists(folder))
        return std::nullopt;
    return folder;
}

// The toolkit's library folder, when the variable names its sub-folder `tail`.
std::optional<std::string> ToolkitFolder(const char* variable, const char* tail) {
    // KEEP: a variable that cannot be read counts as not set, so that the search goes on.
    const auto root = detail::RootBefore(tail, detail::TryReadVariable(variable).value_or(""));
    if (!root) return std::nullopt;
    std::string folder = *root + TEVSysCnst::STR_REL_PATH_LIB;
    // KEEP: the marker's name must belong to a folder, not to a file.
    if (!TEVIO::dirExists(folder + TEVSysCnst::STR_CSMAPI_DLL)) return std::nullopt;
    return folder;
}

std::optional<std::string> DocumentsFolder() {
    wchar_t* path = nullptr;
    const HRESULT result = SHGetKnownFolderPath(FOLDERID_Documents, 0, nullptr, &path);
    const detail::TaskMemory owned(path);
    if (FAILED(result) || !owned) return std::nullopt;
    const std::string folder = detail::ToAnsi(path);
    if (!TEVIO::dirExists(folder)) return std::nullopt;
    return detail::WithEndingSeparator(detail::WithBackslashes(folder));
}

}  // namespace

char* TEVUtilWindows::GetCurrentProcessCorvidRootFolder() {
    for (const char* marker :
         {"\\Plinth.dll", "\\SensorSupportDataLib.dll", "\\MeasureKitLib.dll"}) {
        const auto folder = FolderOfMarker(marker);
        char* copy = nullptr;
        if (folder && TEVUtilString::Copy(folder->c_str(), &copy, nullptr)) return copy;
    }
    return nullptr;
}

char* TEVUtilWindows::GetCurrentProcessKPTRootFolder() try {
    auto folder = ToolkitFolder(TEVSysCnst::STR_KPT_DATA_DIR, TEVSysCnst::STR_REL_PATH_DATA);
    if (!folder)
        folder = ToolkitFolder(TEVSysCnst::STR_CSM_PLUGIN_DIR, TEVSysCnst::STR_REL_PATH_PLUGINS);
    if (!folder) return nullptr;
    return detail::MakeText(*folder).release();
} catch (...) {
    return nullptr;
}

// KEEP: the folder, in spite of the name.
bool TEVUtilWindows::GetFullyQualifiedExePath(char** folder) try {
    constexpr DWORD kExePathChars = 8192;
    if (folder == nullptr) return false;
    *folder = nullptr;
    const detail::OwnedText path = detail::MakeText(kExePathChars);
    const DWORD length = GetModuleFileNameA(nullptr, path.get(), kExePathChars);
    if (length == 0 || length >= kExePathChars) return false;
    const auto found = detail::FolderOf({path.get(), length});
    return found && detail::HandOut(*found, folder);
} catch (...) {
    return false;
}

bool TEVUtilWindows::GetCurrentUserHomeFolder(char** folder) try {
    if (folder == nullptr) return false;
    *folder = nullptr;
    const auto found = DocumentsFolder();
    return found && detail::HandOut(*found, folder);
} catch (...) {
    return false;
}

}  // namespace TAMO::TEV::System::Util
