#include <TEVSystemLib/util/windows/TEVUtilWindows.h>
#include <gtest/gtest.h>
#include <windows.h>

#include <filesystem>
#include <string>

#include "fixtures/Modules.h"
#include "support/Environment.h"
#include "support/Folder.h"
#include "util/windows/LoadFixture.h"

namespace {

using TAMO::TEV::System::Util::TEVUtilWindows;
using tev::test::CopyModule;
using tev::test::Directories;
using tev::test::FileNameOf;
using tev::test::kBadExecutableFormat;
using tev::test::kInitialisationFailed;
using tev::test::kModuleNotFound;
using tev::test::kNoCode;
using tev::test::kUntouched;
using tev::test::Load;
using tev::test::Loading;
using tev::test::LoadingNeedy;
using tev::test::Slashed;
using tev::test::SystemVariable;
using tev::test::Variable;

// The system's message for a code, for ASCII texts.
std::string SystemMessage(DWORD code) {
    wchar_t buffer[512];
    const DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
                                        nullptr, code, 0x400, buffer, 512, nullptr);
    std::string text;
    for (DWORD i = 0; i < length; ++i) text += static_cast<char>(buffer[i]);
    return text;
}

class LoadModule : public Loading {};
class LoadModuleWithDirectories : public LoadingNeedy {};

TEST_F(LoadModule, LoadsAsTheSystemDoes) {
    const Load load(plain_.c_str());
    EXPECT_TRUE(load.isLoaded);
    EXPECT_EQ(load.error, "");
    const tev::test::LoadedModule systems(plain_);
    EXPECT_EQ(load.module, systems.get());
    EXPECT_EQ(FileNameOf(load.module), plain_);
}

TEST_F(LoadModule, SlashesInTheNameBecomeBackslashes) {
    const Load load(Slashed(plain_).c_str());
    EXPECT_TRUE(load.isLoaded);
    EXPECT_EQ(FileNameOf(load.module), plain_);
    const Load searching(Slashed(plain_).c_str(), {folder_.Path().c_str()});
    EXPECT_TRUE(searching.isLoaded);
    EXPECT_EQ(searching.module, load.module);
}

TEST_F(LoadModule, SlashesAreNotLeftToTheSystem) {
    const std::string verbatim = "\\\\?\\" + Slashed(plain_);
    ASSERT_EQ(LoadLibraryA(verbatim.c_str()), nullptr) << "names of this kind it takes as they are";
    EXPECT_TRUE(Load(verbatim.c_str()).isLoaded);
    EXPECT_TRUE(Load(verbatim.c_str(), {folder_.Path().c_str()}).isLoaded);
    EXPECT_TRUE(Load(verbatim.c_str(), kNoCode).isLoaded);
}

TEST_F(LoadModule, NameIsTrimmedWhenASpaceStandsAtAnEnd) {
    const struct {
        std::string name;
        bool isLoaded;
    } rows[] = {
        {"  " + plain_, true},       {plain_ + " ", true},   {" \t" + plain_ + "\t ", true},
        {" " + plain_ + "\t", true}, {"\t" + plain_, false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(Load(row.name.c_str()).isLoaded, row.isLoaded);
        EXPECT_EQ(Load(row.name.c_str(), kNoCode).isLoaded, row.isLoaded);
    }
}

TEST_F(LoadModule, EmptyNameGivesNullAndNoText) {
    for (const char* name : {"", " ", "  \t ", static_cast<const char*>(nullptr)}) {
        SCOPED_TRACE(name == nullptr ? "(null)" : name);
        const Load load(name, {folder_.Path().c_str()});
        EXPECT_FALSE(load.isLoaded);
        EXPECT_EQ(load.module, nullptr);
        EXPECT_EQ(load.error, "");
    }
}

TEST_F(LoadModule, FailureGivesTheSystemsCodeAndMessage) {
    const struct {
        std::string name;
        DWORD code;
    } rows[] = {
        {folder_ / "missing.dll", kModuleNotFound},
        {"tev-no-such-module.dll", kModuleNotFound},
        {folder_.Write("text.dll", "This is not a module."), kBadExecutableFormat},
        {CopyModule(folder_, "tevrefusing"), kInitialisationFailed},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        ASSERT_NE(SystemMessage(row.code), "");
        const std::string expected =
            "Error code returned from the Windows system = " + std::to_string(row.code) +
            ".\nWindows System error message: " + SystemMessage(row.code);
        for (const Directories& directories : {Directories{}, {folder_.Path().c_str()}}) {
            const Load load(row.name.c_str(), directories);
            EXPECT_FALSE(load.isLoaded);
            EXPECT_EQ(load.module, nullptr);
            EXPECT_EQ(load.error, expected);
        }
    }
}

TEST_F(LoadModule, NameIsInTheAnsiCodePage) {
    // The last is the euro sign, which the C locale lacks.
    const std::string folder = folder_ / "d\xE9p\xF4t\x80";
    ASSERT_NE(CreateDirectoryA(folder.c_str(), nullptr), 0);
    const std::string path = tev::test::CopyTo(folder + "\\tev\xFC\x80.dll", plain_);
    {
        const Load load(path.c_str());
        EXPECT_TRUE(load.isLoaded);
        EXPECT_EQ(FileNameOf(load.module), path);
        const Load searching(path.c_str(), {folder_.Path().c_str()});
        EXPECT_EQ(searching.module, load.module);
    }
    DeleteFileA(path.c_str());
    RemoveDirectoryA(folder.c_str());
}

TEST_F(LoadModule, NoDirectoriesMeanTheOrdinarySearch) {
    const Variable path("PATH", folder_.Path() + ";" + SystemVariable("PATH").value_or(""));
    const std::string file = folder_.Write("file", "not a folder");
    const std::string missing = folder_ / "missing";
    EXPECT_TRUE(Load("tevplain.dll").isLoaded);
    EXPECT_TRUE(Load("tevplain.dll", {nullptr, "", "  ", missing.c_str(), file.c_str()}).isLoaded);
    EXPECT_TRUE(Load("tevplain.dll", kNoCode, {nullptr, missing.c_str()}).isLoaded);

    const char* existing[] = {folder_.Path().c_str()};
    HINSTANCE__* module = nullptr;
    std::string error;
    EXPECT_TRUE(TEVUtilWindows::LoadModule("tevplain.dll", module, error, existing, 0));
    TEVUtilWindows::FreeModuleHandle(module);
    EXPECT_TRUE(TEVUtilWindows::LoadModule("tevplain.dll", module, error, nullptr, 3));
    TEVUtilWindows::FreeModuleHandle(module);
}

TEST_F(LoadModuleWithDirectories, FindsWhatTheModuleNeeds) {
    const struct {
        const char* what;
        std::string directory;
    } rows[] = {
        {"plain", needed_.Path()},
        {"ending with a separator", needed_.Path() + "\\"},
        {"ending with a slash", needed_.Path() + "/"},
        {"slashed", Slashed(needed_.Path())},
        {"slashed, ending with a slash", Slashed(needed_.Path()) + "/"},
        {"padded", "  " + needed_.Path() + " "},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        const Load load(needy_.c_str(), {row.directory.c_str()});
        EXPECT_TRUE(load.isLoaded);
        EXPECT_EQ(load.error, "");
        EXPECT_NE(GetModuleHandleA("tevneeded.dll"), nullptr);
    }
}

TEST_F(LoadModuleWithDirectories, WithoutThemTheModuleDoesNotLoad) {
    const Load load(needy_.c_str());
    EXPECT_FALSE(load.isLoaded);
    EXPECT_EQ(load.error.find("Error code returned from the Windows system = 126.\n"), 0U);
    EXPECT_FALSE(Load(needy_.c_str(), {folder_.Path().c_str()}).isLoaded) << "not the module's own";
}

TEST_F(LoadModuleWithDirectories, UselessOnesAreSkipped) {
    const std::string file = folder_.Write("file", "not a folder");
    const std::string missing = folder_ / "missing";
    const std::string& needed = needed_.Path();
    EXPECT_TRUE(Load(needy_.c_str(), {nullptr, "", " ", missing.c_str(), file.c_str(),
                                      folder_.Path().c_str(), needed.c_str(), nullptr})
                    .isLoaded);
    EXPECT_TRUE(Load(needy_.c_str(), {needed.c_str(), needed.c_str()}).isLoaded) << "twice";
}

// Whether it exists is asked in UTF-8; bytes that are none count as the code page there.
TEST_F(LoadModuleWithDirectories, NameBeyondAsciiIsAddedInTheAnsiCodePage) {
    const std::string ansi = folder_ / "d\xE9p\xF4t\x80";
    const std::string utf8 = folder_ / "d\xC3\xA9p\xC3\xB4t\xE2\x82\xAC";
    ASSERT_NE(CreateDirectoryA(ansi.c_str(), nullptr), 0);
    const std::string needed =
        tev::test::CopyTo(ansi + "\\tevneeded.dll", needed_ / "tevneeded.dll");
    EXPECT_TRUE(Load(needy_.c_str(), {ansi.c_str()}).isLoaded);
    EXPECT_TRUE(Load(needy_.c_str(), kUntouched, {ansi.c_str()}).isLoaded);
    ASSERT_TRUE(TEVUtilWindows::DirectoryExists(utf8.c_str()));
    const Load load(needy_.c_str(), {utf8.c_str()});
    EXPECT_FALSE(load.isLoaded);
    EXPECT_EQ(load.error.find("Error code returned from the Windows system = 126.\n"), 0U);
    DeleteFileA(needed.c_str());
    RemoveDirectoryA(ansi.c_str());
}

TEST_F(LoadModuleWithDirectories, RelativeOneIsNoHelpAndNoHarm) {
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(folder_.Path());
    folder_.MakeFolder("relative");
    CopyModule(folder_, "tevneeded");
    std::filesystem::rename(folder_ / "tevneeded.dll", folder_ / "relative\\tevneeded.dll");
    const Load load(plain_.c_str(), {"relative"});
    EXPECT_TRUE(load.isLoaded);
    EXPECT_FALSE(Load("tevneeded.dll", {"relative"}).isLoaded);
    EXPECT_TRUE(Load("tevneeded.dll", {"relative", needed_.Path().c_str()}).isLoaded);
    std::filesystem::current_path(before);
}

TEST_F(LoadModuleWithDirectories, OrdinarySearchIsNotTried) {
    const Variable path("PATH", folder_.Path() + ";" + SystemVariable("PATH").value_or(""));
    const Load load("tevplain.dll", {needed_.Path().c_str()});
    EXPECT_FALSE(load.isLoaded);
    EXPECT_EQ(load.module, nullptr);
    EXPECT_EQ(load.error.find("Error code returned from the Windows system = 126.\n"), 0U);
}

TEST_F(LoadModuleWithDirectories, SearchPathIsLeftAsItWas) {
    const Directories directories{folder_.Path().c_str(), needed_.Path().c_str()};
    EXPECT_TRUE(Load(needy_.c_str(), directories).isLoaded);
    EXPECT_FALSE(IsInSearchPath(L"tevneeded.dll"));
    EXPECT_FALSE(Load("tev-no-such-module.dll", directories).isLoaded);
    EXPECT_FALSE(IsInSearchPath(L"tevneeded.dll"));
    EXPECT_TRUE(Load(needy_.c_str(), 0, directories).isLoaded);
    EXPECT_FALSE(Load("tev-no-such-module.dll", 0, directories).isLoaded);
    EXPECT_FALSE(IsInSearchPath(L"tevneeded.dll"));
    EXPECT_FALSE(IsInSearchPath(L"tevplain.dll"));
}

}  // namespace
