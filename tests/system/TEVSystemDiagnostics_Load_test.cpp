#include <TEVSystemLib/system/TEVSystemDiagnostics.h>
#include <gtest/gtest.h>
#include <windows.h>

#include <string>
#include <vector>

#include "fixtures/Modules.h"
#include "support/Environment.h"
#include "support/Folder.h"
#include "support/PeFile.h"
#include "util/windows/LoadFixture.h"

namespace {

using TAMO::TEV::System::TEVSystemDiagnostics;
using tev::test::CopyModule;
using tev::test::CopyTo;
using tev::test::Directories;
using tev::test::FileNameOf;
using tev::test::Fixture;
using tev::test::Folder;
using tev::test::Load;
using tev::test::LoadedModule;
using tev::test::SystemVariable;
using tev::test::Variable;

using Explanation = TEVSystemDiagnostics::LoadExplanation;
using Module = TEVSystemDiagnostics::Module;
using Problem = TEVSystemDiagnostics::LoadProblem;
using State = TEVSystemDiagnostics::ModuleState;

Explanation Explain(const std::string& name, Directories directories = {}) {
    Explanation explanation;
    explanation.cause = "before";
    EXPECT_TRUE(TEVSystemDiagnostics::ExplainLoadFailure(name.c_str(), directories.data(),
                                                         directories.size(), explanation));
    return explanation;
}

// Null when the tree has none of that name.
const Module* Find(const Module& module, const std::string& name) {
    if (module.name == name) return &module;
    for (const Module& import : module.imports)
        if (const Module* found = Find(import, name)) return found;
    return nullptr;
}

// All fixtures in one folder, but for those that a test adds.
class ExplainLoadFailure : public ::testing::Test {
 protected:
    std::string Copy(const std::string& name) const { return CopyModule(folder_, name); }

    const Folder folder_;
    const Folder other_;
    const Directories here_{folder_.Path().c_str()};
};

TEST_F(ExplainLoadFailure, NamesTheCulprit) {
    Copy("tevmiddle");
    Copy("tevrefusingmore");
    CopyTo(folder_ / "tevneeded.dll", Fixture("tevneeded\\tevneeded.dll"));
    tev::test::PeDescription x86;
    x86.machine = tev::test::kPeX86;
    const struct {
        std::string module;
        Problem problem;
        std::string culprit;
    } rows[] = {
        {Copy("tevplain"), Problem::None, ""},
        {Copy("tevneedy"), Problem::None, ""},
        {Copy("tevouter"), Problem::ModuleMissing, "tevinner.dll"},
        {Copy("tevgreedy"), Problem::FunctionMissing, "tevneeded.dll"},
        {folder_.Write("text.dll", "text"), Problem::NotAModule, folder_ / "text.dll"},
        {folder_.Write("x86.dll", tev::test::PeFile(x86)), Problem::OtherMachine,
         folder_ / "x86.dll"},
        {Copy("tevrefusing"), Problem::StartRefused, folder_ / "tevrefusing.dll"},
        {Copy("tevrefused"), Problem::StartRefused, "tevrefusingmore.dll"},
        {folder_ / "gone.dll", Problem::ModuleMissing, folder_ / "gone.dll"},
        {"tev-no-such-module", Problem::ModuleMissing, "tev-no-such-module"},
        {"", Problem::EmptyName, ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.module);
        const Explanation explanation = Explain(row.module, here_);
        EXPECT_EQ(explanation.problem, row.problem);
        EXPECT_EQ(explanation.culprit, row.culprit);
        EXPECT_EQ(explanation.isLoaded, Load(row.module.c_str(), here_).isLoaded);
    }
}

TEST_F(ExplainLoadFailure, CodeIsThatOfTheLoad) {
    Copy("tevneedy");
    for (const std::string& module : {Copy("tevrefusing"), folder_.Write("text.dll", "text"),
                                      folder_ / "tevneedy.dll", folder_ / "gone.dll"}) {
        const Explanation explanation = Explain(module);
        EXPECT_FALSE(explanation.isLoaded);
        const std::string error = Load(module.c_str()).error;
        const std::string code = "system = " + std::to_string(explanation.code) + ".\n";
        EXPECT_NE(error.find(code), std::string::npos) << error;
        EXPECT_NE(error.find(explanation.message), std::string::npos) << error;
        EXPECT_NE(explanation.message, "");
    }
}

TEST_F(ExplainLoadFailure, FindsWhatTheLoaderFinds) {
    const std::string needy = Copy("tevneedy");
    const Folder third;
    CopyModule(other_, "tevneeded");
    CopyModule(third, "tevneeded");
    for (const Directories& directories :
         {Directories{other_.Path().c_str(), third.Path().c_str()},
          Directories{third.Path().c_str(), other_.Path().c_str()},
          Directories{other_.Path().c_str(), folder_.Path().c_str()}}) {
        const Explanation explanation = Explain(needy, directories);
        const Module* needed = Find(explanation.module, "tevneeded.dll");
        ASSERT_NE(needed, nullptr);
        const Load load(needy.c_str(), directories);
        ASSERT_TRUE(load.isLoaded);
        EXPECT_EQ(needed->file, FileNameOf(GetModuleHandleA("tevneeded.dll")));
    }
}

TEST_F(ExplainLoadFailure, LoadedModuleIsFoundAsItIs) {
    const std::string needy = Copy("tevneedy");
    EXPECT_EQ(Explain(needy).problem, Problem::ModuleMissing);
    const std::string needed = CopyModule(other_, "tevneeded");
    const LoadedModule loaded(needed);
    const Explanation explanation = Explain(needy);
    EXPECT_EQ(explanation.problem, Problem::None);
    ASSERT_NE(Find(explanation.module, "tevneeded.dll"), nullptr);
    EXPECT_EQ(Find(explanation.module, "tevneeded.dll")->file, needed);
}

TEST_F(ExplainLoadFailure, LeavesNothingBehind) {
    Copy("tevneeded");
    EXPECT_TRUE(Explain(Copy("tevneedy"), here_).isLoaded);
    EXPECT_EQ(GetModuleHandleA("tevneedy.dll"), nullptr);
    EXPECT_EQ(GetModuleHandleA("tevneeded.dll"), nullptr);
    EXPECT_EQ(LoadLibraryExW(L"tevneeded.dll", nullptr, LOAD_LIBRARY_SEARCH_DEFAULT_DIRS), nullptr);
}

TEST_F(ExplainLoadFailure, TellsOfPathThatIsNotConsulted) {
    const std::string plain = CopyModule(other_, "tevplain");
    const Variable path("PATH", other_.Path() + ";" + SystemVariable("PATH").value_or(""));
    const Explanation ordinary = Explain("tevplain");
    EXPECT_TRUE(ordinary.isPathConsulted);
    EXPECT_EQ(ordinary.problem, Problem::None);
    EXPECT_EQ(ordinary.module.file, plain);
    EXPECT_EQ(ordinary.onPath, "");
    const Explanation withDirectory = Explain("tevplain", here_);
    EXPECT_FALSE(withDirectory.isPathConsulted);
    EXPECT_EQ(withDirectory.problem, Problem::ModuleMissing);
    EXPECT_EQ(withDirectory.onPath, plain);
    for (const auto& folder : withDirectory.folders)
        EXPECT_NE(folder.kind, TEVSystemDiagnostics::FolderKind::Path) << folder.folder;
}

TEST_F(ExplainLoadFailure, TellsWhichDirectoriesAreIgnored) {
    const std::string file = folder_.Write("file", "");
    const std::string missing = folder_ / "missing";
    const std::string padded = "  " + other_.Path() + " ";
    const Explanation explanation = Explain(
        Copy("tevplain"), {nullptr, "", " ", missing.c_str(), file.c_str(), padded.c_str()});
    EXPECT_EQ(explanation.ignoredDirectories, (std::vector<std::string>{missing, file}));
    ASSERT_GT(explanation.folders.size(), 1U);
    EXPECT_EQ(explanation.folders[1].folder, other_.Path());
    EXPECT_FALSE(explanation.isPathConsulted);
    EXPECT_TRUE(Explain("tevplain", {missing.c_str()}).isPathConsulted);
}

TEST_F(ExplainLoadFailure, FolderThatTheSystemRefusesIsIgnored) {
    const Explanation explanation = Explain("tev-no-such-module", {"."});
    EXPECT_EQ(explanation.ignoredDirectories, std::vector<std::string>{"."});
    EXPECT_FALSE(explanation.isPathConsulted) << "it exists";
}

TEST_F(ExplainLoadFailure, ContractThatTheSystemDoesNotHaveIsMissing) {
    EXPECT_EQ(Explain("api-ms-win-tev-none-l9-1-0.dll").problem, Problem::ModuleMissing);
}

TEST_F(ExplainLoadFailure, NamesComeInTheCodePageAndGoOutAsUtf8) {
    const std::string path = CopyTo(folder_ / "d\xE9p\xF4t\x80.dll", Copy("tevplain"));
    const Explanation explanation = Explain(" " + path);
    EXPECT_EQ(explanation.problem, Problem::None);
    EXPECT_EQ(explanation.name, folder_ / "d\xC3\xA9p\xC3\xB4t\xE2\x82\xAC.dll");
    EXPECT_EQ(explanation.module.file, explanation.name);
    DeleteFileA(path.c_str());
}

TEST_F(ExplainLoadFailure, SystemProvidesItsModules) {
    for (const char* name : {"kernel32", "KERNEL32.DLL", "api-ms-win-crt-heap-l1-1-0.dll"}) {
        const Explanation explanation = Explain(name);
        EXPECT_TRUE(explanation.isLoaded) << name;
        EXPECT_EQ(explanation.problem, Problem::None) << name;
        EXPECT_EQ(explanation.module.state, State::System) << name;
        EXPECT_TRUE(explanation.module.imports.empty()) << name;
    }
}

TEST_F(ExplainLoadFailure, HostileFilesEndNothing) {
    const tev::test::PeDescription cyclic{{{"hostile.dll", {"Round", "#5"}},
                                           {std::string(4000, 'n'), {"F"}},
                                           {"\\\\?\\", {"F"}},
                                           {"CON", {}},
                                           {"", {}},
                                           {"\xFF\xFE", {}}},
                                          {{"Round", "hostile.Round"}}};
    const std::string path = folder_.Write("hostile.dll", tev::test::PeFile(cyclic));
    EXPECT_NE(Explain(path, here_).problem, Problem::None);
}

}  // namespace
