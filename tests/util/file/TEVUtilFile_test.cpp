#include <TEVSystemLib/util/file/TEVUtilFile.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <type_traits>

#include "support/Owned.h"

namespace {

using TAMO::TEV::System::Util::TEVUtilFile;
using testing::ThrowsMessage;
using tev::test::Text;

constexpr char kBadPathOrOutput[] =
    "ERROR: Invalid input fully qualified file name and/or NULL output parameter.";
constexpr char kBadPath[] = "ERROR: Invalid input fully qualified file name.";

TEST(TEVUtilFile, IsAssignedButNeverMade) {
    EXPECT_FALSE(std::is_default_constructible_v<TEVUtilFile>);
    EXPECT_FALSE(std::is_copy_constructible_v<TEVUtilFile>);
    EXPECT_FALSE(std::is_destructible_v<TEVUtilFile>);
    EXPECT_TRUE(std::is_copy_assignable_v<TEVUtilFile>);
}

TEST(GetFileExtension, FromTheLastDot) {
    const struct {
        const char* path;
        int dot;  // -1: refused
    } rows[] = {
        {"C:\\dir\\file.tar.gz", 15},
        {"C:\\my.dir\\file", 5},
        {"file.txt", 4},
        {"file.", 4},
        {"C:\\dir\\.profile", 7},
        {".a.b", 2},
        {"..", 1},
        {" .x", 1},
        {"a.b ", 1},
        {".profile", -1},
        {".", -1},
        {"file", -1},
        {"C:\\dir\\file", -1},
        {"", -1},
        {nullptr, -1},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.path == nullptr ? "(null)" : row.path);
        const bool found = row.dot >= 0;
        const char* extension = "held";
        EXPECT_EQ(TEVUtilFile::GetFileExtension(row.path, extension, true), found);
        EXPECT_EQ(extension, found ? row.path + row.dot : nullptr);
        extension = "held";
        EXPECT_EQ(TEVUtilFile::GetFileExtension(row.path, extension, false), found);
        EXPECT_EQ(extension, found ? row.path + row.dot + 1 : nullptr);
    }
}

TEST(GetFileExtension, TextsOfTheTwoForms) {
    const char* extension = nullptr;
    EXPECT_TRUE(TEVUtilFile::GetFileExtension("C:\\dir\\file.tar.gz", extension, true));
    EXPECT_STREQ(extension, ".gz");
    EXPECT_TRUE(TEVUtilFile::GetFileExtension("C:\\dir\\file.tar.gz", extension, false));
    EXPECT_STREQ(extension, "gz");
    EXPECT_TRUE(TEVUtilFile::GetFileExtension("file.", extension, false));
    EXPECT_STREQ(extension, "");
}

TEST(GetFileExtension, DotInAFolderNameCounts_Kept) {
    const char* extension = nullptr;
    EXPECT_TRUE(TEVUtilFile::GetFileExtension("C:\\my.dir\\file", extension, false));
    EXPECT_STREQ(extension, "dir\\file");
}

TEST(GetFileName, BehindTheLastSeparator) {
    const struct {
        const char* path;
        const char* name;
    } rows[] = {
        {"C:/data/img.ntf", "img.ntf"},
        {"C:\\data\\img.ntf", "img.ntf"},
        {"C:\\data/img.ntf", "img.ntf"},
        {"C:\\img.ntf", "img.ntf"},
        {"a\\b", "b"},
        {"a/b", "b"},
        {"\\\\x", "x"},
        {"\\\\server\\share\\x", "x"},
        {"C:\\data\\two words", "two words"},
        {"C:\\data\\\xE9.txt", "\xE9.txt"},
        {"  C:\\data\\img.ntf", "img.ntf"},
        {"C:\\data\\img.ntf  ", "img.ntf"},
        {" C:\\data\\img.ntf\t\r\n", "img.ntf"},
        {"C:\\data\\img.ntf\t ", "img.ntf"},
        {"C:\\data\\ img.ntf", " img.ntf"},
        {"C:\\data\\img.ntf\t", "img.ntf\t"},
        {"C:\\data\\\t", "\t"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.path);
        Text name;
        EXPECT_TRUE(TEVUtilFile::GetFileName(row.path, name.Out()));
        EXPECT_EQ(name.str(), row.name);
    }
}

TEST(GetFileName, WithoutFolderRefused_Kept) {
    for (const char* path :
         {"img.ntf", "C:img.ntf", "\\img.ntf", "/img.ntf", " img.ntf ", " \\img.ntf", "\t"}) {
        SCOPED_TRACE(path);
        char held[] = "held";
        char* name = held;
        EXPECT_FALSE(TEVUtilFile::GetFileName(path, &name));
        EXPECT_EQ(name, nullptr);
    }
}

TEST(GetFileName, EmptyPathThrowsAndLeavesTheOutput) {
    for (const char* path : {static_cast<const char*>(nullptr), "", " ", " \t\r\n ", "\t "}) {
        SCOPED_TRACE(path == nullptr ? "(null)" : path);
        char held[] = "held";
        char* name = held;
        EXPECT_THAT([&] { TEVUtilFile::GetFileName(path, &name); },
                    ThrowsMessage<std::invalid_argument>(kBadPathOrOutput));
        EXPECT_EQ(name, held);
    }
}

TEST(GetFileName, NullOutputThrows) {
    for (const char* path : {"C:\\data\\img.ntf", "C:\\data\\", "img.ntf", ""}) {
        EXPECT_THAT([&] { TEVUtilFile::GetFileName(path, nullptr); },
                    ThrowsMessage<std::invalid_argument>(kBadPathOrOutput))
            << path;
    }
}

TEST(GetFileName, FolderThrowsWithNullOutput) {
    for (const char* path :
         {"C:\\data\\", "C:/data/", " C:\\data\\ ", "C:\\data\\\t ", "\\", "/"}) {
        SCOPED_TRACE(path);
        char held[] = "held";
        char* name = held;
        EXPECT_THAT([&] { TEVUtilFile::GetFileName(path, &name); },
                    ThrowsMessage<std::invalid_argument>(kBadPath));
        EXPECT_EQ(name, nullptr);
    }
}

TEST(GetFileNameIndex, BehindTheLastSeparator) {
    const struct {
        const char* path;
        int index;
    } rows[] = {
        {"C:\\a\\b.txt", 5}, {"C:/a/b.txt", 5},   {"a/b", 2},
        {"\\\\x", 2},        {"C:\\a\\b ", 5},    {"\tC:\\a\\b", 6},
        {"C:\\a\\\t", 5},    {"b.txt", -1},       {"C:b.txt", -1},
        {"\\b.txt", -1},     {"/b.txt", -1},      {"C:\\a\\", -1},
        {"C:/a/", -1},       {" C:\\a\\\t ", -1}, {"\\", -1},
        {" ", -1},           {" \t ", -1},        {"", -1},
        {nullptr, -1},
    };
    for (const auto& row : rows)
        EXPECT_EQ(TEVUtilFile::GetFileNameIndex(row.path), row.index)
            << (row.path == nullptr ? "(null)" : row.path);
}

TEST(GetFileNameIndex, RefersToTheTrimmedPath_Kept) {
    EXPECT_EQ(TEVUtilFile::GetFileNameIndex("   C:\\a\\b.txt"), 5);
    EXPECT_EQ(TEVUtilFile::GetFileNameIndex(" \t C:/a/b.txt "), 5);
    EXPECT_EQ(TEVUtilFile::GetFileNameIndex(" \\b.txt"), -1);
}

}  // namespace
