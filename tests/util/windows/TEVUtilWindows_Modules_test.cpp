#include <TEVSystemLib/util/windows/TEVUtilWindows.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <windows.h>
// psapi.h needs windows.h before it.
#include <psapi.h>

#include <cctype>
#include <cstdint>
#include <string>
#include <vector>

#include "fixtures/Modules.h"
#include "support/Folder.h"
#include "support/Owned.h"

namespace {

using TAMO::TEV::System::Util::TEVUtilWindows;
using ::testing::Contains;
using ::testing::Not;
using tev::test::CopyModule;
using tev::test::CopyTo;
using tev::test::FileNameOf;
using tev::test::Fixture;
using tev::test::Folder;
using tev::test::FolderOf;
using tev::test::LoadedModule;
using tev::test::Text;
using tev::test::TextArray;

Text FullName(const char* name) { return Text(TEVUtilWindows::GetModuleFullyQualifiedName(name)); }

Text FullPath(const char* name) { return Text(TEVUtilWindows::GetModuleFullyQualifiedPath(name)); }

// The folder found in this process; "(none)" when there is none.
std::string Retrieve(const std::string& text, DWORD processId = GetCurrentProcessId()) {
    std::string folder = "before";
    if (TEVUtilWindows::RetrieveFullyQualifiedModulePath(text.c_str(), processId, folder))
        return folder;
    return folder.empty() ? "(none)" : "not cleared: " + folder;
}

std::string Upper(std::string text) {
    for (char& c : text) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return text;
}

// This process's modules as the system lists them.
std::vector<std::string> SystemsModules() {
    std::vector<HMODULE> modules(4096);
    DWORD needed = 0;
    K32EnumProcessModulesEx(GetCurrentProcess(), modules.data(),
                            static_cast<DWORD>(modules.size() * sizeof(HMODULE)), &needed,
                            LIST_MODULES_ALL);
    modules.resize(needed / sizeof(HMODULE));
    std::vector<std::string> names;
    for (const HMODULE module : modules) names.push_back(FileNameOf(module));
    return names;
}

TEST(GetModuleFullyQualifiedName, OfALoadedModule) {
    const Folder folder;
    const LoadedModule plain(CopyModule(folder, "tevplain"));
    const std::string expected = FileNameOf(plain.get());
    for (const char* name : {"tevplain.dll", "TEVPLAIN.DLL", "tevplain", "  tevplain.dll ",
                             " \ttevplain.dll\t", expected.c_str()}) {
        SCOPED_TRACE(name);
        EXPECT_EQ(FullName(name).str(), expected);
    }
    EXPECT_EQ(FullName("kernel32.dll").str(), FileNameOf(GetModuleHandleA("kernel32.dll")));
}

TEST(GetModuleFullyQualifiedName, NullForWhatIsNotLoaded) {
    const Folder folder;
    const std::string plain = CopyModule(folder, "tevplain");
    for (const char* name :
         {"tevplain.dll", plain.c_str(), "tev-no-such-module.dll", "\tkernel32.dll", "", " ",
          "  \t ", static_cast<const char*>(nullptr)}) {
        SCOPED_TRACE(name == nullptr ? "(null)" : name);
        EXPECT_TRUE(FullName(name).IsNull());
    }
    EXPECT_EQ(GetModuleHandleA("tevplain.dll"), nullptr) << "asking does not load";
}

TEST(GetModuleFullyQualifiedName, DoesNotHoldTheModule) {
    const Folder folder;
    const std::string plain = CopyModule(folder, "tevplain");
    {
        const LoadedModule loaded(plain);
        EXPECT_FALSE(FullName("tevplain.dll").IsNull());
    }
    EXPECT_EQ(GetModuleHandleA("tevplain.dll"), nullptr);
    EXPECT_TRUE(FullName("tevplain.dll").IsNull());
}

TEST(GetModuleFullyQualifiedPath, OfALoadedModuleEndsWithABackslash) {
    const Folder folder;
    const LoadedModule plain(CopyModule(folder, "tevplain"));
    const std::string expected = FolderOf(FileNameOf(plain.get()));
    EXPECT_EQ(expected, folder.Path() + "\\");
    for (const char* name : {"tevplain.dll", "TevPlain.Dll", "tevplain", " tevplain.dll  "}) {
        SCOPED_TRACE(name);
        EXPECT_EQ(FullPath(name).str(), expected);
    }
}

TEST(GetModuleFullyQualifiedPath, NullForWhatIsNotLoaded) {
    for (const char* name :
         {"tevplain.dll", "tev-no-such-module.dll", "", "   ", static_cast<const char*>(nullptr)}) {
        SCOPED_TRACE(name == nullptr ? "(null)" : name);
        EXPECT_TRUE(FullPath(name).IsNull());
    }
}

TEST(GetModuleFullyQualifiedPath, FullNameMustBeLongerThanTheName_Kept) {
    const Folder folder;
    const LoadedModule plain(CopyModule(folder, "tevplain"));
    EXPECT_TRUE(FullPath(FileNameOf(plain.get()).c_str()).IsNull());
}

TEST(GetModuleFullyQualifiedPath, IsInTheAnsiCodePage) {
    const Folder folder;
    // The last is the euro sign, which the C locale lacks.
    const std::string inner = folder / "d\xE9p\xF4t\x80";
    ASSERT_NE(CreateDirectoryA(inner.c_str(), nullptr), 0);
    const std::string path = CopyTo(inner + "\\tevplain.dll", Fixture("tevplain/tevplain.dll"));
    {
        const LoadedModule plain(path);
        EXPECT_EQ(FullPath("tevplain.dll").str(), inner + "\\");
        EXPECT_EQ(FullName("tevplain.dll").str(), path);
        EXPECT_EQ(Retrieve("\\tevplain.dll"), inner + "\\");
        TextArray modules;
        ASSERT_TRUE(
            TEVUtilWindows::RetrieveAllLoadedModulesInCurrentProcess(modules.array, modules.count));
        EXPECT_THAT(modules.Strings(), Contains(path));
    }
    DeleteFileA(path.c_str());
    RemoveDirectoryA(inner.c_str());
}

// A module named plinth.DLL in a folder Bin.
class RetrieveFullyQualifiedModulePath : public ::testing::Test {
 protected:
    const Folder folder_;
    const std::string bin_ = folder_.MakeFolder("Bin") + "\\";
    const LoadedModule plinth_{CopyTo(bin_ + "plinth.DLL", Fixture("Plinth/Plinth.dll"))};
};

TEST_F(RetrieveFullyQualifiedModulePath, FindsTheFolderInAnyLetterCase) {
    const std::string expected = FolderOf(FileNameOf(plinth_.get()));
    EXPECT_EQ(expected, bin_);
    for (const char* text :
         {"\\Plinth.dll", "\\PLINTH.DLL", "\\plinth.dll", "  \\Plinth.dll ", " \t\\Plinth.dll"}) {
        SCOPED_TRACE(text);
        EXPECT_EQ(Retrieve(text), expected);
    }
}

TEST_F(RetrieveFullyQualifiedModulePath, GivesWhatStandsBeforeTheText) {
    EXPECT_EQ(Retrieve("Plinth.dll"), bin_) << "one separator at the end";
    EXPECT_EQ(Retrieve("\\plin"), bin_) << "any part of the path";
    EXPECT_EQ(Retrieve("linth.dll"), bin_ + "p\\");
    EXPECT_EQ(Retrieve("\\Bin\\Plinth.dll"), folder_.Path() + "\\");
}

TEST_F(RetrieveFullyQualifiedModulePath, FirstOccurrenceInThePathCounts) {
    folder_.MakeFolder("Plinth.dll");
    const std::string inner = folder_.MakeFolder("Plinth.dll\\Plinth.dll");
    const LoadedModule plain(CopyTo(inner + "\\tevplain.dll", Fixture("tevplain/tevplain.dll")));
    EXPECT_EQ(Retrieve("\\Plinth.dll\\"), folder_.Path() + "\\");
}

TEST_F(RetrieveFullyQualifiedModulePath, FailureClearsTheFolder) {
    for (const char* text : {"\\tev-no-such-module.dll", "", "  ", "\t\\Plinth.dll"}) {
        SCOPED_TRACE(text);
        EXPECT_EQ(Retrieve(text), "(none)");
    }
    std::string folder = "before";
    EXPECT_FALSE(
        TEVUtilWindows::RetrieveFullyQualifiedModulePath(nullptr, GetCurrentProcessId(), folder));
    EXPECT_EQ(folder, "");
}

TEST_F(RetrieveFullyQualifiedModulePath, SlashesInTheTextDoNotMatch) {
    EXPECT_EQ(Retrieve("/Plinth.dll"), "(none)");
}

TEST_F(RetrieveFullyQualifiedModulePath, MatchAtTheStartOfThePathIsNone_Kept) {
    const std::string path = FileNameOf(plinth_.get());
    EXPECT_EQ(Retrieve(path), "(none)");
    EXPECT_EQ(Retrieve(path.substr(1)), path.substr(0, 1) + "\\");
}

TEST_F(RetrieveFullyQualifiedModulePath, ProcessThatCannotBeOpenedIsAFailure) {
    EXPECT_EQ(Retrieve("\\Plinth.dll", 0), "(none)");
}

TEST_F(RetrieveFullyQualifiedModulePath, ModuleListedLastWins_Kept) {
    const Folder other;
    const LoadedModule second(CopyTo(other / "Plinth.dll", Fixture("Plinth/Plinth.dll")));
    ASSERT_NE(second.get(), plinth_.get());
    std::string last;
    int count = 0;
    for (const std::string& name : SystemsModules()) {
        if (Upper(name).find("\\PLINTH.DLL") == std::string::npos) continue;
        last = FolderOf(name);
        ++count;
    }
    ASSERT_EQ(count, 2);
    EXPECT_EQ(Retrieve("\\Plinth.dll"), last);
}

TEST_F(RetrieveFullyQualifiedModulePath, ModuleCountsOnlyWhileLoaded) {
    const Folder other;
    {
        const LoadedModule plain(CopyModule(other, "tevplain"));
        EXPECT_EQ(Retrieve("\\tevplain.dll"), other.Path() + "\\");
    }
    EXPECT_EQ(Retrieve("\\tevplain.dll"), "(none)");
}

TEST(RetrieveAllLoadedModulesInCurrentProcess, ListsWhatTheSystemLists) {
    const Folder folder;
    const LoadedModule plain(CopyModule(folder, "tevplain"));
    TextArray modules;
    ASSERT_TRUE(
        TEVUtilWindows::RetrieveAllLoadedModulesInCurrentProcess(modules.array, modules.count));
    EXPECT_EQ(modules.Strings(), SystemsModules());
    EXPECT_EQ(modules.Strings().front(), FileNameOf(nullptr)) << "the program itself";
    EXPECT_THAT(modules.Strings(), Contains(FileNameOf(plain.get())));
    EXPECT_THAT(modules.Strings(), Contains(FileNameOf(GetModuleHandleA("kernel32.dll"))));
}

TEST(RetrieveAllLoadedModulesInCurrentProcess, LeavesOutWhatWasReleased) {
    const Folder folder;
    const std::string plain = CopyModule(folder, "tevplain");
    { const LoadedModule loaded(plain); }
    TextArray modules;
    ASSERT_TRUE(
        TEVUtilWindows::RetrieveAllLoadedModulesInCurrentProcess(modules.array, modules.count));
    EXPECT_THAT(modules.Strings(), Not(Contains(plain)));
}

TEST(RetrieveAllLoadedModulesInCurrentProcess, OverwritesTheOutputs) {
    char* slot = nullptr;
    char** array = &slot;
    std::uint64_t count = 77;
    ASSERT_TRUE(TEVUtilWindows::RetrieveAllLoadedModulesInCurrentProcess(array, count));
    EXPECT_NE(array, &slot);
    EXPECT_EQ(count, SystemsModules().size());
    TAMO::TEV::System::Util::TEVUtilString::DeleteCStringArray(array, count);
}

TEST(RetrieveCurrentProcess, IsTheSystemsPseudoHandle) {
    EXPECT_EQ(TEVUtilWindows::RetrieveCurrentProcess(), GetCurrentProcess());
}

TEST(RetrieveCurrentProcessID, IsTheSystems) {
    EXPECT_EQ(TEVUtilWindows::RetrieveCurrentProcessID(), GetCurrentProcessId());
}

}  // namespace
