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

// Why an entry that looks like a directive is left out.
enum class DirectiveFlaw {
    None,
    UnknownPrefix,  // "tev.env." and none of the directives' words
    NoVariable,     // nothing to delete
    NoBar,          // no "|" between name and value
    OnePiece,       // nothing on one side of the "|"
    ManyPieces,
    BlankPiece,
    NoFolder  // the folder of a path kind does not exist
};

struct DirectiveEntry {
    std::string key;
    DirectiveFlaw flaw;
    Directive directive;  // with a flaw, as much of it as could be made out
};

// The entries of a properties table that are directives, or look like one, in the order of
// execution: by kind, then by key. Slashes in paths are turned.
std::vector<DirectiveEntry> ExamineDirectives(const std::map<std::string, std::string>& properties,
                                              const FolderTest& folderExists);

// Those without a flaw, and without those that do not fit into memory.
std::vector<Directive> PlanDirectives(const std::map<std::string, std::string>& properties,
                                      const FolderTest& folderExists);

// A kind as its keys name it: "add.path".
std::string NameOf(DirectiveKind kind);

// Whether it does nothing to a variable that is not set.
bool NeedsVariable(DirectiveKind kind);

// The environment that directives work on; what it does is what TEVUtilWindows says of its
// functions for environment variables. Nothing throws.
class VariableSession {
 public:
    virtual bool Exists(const std::string& name) = 0;
    // A null value deletes.
    virtual bool Set(const std::string& name, const char* value) = 0;
    virtual bool Modify(const std::string& name, const std::string& element, bool prepend,
                        int operation) = 0;

 protected:
    ~VariableSession() = default;
};

// Whether the session took the change; false also for a variable that had to exist.
bool Execute(const Directive& directive, VariableSession& session);

}  // namespace TAMO::TEV::System::detail
