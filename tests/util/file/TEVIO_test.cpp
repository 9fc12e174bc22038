#include <TEVSystemLib/util/file/TEVIO.h>
#include <cpl_vsi_error.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <string>
#include <type_traits>

#include "support/Folder.h"
#include "support/Owned.h"

namespace {

using TAMO::TEV::System::Util::TEVIO;
using tev::test::Folder;
using tev::test::ReadAll;
using tev::test::Text;

const char* const kNoPath = nullptr;
constexpr auto kNoSuchType = static_cast<TEVIO::OpenType>(7);

// The first `count` bytes from the current position.
std::string ReadSome(TEVIO& file, std::uint64_t count) {
    std::string bytes(count, '?');
    bytes.resize(file.read(bytes.data(), count));
    return bytes;
}

TEST(OpenType, ValuesAreFixed) {
    static_assert(std::is_same_v<std::underlying_type_t<TEVIO::OpenType>, int>);
    EXPECT_EQ(static_cast<int>(TEVIO::Read), 0);
    EXPECT_EQ(static_cast<int>(TEVIO::Write), 1);
}

TEST(TEVIO, OffersNoCopy) {
    EXPECT_FALSE(std::is_copy_constructible_v<TEVIO>);
    EXPECT_FALSE(std::is_copy_assignable_v<TEVIO>);
}

TEST(TEVIO, DefaultIsClosedWithEmptyPath) {
    TEVIO file;
    EXPECT_FALSE(file.isOpen());
    EXPECT_FALSE(file);
    EXPECT_EQ(file.getFilePath(), "");
}

TEST(TEVIO, ConstructorsOpen) {
    const Folder folder;
    const std::string path = folder.Write("a.txt", "abc");
    TEVIO fromString(path, TEVIO::Read);
    EXPECT_TRUE(fromString.isOpen());
    EXPECT_TRUE(fromString);
    EXPECT_EQ(fromString.getFilePath(), path);
    TEVIO fromText(path.c_str(), TEVIO::Read);
    EXPECT_TRUE(fromText.isOpen());
    EXPECT_EQ(fromText.getFilePath(), path);
}

TEST(TEVIO, ConstructorTakesNullPathAsEmpty) {
    TEVIO file(kNoPath, TEVIO::Read);
    EXPECT_FALSE(file.isOpen());
    EXPECT_EQ(file.getFilePath(), "");
}

TEST(TEVIO, DestructorCloses) {
    const Folder folder;
    const std::string path = folder / "a.txt";
    {
        TEVIO file(path, TEVIO::Write);
        EXPECT_EQ(file.write("abc", 3), 3u);
    }
    EXPECT_EQ(ReadAll(path), "abc");
    EXPECT_TRUE(std::filesystem::remove(path));
}

TEST(TEVIO, ClosedObjectAnswersNothing) {
    TEVIO file;
    char byte = 'x';
    EXPECT_EQ(file.tell(), 0u);
    EXPECT_EQ(file.fileSize(), 0u);
    EXPECT_EQ(file.write(&byte, 1), 0u);
    EXPECT_EQ(file.read(&byte, 1), 0u);
    EXPECT_FALSE(file.read(&byte, 0, 1));
    EXPECT_FALSE(file.seek(0, SEEK_SET));
    EXPECT_EQ(byte, 'x');
}

TEST(TEVIO, VirtualFileIsWrittenAndRead) {
    const std::string path = "/vsimem/tev-io-written-and-read";
    {
        TEVIO file(path, TEVIO::Write);
        ASSERT_TRUE(file.isOpen());
        EXPECT_EQ(file.write("in memory", 9), 9u);
    }
    EXPECT_TRUE(TEVIO::exists(path));
    EXPECT_FALSE(TEVIO::dirExists(path));
    EXPECT_EQ(TEVIO::fileSize(path.c_str()), 9u);
    TEVIO file(path, TEVIO::Read);
    EXPECT_EQ(ReadSome(file, 100), "in memory");
    Text data;
    std::uint64_t size = 0;
    EXPECT_TRUE(TEVIO::readFile(path.c_str(), data.Out(), size));
    EXPECT_EQ(data.str(), "in memory");
    EXPECT_EQ(size, 9u);
}

TEST(TEVIO, MissingVirtualFileIsNoFile) {
    const char* const path = "/vsimem/tev-io-missing";
    EXPECT_FALSE(TEVIO::exists(path));
    EXPECT_FALSE(TEVIO::dirExists(path));
    EXPECT_EQ(TEVIO::fileSize(path), 0u);
    EXPECT_FALSE(TEVIO(path, TEVIO::Read).isOpen());
}

TEST(TEVIO, PathsAreUtf8) {
    const Folder folder;
    const std::string path = folder / "caf\xC3\xA9.txt";
    {
        TEVIO file(path, TEVIO::Write);
        ASSERT_TRUE(file.isOpen());
        EXPECT_EQ(file.write("abc", 3), 3u);
    }
    EXPECT_TRUE(std::filesystem::exists(std::filesystem::path(folder.Path()) / L"caf\u00e9.txt"));
    EXPECT_TRUE(TEVIO::exists(path));
    EXPECT_EQ(TEVIO::fileSize(path.c_str()), 3u);
}

TEST(Open, BothFormsOpen) {
    const Folder folder;
    const std::string path = folder.Write("a.txt", "abc");
    TEVIO file;
    EXPECT_TRUE(file.open(path, TEVIO::Read));
    EXPECT_EQ(ReadSome(file, 10), "abc");
    TEVIO other;
    EXPECT_TRUE(other.open(path.c_str(), TEVIO::Read));
    EXPECT_EQ(ReadSome(other, 10), "abc");
}

TEST(Open, WhatCannotBeOpened) {
    const Folder folder;
    const struct {
        const char* name;
        std::string path;
        TEVIO::OpenType type;
    } rows[] = {
        {"missing file", folder / "missing.txt", TEVIO::Read},
        {"empty path", "", TEVIO::Read},
        {"folder", folder.Path(), TEVIO::Read},
        {"folder to write", folder.Path(), TEVIO::Write},
        {"file in a missing folder", folder / "missing\\a.txt", TEVIO::Write},
        {"type 7", folder.Write("a.txt", "abc"), kNoSuchType},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        TEVIO file;
        EXPECT_FALSE(file.open(row.path, row.type));
        EXPECT_FALSE(file.isOpen());
        EXPECT_EQ(file.getFilePath(), row.path);
        EXPECT_FALSE(file.open(row.path.c_str(), row.type));
    }
}

TEST(Open, FailureSetsTheErrorStateOfTheLayerBelow) {
    const Folder folder;
    VSIErrorReset();
    EXPECT_TRUE(TEVIO(folder.Write("a.txt", "abc"), TEVIO::Read).isOpen());
    EXPECT_EQ(VSIGetLastErrorNo(), 0);
    EXPECT_FALSE(TEVIO(folder / "missing.txt", TEVIO::Read).isOpen());
    EXPECT_NE(VSIGetLastErrorNo(), 0);
    VSIErrorReset();
}

TEST(Open, NullPathCountsAsEmpty) {
    const Folder folder;
    TEVIO file(folder.Write("a.txt", "abc"), TEVIO::Read);
    EXPECT_FALSE(file.open(kNoPath, TEVIO::Read));
    EXPECT_FALSE(file.isOpen());
    EXPECT_EQ(file.getFilePath(), "");
}

TEST(Open, WriteReplacesTheContent) {
    const Folder folder;
    const std::string path = folder.Write("a.txt", "before");
    { EXPECT_TRUE(TEVIO(path, TEVIO::Write).isOpen()); }
    EXPECT_EQ(ReadAll(path), "");
}

TEST(Open, SamePathOnlyRewindsWhateverTheType_Kept) {
    const Folder folder;
    const std::string path = folder.Write("a.txt", "abcdef");
    for (const auto type : {TEVIO::Read, TEVIO::Write, kNoSuchType}) {
        SCOPED_TRACE(static_cast<int>(type));
        TEVIO file(path, TEVIO::Read);
        EXPECT_EQ(ReadSome(file, 4), "abcd");
        EXPECT_TRUE(file.open(path, type));
        EXPECT_TRUE(file.isOpen());
        EXPECT_EQ(file.tell(), 0u);
        EXPECT_EQ(ReadSome(file, 10), "abcdef");
        EXPECT_TRUE(file.open(path.c_str(), type));
        EXPECT_EQ(file.tell(), 0u);
    }
    EXPECT_EQ(ReadAll(path), "abcdef");
}

TEST(Open, SamePathKeepsWriteMode_Kept) {
    const Folder folder;
    const std::string path = folder / "a.txt";
    {
        TEVIO file(path, TEVIO::Write);
        EXPECT_EQ(file.write("abc", 3), 3u);
        EXPECT_TRUE(file.open(path, TEVIO::Read));
        EXPECT_EQ(file.write("X", 1), 1u);
    }
    EXPECT_EQ(ReadAll(path), "Xbc");
}

TEST(Open, SamePathIsComparedByCase) {
    const Folder folder;
    const std::string path = folder.Write("a.txt", "abc");
    const std::string shouted = folder / "A.TXT";
    TEVIO file(path, TEVIO::Read);
    EXPECT_TRUE(file.open(shouted, TEVIO::Read));
    EXPECT_EQ(file.getFilePath(), shouted);
}

TEST(Open, AnotherPathClosesTheFirst) {
    const Folder folder;
    const std::string first = folder / "first.txt";
    const std::string second = folder.Write("second.txt", "2");
    TEVIO file(first, TEVIO::Write);
    EXPECT_EQ(file.write("1", 1), 1u);
    EXPECT_TRUE(file.open(second, TEVIO::Read));
    EXPECT_EQ(file.getFilePath(), second);
    EXPECT_EQ(ReadSome(file, 10), "2");
    EXPECT_EQ(ReadAll(first), "1");
    EXPECT_TRUE(std::filesystem::remove(first));
}

TEST(Open, FailureClosesTheFirstAndKeepsTheNewPath) {
    const Folder folder;
    const std::string first = folder.Write("first.txt", "1");
    const std::string second = folder.Write("second.txt", "2");
    const struct {
        const char* name;
        std::string path;
        TEVIO::OpenType type;
    } rows[] = {{"missing file", folder / "missing.txt", TEVIO::Read},
                {"type 7", second, kNoSuchType}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        TEVIO file(first, TEVIO::Read);
        EXPECT_FALSE(file.open(row.path, row.type));
        EXPECT_FALSE(file.isOpen());
        EXPECT_FALSE(file);
        EXPECT_EQ(file.getFilePath(), row.path);
        EXPECT_EQ(file.fileSize(), 0u);
    }
    EXPECT_TRUE(std::filesystem::remove(first));
}

TEST(Open, ClosedObjectOpensTheSamePathAgain) {
    const Folder folder;
    const std::string path = folder / "a.txt";
    TEVIO file(path, TEVIO::Read);
    EXPECT_FALSE(file.isOpen());
    EXPECT_TRUE(file.open(path, TEVIO::Write));
    EXPECT_EQ(file.write("abc", 3), 3u);
}

TEST(Exists, RegularFilesOnlyAndDirExistsFoldersOnly) {
    const Folder folder;
    const std::string file = folder.Write("a.txt", "abc");
    const std::string inside = folder.MakeFolder("with blanks");
    const struct {
        std::string path;
        bool exists;
        bool dirExists;
    } rows[] = {
        {file, true, false},
        {folder.Write("empty.txt", ""), true, false},
        {file + "\\", false, false},
        {file + "/", false, false},
        {folder / "missing", false, false},
        {folder / "missing\\", false, false},
        {"", false, false},
        {folder.Path(), false, true},
        {folder.Path() + "\\", false, true},
        {folder.Path() + "/", false, true},
        {inside, false, true},
        {inside + "\\", false, true},
        {folder.Path() + "/with blanks", false, true},
        {folder.Path() + "/with blanks/", false, true},
        {"C:\\", false, true},
        {"C:/", false, true},
        {folder / "a.txt\\a.txt", false, false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.path);
        EXPECT_EQ(TEVIO::exists(row.path), row.exists);
        EXPECT_EQ(TEVIO::exists(row.path.c_str()), row.exists);
        EXPECT_EQ(TEVIO::dirExists(row.path), row.dirExists);
        EXPECT_EQ(TEVIO::dirExists(row.path.c_str()), row.dirExists);
    }
}

TEST(Exists, NullPathIsNothing) {
    EXPECT_FALSE(TEVIO::exists(kNoPath));
    EXPECT_FALSE(TEVIO::dirExists(kNoPath));
}

}  // namespace
