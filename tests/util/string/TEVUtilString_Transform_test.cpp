#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <stdexcept>
#include <string>

#include "support/Owned.h"
#include "util/string/OutputPointer.h"

namespace {

using TAMO::TEV::System::Util::TEVUtilString;
using testing::StrEq;
using testing::ThrowsMessage;
using tev::test::ExpectNewText;
using tev::test::Stale;
using tev::test::Text;

const char* const kNull = nullptr;
char** const kNoOutput = nullptr;

TEST(Concat, StringTakesNullAsEmpty_Kept) {
    const struct {
        const char* first;
        const char* second;
        const char* value;
    } rows[] = {
        {"ab", "cd", "abcd"},  {"ab", "", "ab"},      {"", "cd", "cd"},       {"", "", ""},
        {"ab", nullptr, "ab"}, {nullptr, "cd", "cd"}, {nullptr, nullptr, ""},
    };
    for (const auto& row : rows) EXPECT_EQ(TEVUtilString::Concat(row.first, row.second), row.value);
}

TEST(Concat, OutputReceivesANewText) {
    ExpectNewText([](char** out) { TEVUtilString::Concat("ab", "cd", out); }, "abcd");
    ExpectNewText([](char** out) { TEVUtilString::Concat("ab", "", out); }, "ab");
    ExpectNewText([](char** out) { TEVUtilString::Concat("", "", out); }, "");
}

TEST(Concat, OutputIsNullForANullText_Kept) {
    const struct {
        const char* first;
        const char* second;
    } rows[] = {{"ab", nullptr}, {nullptr, "cd"}, {nullptr, nullptr}};
    for (const auto& row : rows) {
        char* out = Stale();
        TEVUtilString::Concat(row.first, row.second, &out);
        EXPECT_EQ(out, nullptr);
        EXPECT_NO_THROW(TEVUtilString::Concat(row.first, row.second, kNoOutput));
    }
    EXPECT_NO_THROW(TEVUtilString::Concat("ab", "cd", kNoOutput));
}

TEST(Replace, OrderIsInputReplacementPattern_Kept) {
    const struct {
        const char* input;
        const char* replacement;
        const char* pattern;
        const char* value;
    } rows[] = {
        {"abc", "x", "b", "axc"},    {"aaaa", "b", "aa", "bb"},
        {"aaa", "b", "aa", "ba"},    {"aa", "aa", "a", "aaaa"},
        {"aab", "a", "ab", "aa"},    {"abab", "", "ab", ""},
        {"abc", "", "b", "ac"},      {"abc", "long", "abc", "long"},
        {"abc", "x", "abcd", "abc"}, {"abc", "x", "B", "abc"},
        {"aab", "x", "ab", "ax"},    {"C:/a/b", "\\", "/", "C:\\a\\b"},
        {"", "x", "b", ""},          {"abc", "x", "", "abc"},
        {"", "x", "", ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.pattern) + " in " + row.input);
        const std::string input = row.input;
        const std::string replacement = row.replacement;
        const std::string pattern = row.pattern;
        Text out;
        TEVUtilString::Replace(row.input, row.replacement, row.pattern, out.Out());
        EXPECT_EQ(TEVUtilString::Replace(input, replacement, pattern), row.value);
        EXPECT_EQ(TEVUtilString::Replace(row.input, row.replacement, row.pattern), row.value);
        EXPECT_EQ(out.str(), row.value);
    }
}

TEST(Replace, NullReplacementDeletesAndNullPatternCopies) {
    EXPECT_EQ(TEVUtilString::Replace("abc", kNull, "b"), "ac");
    EXPECT_EQ(TEVUtilString::Replace("abc", "x", kNull), "abc");
    EXPECT_EQ(TEVUtilString::Replace("", kNull, kNull), "");
    ExpectNewText([](char** out) { TEVUtilString::Replace("abc", kNull, "b", out); }, "ac");
    ExpectNewText([](char** out) { TEVUtilString::Replace("abc", "x", kNull, out); }, "abc");
}

TEST(Replace, StringsMayHoldNulBytes) {
    const std::string input("a\0b\0c", 5);
    EXPECT_EQ(TEVUtilString::Replace(input, std::string("-"), std::string(1, '\0')), "a-b-c");
}

TEST(Replace, EmptyResultIsAnEmptyBuffer) {
    ExpectNewText([](char** out) { TEVUtilString::Replace("aa", "", "a", out); }, "");
    ExpectNewText([](char** out) { TEVUtilString::Replace("", "x", "a", out); }, "");
}

TEST(Replace, NullInputThrows) {
    const auto message =
        ThrowsMessage<std::invalid_argument>(StrEq("Argument \"aInputStr\" cannot be a nullptr."));
    EXPECT_THAT([] { TEVUtilString::Replace(kNull, "x", "a"); }, message);
    EXPECT_THAT([] { TEVUtilString::Replace(kNull, kNull, kNull); }, message);
    char* out = Stale();
    EXPECT_THAT([&] { TEVUtilString::Replace(kNull, "x", "a", &out); }, message);
    EXPECT_EQ(out, nullptr);
}

TEST(Replace, NullOutputDoesNothing) {
    EXPECT_NO_THROW(TEVUtilString::Replace("abc", "x", "b", kNoOutput));
    EXPECT_NO_THROW(TEVUtilString::Replace(kNull, "x", "b", kNoOutput));
}

// One direction of the case mapping.
struct Mapper {
    const char* name;
    std::string (*string)(const std::string&);
    std::string (*text)(const char*);
    void (*output)(const char*, char**);
    char first;
    char last;
    int distance;
};

const Mapper kMappers[] = {
    {"ToLower", [](const std::string& text) { return TEVUtilString::ToLower(text); },
     [](const char* text) { return TEVUtilString::ToLower(text); },
     [](const char* text, char** out) { TEVUtilString::ToLower(text, out); }, 'A', 'Z', 32},
    {"ToUpper", [](const std::string& text) { return TEVUtilString::ToUpper(text); },
     [](const char* text) { return TEVUtilString::ToUpper(text); },
     [](const char* text, char** out) { TEVUtilString::ToUpper(text, out); }, 'a', 'z', -32},
};

TEST(CaseMapping, ChangesAsciiLettersAndNoOtherByte) {
    for (const Mapper& mapper : kMappers) {
        SCOPED_TRACE(mapper.name);
        std::string all;
        std::string expected;
        for (int byte = 1; byte < 256; ++byte) {
            const bool isLetter = byte >= mapper.first && byte <= mapper.last;
            all += static_cast<char>(byte);
            expected += static_cast<char>(isLetter ? byte + mapper.distance : byte);
        }
        Text out;
        mapper.output(all.c_str(), out.Out());
        EXPECT_EQ(mapper.string(all), expected);
        EXPECT_EQ(mapper.text(all.c_str()), expected);
        EXPECT_EQ(out.str(), expected);
    }
}

TEST(CaseMapping, StringsMayBeEmptyOrHoldNulBytes) {
    EXPECT_EQ(TEVUtilString::ToLower(std::string("A\0B", 3)), std::string("a\0b", 3));
    EXPECT_EQ(TEVUtilString::ToUpper(std::string("a\0b", 3)), std::string("A\0B", 3));
    for (const Mapper& mapper : kMappers) {
        EXPECT_EQ(mapper.string(std::string()), "") << mapper.name;
        EXPECT_EQ(mapper.text(""), "") << mapper.name;
    }
}

TEST(CaseMapping, NullTextThrows) {
    for (const Mapper& mapper : kMappers)
        EXPECT_THAT(
            [&] { mapper.text(nullptr); },
            ThrowsMessage<std::invalid_argument>(StrEq("Input argument cannot be a nullptr.")))
            << mapper.name;
}

void ExpectOutputFormRefuses(const Mapper& mapper, const char* text, char** out) {
    EXPECT_THAT([&] { mapper.output(text, out); },
                ThrowsMessage<std::invalid_argument>(StrEq("Input arguments cannot be a nullptr.")))
        << mapper.name;
}

TEST(CaseMapping, OutputFormRefusesNullInPluralAndLeavesNull_Kept) {
    for (const Mapper& mapper : kMappers) {
        char* out = Stale();
        ExpectOutputFormRefuses(mapper, nullptr, &out);
        EXPECT_EQ(out, nullptr) << mapper.name;
        ExpectOutputFormRefuses(mapper, "abc", nullptr);
        ExpectOutputFormRefuses(mapper, nullptr, nullptr);
    }
}

TEST(CaseMapping, OutputFormRefusesAnEmptyText_Kept) {
    for (const Mapper& mapper : kMappers) {
        char* out = Stale();
        ExpectOutputFormRefuses(mapper, "", &out);
        EXPECT_EQ(out, nullptr) << mapper.name;
    }
}

TEST(CaseMapping, HeldBufferIsOverwrittenNotReleased) {
    ExpectNewText([](char** out) { TEVUtilString::ToLower("ABC", out); }, "abc");
    ExpectNewText([](char** out) { TEVUtilString::ToUpper("abc", out); }, "ABC");
}

TEST(Trim, PointerFormPointsIntoTheText) {
    const struct {
        const char* text;
        bool start;
        bool end;
        std::ptrdiff_t offset;
        std::size_t length;
    } rows[] = {
        {"  x  ", true, true, 2, 1},
        {"  x  ", true, false, 2, 3},
        {"  x  ", false, true, 0, 3},
        {"  x  ", false, false, 0, 5},
        {"\t\n\v\f\r abc \r\f\v\n\t", true, true, 6, 3},
        {"a b", true, true, 0, 3},
        {"x", true, true, 0, 1},
        {"x ", true, true, 0, 1},
        {" x", true, true, 1, 1},
        {"\xA0x\x85", true, true, 0, 3},
        {"", true, true, 0, 0},
        // Blanks only: the last character, with nothing left of it.
        {"   ", true, true, 2, 0},
        {"   ", true, false, 2, 0},
        {" ", true, true, 0, 0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << &row - rows << ": '" << row.text << "'");
        std::size_t length = 99;
        const char* const trimmed = TEVUtilString::Trim(row.text, length, row.start, row.end);
        EXPECT_EQ(trimmed - row.text, row.offset);
        EXPECT_EQ(length, row.length);
    }
}

TEST(Trim, PointerFormKeepsThePlaceOfBlanksWhoseStartStays_Kept) {
    const char* const blanks = "   ";
    std::size_t length = 99;
    EXPECT_EQ(TEVUtilString::Trim(blanks, length, false, true), blanks);
    EXPECT_EQ(length, 0u) << "the scan from the end stops at the first character";
    EXPECT_EQ(TEVUtilString::Trim(blanks, length, false, false), blanks);
    EXPECT_EQ(length, 3u) << "no scan leaves the text whole";
}

TEST(Trim, PointerFormGivesASingleBlankNoLengthEvenUntrimmed_Kept) {
    std::size_t length = 99;
    const char* const blank = "\t";
    EXPECT_EQ(TEVUtilString::Trim(blank, length, false, false), blank);
    EXPECT_EQ(length, 0u);
}

TEST(Trim, PointerFormOfNullIsNull) {
    std::size_t length = 99;
    EXPECT_EQ(TEVUtilString::Trim(kNull, length, true, true), nullptr);
    EXPECT_EQ(length, 0u);
}

TEST(Trim, StringFormsRemoveEveryBlankAtTheirEnd) {
    const struct {
        const char* text;
        const char* both;
        const char* start;
        const char* end;
    } rows[] = {
        {"abc", "abc", "abc", "abc"},
        {"  a b  ", "a b", "a b  ", "  a b"},
        {"\tabc\n", "abc", "abc\n", "\tabc"},
        {"\t\n\v\f\r x", "x", "x", "\t\n\v\f\r x"},
        {"x \r\f\v\n\t", "x", "x \r\f\v\n\t", "x"},
        {"\xA0x\xA0", "\xA0x\xA0", "\xA0x\xA0", "\xA0x\xA0"},
        {" \t ", "", "", ""},
        {" ", "", "", ""},
        {"", "", "", ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << "'" << row.text << "'");
        EXPECT_EQ(TEVUtilString::Trim(row.text), row.both);
        EXPECT_EQ(TEVUtilString::Trim(std::string(row.text)), row.both);
        EXPECT_EQ(TEVUtilString::TrimStart(row.text), row.start);
        EXPECT_EQ(TEVUtilString::TrimEnd(row.text), row.end);
    }
}

TEST(Trim, StringFormKeepsNulBytes) {
    EXPECT_EQ(TEVUtilString::Trim(std::string(" a\0b ", 5)), std::string("a\0b", 3));
    EXPECT_EQ(TEVUtilString::Trim(std::string(" \0 ", 3)), std::string(1, '\0'));
}

TEST(Trim, StringFormsOfNullThrow) {
    const auto message =
        ThrowsMessage<std::invalid_argument>(StrEq("Input argument cannot be a nullptr."));
    EXPECT_THAT([] { TEVUtilString::Trim(kNull); }, message);
    EXPECT_THAT([] { TEVUtilString::TrimStart(kNull); }, message);
    EXPECT_THAT([] { TEVUtilString::TrimEnd(kNull); }, message);
}

TEST(Trim, OutputFormsStartOnlyAtAPlainSpace_Kept) {
    const struct {
        const char* text;
        const char* both;
        const char* start;
        const char* end;
    } rows[] = {
        {"abc", "abc", "abc", "abc"},
        {"  abc  ", "abc", "abc  ", "  abc"},
        {"\tabc", "\tabc", "\tabc", "\tabc"},
        {"abc\t", "abc\t", "abc\t", "abc\t"},
        {"\tabc\n", "\tabc\n", "\tabc\n", "\tabc\n"},
        {" \tabc\t", "abc", "abc\t", " \tabc\t"},
        {"\tabc\t ", "abc", "\tabc\t ", "\tabc"},
        {"\t abc \t", "\t abc \t", "\t abc \t", "\t abc \t"},
        {" \t", "", "", " \t"},
        {"\t ", "", "\t ", ""},
        {"\t\t", "\t\t", "\t\t", "\t\t"},
        {"   ", "", "", ""},
        {"", "", "", ""},
        {nullptr, "", "", ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::Message() << "row " << &row - rows);
        Text both;
        Text start;
        Text end;
        TEVUtilString::Trim(row.text, both.Out());
        TEVUtilString::TrimStart(row.text, start.Out());
        TEVUtilString::TrimEnd(row.text, end.Out());
        EXPECT_EQ(both.str(), row.both);
        EXPECT_EQ(start.str(), row.start);
        EXPECT_EQ(end.str(), row.end);
    }
}

TEST(Trim, HeldBufferIsOverwrittenNotReleased) {
    ExpectNewText([](char** out) { TEVUtilString::Trim(" abc ", out); }, "abc");
    ExpectNewText([](char** out) { TEVUtilString::TrimStart(" abc ", out); }, "abc ");
    ExpectNewText([](char** out) { TEVUtilString::TrimEnd(" abc ", out); }, " abc");
}

TEST(Trim, NullOutputDoesNothing) {
    EXPECT_NO_THROW(TEVUtilString::Trim(" abc ", kNoOutput));
    EXPECT_NO_THROW(TEVUtilString::TrimStart(" abc ", kNoOutput));
    EXPECT_NO_THROW(TEVUtilString::TrimEnd(" abc ", kNoOutput));
    EXPECT_NO_THROW(TEVUtilString::Trim(kNull, kNoOutput));
}

}  // namespace
