#include "TEVSystemLib/util/file/detail/PathText.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <optional>
#include <string>

namespace {

using namespace TAMO::TEV::System::Util::detail;

struct Row {
    const char* path;
    const char* result;
};

TEST(IsSeparator, SlashAndBackslash) {
    for (int byte = 0; byte < 256; ++byte)
        EXPECT_EQ(IsSeparator(static_cast<char>(byte)), byte == '/' || byte == '\\') << byte;
}

TEST(WithBackslashes, EverySlash) {
    const Row rows[] = {
        {"", ""},
        {"/", "\\"},
        {"C:/a/b.txt", "C:\\a\\b.txt"},
        {"C:\\a/b", "C:\\a\\b"},
        {"a//b", "a\\\\b"},
        {" a b ", " a b "},
    };
    for (const Row& row : rows) EXPECT_EQ(WithBackslashes(row.path), row.result) << row.path;
}

TEST(NormalisedPath, TrimmedOnlyIfASpaceStandsAtAnEnd) {
    const Row rows[] = {
        {"", ""},
        {"C:/a b/c", "C:\\a b\\c"},
        {" C:/a", "C:\\a"},
        {"C:/a ", "C:\\a"},
        {" \tC:/a\r\n", "C:\\a"},
        {"\n\v\fC:/a\t ", "C:\\a"},
        {"\tC:/a", "\tC:\\a"},
        {"C:/a\t", "C:\\a\t"},
        {" ", ""},
        {" \t ", ""},
        {"\t", "\t"},
    };
    for (const Row& row : rows) EXPECT_EQ(NormalisedPath(row.path), row.result) << row.path;
}

TEST(WithEndingSeparator, AppendedUnlessOneIsThere) {
    const Row rows[] = {
        {"C:\\a", "C:\\a\\"}, {"C:\\a\\", "C:\\a\\"},
        {"C:/a/", "C:/a/"},   {"C:", "C:\\"},
        {"\\", "\\"},         {"/", "/"},
        {"a ", "a \\"},       {"", "\\"},
    };
    for (const Row& row : rows) EXPECT_EQ(WithEndingSeparator(row.path), row.result) << row.path;
}

TEST(WithEndingSeparator, OfTheCallersChoice) {
    const Row rows[] = {{"C:\\a", "C:\\a/"}, {"C:\\a\\", "C:\\a\\"}, {"C:/a/", "C:/a/"}, {"", "/"}};
    for (const Row& row : rows)
        EXPECT_EQ(WithEndingSeparator(row.path, '/'), row.result) << row.path;
}

TEST(WithoutEndingSeparators, ButForThatOfARoot) {
    const Row rows[] = {
        {"C:\\a\\", "C:\\a"}, {"C:/a/", "C:/a"}, {"C:\\a", "C:\\a"}, {"C:\\a\\/\\", "C:\\a"},
        {"C:\\", "C:\\"},     {"C:/", "C:/"},    {"C:", "C:"},       {"\\", "\\"},
        {"/", "/"},           {"a\\", "a"},      {"C:\\\\", "C:\\"}, {"/vsimem/", "/vsimem"},
        {"a.txt", "a.txt"},   {"", ""},
    };
    for (const Row& row : rows)
        EXPECT_EQ(WithoutEndingSeparators(row.path), row.result) << row.path;
}

TEST(FolderOf, UpToTheLastSeparator) {
    const Row rows[] = {
        {"C:\\data\\image.ntf", "C:\\data\\"},
        {"C:/data/image.ntf", "C:\\data\\"},
        {"C:\\data/image.ntf", "C:\\data\\"},
        {"C:\\data\\", "C:\\data\\"},
        {"C:/data/", "C:\\data\\"},
        {" C:\\data\\image.ntf ", "C:\\data\\"},
        {"C:\\data\\\t ", "C:\\data\\"},
        {"\tC:\\data\\x", "\tC:\\data\\"},
        {"image.ntf", "."},
        {" image.ntf", "."},
        {"\t", "."},
        {"/x", "\\"},
        {"\\", "\\"},
    };
    for (const Row& row : rows) EXPECT_EQ(FolderOf(row.path), row.result) << row.path;
}

TEST(FolderOf, NothingForAnEmptyPath) {
    for (const char* path : {"", " ", " \t ", "\t "})
        EXPECT_EQ(FolderOf(path), std::nullopt) << path;
}

TEST(FileNameIndex, BehindTheLastSeparator) {
    const struct {
        const char* path;
        std::optional<std::size_t> index;
    } rows[] = {
        {"C:\\a\\b.txt", 5}, {"a\\b", 2}, {"\\\\x", 2},    {"C:\\a\\\t", 5}, {"b.txt", {}},
        {"\\b", {}},         {"\\", {}},  {"C:\\a\\", {}}, {"", {}},         {"C:b", {}},
    };
    for (const auto& row : rows) EXPECT_EQ(FileNameIndex(row.path), row.index) << row.path;
}

}  // namespace
