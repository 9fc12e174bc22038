#include "TEVSystemLib/system/detail/ConfigurationFolders.h"

#include <TEVSystemLib/system/TEVSysCnst.h>
#include <TEVSystemLib/util/file/TEVIO.h>

#include <optional>

#include "TEVSystemLib/util/windows/detail/ProcessEnvironment.h"
#include "TEVSystemLib/util/windows/detail/ProcessModules.h"

namespace TAMO::TEV::System::detail {

namespace {

using Key = TEVSysCnst::PropertyKey;
using Folder = std::optional<std::string>;

Folder FromPathVariable(const char* name) try {
    return Util::detail::ReadPathVariable(name);
} catch (...) {
    return std::nullopt;
}

Folder FromModule(const char* name) try { return Util::detail::ModuleFolder(name); } catch (...) {
    return std::nullopt;
}

Folder FromApplicationData() try {
    const auto folder = Util::detail::ReadVariable("APPDATA");
    if (!folder) return std::nullopt;
    return *folder + "\\Tamo\\";
} catch (...) {
    return std::nullopt;
}

bool Holds(const Folder& folder, const char* fileName) {
    return folder && !folder->empty() && Util::TEVIO::exists(*folder + fileName);
}

}  // namespace

std::string FindSystemFolder() {
    constexpr auto isFound = [](const Folder& folder) {
        return Holds(folder, Key::TEV_SYS_PROPERTIES_FILE_NAME);
    };
    if (auto folder = FromPathVariable(Key::ENV_TEV_SYS_CONFIG_DIR); isFound(folder))
        return *folder;
    if (auto folder = FromModule(TEVSysCnst::STR_PLINTH_DLL); isFound(folder)) return *folder;
    if (auto folder = FromModule(TEVSysCnst::MODULE_TEV_SYSTEM_LIB); isFound(folder))
        return *folder;
    return {};
}

std::string FindUserFolder() {
    constexpr auto isFound = [](const Folder& folder) {
        return Holds(folder, Key::TEV_USER_PROPERTIES_FILE_NAME);
    };
    if (auto folder = FromPathVariable(Key::ENV_TEV_USER_CONFIG_DIR); isFound(folder))
        return *folder;
    if (auto folder = FromApplicationData(); isFound(folder)) return *folder;
    return {};
}

}  // namespace TAMO::TEV::System::detail
