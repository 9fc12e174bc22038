#include <TEVSystemLib/util/file/TEVIO.h>
#include <TEVSystemLib/util/memory/TEVUtilMemory.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

#include "support/Folder.h"
#include "support/Owned.h"

namespace {

using TAMO::TEV::System::Util::TEVIO;
using TAMO::TEV::System::Util::TEVUtilMemory;
using tev::test::Folder;
using tev::test::ReadAll;
using tev::test::Text;

// "?" stands where nothing was read.
TEST(Read, TakesWhatIsLeftFromThePosition) {
    const Folder folder;
    TEVIO file(folder.Write("a.txt", "abcdef"), TEVIO::Read);
    std::string bytes(4, '?');
    EXPECT_EQ(file.read(bytes.data(), 4), 4u);
    EXPECT_EQ(bytes, "abcd");
    bytes.assign(4, '?');
    EXPECT_EQ(file.read(bytes.data(), 4), 2u);
    EXPECT_EQ(bytes, "ef??");
    EXPECT_EQ(file.read(bytes.data(), 4), 0u);
    EXPECT_EQ(file.tell(), 6u);
}

TEST(Read, LineEndsAndNulBytesAreKept) {
    const Folder folder;
    const std::string content(
        "a\r\nb\0c\n\x1A"
        "d",
        9);
    TEVIO file(folder.Write("a.bin", content), TEVIO::Read);
    std::string bytes(20, '?');
    bytes.resize(file.read(bytes.data(), bytes.size()));
    EXPECT_EQ(bytes, content);
}

TEST(ReadRange, AllOrNothing) {
    const Folder folder;
    const TEVIO file(folder.Write("a.txt", "abcdef"), TEVIO::Read);
    const struct {
        std::uint64_t offset;
        std::uint64_t size;
        bool read;
        const char* bytes;
    } rows[] = {{0, 6, true, "abcdef"}, {2, 3, true, "cde"}, {5, 1, true, "f"},  {0, 7, false, ""},
                {4, 3, false, ""},      {6, 1, false, ""},   {100, 1, false, ""}};
    for (const auto& row : rows) {
        SCOPED_TRACE(std::to_string(row.offset) + " " + std::to_string(row.size));
        std::string bytes(row.size, '?');
        EXPECT_EQ(file.read(bytes.data(), row.offset, row.size), row.read);
        if (row.read) {
            EXPECT_EQ(bytes, row.bytes);
        }
    }
}

TEST(ReadRange, KeepsThePosition) {
    const Folder folder;
    TEVIO file(folder.Write("a.txt", "abcdef"), TEVIO::Read);
    ASSERT_TRUE(file.seek(1, SEEK_SET));
    char byte = '?';
    EXPECT_TRUE(file.read(&byte, 4, 1));
    EXPECT_EQ(byte, 'e');
    EXPECT_EQ(file.tell(), 1u);
    EXPECT_EQ(file.read(&byte, 1), 1u);
    EXPECT_EQ(byte, 'b');
}

TEST(Write, ByteForByte) {
    const Folder folder;
    const std::string path = folder / "a.bin";
    const std::string content("a\r\nb\0c\n", 7);
    {
        TEVIO file(path, TEVIO::Write);
        EXPECT_EQ(file.write(content.data(), 4), 4u);
        EXPECT_EQ(file.tell(), 4u);
        EXPECT_EQ(file.write(content.data() + 4, 3), 3u);
        EXPECT_EQ(file.write(content.data(), 0), 0u);
    }
    EXPECT_EQ(ReadAll(path), content);
}

TEST(Write, NothingIntoAFileOpenForReading) {
    const Folder folder;
    const std::string path = folder.Write("a.txt", "abc");
    {
        TEVIO file(path, TEVIO::Read);
        EXPECT_EQ(file.write("X", 1), 0u);
    }
    EXPECT_EQ(ReadAll(path), "abc");
}

TEST(Seek, FromStartHereAndEnd) {
    const Folder folder;
    TEVIO file(folder.Write("a.txt", "abcdef"), TEVIO::Read);
    const struct {
        std::uint64_t offset;
        int whence;
        std::uint64_t position;
    } rows[] = {{4, 0, 4}, {1, 1, 5}, {0, 1, 5}, {0, 2, 6}, {0, 0, 0}, {2, 1, 2}};
    for (const auto& row : rows) {
        SCOPED_TRACE(std::to_string(row.offset) + " from " + std::to_string(row.whence));
        EXPECT_TRUE(file.seek(row.offset, row.whence));
        EXPECT_EQ(file.tell(), row.position);
    }
}

TEST(Seek, BeyondFourGigabytes) {
    const Folder folder;
    TEVIO file(folder.Write("a.txt", "abc"), TEVIO::Read);
    EXPECT_TRUE(file.seek(5'000'000'000, SEEK_SET));
    EXPECT_EQ(file.tell(), 5'000'000'000u);
}

TEST(Seek, FalseWhenTheLayerBelowRefuses) {
    const std::string path = "/vsimem/tev-io-seek-refused";
    {
        TEVIO file(path, TEVIO::Write);
        ASSERT_EQ(file.write("abcdef", 6), 6u);
    }
    TEVIO file(path, TEVIO::Read);
    for (const int whence : {7, -1}) {
        ASSERT_TRUE(file.seek(2, SEEK_SET));
        EXPECT_FALSE(file.seek(1, whence)) << "from " << whence;
    }
    EXPECT_TRUE(file.isOpen());
    EXPECT_TRUE(file.seek(6, SEEK_SET));
}

TEST(Seek, WritesInTheMiddle) {
    const Folder folder;
    const std::string path = folder / "a.txt";
    {
        TEVIO file(path, TEVIO::Write);
        EXPECT_EQ(file.write("abcdef", 6), 6u);
        EXPECT_TRUE(file.seek(2, SEEK_SET));
        EXPECT_EQ(file.write("XY", 2), 2u);
    }
    EXPECT_EQ(ReadAll(path), "abXYef");
}

TEST(FileSize, OfTheOpenFileKeepsThePosition) {
    const Folder folder;
    TEVIO file(folder.Write("a.txt", "abcdef"), TEVIO::Read);
    ASSERT_TRUE(file.seek(2, SEEK_SET));
    EXPECT_EQ(file.fileSize(), 6u);
    EXPECT_EQ(file.tell(), 2u);
}

TEST(FileSize, OfTheOpenFileGrowsWithIt) {
    const Folder folder;
    TEVIO file(folder / "a.txt", TEVIO::Write);
    EXPECT_EQ(file.fileSize(), 0u);
    EXPECT_EQ(file.write("abc", 3), 3u);
    EXPECT_EQ(file.fileSize(), 3u);
    EXPECT_EQ(file.write("def", 3), 3u);
    EXPECT_EQ(file.fileSize(), 6u);
}

TEST(FileSize, OfAPath) {
    const Folder folder;
    EXPECT_EQ(TEVIO::fileSize(folder.Write("a.txt", "0123456789").c_str()), 10u);
    EXPECT_EQ(TEVIO::fileSize(folder.Write("empty.txt", "").c_str()), 0u);
    EXPECT_EQ(TEVIO::fileSize((folder / "missing.txt").c_str()), 0u);
    EXPECT_EQ(TEVIO::fileSize(""), 0u);
    EXPECT_EQ(TEVIO::fileSize(static_cast<const char*>(nullptr)), 0u);
}

// The std::string form is called with the empty path only: with any other text it asks itself
// again in a loop without end, so that no test could ever come back from it.
TEST(FileSize, OnlyTheEmptyStringReturns_Kept) {
#ifdef _MSC_VER
#pragma warning(push)
#pragma warning(disable : 4996)
#else
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"
#endif
    EXPECT_EQ(TEVIO::fileSize(std::string()), 0u);
#ifdef _MSC_VER
#pragma warning(pop)
#else
#pragma GCC diagnostic pop
#endif
}

TEST(ReadFile, TenBytesAndATerminatingNul) {
    const Folder folder;
    const std::string path = folder.Write("a.txt", "0123456789");
    char* data = nullptr;
    std::uint64_t size = 99;
    EXPECT_TRUE(TEVIO::readFile(path.c_str(), &data, size));
    EXPECT_EQ(size, 10u);
    ASSERT_NE(data, nullptr);
    EXPECT_EQ(std::string_view(data, 11), std::string_view("0123456789\0", 11));
    TEVUtilMemory::DeallocateCharArray(&data);
    EXPECT_TRUE(std::filesystem::remove(path)) << "the file must be closed";
}

TEST(ReadFile, NulBytesBelongToTheContent) {
    const Folder folder;
    const std::string content("\0a\0\0b\0", 6);
    Text data;
    std::uint64_t size = 0;
    EXPECT_TRUE(TEVIO::readFile(folder.Write("a.bin", content).c_str(), data.Out(), size));
    ASSERT_EQ(size, content.size());
    EXPECT_EQ(std::string(data.get(), size), content);
}

TEST(ReadFile, EmptyFileIsAFailure_Kept) {
    const tev::test::Folder folder;
    char* data = nullptr;
    std::uint64_t size = 7;
    EXPECT_FALSE(
        TAMO::TEV::System::Util::TEVIO::readFile(folder.Write("empty", "").c_str(), &data, size));
    EXPECT_EQ(data, nullptr);
    EXPECT_EQ(size, 0U);
}

TEST(ReadFile, FailureGivesNullAndZero) {
    const Folder folder;
    const std::string empty = folder.Write("empty.txt", "");
    const std::string missing = folder / "missing.txt";
    const struct {
        const char* name;
        const char* path;
    } rows[] = {{"empty file", empty.c_str()},
                {"missing file", missing.c_str()},
                {"folder", folder.Path().c_str()},
                {"empty path", ""},
                {"null path", nullptr}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        char held[] = "held";
        char* data = held;
        std::uint64_t size = 99;
        EXPECT_FALSE(TEVIO::readFile(row.path, &data, size));
        EXPECT_EQ(data, nullptr);
        EXPECT_EQ(size, 0u);
    }
    EXPECT_TRUE(std::filesystem::remove(empty)) << "the file must be closed";
}

TEST(ReadFile, NullOutputOnlyClearsTheSize) {
    const Folder folder;
    std::uint64_t size = 99;
    EXPECT_FALSE(TEVIO::readFile(folder.Write("a.txt", "abc").c_str(), nullptr, size));
    EXPECT_EQ(size, 0u);
}

TEST(ReadFile, SizeBeyondMemoryGivesNullAndZero) {
    constexpr std::uint64_t kPetabyte = std::uint64_t{1} << 50;
    const Folder folder;
    const std::string description =
        "<VSISparseFile><Length>" + std::to_string(kPetabyte) + "</Length></VSISparseFile>";
    const std::string path = "/vsisparse/" + folder.Write("sparse.xml", description);
    ASSERT_EQ(TEVIO(path, TEVIO::Read).fileSize(), kPetabyte);
    char held[] = "held";
    char* data = held;
    std::uint64_t size = 99;
    EXPECT_FALSE(TEVIO::readFile(path.c_str(), &data, size));
    EXPECT_EQ(data, nullptr);
    EXPECT_EQ(size, 0u);
}

TEST(ReadFile, HundredMegabytes) {
    constexpr std::uint64_t kSize = 100'000'000;
    const Folder folder;
    const std::string path = folder.Write("big.bin", "first");
    std::filesystem::resize_file(path, kSize - 4);
    std::ofstream(path, std::ios::binary | std::ios::app) << "last";
    Text data;
    std::uint64_t size = 0;
    ASSERT_TRUE(TEVIO::readFile(path.c_str(), data.Out(), size));
    ASSERT_EQ(size, kSize);
    const std::string_view bytes(data.get(), size);
    EXPECT_EQ(bytes.substr(0, 6), std::string_view("first\0", 6));
    EXPECT_EQ(bytes.substr(kSize - 5), std::string_view("\0last", 5));
    EXPECT_EQ(data.get()[size], '\0');
}

}  // namespace
