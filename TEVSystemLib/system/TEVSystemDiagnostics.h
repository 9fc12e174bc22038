#pragma once

#include <TEVSystemLib/TEVSystemExport.h>

#include <cstdint>
#include <string>
#include <vector>

namespace TAMO::TEV::System {

// Tells why things are as they are. Plain structs come out, no exception does.
class TEVSYSTEMLIB_API TEVSystemDiagnostics {
 public:
    TEVSystemDiagnostics() = delete;

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

    struct MissingFunction {
        // "#7" when it is asked for by its ordinal.
        std::string name;
        // What the module forwards it to, where it is missing; empty when the module itself lacks
        // it.
        std::string forwarder;
    };

    // A module, as another one asks for it. Texts are UTF-8.
    struct Module {
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

    struct SearchedFolder {
        FolderKind kind = FolderKind::Path;
        std::string folder;
    };

    enum class LoadProblem : int {
        None,
        EmptyName,
        ModuleMissing,
        FunctionMissing,
        NotAModule,
        OtherMachine,
        StartRefused,  // a start routine (DllMain) gave FALSE
        Unexplained    // the system refuses it, and nothing wrong is seen
    };

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
        // One sentence.
        std::string cause;
    };

    // Why TEVUtilWindows::LoadModule, in its text form, loads a module or does not; the arguments
    // are the same. Reads the files of the module and of all that it needs, then LOADS THE MODULE
    // and releases it: its start routine runs, and when it refuses, so do those of the modules that
    // it needs. Where PATH is not consulted, the code form with a code tries the ordinary search as
    // well; ask without directories for that one.
    //
    // A module that is loaded in this process already is found there, as by the loader. Directories
    // that the process has added by itself are not known here. Threads: as
    // TEVUtilWindows::LoadModule.
    //
    // False, with the explanation empty, when memory is exhausted or a text does not convert.
    static bool ExplainLoadFailure(char const* name, char const** dirs, std::uint64_t count,
                                   LoadExplanation& explanation);
};

}  // namespace TAMO::TEV::System
