#include "TEVSystemLib/system/detail/ConfigurationFolders.h"

#include <TEVSystemLib/system/TEVSysCnst.h>
#include <TEVSystemLib/util/file/TEVIO.h>

#include <optional>
#include <utility>

#include "TEVSystemLib/util/string/detail/OrNothing.h"
#include "TEVSystemLib/util/windows/detail/ProcessEnvironment.h"
#include "TEVSystemLib/util/windows/detail/ProcessModules.h"

namespace TAMO::TEV::System::detail {

namespace {

using Key = TEVSysCnst::PropertyKey;
using Folder = std::optional<std::string>;

Folder FromApplicationData() {
    const auto folder = Util::detail::ReadVariable("APPDATA");
    if (!folder) return std::nullopt;
    return *folder + "\\Tamo\\";
}

// The folder when it holds the file.
Folder IfItHolds(const char* fileName, Folder folder) {
    if (!folder) return std::nullopt;
    const std::string file = *folder + fileName;
    if (!Util::TEVIO::exists(file)) return std::nullopt;
    return folder;
}

// The candidate's folder when it holds the file; nothing when it does not or cannot be examined.
template <typename Candidate>
Folder Holding(const char* fileName, Candidate candidate) noexcept {
    return Util::detail::OrNothing([&] { return IfItHolds(fileName, candidate()); });
}

// The first candidate that holds the file; empty when none does.
template <typename... Candidates>
std::string FirstHolding(const char* fileName, Candidates... candidates) noexcept {
    Folder found;
    static_cast<void>(((found = Holding(fileName, candidates)) || ...));
    return std::move(found).value_or(std::string());
}

}  // namespace

std::string FindSystemFolder() {
    return FirstHolding(
        Key::TEV_SYS_PROPERTIES_FILE_NAME,
        [] { return Util::detail::ReadPathVariable(Key::ENV_TEV_SYS_CONFIG_DIR); },
        [] { return Util::detail::ModuleFolder(TEVSysCnst::STR_PLINTH_DLL); },
        [] { return Util::detail::ModuleFolder(TEVSysCnst::MODULE_TEV_SYSTEM_LIB); });
}

std::string FindUserFolder() {
    return FirstHolding(
        Key::TEV_USER_PROPERTIES_FILE_NAME,
        [] { return Util::detail::ReadPathVariable(Key::ENV_TEV_USER_CONFIG_DIR); },
        FromApplicationData);
}

}  // namespace TAMO::TEV::System::detail
