// Looking for modules when the system refuses one of the calls.
#include "fixtures/Modules.h"

#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <TEVSystemLib/util/windows/TEVUtilWindows.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "fault/SystemCalls.h"
#include "support/Owned.h"

namespace {

using TAMO::TEV::System::Util::TEVUtilString;
using TAMO::TEV::System::Util::TEVUtilWindows;
using tev::fault::Calls;
using tev::fault::Fail;
using tev::fault::FailNth;
using tev::fault::Replace;
using tev::test::FileNameOf;
using tev::test::FolderOf;
using tev::test::Text;
using tev::test::TextArray;

namespace calls = tev::fault::calls;

using Sizes = std::vector<DWORD>;

constexpr DWORD kModulesPerAttempt = 6144;
constexpr DWORD kAttempts = 10;
constexpr DWORD kMostModules = kModulesPerAttempt * kAttempts / sizeof(HMODULE);

Sizes SizesOf(DWORD attempts) {
    Sizes sizes;
    for (DWORD k = 1; k <= attempts; ++k) sizes.push_back(kModulesPerAttempt * k);
    return sizes;
}

// A process of so many modules, each of which is this program. The system refuses the list so many
// times at first; then it fills what fits and tells what is needed.
class ListOf {
 public:
    explicit ListOf(DWORD count, DWORD refusals = 0) : count_(count), refusals_(refusals) {}
    // The sizes that the list was asked for with.
    const Sizes& AskedFor() const { return sizes_; }

 private:
    BOOL Fill(HMODULE* modules, DWORD size, DWORD* needed) {
        sizes_.push_back(size);
        if (sizes_.size() <= refusals_) return FALSE;
        *needed = count_ * static_cast<DWORD>(sizeof(HMODULE));
        for (DWORD i = 0; i < std::min(*needed, size) / sizeof(HMODULE); ++i)
            modules[i] = GetModuleHandleA(nullptr);
        return TRUE;
    }
    DWORD Name(wchar_t* out, DWORD size) const {
        EXPECT_EQ(size, 4097U);
        out[name_.copy(out, size)] = L'\0';
        return static_cast<DWORD>(name_.size());
    }

    const std::string path_ = FileNameOf(nullptr);
    const std::wstring name_{path_.begin(), path_.end()};
    DWORD count_;
    DWORD refusals_;
    Sizes sizes_;
    const Replace<BOOL, HANDLE, HMODULE*, DWORD, DWORD*, DWORD> fills_{
        calls::K32EnumProcessModulesEx,
        [this](HANDLE, HMODULE* modules, DWORD size, DWORD* needed, DWORD filter) {
            EXPECT_EQ(filter, static_cast<DWORD>(LIST_MODULES_ALL));
            return Fill(modules, size, needed);
        }};
    const Replace<DWORD, HANDLE, HMODULE, wchar_t*, DWORD> names_{
        calls::K32GetModuleFileNameExW,
        [this](HANDLE, HMODULE, wchar_t* out, DWORD size) { return Name(out, size); }};
};

// How many modules the list has; none when it fails, which then leaves null and 0.
std::optional<std::size_t> Listed() {
    char* stale = nullptr;
    char** modules = &stale;
    std::uint64_t count = 77;
    if (TEVUtilWindows::RetrieveAllLoadedModulesInCurrentProcess(modules, count)) {
        TEVUtilString::DeleteCStringArray(modules, count);
        return count;
    }
    EXPECT_EQ(modules, nullptr);
    EXPECT_EQ(count, 0U);
    return std::nullopt;
}

std::string NameOfProgram() {
    const std::string path = FileNameOf(nullptr);
    return path.substr(FolderOf(path).size() - 1);
}

// The folder found for this program; "(none)" when it is not, which clears the output.
std::string Found() {
    std::string folder = "before";
    if (TEVUtilWindows::RetrieveFullyQualifiedModulePath(NameOfProgram().c_str(),
                                                         GetCurrentProcessId(), folder))
        return folder;
    return folder.empty() ? "(none)" : "not cleared: " + folder;
}

std::string FolderOfProgram() { return FolderOf(FileNameOf(nullptr)); }

TEST(ModuleListing, ProcessThatIsNotOpenedIsAFailure) {
    const Calls closed(calls::CloseHandle);
    const auto fails = Fail(calls::OpenProcess, nullptr, ERROR_ACCESS_DENIED);
    EXPECT_EQ(Listed(), std::nullopt);
    EXPECT_EQ(Found(), "(none)");
    EXPECT_EQ(closed.Made(), 0);
}

TEST(ModuleListing, ProcessIsClosedOnce) {
    const Calls closed(calls::CloseHandle);
    EXPECT_NE(Listed(), std::nullopt);
    EXPECT_EQ(closed.Made(), 1);
    EXPECT_EQ(Found(), FolderOfProgram());
    EXPECT_EQ(closed.Made(), 2);
}

TEST(ModuleListing, IsTriedTenTimes) {
    for (const BOOL refusal : {FALSE, -1}) {
        const auto fails = Fail(calls::K32EnumProcessModulesEx, refusal, ERROR_PARTIAL_COPY);
        const Calls attempts(calls::K32EnumProcessModulesEx);
        EXPECT_EQ(Listed(), std::nullopt);
        EXPECT_EQ(attempts.Made(), 10);
        EXPECT_EQ(Found(), "(none)");
        EXPECT_EQ(attempts.Made(), 20);
    }
}

TEST(ModuleListing, SucceedsAtAnyOfTheTenAttempts) {
    for (DWORD refusals = 0; refusals < kAttempts; ++refusals) {
        const ListOf list(2, refusals);
        EXPECT_EQ(Listed(), 2U);
        EXPECT_EQ(list.AskedFor(), SizesOf(refusals + 1));
    }
    const ListOf list(2, kAttempts);
    EXPECT_EQ(Listed(), std::nullopt);
}

TEST(ModuleListing, SizeIsCountedInEntriesWhereTheSystemCountsBytes_Kept) {
    constexpr DWORD kFits = kModulesPerAttempt / sizeof(HMODULE);
    for (const auto& [count, attempts] : {std::pair<DWORD, DWORD>{kFits, 1},
                                          {kFits + 1, 2},
                                          {2 * kFits, 2},
                                          {2 * kFits + 1, 3},
                                          {kMostModules, kAttempts}}) {
        SCOPED_TRACE(count);
        const ListOf list(count);
        EXPECT_EQ(Listed(), count);
        EXPECT_EQ(list.AskedFor(), SizesOf(attempts));
    }
}

TEST(ModuleListing, OfMoreModulesThanTenAttemptsListNoneIsFound_Kept) {
    const ListOf list(kMostModules + 1);
    EXPECT_EQ(Listed(), std::nullopt);
    EXPECT_EQ(list.AskedFor(), SizesOf(kAttempts));
    EXPECT_EQ(Found(), "(none)");
}

TEST(ModuleListing, EmptyListIsAFailure) {
    const ListOf list(0);
    EXPECT_EQ(Listed(), std::nullopt);
    EXPECT_EQ(Found(), "(none)");
}

// What the system answers for a name that it cannot read, or that does not fit.
constexpr DWORD kUnreadable[] = {0, 4097, 5000};

TEST(ModuleListing, EndsAtTheFirstNameThatCannotBeRead_Kept) {
    for (const DWORD length : kUnreadable) {
        SCOPED_TRACE(length);
        const ListOf list(5);
        for (const int n : {1, 2, 4}) {
            const auto fails = FailNth(n, calls::K32GetModuleFileNameExW, length);
            EXPECT_EQ(Listed(), static_cast<std::size_t>(n));
        }
        const auto fails = FailNth(0, calls::K32GetModuleFileNameExW, length);
        EXPECT_EQ(Listed(), std::nullopt) << "without any name";
    }
}

TEST(ModuleListing, LongestNameIsRead) {
    const ListOf list(2);
    const std::wstring name(4096, L'x');
    const Replace longest(calls::K32GetModuleFileNameExW,
                          [&](HANDLE, HMODULE, wchar_t* out, DWORD size) {
                              out[name.copy(out, size)] = L'\0';
                              return static_cast<DWORD>(name.size());
                          });
    TextArray modules;
    ASSERT_TRUE(
        TEVUtilWindows::RetrieveAllLoadedModulesInCurrentProcess(modules.array, modules.count));
    EXPECT_EQ(modules.Strings(), std::vector<std::string>(2, std::string(4096, 'x')));
}

TEST(ModuleListing, SearchPassesOverANameThatCannotBeRead) {
    for (const DWORD length : kUnreadable) {
        SCOPED_TRACE(length);
        const ListOf list(3);
        const Calls reads(calls::K32GetModuleFileNameExW);
        {
            const auto fails = FailNth(0, calls::K32GetModuleFileNameExW, length);
            EXPECT_EQ(Found(), FolderOfProgram());
            EXPECT_EQ(reads.Made(), 2);
        }
        const auto fails = Fail(calls::K32GetModuleFileNameExW, length);
        EXPECT_EQ(Found(), "(none)");
        EXPECT_EQ(reads.Made(), 5);
    }
}

TEST(ModuleListing, NameThatDoesNotConvertIsAFailure) {
    const ListOf list(2);
    for (const int n : {0, 1, 2, 3}) {
        SCOPED_TRACE(n);
        const auto fails = FailNth(n, calls::WideCharToMultiByte, 0, ERROR_INVALID_PARAMETER);
        EXPECT_EQ(Listed(), std::nullopt);
    }
    for (const int n : {0, 1}) {
        SCOPED_TRACE(n);
        const auto fails = FailNth(n, calls::WideCharToMultiByte, 0, ERROR_INVALID_PARAMETER);
        EXPECT_EQ(Found(), "(none)");
    }
}

TEST(ModuleName, IsNullForAModuleThatTheSystemDoesNotFind) {
    const Calls reads(calls::GetModuleFileNameA);
    const auto fails = Fail(calls::GetModuleHandleA, nullptr, ERROR_MOD_NOT_FOUND);
    EXPECT_TRUE(Text(TEVUtilWindows::GetModuleFullyQualifiedName("kernel32.dll")).IsNull());
    EXPECT_TRUE(Text(TEVUtilWindows::GetModuleFullyQualifiedPath("kernel32.dll")).IsNull());
    EXPECT_EQ(reads.Made(), 0);
}

TEST(ModuleName, IsNullWhenItCannotBeReadOrDoesNotFit) {
    constexpr DWORD kSize = 32767;
    const std::pair<DWORD, DWORD> answers[] = {{0, ERROR_ACCESS_DENIED},
                                               {0, ERROR_SUCCESS},
                                               {kSize, ERROR_INSUFFICIENT_BUFFER},
                                               {5, ERROR_INSUFFICIENT_BUFFER}};
    for (const auto& [length, error] : answers) {
        SCOPED_TRACE(length);
        const auto fails = Fail(calls::GetModuleFileNameA, length, error);
        EXPECT_TRUE(Text(TEVUtilWindows::GetModuleFullyQualifiedName("kernel32.dll")).IsNull());
        EXPECT_TRUE(Text(TEVUtilWindows::GetModuleFullyQualifiedPath("kernel32.dll")).IsNull());
    }
}

// Lets the system answer every question for a module's name with this one.
auto Answering(const std::string& path) {
    return Replace(calls::GetModuleFileNameA, [path](HMODULE, char* out, DWORD size) {
        out[path.copy(out, size)] = '\0';
        return static_cast<DWORD>(path.size());
    });
}

TEST(ModuleName, HasNoFolderWithoutOneInIt) {
    for (const char* path :
         {"a-longer-name-than-kernel32.dll", "\\kernel32.dll", "                              "}) {
        const auto answers = Answering(path);
        EXPECT_TRUE(Text(TEVUtilWindows::GetModuleFullyQualifiedPath("kernel32.dll")).IsNull());
        EXPECT_EQ(Text(TEVUtilWindows::GetModuleFullyQualifiedName("kernel32.dll")).str(), path);
    }
}

TEST(ModuleName, AnEarlierLastErrorDoesNotCount) {
    SetLastError(ERROR_INSUFFICIENT_BUFFER);
    const Text name(TEVUtilWindows::GetModuleFullyQualifiedName("kernel32.dll"));
    EXPECT_FALSE(name.IsNull());
}

TEST(GetFullyQualifiedExePath, NameThatCannotBeReadOrDoesNotFitIsAFailure) {
    for (const DWORD length : {0U, 8192U, 9000U}) {
        SCOPED_TRACE(length);
        const auto fails = Fail(calls::GetModuleFileNameA, length, ERROR_INSUFFICIENT_BUFFER);
        char stale[] = "stale";
        char* folder = stale;
        EXPECT_FALSE(TEVUtilWindows::GetFullyQualifiedExePath(&folder));
        EXPECT_EQ(folder, nullptr);
    }
}

TEST(GetFullyQualifiedExePath, LongestNameFits) {
    const std::string path = "C:\\" + std::string(8190, 'x').replace(4090, 1, "\\").substr(2);
    ASSERT_EQ(path.size(), 8191U);
    const auto answers = Answering(path);
    Text folder;
    EXPECT_TRUE(TEVUtilWindows::GetFullyQualifiedExePath(folder.Out()));
    EXPECT_EQ(folder.str(), FolderOf(path));
}

TEST(GetFullyQualifiedExePath, BlankNameIsAFailure) {
    const auto answers = Answering(" ");
    Text folder;
    EXPECT_FALSE(TEVUtilWindows::GetFullyQualifiedExePath(folder.Out()));
    EXPECT_TRUE(folder.IsNull());
}

TEST(GetCurrentProcessCorvidRootFolder, IsNullWhenNoModuleIsListed) {
    const Calls opened(calls::OpenProcess);
    const auto fails = Fail(calls::OpenProcess, nullptr, ERROR_ACCESS_DENIED);
    EXPECT_TRUE(Text(TEVUtilWindows::GetCurrentProcessCorvidRootFolder()).IsNull());
    EXPECT_EQ(opened.Made(), 3) << "once for each marker";
}

wchar_t* TaskMemoryOf(std::wstring_view text) {
    auto* memory = static_cast<wchar_t*>(CoTaskMemAlloc((text.size() + 1) * sizeof(wchar_t)));
    memory[text.copy(memory, text.size())] = L'\0';
    return memory;
}

// What the shell answers; a path wants to be released after a failure too.
struct ShellAnswer {
    const char* what;
    HRESULT result;
    bool hasPath;
    bool isFound;
};

TEST(GetCurrentUserHomeFolder, GivesBackWhatTheShellLends) {
    for (const ShellAnswer& answer : {ShellAnswer{"found", S_OK, true, true},
                                      {"refused", E_FAIL, false, false},
                                      {"refused with a path", E_FAIL, true, false},
                                      {"no path", S_OK, false, false}}) {
        SCOPED_TRACE(answer.what);
        const Calls given(calls::CoTaskMemFree);
        const Replace shell(calls::SHGetKnownFolderPath,
                            [&](REFKNOWNFOLDERID, DWORD, HANDLE, wchar_t** path) {
                                *path = answer.hasPath ? TaskMemoryOf(L"C:\\") : nullptr;
                                if (FAILED(answer.result))
                                    calls::SHGetKnownFolderPath.TellFailure();
                                return answer.result;
                            });
        char stale[] = "stale";
        char* folder = stale;
        EXPECT_EQ(TEVUtilWindows::GetCurrentUserHomeFolder(&folder), answer.isFound);
        EXPECT_EQ(Text(folder).str(), answer.isFound ? "C:\\" : "(null)");
        EXPECT_EQ(given.Made(), answer.hasPath ? 1 : 0);
    }
}

TEST(GetCurrentUserHomeFolder, PathThatDoesNotConvertIsAFailure) {
    for (const int n : {0, 1}) {
        const Calls given(calls::CoTaskMemFree);
        const auto fails = FailNth(n, calls::WideCharToMultiByte, 0, ERROR_INVALID_PARAMETER);
        Text folder;
        EXPECT_FALSE(TEVUtilWindows::GetCurrentUserHomeFolder(folder.Out()));
        EXPECT_TRUE(folder.IsNull());
        EXPECT_EQ(given.Made(), 1);
    }
}

}  // namespace
