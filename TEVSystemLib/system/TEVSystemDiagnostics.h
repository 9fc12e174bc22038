#pragma once

#include <TEVSystemLib/TEVSystemExport.h>

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace TAMO::TEV::System {

// Tells why the configuration is as it is: what supplied a value, what is odd in a properties file,
// what the environment directives do; and why a module does not load. The functions for the
// configuration read the files and the environment as they are now and go through the steps of
// TEVSystemProperties with them, changing nothing: neither the store nor the environment. None of
// them makes the store, but for those that say so.
//
// Every function gives false, with its output empty, when memory is exhausted; nothing throws. But
// a folder, a file or a variable that cannot be asked for is passed over, as the store itself does.
// Texts from files come as their bytes stand, texts from the environment as the C locale has them.
//
// Threads: as TEVSystemProperties, with which they must not run at the same time; where a function
// says otherwise, that holds. A snapshot may be read by any thread.
class TEVSYSTEMLIB_API TEVSystemDiagnostics {
 public:
    TEVSystemDiagnostics() = delete;

    // What supplies a value, in the order of a lookup.
    enum class Layer : int {
        None,
        UserFile,
        SystemFile,
        Noted,              // what the store notes about its files
        CachedEnvironment,  // a variable that a reference has copied into the system table, with
                            // the value from before the directives
        Environment,        // a variable, with its value after the directives
        SetInProcess        // SetUserProperty, or a file that has changed since
    };

    // A line of a file, counted from 1; no file and 0 for what stands in none.
    struct Place {
        // The path, and the line in it.
        std::string file;
        std::size_t line = 0;
    };

    // What has become of a reference.
    enum class Fate : int {
        Resolved,
        Unresolved,    // nothing has that name: the reference stays as it is
        ToItself,      // its own text was put in
        ExpandedLater  // put in with references of its own, which are not expanded any more
    };

    // A reference in a value.
    struct Reference {
        // The name between the marks, what it came to, and where the value put in comes from.
        std::string name;
        Fate fate = Fate::Resolved;
        Layer layer = Layer::None;
        Place place;
        std::string value;
    };

    // A value, as it was written and as a lookup gives it.
    struct Source {
        // Where it stands, as it is written there, and what it is in the end.
        Layer layer = Layer::None;
        Place place;
        std::string written;
        std::string value;
    };

    // What a directive comes to.
    enum class Outcome : int {
        Changed,
        Unchanged,  // it is so already
        Refused,    // the variable is not set, or the system refuses the value
        Ignored     // malformed, or a folder that does not exist
    };

    // What an environment directive does to its variable.
    struct DirectiveStep {
        // The property that is the directive, and what it asks for.
        std::string key;
        Place place;
        std::string kind;  // "add.path"; empty for none
        std::string variable;
        std::string value;
        Outcome outcome = Outcome::Ignored;
        std::string reason;            // why it changes nothing
        bool isFolderMissing = false;  // the reason then ends with the value, in quotes
        std::optional<std::string> before;
        std::optional<std::string> after;
    };

    // What a well-known key may hold; Other is for all other keys.
    enum class Kind : int { Other, Switch, Level, LoggerList, Mode, FreeText };

    // What putting a well-known key right has done to its value.
    enum class Correction : int { None, Rewritten, DefaultTaken };

    // All about a property.
    struct Explanation {
        // As asked for.
        std::string key;
        // What a lookup answers.
        Source answer;
        // The answer before well-known keys are put right, and its references in their order.
        std::string expanded;
        std::vector<Reference> references;
        Correction correction = Correction::None;
        // What gives way to the answer, earlier lines of a file included.
        std::vector<Source> losers;
        // The directives that have changed the variable of that name.
        std::vector<DirectiveStep> directives;
        // Of a well-known key.
        Kind kind = Kind::Other;
        std::string defaultValue;
        // What this process's store answers, if it has been made; it differs from `answer` when
        // files or environment have changed since, or a user property was set.
        bool isStoreMade = false;
        Source held;
    };

    // What a lookup of a key would answer. A null key counts as empty.
    static bool ExplainProperty(const char* key, Explanation& explanation);
    // The same for every key that the files and the environment put in a table, sorted; one that
    // only SetUserProperty has set is not among them.
    static bool ExplainProperties(std::vector<Explanation>& explanations);

    // A note is worth knowing; a warning asks for a change.
    enum class Severity : int { Note, Warning };

    // Something odd in a file.
    struct Finding {
        // Where, how bad, and what.
        Place place;
        Severity severity = Severity::Warning;
        std::string id;     // "duplicate-key": for programs
        std::string key;    // empty for a line without one
        std::string value;  // what the message shows of a value: in quotes, or at its beginning
        std::string message;
    };

    // Which of the two files a file is read as.
    enum class FileRole : int { ByName, System, User };

    // What is odd in a properties file, in the order of its lines. ByName takes every file for a
    // system file whose name is not that of user files. The path is UTF-8. The other file, for
    // references, is the one that the store finds. False also when the file cannot be read.
    static bool CheckPropertiesFile(const char* path, FileRole role,
                                    std::vector<Finding>& findings);

    // What loading the store would do to the environment, in the order of execution.
    static bool PlanEnvironmentDirectives(std::vector<DirectiveStep>& steps);

    // One of the two tables of the store.
    enum class Table : int { System, User };

    // What the store holds, by key.
    struct Tables {
        // By key.
        std::map<std::string, std::string> system;
        std::map<std::string, std::string> user;
    };

    // Never changes; copies share it.
    using Snapshot = std::shared_ptr<const Tables>;

    // An entry that one of two snapshots lacks or that differs.
    struct Change {
        // The entry, and its values; the one that lacks it has none.
        Table table = Table::User;
        std::string key;
        std::optional<std::string> before;
        std::optional<std::string> after;
    };

    // The tables of the store, which is made by the first call.
    static bool TakePropertiesSnapshot(Snapshot& snapshot);
    // What has changed, system table first, sorted. A null snapshot counts as empty.
    static bool CompareSnapshots(const Snapshot& before, const Snapshot& after,
                                 std::vector<Change>& changes);

    // Saves the user properties that were set since the store was loaded or last saved by this
    // function, and leaves all else in the user file as it stands: comments, order, references,
    // other lines. The value of the last line of a key is replaced; new keys come at the end. The
    // new text is written beside the file, read back, flushed to the disk, and then takes its place
    // at once; rights, attributes and further streams of the old file are not carried over. There
    // is no lock: of two saves at the same moment the later one may undo the other. `changes`, if
    // not null, receives the values as written in the file, before and after; it stays empty
    // when nothing need be changed, and the file is then not written.
    // False, with the file and the store as they were, when no user file exists, it cannot be read,
    // a key or value cannot be held by a line, the text cannot be written, or the file cannot be
    // replaced. Makes the store.
    static bool SaveUserPropertiesPreserving(std::vector<Change>* changes);

    // What the loader finds under a name.
    enum class ModuleState : int {
        Found,
        System,       // of the system: what it needs in its turn is not looked into
        Repeated,     // what it needs is shown where it stands for the first time
        NotFollowed,  // too deep in the tree, or beneath too many others
        Missing,
        Unreadable,
        NotAModule,
        OtherMachine
    };

    // A function that a module asks for and does not get.
    struct MissingFunction {
        // "#7" when it is asked for by its ordinal.
        std::string name;
        // What the module forwards it to, where it is missing; empty when the module itself lacks
        // it.
        std::string forwarder;
    };

    // A module, as another one asks for it. Texts are UTF-8.
    struct Module {
        // As the import table has it.
        std::string name;
        // Empty when it is missing, and for a contract that the system provides without a file.
        std::string file;
        ModuleState state = ModuleState::Found;
        // Of a module that is NotAModule or OtherMachine: what is wrong with it.
        std::string flaw;
        // Loaded only when one of its functions is called first: its absence stops no load.
        bool isDelayed = false;
        // What the module that asks for it wants of it and does not get.
        std::vector<MissingFunction> missingFunctions;
        // The modules that it asks for.
        std::vector<Module> imports;
    };

    // Why the loader looks into a folder.
    enum class FolderKind : int {
        SearchDirectory,
        Program,
        DllDirectory,  // what the process has set with SetDllDirectory
        System,
        System16,
        Windows,
        Current,
        Path
    };

    // A folder, and why the loader looks there.
    struct SearchedFolder {
        // What kind, and where.
        FolderKind kind = FolderKind::Path;
        std::string folder;
    };

    // Why a module does not load.
    enum class LoadProblem : int {
        None,
        EmptyName,
        ModuleMissing,
        FunctionMissing,
        NotAModule,
        OtherMachine,
        StartRefused,  // a start routine (DllMain) gave FALSE, or did not come to its end
        Unexplained    // the system refuses it, and nothing wrong is seen
    };

    // All about the loading of a module.
    struct LoadExplanation {
        // The name of the module as the loader gets it.
        std::string name;
        Module module;
        // In the order of the search, for the module if its name has no folder, and for what it
        // needs. Search directories that do not exist, or are relative, are not among them.
        std::vector<SearchedFolder> folders;
        std::vector<std::string> ignoredDirectories;
        bool isPathConsulted = false;
        // What the load gave, and the system's text for the code.
        bool isLoaded = false;
        unsigned long code = 0;
        std::string message;
        LoadProblem problem = LoadProblem::None;
        // The module to mend.
        std::string culprit;
        // Where a missing module lies in a folder of PATH that was not consulted.
        std::string onPath;
        // Where it lies beside the module that asks for it, in a folder that was not searched.
        std::string beside;
        // One sentence.
        std::string cause;
    };

    // Why TEVUtilWindows::LoadModule, in its text form, loads a module or does not; the arguments
    // are the same. Reads the files of the module and of all that it needs, then LOADS THE MODULE
    // and releases it: its start routine runs, and when nothing wrong is seen in the files, so do
    // those of the modules that it needs, one by one. Where PATH is not consulted, the code form
    // with a code tries the ordinary search as well; ask without directories for that one.
    // A module that is loaded in this process already is found there, as by the loader. Directories
    // that the process has added by itself are not known here, nor that SetDllDirectory("") has
    // left out the current folder: the system does not tell. A start routine that ends the process
    // ends it. Threads: as TEVUtilWindows::LoadModule.
    // False, with the explanation empty, when memory is exhausted or a text does not convert.
    static bool ExplainLoadFailure(char const* name, char const** dirs, std::uint64_t count,
                                   LoadExplanation& explanation);
};

}  // namespace TAMO::TEV::System
