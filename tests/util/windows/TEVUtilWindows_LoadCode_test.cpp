#include <TEVSystemLib/util/windows/TEVUtilWindows.h>
#include <gtest/gtest.h>
#include <windows.h>

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
using tev::test::Folder;
using tev::test::kBadExecutableFormat;
using tev::test::kModuleNotFound;
using tev::test::kNoCode;
using tev::test::kUntouched;
using tev::test::Load;
using tev::test::LoadedModule;
using tev::test::LoadingNeedy;
using tev::test::Slashed;
using tev::test::SystemVariable;
using tev::test::Variable;

class LoadModuleCode : public LoadingNeedy {};

// What a load by the system leaves as the last error, when another stands there before.
int LastErrorAfterLoading(const std::string& name, DWORD before) {
    SetLastError(before);
    const LoadedModule module(name);
    return static_cast<int>(GetLastError());
}

TEST_F(LoadModuleCode, EmptyNameGivesMinusOne) {
    for (const char* name : {"", "  ", static_cast<const char*>(nullptr)}) {
        SCOPED_TRACE(name == nullptr ? "(null)" : name);
        for (const Directories& directories : {Directories{}, {folder_.Path().c_str()}}) {
            const Load load(name, kUntouched, directories);
            EXPECT_FALSE(load.isLoaded);
            EXPECT_EQ(load.module, nullptr);
            EXPECT_EQ(load.code, -1);
            const Load withoutCode(name, kNoCode, directories);
            EXPECT_FALSE(withoutCode.isLoaded);
            EXPECT_EQ(withoutCode.module, nullptr);
        }
    }
}

TEST_F(LoadModuleCode, OrdinarySearchStoresTheLastError) {
    const Load missing((folder_ / "missing.dll").c_str(), kUntouched);
    EXPECT_FALSE(missing.isLoaded);
    EXPECT_EQ(missing.module, nullptr);
    EXPECT_EQ(missing.code, kModuleNotFound);
    const Load bad(folder_.Write("text.dll", "This is not a module.").c_str(), kUntouched);
    EXPECT_EQ(bad.code, kBadExecutableFormat);
}

TEST_F(LoadModuleCode, OrdinarySearchStoresTheLastErrorAlsoAfterASuccess_Kept) {
    constexpr DWORD kErrorBefore = 4711;
    const int expected = LastErrorAfterLoading(plain_, kErrorBefore);
    SetLastError(kErrorBefore);
    const Load load(Slashed(plain_).c_str(), kUntouched);
    EXPECT_TRUE(load.isLoaded);
    EXPECT_EQ(FileNameOf(load.module), plain_);
    EXPECT_EQ(load.code, expected);
}

TEST_F(LoadModuleCode, CodeMayBeNull) {
    EXPECT_TRUE(Load(plain_.c_str(), kNoCode).isLoaded);
    EXPECT_TRUE(Load(needy_.c_str(), kNoCode, {needed_.Path().c_str()}).isLoaded);
    const Load missing((folder_ / "missing.dll").c_str(), kNoCode);
    EXPECT_FALSE(missing.isLoaded);
    EXPECT_EQ(missing.module, nullptr);
}

TEST_F(LoadModuleCode, DirectoriesGiveZeroOnSuccess) {
    const Load load(needy_.c_str(), kUntouched, {nullptr, needed_.Path().c_str()});
    EXPECT_TRUE(load.isLoaded);
    EXPECT_EQ(load.code, 0);
}

TEST_F(LoadModuleCode, DirectoriesGiveTheLastErrorOfTheSecondAttempt) {
    const Directories directories{needed_.Path().c_str()};
    const Load missing("tev-no-such-module.dll", kUntouched, directories);
    EXPECT_FALSE(missing.isLoaded);
    EXPECT_EQ(missing.module, nullptr);
    EXPECT_EQ(missing.code, kModuleNotFound);
    const std::string text = folder_.Write("text.dll", "This is not a module.");
    EXPECT_EQ(Load(text.c_str(), kUntouched, directories).code, kBadExecutableFormat);
}

TEST_F(LoadModuleCode, AskingForTheCodeAddsTheOrdinarySearch_Kept) {
    const Variable path("PATH", folder_.Path() + ";" + SystemVariable("PATH").value_or(""));
    const Directories directories{needed_.Path().c_str()};
    const Load withoutCode("tevplain.dll", kNoCode, directories);
    EXPECT_FALSE(withoutCode.isLoaded);
    EXPECT_EQ(withoutCode.module, nullptr);
    const int expected = LastErrorAfterLoading("tevplain.dll", kModuleNotFound);
    const Load withCode("tevplain.dll", kUntouched, directories);
    EXPECT_TRUE(withCode.isLoaded);
    EXPECT_EQ(FileNameOf(withCode.module), plain_);
    EXPECT_EQ(withCode.code, expected) << "stored after that success, too";
}

TEST(FreeModuleHandle, LeavesNullAlone) {
    HINSTANCE__* module = nullptr;
    TEVUtilWindows::FreeModuleHandle(module);
    EXPECT_EQ(module, nullptr);
}

TEST(FreeModuleHandle, ReleasesOneLoadAndNulls) {
    const Folder folder;
    const std::string plain = CopyModule(folder, "tevplain");
    HINSTANCE__* first = LoadLibraryA(plain.c_str());
    HINSTANCE__* second = LoadLibraryA(plain.c_str());
    ASSERT_TRUE(first != nullptr && second != nullptr);
    TEVUtilWindows::FreeModuleHandle(first);
    EXPECT_EQ(first, nullptr);
    EXPECT_NE(GetModuleHandleA("tevplain.dll"), nullptr);
    TEVUtilWindows::FreeModuleHandle(second);
    EXPECT_EQ(second, nullptr);
    EXPECT_EQ(GetModuleHandleA("tevplain.dll"), nullptr);
}

}  // namespace
