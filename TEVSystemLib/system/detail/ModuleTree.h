#pragma once

#include <TEVSystemLib/system/TEVSystemDiagnostics.h>

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// The tree of what a module needs; nothing here looks at a disk.
namespace TAMO::TEV::System::detail {

struct ModulePlace {
    // Empty for a contract that the system provides without a file.
    std::string file;
    bool isOfTheSystem = false;
};

// How the tree gets at modules.
struct ModuleAccess {
    // Where the loader finds a module of that name; nothing when it does not.
    std::function<std::optional<ModulePlace>(const std::string& name)> find;
    // The content of a file; nothing when it cannot be read.
    std::function<std::optional<std::string>(const std::string& file)> read;
};

// Every file is read once, and shown with its imports where it stands first.
TEVSystemDiagnostics::Module MakeModuleTree(const std::string& name, const ModuleAccess& access);

// A name with ".dll" unless it has an ending; a point at the end says that it has none.
std::string WithModuleEnding(std::string_view name);

}  // namespace TAMO::TEV::System::detail
