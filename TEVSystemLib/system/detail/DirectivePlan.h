#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace TAMO::TEV::System::detail {

// What an environment directive does, in the order in which the kinds are executed.
enum class DirectiveKind {
    Add,
    AddPath,
    Delete,
    New,
    NewPath,
    Replace,
    ReplacePath,
    RemoveElement
};

struct Directive {
    DirectiveKind kind;
    std::string variable;
    std::string value;  // empty for Delete
};

// Tells whether a folder exists.
using FolderTest = std::function<bool(const std::string& folder)>;

// The directives among the entries of a properties table, in the order of execution: by kind, then
// by key. Malformed ones, paths that name no existing folder, and ones that do not fit into memory
// are left out; slashes in paths are turned.
std::vector<Directive> PlanDirectives(const std::map<std::string, std::string>& properties,
                                      const FolderTest& folderExists);

}  // namespace TAMO::TEV::System::detail
