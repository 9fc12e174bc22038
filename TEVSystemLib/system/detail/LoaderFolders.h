#pragma once

#include <TEVSystemLib/system/TEVSystemDiagnostics.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

// The folders of the system's loader as text; nothing here looks at a disk.
namespace TAMO::TEV::System::detail {

// What the order depends on.
struct LoaderFacts {
    std::string program;
    std::string system;
    std::string windows;
    std::string current;
    std::string path;
    // Set for the process by itself; empty when it is not.
    std::string dllDirectory;
};

using SearchedFolders = std::vector<TEVSystemDiagnostics::SearchedFolder>;

// For a load without search directories.
SearchedFolders OrdinaryFolders(const LoaderFacts& facts);
// Those of PATH alone.
SearchedFolders PathFolders(const LoaderFacts& facts);
// The one in which a module lies, which is not searched for what the module needs.
SearchedFolders FolderBeside(const TEVSystemDiagnostics::Module& module);
// For a load with those that the system has taken, in the order in which they were added.
SearchedFolders FoldersWithDirectories(const LoaderFacts& facts,
                                       const std::vector<std::string>& directories);

// A path that is not searched for: it has a drive, or begins with a separator or a point.
bool IsFixedPath(std::string_view name);
// The name of a contract, which the system provides by a module of its own choice.
bool IsContract(std::string_view name);
// What stands behind the last separator.
std::string FileNameOf(std::string_view path);
bool IsBelow(std::string_view folder, std::string_view file);

// The path in the first folder where it exists.
std::optional<std::string> FindInFolders(const SearchedFolders& folders, const std::string& name,
                                         const std::function<bool(const std::string&)>& exists);

}  // namespace TAMO::TEV::System::detail
