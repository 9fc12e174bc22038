// Modules and install roots when memory is exhausted at any step.
#include <TEVSystemLib/util/windows/TEVUtilWindows.h>
#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <string>
#include <vector>

#include "fault/SystemCalls.h"
#include "fault/TextRows.h"
#include "fixtures/Modules.h"
#include "support/Environment.h"
#include "support/Folder.h"
#include "support/Owned.h"
#include "util/windows/LoadFixture.h"

namespace {

using namespace tev::fault;
using TAMO::TEV::System::Util::TEVUtilWindows;
using tev::test::CopyModule;
using tev::test::FileNameOf;
using tev::test::Folder;
using tev::test::kUntouched;
using tev::test::LoadedModule;
using tev::test::Text;
using tev::test::TextArray;
using tev::test::Variable;

namespace calls = tev::fault::calls;

constexpr const char* kMissing = "tev-no-such-module-anywhere.dll";

// A module's copy in a folder of its own.
class ModuleCopy {
 public:
    explicit ModuleCopy(const std::string& name) : path(CopyModule(folder_, name)) {}

    std::string Folder() const { return folder_.Path() + "\\"; }

 private:
    const tev::test::Folder folder_;

 public:
    const std::string path;
};

// The same, loaded until the end of the scope.
class Marker : public ModuleCopy {
 public:
    explicit Marker(const std::string& name) : ModuleCopy(name) {}

 private:
    const LoadedModule module_{path};
};

// A load by `load(name, module, dirs, count)` of a module that exists; null on failure.
template <typename Load>
void LoadsAModule(Attempt& attempt, bool isSearching, Load load) {
    const ModuleCopy copy("tevplain");
    const std::string folder = copy.Folder().substr(0, copy.Folder().size() - 1);
    const char* dirs[] = {folder.c_str(), "C:\\windows"};
    HINSTANCE__* module = GetModuleHandleA(nullptr);
    const bool isLoaded =
        attempt.Call([&] { return load(copy.path.c_str(), module, dirs, isSearching ? 2U : 0U); });
    EXPECT_EQ(module != nullptr, attempt.Succeeded(isLoaded));
    TEVUtilWindows::FreeModuleHandle(module);
}

template <bool isSearching>
void LoadsWithText(Attempt& attempt) {
    std::string error = "before";
    LoadsAModule(
        attempt, isSearching,
        [&error](const char* name, HINSTANCE__*& module, const char** dirs, std::uint64_t count) {
            return TEVUtilWindows::LoadModule(name, module, error, dirs, count);
        });
    EXPECT_EQ(error, "");
}

template <bool isSearching>
void LoadsWithCode(Attempt& attempt) {
    int code = kUntouched;
    LoadsAModule(
        attempt, isSearching,
        [&code](const char* name, HINSTANCE__*& module, const char** dirs, std::uint64_t count) {
            return TEVUtilWindows::LoadModule(name, module, dirs, count, &code);
        });
    if (attempt.IsFaulted()) {
        EXPECT_EQ(code, -1);
    }
}

// There is no text for the failure when there is no memory for it.
void ExplainsAFailure(Attempt& attempt) {
    std::string error = "before";
    HINSTANCE__* module = GetModuleHandleA(nullptr);
    const bool isLoaded = attempt.Call(
        [&] { return TEVUtilWindows::LoadModule(kMissing, module, error, nullptr, 0); });
    EXPECT_FALSE(isLoaded);
    EXPECT_EQ(module, nullptr);
    const std::string start = "Error code returned from the Windows system = 126.";
    if (attempt.Succeeded(!error.empty())) {
        EXPECT_EQ(error.substr(0, start.size()), start);
    }
}

const AllocatingFunctions loads{
    {"TEVUtilWindows::LoadModule(char const*, HINSTANCE__*&, std::string&, char const**, "
     "unsigned long long)",
     "", LoadsWithText<false>},
    {"TEVUtilWindows::LoadModule(char const*, HINSTANCE__*&, std::string&, char const**, "
     "unsigned long long)",
     "with folders", LoadsWithText<true>},
    {"TEVUtilWindows::LoadModule(char const*, HINSTANCE__*&, std::string&, char const**, "
     "unsigned long long)",
     "missing", ExplainsAFailure},
    {"TEVUtilWindows::LoadModule(char const*, HINSTANCE__*&, char const**, unsigned long long, "
     "int*)",
     "", LoadsWithCode<false>},
    {"TEVUtilWindows::LoadModule(char const*, HINSTANCE__*&, char const**, unsigned long long, "
     "int*)",
     "with folders", LoadsWithCode<true>},
};

// A call that returns a new text, or null on failure.
template <typename Work>
void Returns(Attempt& attempt, const std::string& expected, Work work) {
    const Text text(attempt.Call(work));
    EXPECT_EQ(text.str(), attempt.Succeeded(!text.IsNull()) ? expected : "(null)");
}

void FindsTheFolderOfAModule(Attempt& attempt) {
    const Marker marker("Plinth");
    std::string folder = "before";
    const bool isFound = attempt.Call([&] {
        return TEVUtilWindows::RetrieveFullyQualifiedModulePath("\\Plinth.dll",
                                                                GetCurrentProcessId(), folder);
    });
    EXPECT_EQ(folder, attempt.Succeeded(isFound) ? marker.Folder() : "");
}

// Lists the first few modules: the others are as many times the same.
void ListsModules(Attempt& attempt) {
    const Replace lists(
        calls::K32EnumProcessModulesEx,
        [](HANDLE process, HMODULE* modules, DWORD size, DWORD* needed, DWORD filter) {
            const BOOL isListed =
                calls::K32EnumProcessModulesEx.Real(process, modules, size, needed, filter);
            *needed = 3 * sizeof(HMODULE);
            return isListed;
        });
    char* none[] = {nullptr};
    TextArray modules;
    modules.array = none;
    modules.count = 77;
    const bool isListed = attempt.Call([&] {
        return TEVUtilWindows::RetrieveAllLoadedModulesInCurrentProcess(modules.array,
                                                                        modules.count);
    });
    const bool succeeded = attempt.Succeeded(isListed);
    EXPECT_EQ(modules.array != nullptr, succeeded);
    EXPECT_EQ(modules.count, succeeded ? 3U : 0U);
    if (succeeded) {
        EXPECT_EQ(modules.Strings().front(), FileNameOf(nullptr));
    }
}

// A root in whose "lib" folder the marker's name belongs to a folder.
class Toolkit {
 public:
    Toolkit() {
        folder_.MakeFolder("lib");
        folder_.MakeFolder("lib\\CSMAPI.dll");
    }
    std::string Root() const { return folder_.Path() + "\\"; }
    std::string Library() const { return Root() + "lib\\"; }

 private:
    const Folder folder_;
};

// What one variable names cannot be read: the other is asked.
void MovesOnToTheSecondToolkit(Attempt& attempt) {
    const Toolkit first;
    const Toolkit second;
    const Variable data("KPT_DATA_DIR", first.Root() + "data\\");
    const Variable plugins("CSM_PLUGIN_DIR", second.Root() + "plugins\\");
    attempt.MaySucceedDespiteFault("a variable that cannot be read moves the search on");
    const Text found(attempt.Call([] { return TEVUtilWindows::GetCurrentProcessKPTRootFolder(); }));
    if (!attempt.Succeeded(!found.IsNull())) return;
    EXPECT_TRUE(found.str() == first.Library() ||
                (attempt.IsFaulted() && found.str() == second.Library()))
        << found.str();
}

// A marker that cannot be looked for is one that is not loaded.
void MovesOnToTheNextMarker(Attempt& attempt) {
    const Marker first("Plinth");
    const Marker second("SensorSupportDataLib");
    attempt.MaySucceedDespiteFault("a marker that cannot be looked for moves the search on");
    const Text found(
        attempt.Call([] { return TEVUtilWindows::GetCurrentProcessCorvidRootFolder(); }));
    if (!attempt.Succeeded(!found.IsNull())) return;
    EXPECT_TRUE(found.str() == first.Folder() ||
                (attempt.IsFaulted() && found.str() == second.Folder()))
        << found.str();
}

const AllocatingFunctions modules{
    {"TEVUtilWindows::GetModuleFullyQualifiedName(char const*)", "",
     [](Attempt& attempt) {
         const Marker marker("SensorSupportDataLib");
         Returns(attempt, marker.path, [] {
             return TEVUtilWindows::GetModuleFullyQualifiedName(" SensorSupportDataLib.dll");
         });
     }},
    {"TEVUtilWindows::GetModuleFullyQualifiedPath(char const*)", "",
     [](Attempt& attempt) {
         const Marker marker("SensorSupportDataLib");
         Returns(attempt, marker.Folder(), [] {
             return TEVUtilWindows::GetModuleFullyQualifiedPath(" SensorSupportDataLib.dll");
         });
     }},
    {"TEVUtilWindows::RetrieveFullyQualifiedModulePath(char const*, unsigned long, std::string&)",
     "", FindsTheFolderOfAModule},
    {"TEVUtilWindows::RetrieveAllLoadedModulesInCurrentProcess(char**&, unsigned long long&)", "",
     ListsModules},
};

const AllocatingFunctions roots{
    {"TEVUtilWindows::GetCurrentProcessCorvidRootFolder()", "",
     [](Attempt& attempt) {
         const Marker marker("Plinth");
         Returns(attempt, marker.Folder(),
                 [] { return TEVUtilWindows::GetCurrentProcessCorvidRootFolder(); });
     }},
    {"TEVUtilWindows::GetCurrentProcessCorvidRootFolder()", "two markers", MovesOnToTheNextMarker},
    {"TEVUtilWindows::GetCurrentProcessKPTRootFolder()", "",
     [](Attempt& attempt) {
         const Toolkit toolkit;
         const Variable data("KPT_DATA_DIR", toolkit.Root() + "data\\");
         const Variable plugins("CSM_PLUGIN_DIR");
         Returns(attempt, toolkit.Library(),
                 [] { return TEVUtilWindows::GetCurrentProcessKPTRootFolder(); });
     }},
    {"TEVUtilWindows::GetCurrentProcessKPTRootFolder()", "two toolkits", MovesOnToTheSecondToolkit},
    {"TEVUtilWindows::GetFullyQualifiedExePath(char**)", "",
     [](Attempt& attempt) {
         const std::string folder = tev::test::FolderOf(FileNameOf(nullptr));
         HandsOut(attempt, folder.c_str(), TEVUtilWindows::GetFullyQualifiedExePath);
     }},
    {"TEVUtilWindows::GetCurrentUserHomeFolder(char**)", "",
     [](Attempt& attempt) {
         Text expected;
         TEVUtilWindows::GetCurrentUserHomeFolder(expected.Out());
         HandsOut(attempt, expected.get(), TEVUtilWindows::GetCurrentUserHomeFolder);
     }},
};

const IdleFunctions handles{
    {"TEVUtilWindows::FreeModuleHandle(HINSTANCE__*&)", "",
     [](Attempt& attempt) {
         const ModuleCopy copy("tevplain");
         HINSTANCE__* module = LoadLibraryA(copy.path.c_str());
         attempt.Call([&] { TEVUtilWindows::FreeModuleHandle(module); });
         attempt.Succeeded(module == nullptr);
     }},
    {"TEVUtilWindows::RetrieveCurrentProcess()", "",
     [](Attempt& attempt) {
         Finds(attempt, static_cast<void*>(GetCurrentProcess()),
               [] { return TEVUtilWindows::RetrieveCurrentProcess(); });
     }},
    {"TEVUtilWindows::RetrieveCurrentProcessID()", "",
     [](Attempt& attempt) {
         Finds(attempt, GetCurrentProcessId(),
               [] { return TEVUtilWindows::RetrieveCurrentProcessID(); });
     }},
};

}  // namespace
