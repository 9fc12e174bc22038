#include <TEVSystemLib/util/memory/TEVUtilMemory.h>
#include <TEVSystemLib/util/windows/TEVUtilWindows.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <type_traits>

#include "support/Folder.h"
#include "support/Owned.h"

namespace {

using TAMO::TEV::System::Util::TEVUtilMemory;
using TAMO::TEV::System::Util::TEVUtilWindows;
using tev::test::Folder;
using tev::test::Text;

TEST(TEVUtilWindows, IsAssignedButNeverMade) {
    EXPECT_FALSE(std::is_default_constructible_v<TEVUtilWindows>);
    EXPECT_FALSE(std::is_copy_constructible_v<TEVUtilWindows>);
    EXPECT_FALSE(std::is_destructible_v<TEVUtilWindows>);
    EXPECT_TRUE(std::is_copy_assignable_v<TEVUtilWindows>);
}

TEST(GetDirectory, UpToTheLastSeparator) {
    const struct {
        const char* path;
        const char* folder;
    } rows[] = {
        {"C:\\data\\image.ntf", "C:\\data\\"},
        {"C:/data/image.ntf", "C:\\data\\"},
        {"C:/data\\image.ntf", "C:\\data\\"},
        {"C:\\data/image.ntf", "C:\\data\\"},
        {"C:\\data\\", "C:\\data\\"},
        {"C:/data/", "C:\\data\\"},
        {"C:\\image.ntf", "C:\\"},
        {"image.ntf", "."},
        {"C:image.ntf", "."},
        {"..", "."},
        {"../image.ntf", "..\\"},
        {"\\", "\\"},
        {"/", "\\"},
        {"/image.ntf", "\\"},
        {"//server/share/image.ntf", "\\\\server\\share\\"},
        {"C:\\data\\\\image.ntf", "C:\\data\\\\"},
        {"C:\\two words\\image.ntf", "C:\\two words\\"},
        {"C:\\\xE9\xFF\\image.ntf", "C:\\\xE9\xFF\\"},
        {"C:\\data\\ ", "C:\\data\\"},
        {" C:\\data\\image.ntf", "C:\\data\\"},
        {"  C:\\data\\image.ntf  ", "C:\\data\\"},
        {" \t\r\n\v\fC:\\data\\image.ntf", "C:\\data\\"},
        {"\tC:\\data\\image.ntf ", "C:\\data\\"},
        {"\tC:\\data\\image.ntf", "\tC:\\data\\"},
        {"\t", "."},
        {" image.ntf ", "."},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Text(TEVUtilWindows::GetDirectory(row.path)).str(), row.folder) << row.path;
}

TEST(GetDirectory, NullForAnEmptyPath) {
    for (const char* path : {static_cast<const char*>(nullptr), "", " ", "   ", " \t\r\n ", "\t "})
        EXPECT_EQ(TEVUtilWindows::GetDirectory(path), nullptr) << (path == nullptr ? "" : path);
}

TEST(GetDirectory, LongPath) {
    const std::string folder = std::string(40'000, 'x') + "\\";
    EXPECT_EQ(Text(TEVUtilWindows::GetDirectory((folder + "image.ntf").c_str())).str(), folder);
}

TEST(GetDirectory, ReleasedByDeallocateCharArray) {
    char* folder = TEVUtilWindows::GetDirectory("C:\\data\\image.ntf");
    EXPECT_STREQ(folder, "C:\\data\\");
    TEVUtilMemory::DeallocateCharArray(&folder);
    EXPECT_EQ(folder, nullptr);
}

TEST(DirectoryExists, FoldersOnly) {
    const Folder folder;
    const std::string file = folder.Write("a.txt", "abc");
    const std::string inside = folder.MakeFolder("with blanks");
    const struct {
        std::string path;
        bool exists;
    } rows[] = {
        {folder.Path(), true},
        {folder.Path() + "\\", true},
        {folder.Path() + "/", true},
        {inside, true},
        {inside + "\\", true},
        {folder.Path() + "/with blanks/", true},
        {"C:\\", true},
        {file, false},
        {file + "\\", false},
        {folder / "missing", false},
        {folder / "missing\\", false},
        {"", false},
    };
    for (const auto& row : rows)
        EXPECT_EQ(TEVUtilWindows::DirectoryExists(row.path.c_str()), row.exists) << row.path;
    EXPECT_FALSE(TEVUtilWindows::DirectoryExists(nullptr));
}

TEST(DirectoryExists, FindsTheFolderOfAFile) {
    const Folder folder;
    const Text directory(TEVUtilWindows::GetDirectory(folder.Write("a.txt", "abc").c_str()));
    EXPECT_EQ(directory.str(), folder.Path() + "\\");
    EXPECT_TRUE(TEVUtilWindows::DirectoryExists(directory.get()));
}

TEST(DirectoryExists, DoesNotTrim) {
    const Folder folder;
    EXPECT_FALSE(TEVUtilWindows::DirectoryExists((" " + folder.Path()).c_str()));
    EXPECT_FALSE(TEVUtilWindows::DirectoryExists((" " + folder.Path() + " ").c_str()));
    EXPECT_FALSE(TEVUtilWindows::DirectoryExists(" "));
}

TEST(DirectoryExists, PathIsUtf8) {
    const Folder folder;
    std::filesystem::create_directory(std::filesystem::path(folder.Path()) / L"caf\u00e9");
    EXPECT_TRUE(TEVUtilWindows::DirectoryExists((folder / "caf\xC3\xA9").c_str()));
    EXPECT_TRUE(TEVUtilWindows::DirectoryExists((folder / "caf\xC3\xA9\\").c_str()));
}

TEST(FileExists, TrueForFoldersAndFalseForFiles_Kept) {
    const Folder folder;
    const std::string file = folder.Write("a.txt", "abc");
    EXPECT_FALSE(TEVUtilWindows::FileExists(file.c_str()));
    EXPECT_TRUE(TEVUtilWindows::FileExists(folder.Path().c_str()));
    EXPECT_TRUE(TEVUtilWindows::FileExists((folder.Path() + "\\").c_str()));
}

TEST(FileExists, DoesNotTrim) {
    const Folder folder;
    EXPECT_FALSE(TEVUtilWindows::FileExists((" " + folder.Path()).c_str()));
    EXPECT_FALSE(TEVUtilWindows::FileExists((" " + folder.Path() + " ").c_str()));
}

TEST(FileExists, FalseForWhatIsMissing) {
    const Folder folder;
    EXPECT_FALSE(TEVUtilWindows::FileExists((folder / "missing").c_str()));
    EXPECT_FALSE(TEVUtilWindows::FileExists(""));
    EXPECT_FALSE(TEVUtilWindows::FileExists(nullptr));
}

}  // namespace
