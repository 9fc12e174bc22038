#include <TEVSystemLib/util/file/TEVUtilFile.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <string>

#include "support/Folder.h"

namespace {

using namespace std::string_literals;
using TAMO::TEV::System::Util::TEVUtilFile;
using tev::test::Folder;

using Pairs = std::map<std::string, std::string>;

struct Row {
    const char* rule;
    std::string text;
    Pairs pairs;
};

Pairs Parse(const Folder& folder, const std::string& text, bool blankSeparated) {
    Pairs pairs;
    EXPECT_TRUE(
        TEVUtilFile::GetKeyValuePairsFromFile(folder.Write("pairs", text), pairs, blankSeparated));
    return pairs;
}

// Every row in a file of its own and, with a good line behind it, as a line among others.
template <std::size_t count>
void ExpectPairs(const Row (&rows)[count], bool blankSeparated) {
    const Folder folder;
    const std::string last = blankSeparated ? "last 1\n" : "last=1\n";
    for (const Row& row : rows) {
        SCOPED_TRACE(row.rule);
        EXPECT_EQ(Parse(folder, row.text, blankSeparated), row.pairs);
        Pairs more = row.pairs;
        more["last"] = "1";
        EXPECT_EQ(Parse(folder, row.text + "\n" + last, blankSeparated), more);
    }
}

TEST(GetKeyValuePairsFromFile, LinesInBothModes) {
    const Row rows[] = {
        {"LineStart: # starts a comment", "# a = 2", {}},
        {"LineStart: # behind blanks too", " \t\r# a = 2", {}},
        {"LineStart: = makes the line a comment", "=a = 2", {}},
        {"LineStart: = behind blanks too", " \t= a 2", {}},
        {"LineStart: line blanks are skipped", "\n\r\n \t\r\n", {}},
        {"Comment: ends at LF only", "#a\rb = 1 2\tc\vd", {}},
        {"Comment: the next line counts", "# x\n#\n", {}},
        {"Key: LF drops the line", "b\n", {}},
        {"Key: nothing behind it at the end", "b", {}},
        {"Key: blanks behind it at the end", "b \t\r", {}},
    };
    for (const bool blankSeparated : {false, true}) {
        SCOPED_TRACE(blankSeparated);
        ExpectPairs(rows, blankSeparated);
    }
}

TEST(GetKeyValuePairsFromFile, EqualSeparatedLines) {
    const Row rows[] = {
        {"LineStart: blanks before the key", " \t\ra=1", {{"a", "1"}}},
        {"LineStart: any other byte starts a key",
         "\v\x01\xEF\xBB\xBF!=1",
         {{"\v\x01\xEF\xBB\xBF!", "1"}}},
        {"Key: trailing blanks fall off", "a \t\r = 1", {{"a", "1"}}},
        {"Key: inner blanks stay", "a \t b\rc=1", {{"a \t b\rc", "1"}}},
        {"Key: # is ordinary", "a#b #=1", {{"a#b #", "1"}}},
        {"Key: form feed is ordinary", "a\f=1", {{"a\f", "1"}}},
        {"Key: no = in the line", "key value\nb=2", {{"b", "2"}}},
        {"AfterKey: inner blanks are skipped", "a= \t\r1", {{"a", "1"}}},
        {"AfterKey: LF drops the line", "b=\n", {}},
        {"AfterKey: blanks and LF drop the line", "b= \t\r\n", {}},
        {"AfterKey: nothing at the end", "b=", {}},
        {"AfterKey: blanks at the end", "b= \t", {}},
        {"AfterKey: the second = starts the value", "k==x", {{"k", "=x"}}},
        {"AfterKey: = alone is a value", "k= =", {{"k", "="}}},
        {"AfterKey: # starts the value", "k=#x", {{"k", "#x"}}},
        {"Value: ends at LF", "a=1\n2", {{"a", "1"}}},
        {"Value: ends with the text", "a=1", {{"a", "1"}}},
        {"Value: trailing blanks fall off", "a=1 \t \r", {{"a", "1"}}},
        {"Value: CR-LF behaves like LF", "a=1\r\nb=2\r\n", {{"a", "1"}, {"b", "2"}}},
        {"Value: inner blanks stay", "a=1 \t 2\r3", {{"a", "1 \t 2\r3"}}},
        {"Value: # and = are ordinary", "a=3 # note = x=", {{"a", "3 # note = x="}}},
        {"Value: bytes above 127 are ordinary", "a=\xE9\xFF\x80", {{"a", "\xE9\xFF\x80"}}},
        {"Value: vertical tab is ordinary", "a=\v1\v", {{"a", "\v1\v"}}},
    };
    ExpectPairs(rows, false);
}

TEST(GetKeyValuePairsFromFile, BlankSeparatedLines) {
    const Row rows[] = {
        {"LineStart: blanks before the key", " \t\ra 1", {{"a", "1"}}},
        {"Key: a space completes it", "key value with blanks", {{"key", "value with blanks"}}},
        {"Key: a tab completes it", "a\t1", {{"a", "1"}}},
        {"Key: a CR completes it", "a\r1", {{"a", "1"}}},
        {"Key: = and # are ordinary", "a=b#= 1", {{"a=b#=", "1"}}},
        {"Key: = alone is no separator", "a=1", {}},
        {"Key: form feed is ordinary", "a\f 1", {{"a\f", "1"}}},
        {"AfterKey: inner blanks are skipped", "a \t\r 1", {{"a", "1"}}},
        {"AfterKey: LF drops the line", "a \n", {}},
        {"AfterKey: CR-LF drops the line", "a\r\n", {}},
        {"AfterKey: nothing at the end", "a ", {}},
        {"AfterKey: = starts the value", "a = 1", {{"a", "= 1"}}},
        {"AfterKey: # starts the value", "a # 1", {{"a", "# 1"}}},
        {"Value: trailing blanks fall off", "a 1 \t\r", {{"a", "1"}}},
        {"Value: CR-LF behaves like LF", "a 1\r\nb 2\r\n", {{"a", "1"}, {"b", "2"}}},
        {"Value: inner blanks stay", "a 1 \t 2\r3", {{"a", "1 \t 2\r3"}}},
        {"Value: # and = are ordinary", "a 1#2=3", {{"a", "1#2=3"}}},
    };
    ExpectPairs(rows, true);
}

TEST(GetKeyValuePairsFromFile, NulBytes) {
    const Row rows[] = {
        {"LineStart: starts a key", "\0=1"s, {{"\0"s, "1"}}},
        {"Comment: is skipped", "#\0a=1\nb=2"s, {{"b", "2"}}},
        {"Key: belongs to it", "a\0b\0 =1"s, {{"a\0b\0"s, "1"}}},
        {"AfterKey: starts the value, LF ends it", "a= \0\nb=2"s, {{"a", "\0"s}, {"b", "2"}}},
        {"AfterKey: starts the value, text follows", "a=\0x\n"s, {{"a", "\0x"s}}},
        {"Value: ends it, a line starts behind it", "a=1 \0b=2\0#c=3\n"s, {{"a", "1"}, {"b", "2"}}},
        {"Value: NUL bytes at the end", "a=1\0\0\0"s, {{"a", "1"}}},
    };
    const Folder folder;
    for (const Row& row : rows) {
        SCOPED_TRACE(row.rule);
        EXPECT_EQ(Parse(folder, row.text, false), row.pairs);
    }
    EXPECT_EQ(Parse(folder, "a\0b 1\0c 2\n"s, true), (Pairs{{"a\0b"s, "1"}, {"c", "2"}}));
}

TEST(GetKeyValuePairsFromFile, ThreeLinesOnePair) {
    const Folder folder;
    EXPECT_EQ(Parse(folder, "a = 1\n# a = 2\na=3 # note\n", false), (Pairs{{"a", "3 # note"}}));
}

TEST(GetKeyValuePairsFromFile, LinesWithoutValueAddNothingAndTheLastNeedsNoBreak) {
    const Folder folder;
    EXPECT_EQ(Parse(folder, "b=\nb\nc=4", false), (Pairs{{"c", "4"}}));
}

TEST(GetKeyValuePairsFromFile, FileWithoutPairsIsReadWell) {
    const Folder folder;
    for (const char* text : {"# only a comment\n", "\n", " ", "no pair\n"})
        EXPECT_EQ(Parse(folder, text, false), Pairs()) << text;
}

TEST(GetKeyValuePairsFromFile, AddsToTheMapAndTheLastLineWins) {
    const Folder folder;
    Pairs pairs{{"kept", "before"}, {"a", "before"}, {"A", "before"}};
    EXPECT_TRUE(TEVUtilFile::GetKeyValuePairsFromFile(
        folder.Write("pairs", "a=1\nb=2\na=longer than before\n"), pairs, false));
    EXPECT_EQ(
        pairs,
        (Pairs{{"kept", "before"}, {"a", "longer than before"}, {"A", "before"}, {"b", "2"}}));
}

TEST(GetKeyValuePairsFromFile, NothingOfTheMapIsLost) {
    const Folder folder;
    Pairs before;
    for (int i = 0; i < 1000; ++i) before["before" + std::to_string(i)] = std::to_string(i);
    for (const bool blankSeparated : {false, true}) {
        for (const std::string& text : {"# no pair\n"s, "a = 1\nbefore7 = new\n"s}) {
            SCOPED_TRACE(text);
            Pairs pairs = before;
            Pairs expected = Parse(folder, text, blankSeparated);
            expected.insert(before.begin(), before.end());
            EXPECT_TRUE(TEVUtilFile::GetKeyValuePairsFromFile(folder.Write("pairs", text), pairs,
                                                              blankSeparated));
            EXPECT_EQ(pairs, expected);
        }
    }
}

TEST(GetKeyValuePairsFromFile, UnreadableFileLeavesTheMap) {
    const Folder folder;
    for (const std::string& path :
         {folder / "missing", folder / "missing\\pairs", folder.Write("empty", ""),
          folder.MakeFolder("folder"), folder.Path() + "\\", ""s}) {
        SCOPED_TRACE(path);
        for (const bool blankSeparated : {false, true}) {
            Pairs pairs{{"kept", "before"}};
            EXPECT_FALSE(TEVUtilFile::GetKeyValuePairsFromFile(path, pairs, blankSeparated));
            EXPECT_EQ(pairs, (Pairs{{"kept", "before"}}));
        }
    }
}

TEST(GetKeyValuePairsFromFile, FileIsClosed) {
    const Folder folder;
    const std::string path = folder.Write("pairs", "a=1");
    Pairs pairs;
    EXPECT_TRUE(TEVUtilFile::GetKeyValuePairsFromFile(path, pairs, false));
    EXPECT_TRUE(std::filesystem::remove(path));
}

TEST(GetKeyValuePairsFromFile, FileNameIsUtf8) {
    const Folder folder;
    std::ofstream(std::filesystem::path(folder.Path()) / L"caf\u00e9") << "a=1";
    Pairs pairs;
    EXPECT_TRUE(TEVUtilFile::GetKeyValuePairsFromFile(folder / "caf\xC3\xA9", pairs, false));
    EXPECT_EQ(pairs, (Pairs{{"a", "1"}}));
}

TEST(GetKeyValuePairsFromFile, LinesOfTenMegabytes) {
    constexpr std::size_t kLength = 10'000'000;
    const Folder folder;
    const std::string longText(kLength, 'x');
    const Pairs pairs = Parse(folder,
                              "#" + longText + "\n" + longText + "\na=" + longText + "\n" +
                                  std::string(kLength, ' ') + "\n" + longText + "=1\nlast=1",
                              false);
    ASSERT_EQ(pairs.size(), 3u);
    EXPECT_EQ(pairs.count("last"), 1u);
    EXPECT_TRUE(pairs.count("a") == 1 && pairs.at("a") == longText) << "the long value";
    EXPECT_TRUE(pairs.count(longText) == 1 && pairs.at(longText) == "1") << "the long key";
}

}  // namespace
