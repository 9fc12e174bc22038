#include "TEVSystemLib/system/detail/TableLoad.h"

#include <TEVSystemLib/system/TEVSysCnst.h>

#include <utility>

#include "TEVSystemLib/system/detail/ReferenceExpansion.h"
#include "TEVSystemLib/system/detail/WellKnownProperties.h"

namespace TAMO::TEV::System::detail {

namespace {

using Key = TEVSysCnst::PropertyKey;

// The pairs of a properties file, and where it was looked for, over anything that it says.
Properties ReadWithNotes(const FilePlace& file, LoadWorld& world) {
    Properties read = world.Read(file);
    read[file.folderKey] = file.folder;
    read[file.fileName] = file.Path();
    return read;
}

void ReadSystemFile(Properties& system, LoadWorld& world) {
    system.clear();
    // KEEP: without a folder the bare file name is tried; only the system file has this.
    system = ReadWithNotes(world.FindSystemFile(), world);
}

void ReadUserFile(Properties& user, LoadWorld& world) {
    user.clear();
    const FilePlace file = world.FindUserFile();
    if (file.folder.empty()) return;
    user = ReadWithNotes(file, world);
}

// KEEP: one pass in key order; a value put in is not expanded again.
// The lookup may add environment values to the table that is walked; those behind the current key
// are expanded in their turn.
void Expand(Properties& table, LoadWorld& world) {
    for (auto& [entryKey, value] : table) {
        const std::string& key = entryKey;
        if (value.find('%') == std::string::npos) continue;
        value = ExpandReferences(
            value, [&](const std::string& name) { return world.Resolve(table, key, name); });
    }
}

void Normalise(Properties& system) {
    for (auto& [key, value] : system) {
        if (const auto corrected = CorrectedValue(key, value)) value = *corrected;
    }
}

template <typename Step>
void Attempt(LoadWorld& world, Step step) try {
    step();
} catch (...) {
    world.StepFailed();
}

}  // namespace

FilePlace SystemFileIn(std::string folder) {
    return {std::move(folder), Key::TEV_SYS_PROPERTIES_FILE_NAME, Key::TEV_SYS_CONFIG_DIR};
}

FilePlace UserFileIn(std::string folder) {
    return {std::move(folder), Key::TEV_USER_PROPERTIES_FILE_NAME, Key::TEV_USER_CONFIG_DIR};
}

bool IsNoted(const FilePlace& place, const std::string& key) {
    return key == place.folderKey || key == place.fileName;
}

void LoadTables(PropertyTables tables, LoadWorld& world) {
    Attempt(world, [&] { ReadSystemFile(tables.system, world); });
    Attempt(world, [&] { ReadUserFile(tables.user, world); });
    Attempt(world, [&] { Expand(tables.system, world); });
    Attempt(world, [&] { Expand(tables.user, world); });
    Attempt(world, [&] { world.ExecuteDirectives(tables.system); });
    Attempt(world, [&] { Normalise(tables.system); });
}

}  // namespace TAMO::TEV::System::detail
