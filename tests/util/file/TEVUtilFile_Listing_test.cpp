#include <TEVSystemLib/util/file/TEVUtilFile.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <windows.h>

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "support/Folder.h"
#include "support/Owned.h"

namespace {

using TAMO::TEV::System::Util::TEVUtilFile;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;
using testing::UnorderedElementsAreArray;
using tev::test::Folder;
using tev::test::TextArray;

std::vector<std::string> List(const std::string& directory, const char* extension) {
    TextArray files;
    TEVUtilFile::GetFilesInDirWithGivenExt(files.array, directory.c_str(), extension, files.count);
    EXPECT_EQ(files.array == nullptr, files.count == 0);
    return files.Strings();
}

// For names outside the code page of narrow file names.
void WriteWide(const Folder& folder, const wchar_t* name) {
    const auto path = std::filesystem::path(folder.Path()) / name;
    std::ofstream file(path);
    ASSERT_TRUE(file.is_open()) << "cannot write a file with a name beyond ASCII";
}

// The files with an ASCII extension as the system enumerates them.
std::vector<std::string> SystemsOrder(const Folder& folder, const std::string& extension) {
    const std::filesystem::path path = folder.Path();
    const std::filesystem::path pattern = path / ("*." + extension);
    std::vector<std::string> files;
    WIN32_FIND_DATAW entry;
    const HANDLE search = FindFirstFileW(pattern.c_str(), &entry);
    if (search == INVALID_HANDLE_VALUE) return files;
    do files.push_back((path / entry.cFileName).string());
    while (FindNextFileW(search, &entry) != 0);
    FindClose(search);
    return files;
}

// False while anyone has the folder open.
bool IsClosed(const Folder& folder) {
    const HANDLE handle = CreateFileA(folder.Path().c_str(), GENERIC_READ, 0, nullptr,
                                      OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (handle == INVALID_HANDLE_VALUE) return false;
    CloseHandle(handle);
    return true;
}

// The blocks in use on the process's heap, where the system keeps its state of a search.
std::size_t HeapBlocks() {
    const HANDLE heap = GetProcessHeap();
    PROCESS_HEAP_ENTRY entry{};
    std::size_t count = 0;
    HeapLock(heap);
    while (HeapWalk(heap, &entry) != 0)
        if ((entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0) ++count;
    HeapUnlock(heap);
    return count;
}

TEST(GetFilesInDirWithGivenExt, FullPathsOfTheFilesWithTheExtension) {
    const Folder folder;
    const std::string a = folder.Write("a.txt", "");
    const std::string b = folder.Write("two words.txt", "x");
    const std::string c = folder.Write("c.tar.txt", "x");
    folder.Write("a.dat", "");
    folder.Write("txt", "");
    folder.MakeFolder("folder.txt");
    folder.Write("folder.txt\\inner.txt", "");
    for (const char* extension : {"txt", ".txt", " txt", ".txt ", " \t.txt\t "}) {
        SCOPED_TRACE(extension);
        EXPECT_THAT(List(folder.Path(), extension), UnorderedElementsAre(a, b, c));
    }
}

TEST(GetFilesInDirWithGivenExt, ExtensionMayHoldDots) {
    const Folder folder;
    const std::string a = folder.Write("a.tar.gz", "");
    folder.Write("b.gz", "");
    folder.Write("b.tar", "");
    EXPECT_THAT(List(folder.Path(), "tar.gz"), ElementsAre(a));
    EXPECT_THAT(List(folder.Path(), ".tar.gz"), ElementsAre(a));
}

TEST(GetFilesInDirWithGivenExt, MatchesLikeTheSystemWithoutCase) {
    const Folder folder;
    const std::string a = folder.Write("a.TXT", "");
    const std::string b = folder.Write("b.txt", "");
    EXPECT_THAT(List(folder.Path(), "Txt"), UnorderedElementsAre(a, b));
}

TEST(GetFilesInDirWithGivenExt, FolderTextInEveryForm) {
    const Folder folder;
    const std::string inside = folder.MakeFolder("with blanks");
    const std::string a = folder.Write("with blanks\\a.txt", "");
    std::string slashes = inside;
    for (char& c : slashes)
        if (c == '\\') c = '/';
    for (const std::string& directory :
         {inside, inside + "\\", inside + "/", slashes, slashes + "/", " " + inside, inside + " ",
          " \t" + inside + "\\\t "}) {
        EXPECT_THAT(List(directory, "txt"), ElementsAre(a)) << directory;
    }
}

TEST(GetFilesInDirWithGivenExt, ManyFiles) {
    const Folder folder;
    std::vector<std::string> expected;
    for (int i = 0; i < 100; ++i)
        expected.push_back(folder.Write("f" + std::to_string(i) + ".many", ""));
    EXPECT_THAT(List(folder.Path(), "many"), UnorderedElementsAreArray(expected));
}

TEST(GetFilesInDirWithGivenExt, OrderIsTheSystems) {
    const Folder folder;
    for (const char* name : {"b.txt", "z.txt", "A.txt", "_.txt", "a1.txt", "10.txt", "9.txt"})
        folder.Write(name, "");
    const std::vector<std::string> expected = SystemsOrder(folder, "txt");
    ASSERT_EQ(expected.size(), 7u);
    EXPECT_EQ(List(folder.Path(), "txt"), expected);
}

TEST(GetFilesInDirWithGivenExt, EverySearchIsClosed) {
    constexpr std::size_t kRounds = 100;
    const Folder folder;
    folder.Write("a.txt", "");
    folder.Write("b.txt", "");
    WriteWide(folder, L"\u4e2d.bad");
    const struct {
        const char* extension;
        std::size_t count;
    } rows[] = {{"txt", 2}, {"none", 0}, {"bad", 0}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.extension);
        const auto listOften = [&] {
            for (std::size_t i = 0; i < kRounds; ++i)
                EXPECT_EQ(List(folder.Path(), row.extension).size(), row.count);
        };
        listOften();
        const std::size_t before = HeapBlocks();
        listOften();
        EXPECT_LT(HeapBlocks(), before + kRounds) << "a block stays from each search";
        EXPECT_TRUE(IsClosed(folder));
    }
}

TEST(GetFilesInDirWithGivenExt, OutputsAreUntouchedWithoutASearch) {
    const Folder folder;
    const std::string file = folder.Write("a.txt", "");
    const std::string missing = folder / "missing";
    const char* const here = folder.Path().c_str();
    const struct {
        const char* directory;
        const char* extension;
    } rows[] = {
        {here, "."},     {here, "x"},        {here, " x "},         {here, ""},
        {here, nullptr}, {here, "   "},      {here, "txt."},        {here, ".txt. "},
        {here, ".."},    {"", "txt"},        {"   ", "txt"},        {nullptr, "txt"},
        {"\t", "txt"},   {nullptr, nullptr}, {file.c_str(), "txt"}, {missing.c_str(), "txt"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.directory == nullptr ? "(null)" : row.directory) + " " +
                     (row.extension == nullptr ? "(null)" : row.extension));
        char* held[] = {nullptr};
        char** files = held;
        std::size_t count = 99;
        TEVUtilFile::GetFilesInDirWithGivenExt(files, row.directory, row.extension, count);
        EXPECT_EQ(files, held);
        EXPECT_EQ(count, 99u);
    }
}

TEST(GetFilesInDirWithGivenExt, NoMatchGivesNullAndZero) {
    const Folder folder;
    folder.Write("a.dat", "");
    folder.MakeFolder("only a folder.txt");
    for (const char* extension : {"txt", "none"}) {
        SCOPED_TRACE(extension);
        char* held[] = {nullptr};
        char** files = held;  // not the library's: released, it would bring the test down
        std::size_t count = 99;
        TEVUtilFile::GetFilesInDirWithGivenExt(files, folder.Path().c_str(), extension, count);
        EXPECT_EQ(files, nullptr);
        EXPECT_EQ(count, 0u);
    }
}

TEST(GetFilesInDirWithGivenExt, DirectoryIsUtf8AndResultsAreInTheCLocale) {
    const Folder folder;
    std::filesystem::create_directory(std::filesystem::path(folder.Path()) / L"caf\u00e9");
    WriteWide(folder, L"caf\u00e9\\\u00e9t\u00e9.txt");
    EXPECT_THAT(List(folder / "caf\xC3\xA9", "txt"),
                ElementsAre(folder / "caf\xE9\\\xE9t\xE9.txt"));
}

TEST(GetFilesInDirWithGivenExt, ExtensionIsUtf8) {
    const Folder folder;
    WriteWide(folder, L"a.d\u00e9");
    folder.Write("a.de", "");
    EXPECT_THAT(List(folder.Path(), "d\xC3\xA9"), ElementsAre(folder / "a.d\xE9"));
}

TEST(GetFilesInDirWithGivenExt, NameBeyondTheCLocaleFailsTheWholeListing) {
    for (const wchar_t* name : {L"\u4e2d.txt", L"\u20ac.txt"}) {
        const Folder folder;
        const std::string plain = folder.Write("plain.txt", "");
        EXPECT_THAT(List(folder.Path(), "txt"), ElementsAre(plain));
        WriteWide(folder, name);
        EXPECT_THAT(List(folder.Path(), "txt"), IsEmpty());
        char* held[] = {nullptr};
        char** files = held;
        std::size_t count = 99;
        TEVUtilFile::GetFilesInDirWithGivenExt(files, folder.Path().c_str(), "txt", count);
        EXPECT_EQ(files, nullptr);
        EXPECT_EQ(count, 0u);
    }
}

}  // namespace
