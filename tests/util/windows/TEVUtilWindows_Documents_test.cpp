#include <TEVSystemLib/util/windows/TEVUtilWindows.h>
#include <gtest/gtest.h>
#include <windows.h>
// shlobj.h needs windows.h before it.
#include <shlobj.h>

#include <cstddef>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

#include "support/Folder.h"
#include "support/Owned.h"
#include "util/windows/UnusualFolders.h"

namespace {

using TAMO::TEV::System::Util::TEVUtilWindows;
using tev::test::Folder;
using tev::test::kNameBeyondAnsi;
using tev::test::kUnusualNames;
using tev::test::LongFolder;
using tev::test::MakeAnsiFolder;
using tev::test::Text;
using tev::test::Wide;

constexpr char kNone[] = "(none)";

// The folder found; "(none)" when the call fails as it should.
std::string Home() {
    char stale[] = "stale";
    char* folder = stale;
    const bool found = TEVUtilWindows::GetCurrentUserHomeFolder(&folder);
    if (folder == stale) return "left the output as it was";
    const Text owned(folder);
    if (found) return owned.str();
    return owned.IsNull() ? kNone : "failed, but gave " + owned.str();
}

// Puts this process's Documents folder elsewhere until the end of the scope. The user's own one is
// not touched: the process sees a registry of its own, which goes with it.
class DocumentsElsewhere {
 public:
    DocumentsElsewhere() {
        const std::wstring explorer = L"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\";
        Require(Make(HKEY_CURRENT_USER, kPlace, &user_));
        Require(Make(user_, explorer + L"User Shell Folders", &folders_));
        HKEY ended = nullptr;
        Require(Make(user_, explorer + L"Shell Folders", &ended));
        RegCloseKey(ended);
        Require(RegOverridePredefKey(HKEY_CURRENT_USER, user_));
    }
    ~DocumentsElsewhere() {
        RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
        RegCloseKey(folders_);
        RegCloseKey(user_);
        RegDeleteTreeW(HKEY_CURRENT_USER, kPlace);
    }
    DocumentsElsewhere(const DocumentsElsewhere&) = delete;
    DocumentsElsewhere& operator=(const DocumentsElsewhere&) = delete;

    void Set(const std::wstring& path) const {
        const auto bytes = static_cast<DWORD>((path.size() + 1) * sizeof(wchar_t));
        Require(RegSetValueExW(folders_, L"Personal", 0, REG_SZ,
                               reinterpret_cast<const BYTE*>(path.c_str()), bytes));
    }

 private:
    static constexpr wchar_t kPlace[] = L"Software\\tev-test-documents";

    static LSTATUS Make(HKEY parent, const std::wstring& path, HKEY* key) {
        return RegCreateKeyExW(parent, path.c_str(), 0, nullptr, REG_OPTION_VOLATILE,
                               KEY_ALL_ACCESS, nullptr, key, nullptr);
    }
    static void Require(LSTATUS status) {
        if (status != ERROR_SUCCESS) throw std::runtime_error("the registry refused a change");
    }

    HKEY user_ = nullptr;
    HKEY folders_ = nullptr;
};

// The Documents folder as the shell tells it; empty when there is none.
std::wstring ShellsDocuments() {
    wchar_t* path = nullptr;
    const HRESULT result = SHGetKnownFolderPath(FOLDERID_Documents, 0, nullptr, &path);
    const std::wstring found = SUCCEEDED(result) ? path : L"";
    CoTaskMemFree(path);
    return found;
}

TEST(GetCurrentUserHomeFolder, IsTheUsersDocumentsFolder) {
    const std::wstring expected = ShellsDocuments();
    ASSERT_NE(expected, L"");
    const std::string home = Home();
    EXPECT_EQ(Wide(home), expected + L"\\");
    EXPECT_TRUE(TEVUtilWindows::DirectoryExists(home.c_str()));
}

TEST(GetCurrentUserHomeFolder, NullOutputIsRefused) {
    EXPECT_FALSE(TEVUtilWindows::GetCurrentUserHomeFolder(nullptr));
}

TEST(GetCurrentUserHomeFolder, FalseOnceTheFolderIsRemoved) {
    const std::string before = Home();
    const Folder folder;
    const std::string documents = folder.MakeFolder("Documents");
    {
        const DocumentsElsewhere elsewhere;
        elsewhere.Set(Wide(documents));
        EXPECT_EQ(Home(), documents + "\\");
        ASSERT_TRUE(std::filesystem::remove(documents));
        EXPECT_EQ(Home(), kNone);
        folder.MakeFolder("Documents");
        EXPECT_EQ(Home(), documents + "\\");
    }
    EXPECT_EQ(Home(), before);
}

TEST(GetCurrentUserHomeFolder, BackslashesAndOneAtTheEnd) {
    const Folder folder;
    const std::string documents = folder.MakeFolder("Documents");
    std::string slashed = documents;
    for (char& c : slashed)
        if (c == '\\') c = '/';
    const DocumentsElsewhere elsewhere;
    for (const std::string& path : {documents, documents + "\\", slashed, slashed + "/"}) {
        SCOPED_TRACE(path);
        elsewhere.Set(Wide(path));
        ASSERT_EQ(ShellsDocuments(), Wide(path)) << "the shell gives the text as it is set";
        EXPECT_EQ(Home(), documents + "\\");
    }
    elsewhere.Set(L"C:\\");
    EXPECT_EQ(Home(), "C:\\");
}

TEST(GetCurrentUserHomeFolder, FolderNamesWithBlanksAndAccents) {
    const Folder folder;
    const DocumentsElsewhere elsewhere;
    for (const std::string name : kUnusualNames) {
        SCOPED_TRACE(name);
        const std::string documents = MakeAnsiFolder(folder / name);
        std::wstring wide;
        for (const char c : documents) wide += static_cast<unsigned char>(c);
        elsewhere.Set(wide);
        EXPECT_EQ(Home(), documents + "\\");
    }
}

TEST(GetCurrentUserHomeFolder, FileIsNoFolder) {
    const Folder folder;
    const DocumentsElsewhere elsewhere;
    elsewhere.Set(Wide(folder.Write("Documents", "a file")));
    EXPECT_EQ(Home(), kNone);
}

TEST(GetCurrentUserHomeFolder, FalseForANameThatTheAnsiCodePageCannotWrite) {
    const Folder folder;
    const std::wstring documents = Wide(folder.Path()) + L"\\" + kNameBeyondAnsi;
    ASSERT_NE(CreateDirectoryW(documents.c_str(), nullptr), 0);
    const DocumentsElsewhere elsewhere;
    elsewhere.Set(documents);
    ASSERT_EQ(ShellsDocuments(), documents);
    EXPECT_EQ(Home(), kNone);
}

// Wine's shell passes a path of this length over and names the usual folder.
TEST(GetCurrentUserHomeFolder, FollowsTheShellBeyond260Characters) {
    const LongFolder folder;
    const DocumentsElsewhere elsewhere;
    elsewhere.Set(Wide(folder.Path()));
    EXPECT_EQ(Wide(Home()), ShellsDocuments() + L"\\");
}

TEST(GetCurrentUserHomeFolder, NewTextEachTime) {
    Text one;
    Text two;
    ASSERT_TRUE(TEVUtilWindows::GetCurrentUserHomeFolder(one.Out()));
    ASSERT_TRUE(TEVUtilWindows::GetCurrentUserHomeFolder(two.Out()));
    EXPECT_EQ(one.str(), two.str());
    EXPECT_NE(one.get(), two.get());
}

}  // namespace
