// LoadModule when the system refuses one of its calls.
#include <TEVSystemLib/util/windows/TEVUtilWindows.h>
#include <gtest/gtest.h>

#include <cstring>
#include <cwchar>
#include <string>

#include "fault/Ledger.h"
#include "fault/SystemCalls.h"
#include "support/Folder.h"
#include "util/windows/LoadFixture.h"

namespace {

using TAMO::TEV::System::Util::TEVUtilWindows;
using tev::fault::Calls;
using tev::fault::CountLoans;
using tev::fault::Fail;
using tev::fault::FailBy;
using tev::fault::FailNth;
using tev::fault::Replace;
using tev::test::CopyModule;
using tev::test::Directories;
using tev::test::Folder;
using tev::test::kBadExecutableFormat;
using tev::test::kModuleNotFound;
using tev::test::kNoCode;
using tev::test::kUntouched;
using tev::test::Load;

namespace calls = tev::fault::calls;

constexpr const char* kName = "tev-no-such-module.dll";

// Three folders to search, one module.
class LoadModuleFaults : public ::testing::Test {
 protected:
    const Folder first_;
    const Folder second_;
    const Folder third_;
    const Directories directories_{first_.Path().c_str(), second_.Path().c_str(),
                                   third_.Path().c_str()};
    const std::string plain_ = CopyModule(first_, "tevplain");
};

// What the text form says when the system, asked for a message, answers with this text.
std::string ErrorWithMessage(const wchar_t* message) {
    const Replace answers(calls::FormatMessageW,
                          [message](DWORD flags, const void* source, DWORD code, DWORD language,
                                    wchar_t* buffer, DWORD size, auto* arguments) -> DWORD {
                              EXPECT_EQ(flags, 0x1300U);
                              EXPECT_EQ(source, nullptr);
                              EXPECT_EQ(code, static_cast<DWORD>(kModuleNotFound));
                              EXPECT_EQ(language, 0x400U);
                              EXPECT_EQ(size, 0U);
                              EXPECT_EQ(arguments, nullptr);
                              const std::size_t bytes =
                                  (std::wcslen(message) + 1) * sizeof(wchar_t);
                              void* copy = LocalAlloc(LMEM_FIXED, bytes);
                              std::memcpy(copy, message, bytes);
                              *reinterpret_cast<void**>(buffer) = copy;
                              return static_cast<DWORD>(std::wcslen(message));
                          });
    const auto fails = Fail(calls::LoadLibraryA, nullptr, kModuleNotFound);
    return Load(kName).error;
}

TEST_F(LoadModuleFaults, MessageStandsBehindTheCodeAsItIs) {
    EXPECT_EQ(ErrorWithMessage(L"Not \xe9 there.\r\n"),
              "Error code returned from the Windows system = 126.\n"
              "Windows System error message: Not \xe9 there.\r\n");
}

TEST_F(LoadModuleFaults, MessageThatDoesNotConvertLeavesTheCodeAlone) {
    const Calls releases(calls::LocalFree);
    EXPECT_EQ(ErrorWithMessage(L"\x4e2d"), "Error code returned from the Windows system = 126.");
    EXPECT_EQ(releases.Made(), 1);
}

TEST_F(LoadModuleFaults, MissingMessageLeavesTheCodeAlone) {
    const Calls releases(calls::LocalFree);
    const auto noMessage = Fail(calls::FormatMessageW, 0U, ERROR_MR_MID_NOT_FOUND);
    const auto fails = Fail(calls::LoadLibraryA, nullptr, 0x20000001);
    EXPECT_EQ(Load(kName).error, "Error code returned from the Windows system = 536870913.");
    EXPECT_EQ(releases.Made(), 0);
}

TEST_F(LoadModuleFaults, WithoutALastErrorTheErrorIsEmpty) {
    const Calls messages(calls::FormatMessageW);
    const auto fails = Fail(calls::LoadLibraryA, nullptr);
    const auto failsWithFolders = Fail(calls::LoadLibraryExW, nullptr);
    for (const Directories& directories : {Directories{}, directories_}) {
        const Load load(kName, directories);
        EXPECT_FALSE(load.isLoaded);
        EXPECT_EQ(load.module, nullptr);
        EXPECT_EQ(load.error, "");
        EXPECT_EQ(Load(kName, kUntouched, directories).code, 0);
    }
    EXPECT_EQ(messages.Made(), 0);
}

TEST_F(LoadModuleFaults, ErrorIsThatOfTheLoadWithFolders) {
    const Calls ordinary(calls::LoadLibraryA);
    const auto noMessage = Fail(calls::FormatMessageW, 0U);
    const auto fails = Fail(calls::LoadLibraryExW, nullptr, kBadExecutableFormat);
    EXPECT_EQ(Load(plain_.c_str(), directories_).error,
              "Error code returned from the Windows system = 193.");
    EXPECT_EQ(ordinary.Made(), 0);
}

TEST_F(LoadModuleFaults, CodeIsThatOfTheSecondAttempt) {
    const auto fails = Fail(calls::LoadLibraryExW, nullptr, kBadExecutableFormat);
    const auto failsAgain = Fail(calls::LoadLibraryA, nullptr, kModuleNotFound);
    EXPECT_EQ(Load(plain_.c_str(), kUntouched, directories_).code, kModuleNotFound);
    const Calls ordinary(calls::LoadLibraryA);
    EXPECT_FALSE(Load(plain_.c_str(), kNoCode, directories_).isLoaded);
    EXPECT_EQ(ordinary.Made(), 0) << "without a code";
}

// Calls `check` with each form of a load from the three folders.
template <typename Check>
void ForEachForm(const char* name, const Directories& directories, Check check) {
    check("text form", Load(name, directories));
    check("code form", Load(name, kUntouched, directories));
    check("without a code", Load(name, kNoCode, directories));
}

// A null given back counts as wrong in the ledger.
TEST_F(LoadModuleFaults, RefusedFolderIsNotGivenBack) {
    for (const int refused : {0, 1, 2}) {
        const auto before = CountLoans();
        const Calls added(calls::AddDllDirectory);
        const Calls removed(calls::RemoveDllDirectory);
        const auto fails =
            FailNth(refused, calls::AddDllDirectory, nullptr, ERROR_INVALID_PARAMETER);
        EXPECT_TRUE(Load(plain_.c_str(), directories_).isLoaded);
        EXPECT_EQ(added.Made(), 3);
        EXPECT_EQ(removed.Made(), 2);
        EXPECT_EQ(CountLoans().live, before.live);
        EXPECT_EQ(CountLoans().wrong, before.wrong);
    }
}

TEST_F(LoadModuleFaults, WithEveryFolderRefusedTheLoadIsTried) {
    const Calls removed(calls::RemoveDllDirectory);
    const auto fails = Fail(calls::AddDllDirectory, nullptr, ERROR_INVALID_PARAMETER);
    ForEachForm(plain_.c_str(), directories_,
                [](const char* form, const Load& load) { EXPECT_TRUE(load.isLoaded) << form; });
    EXPECT_EQ(removed.Made(), 0);
}

TEST_F(LoadModuleFaults, FolderGivenTwiceIsAddedOnce) {
    const Calls added(calls::AddDllDirectory);
    const Calls removed(calls::RemoveDllDirectory);
    const Directories twice{directories_[0], directories_[1], directories_[0]};
    EXPECT_TRUE(Load(plain_.c_str(), twice).isLoaded);
    EXPECT_EQ(added.Made(), 2);
    EXPECT_EQ(removed.Made(), 2);
}

TEST_F(LoadModuleFaults, RefusedReturnOfAFolderIsNoFailure) {
    const auto refuses = FailBy(calls::RemoveDllDirectory, [](DLL_DIRECTORY_COOKIE cookie) {
        calls::RemoveDllDirectory.Real(cookie);
        return FALSE;
    });
    ForEachForm(plain_.c_str(), directories_,
                [](const char* form, const Load& load) { EXPECT_TRUE(load.isLoaded) << form; });
}

// The name and the folders take two calls each.
TEST_F(LoadModuleFaults, TextThatDoesNotConvertIsAFailureWithoutAnError) {
    constexpr int kConversions = 8;
    for (int n = 0; n < kConversions; ++n) {
        const auto before = CountLoans();
        const Calls loads(calls::LoadLibraryExW);
        const auto convert = [n] {
            return FailNth(n, calls::MultiByteToWideChar, 0, ERROR_NO_UNICODE_TRANSLATION);
        };
        const auto check = [&](const Load& load) {
            EXPECT_FALSE(load.isLoaded) << n;
            EXPECT_EQ(load.module, nullptr) << n;
            EXPECT_EQ(CountLoans().live, before.live) << n;
            EXPECT_EQ(loads.Made(), 0) << n;
        };
        {
            const auto fails = convert();
            const Load load(plain_.c_str(), directories_);
            check(load);
            EXPECT_EQ(load.error, "");
        }
        const auto fails = convert();
        const Load load(plain_.c_str(), kUntouched, directories_);
        check(load);
        EXPECT_EQ(load.code, -1);
    }
    const auto fails = FailNth(kConversions, calls::MultiByteToWideChar, 0);
    EXPECT_TRUE(Load(plain_.c_str(), directories_).isLoaded);
}

TEST(FreeModuleHandle, NullsAlsoWhenTheSystemRefuses) {
    HINSTANCE__* module = LoadLibraryW(L"kernel32.dll");
    const auto refuses = FailBy(calls::FreeLibrary, [](HMODULE given) {
        calls::FreeLibrary.Real(given);
        return FALSE;
    });
    TEVUtilWindows::FreeModuleHandle(module);
    EXPECT_EQ(module, nullptr);
}

}  // namespace
