#include <TEVSystemLib/system/TEVSysCnst.h>
#include <TEVSystemLib/util/file/TEVUtilFile.h>

#include "TEVSystemLib/system/detail/ConfigurationFolders.h"
#include "TEVSystemLib/system/detail/PropertyTables.h"
#include "TEVSystemLib/system/detail/ReferenceExpansion.h"
#include "TEVSystemLib/system/detail/WellKnownProperties.h"

namespace TAMO::TEV::System::detail {

namespace {

using Key = TEVSysCnst::PropertyKey;

// The pairs of a properties file, and where it was looked for under the two keys given.
Properties Read(const std::string& folder, const char* fileName, const char* folderKey) {
    const std::string path = folder + fileName;
    Properties read;
    Util::TEVUtilFile::GetKeyValuePairsFromFile(path, read, false);
    read[folderKey] = folder;
    read[fileName] = path;
    return read;
}

void ReadSystemFile(Properties& system) {
    system.clear();
    // KEEP: without a folder the bare file name is tried; only the system file has this.
    system = Read(FindSystemFolder(), Key::TEV_SYS_PROPERTIES_FILE_NAME, Key::TEV_SYS_CONFIG_DIR);
}

void ReadUserFile(Properties& user) {
    user.clear();
    const std::string folder = FindUserFolder();
    if (folder.empty()) return;
    user = Read(folder, Key::TEV_USER_PROPERTIES_FILE_NAME, Key::TEV_USER_CONFIG_DIR);
}

// KEEP: one pass in key order; a value put in is not expanded again.
// The lookup may add environment values to the table that is walked; those behind the current key
// are expanded in their turn.
void Expand(Properties& table, PropertyTables tables) {
    const auto lookup = [tables](const std::string& name) { return Lookup(tables, name); };
    for (auto& [key, value] : table) {
        if (value.find('%') != std::string::npos) value = ExpandReferences(value, lookup);
    }
}

void Normalise(Properties& system) {
    for (auto& [key, value] : system) {
        if (const auto corrected = CorrectedValue(key, value)) value = *corrected;
    }
}

template <typename Step>
void Attempt(Step step) noexcept try {
    step();
} catch (...) {
    return;
}

}  // namespace

void LoadTables(PropertyTables tables) noexcept {
    Attempt([tables] { ReadSystemFile(tables.system); });
    Attempt([tables] { ReadUserFile(tables.user); });
    Attempt([tables] { Expand(tables.system, tables); });
    Attempt([tables] { Expand(tables.user, tables); });
    Attempt([tables] { ExecuteDirectives(tables.system); });
    Attempt([tables] { Normalise(tables.system); });
}

}  // namespace TAMO::TEV::System::detail
