#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <optional>
#include <ostream>
#include <stdexcept>
#include <string>
#include <vector>

#include "support/Owned.h"

using TAMO::TEV::System::Util::TEVUtilString;
using testing::ElementsAre;
using tev::test::Text;
using tev::test::TextArray;

namespace {

constexpr char kNotAPair[] = "Invalid input string. Input string must be in \"key=value\" format.";
constexpr char kNoKeyPointer[] =
    "ERROR: Input parameters cannot be NULL or an empty string and must be given in format "
    "\"key=value\".";
constexpr char kNoValuePointer[] =
    "ERROR: Input parameters cannot be a nullptr or an empty string and must be given in format "
    "\"key=value\".";

template <typename Call>
std::string InvalidArgument(Call call) {
    try {
        call();
    } catch (const std::invalid_argument& error) {
        return error.what();
    }
    return "(no std::invalid_argument)";
}

// Nothing stands for the exception.
struct Half {
    const char* pair;
    std::optional<std::string> expected;
};

std::ostream& operator<<(std::ostream& stream, const Half& row) {
    return stream << (row.pair == nullptr ? "(null)" : '[' + std::string(row.pair) + ']');
}

const Half kKeys[] = {
    {"a=b", "a"},
    {"name = value", "name"},
    {"  k=v", "k"},
    {" \t\r\n\v\fk=v", "k"},
    {"k \t\r\n\v\f=v", "k"},
    {"k\xA0=v", "k\xA0"},
    {"a b=c", "a b"},
    {"k=v=w", "k"},
    {"k==x", "k"},
    {"ab=", "ab"},
    {"a= ", "a"},
    {"\x80\xFF=v", "\x80\xFF"},
    {"a=", std::nullopt},
    {"  a=", std::nullopt},
    {"=v", std::nullopt},
    {"=value", std::nullopt},
    {"==v", std::nullopt},
    {" =value", std::nullopt},
    {"  = value", std::nullopt},
    {"\t=v", std::nullopt},
    {"\t \n=value", std::nullopt},
    {"k", std::nullopt},
    {"=", std::nullopt},
    {"key", std::nullopt},
    {"key value", std::nullopt},
    {" ", std::nullopt},
    {"     ", std::nullopt},
    {"", std::nullopt},
    {nullptr, std::nullopt},
};

const Half kValues[] = {
    {"a=b", "b"},
    {"  k=v", "v"},
    {" \tk=v", "v"},
    {"k=v=w", "v=w"},
    {"k==x", "=x"},
    {"k=v=", "v="},
    {"k=\xA0\x80", "\xA0\x80"},
    {"a=", ""},
    {"  a=", ""},
    {"name =", ""},
    {"=v", std::nullopt},
    {"==", std::nullopt},
    {"==v", std::nullopt},
    {"  =v", std::nullopt},
    {"=", std::nullopt},
    {"k", std::nullopt},
    {"key", std::nullopt},
    {"key value", std::nullopt},
    {"     ", std::nullopt},
    {"", std::nullopt},
    {nullptr, std::nullopt},
};

TEST(GetKeyFromKeyValuePair, TextBeforeTheFirstEqualsSign) {
    for (const Half& row : kKeys) {
        SCOPED_TRACE(testing::PrintToString(row));
        if (row.expected)
            EXPECT_EQ(TEVUtilString::GetKeyFromKeyValuePair(row.pair), *row.expected);
        else
            EXPECT_EQ(InvalidArgument([&] { TEVUtilString::GetKeyFromKeyValuePair(row.pair); }),
                      kNotAPair);
    }
}

TEST(GetKeyFromKeyValuePair, OutputFormAgreesWithStringForm) {
    for (const Half& row : kKeys) {
        SCOPED_TRACE(testing::PrintToString(row));
        Text key;
        if (row.expected) {
            TEVUtilString::GetKeyFromKeyValuePair(row.pair, key.Out());
            EXPECT_EQ(key.str(), *row.expected);
        } else {
            EXPECT_EQ(InvalidArgument(
                          [&] { TEVUtilString::GetKeyFromKeyValuePair(row.pair, key.Out()); }),
                      kNotAPair);
            EXPECT_TRUE(key.IsNull());
        }
    }
}

TEST(GetKeyFromKeyValuePair, NullOutputIsRefusedWithItsOwnText_Kept) {
    EXPECT_EQ(InvalidArgument([] { TEVUtilString::GetKeyFromKeyValuePair("a=b", nullptr); }),
              kNoKeyPointer);
    EXPECT_EQ(InvalidArgument([] { TEVUtilString::GetKeyFromKeyValuePair("no pair", nullptr); }),
              kNoKeyPointer);
}

TEST(GetKeyFromKeyValuePair, OutputIsOverwrittenNotFreed) {
    char stale[] = "stale";
    char* key = stale;
    TEVUtilString::GetKeyFromKeyValuePair("a=b", &key);
    ASSERT_NE(key, stale);
    const Text owner(key);
    EXPECT_EQ(owner.str(), "a");
    EXPECT_STREQ(stale, "stale");
}

TEST(GetKeyFromKeyValuePair, KeyNeedsThreeCharactersWhereAValueNeedsTwo_Kept) {
    EXPECT_EQ(InvalidArgument([] { TEVUtilString::GetKeyFromKeyValuePair("a="); }), kNotAPair);
    EXPECT_EQ(TEVUtilString::GetValueFromKeyValuePair("a="), "");
}

TEST(GetKeyFromKeyValuePair, LongKey) {
    const std::string key(100000, 'k');
    EXPECT_EQ(TEVUtilString::GetKeyFromKeyValuePair((key + "  =v").c_str()), key);
}

TEST(GetValueFromKeyValuePair, TextBehindTheFirstEqualsSign) {
    for (const Half& row : kValues) {
        SCOPED_TRACE(testing::PrintToString(row));
        if (row.expected)
            EXPECT_EQ(TEVUtilString::GetValueFromKeyValuePair(row.pair), *row.expected);
        else
            EXPECT_EQ(InvalidArgument([&] { TEVUtilString::GetValueFromKeyValuePair(row.pair); }),
                      kNotAPair);
    }
}

TEST(GetValueFromKeyValuePair, OutputFormAgreesWithStringForm) {
    for (const Half& row : kValues) {
        SCOPED_TRACE(testing::PrintToString(row));
        Text value;
        if (!row.expected) {
            EXPECT_EQ(InvalidArgument(
                          [&] { TEVUtilString::GetValueFromKeyValuePair(row.pair, value.Out()); }),
                      kNotAPair);
            EXPECT_TRUE(value.IsNull());
            continue;
        }
        TEVUtilString::GetValueFromKeyValuePair(row.pair, value.Out());
        if (row.expected->empty())
            EXPECT_TRUE(value.IsNull());
        else
            EXPECT_EQ(value.str(), *row.expected);
    }
}

TEST(GetValueFromKeyValuePair, NullOutputIsRefusedWithItsOwnText_Kept) {
    EXPECT_EQ(InvalidArgument([] { TEVUtilString::GetValueFromKeyValuePair("a=b", nullptr); }),
              kNoValuePointer);
    EXPECT_EQ(InvalidArgument([] { TEVUtilString::GetValueFromKeyValuePair("no pair", nullptr); }),
              kNoValuePointer);
}

TEST(GetKeyFromKeyValuePair, TabStartsNoTrimming_Kept) {
    EXPECT_EQ(TEVUtilString::GetKeyFromKeyValuePair("\tk=v"), "\tk");
    EXPECT_EQ(TEVUtilString::GetKeyFromKeyValuePair("\n k=v"), "\n k");
    EXPECT_EQ(TEVUtilString::GetKeyFromKeyValuePair(" \tk=v"), "k");
    Text key;
    TEVUtilString::GetKeyFromKeyValuePair("\tk=v", key.Out());
    EXPECT_EQ(key.str(), "\tk");
}

// Trimmed, these texts would begin with "=" and be refused.
TEST(GetValueFromKeyValuePair, TabStartsNoTrimming_Kept) {
    EXPECT_EQ(TEVUtilString::GetValueFromKeyValuePair("\t=v"), "v");
    EXPECT_EQ(TEVUtilString::GetValueFromKeyValuePair("\t\n=v"), "v");
    EXPECT_EQ(InvalidArgument([] { TEVUtilString::GetValueFromKeyValuePair(" \t=v"); }), kNotAPair);
    Text value;
    TEVUtilString::GetValueFromKeyValuePair("\t=v", value.Out());
    EXPECT_EQ(value.str(), "v");
}

TEST(GetValueFromKeyValuePair, BlanksBelongToTheValue_Kept) {
    const Half rows[] = {
        {"name = value", " value"},
        {"  k=v  ", "v  "},
        {"k= \t\r\n\v\f", " \t\r\n\v\f"},
    };
    for (const Half& row : rows) {
        EXPECT_EQ(TEVUtilString::GetValueFromKeyValuePair(row.pair), *row.expected) << row;
        Text value;
        TEVUtilString::GetValueFromKeyValuePair(row.pair, value.Out());
        EXPECT_EQ(value.str(), *row.expected) << row;
    }
}

TEST(GetValueFromKeyValuePair, EmptyValueNullsTheOutput_Kept) {
    char stale[] = "stale";
    char* value = stale;
    TEVUtilString::GetValueFromKeyValuePair("ab=", &value);
    EXPECT_EQ(value, nullptr);
    EXPECT_STREQ(stale, "stale");
}

TEST(GetValueFromKeyValuePair, OutputIsOverwrittenNotFreed) {
    char stale[] = "stale";
    char* value = stale;
    TEVUtilString::GetValueFromKeyValuePair("a=b", &value);
    ASSERT_NE(value, stale);
    const Text owner(value);
    EXPECT_EQ(owner.str(), "b");
    EXPECT_STREQ(stale, "stale");
}

TEST(GetValueFromKeyValuePair, LongValue) {
    const std::string value(100000, 'v');
    EXPECT_EQ(TEVUtilString::GetValueFromKeyValuePair(("k=" + value).c_str()), value);
}

TEST(Tokenize, CutsAtEveryCharacterOfTheSet) {
    const struct {
        const char* delimiters;
        const char* text;
        std::vector<std::string> expected;
    } rows[] = {
        {",;", ",a;;b,", {"a", "b"}},
        {",;", "a,b;c", {"a", "b", "c"}},
        {"|", "PATH|C:/Kit/bin", {"PATH", "C:/Kit/bin"}},
        {",", "abc", {"abc"}},
        {",", ",,,abc", {"abc"}},
        {",", "abc,,,", {"abc"}},
        {"::", "a:b::c", {"a", "b", "c"}},
        {"ab", "xabyazbw", {"x", "y", "z", "w"}},
        {",", " a , b ", {" a ", " b "}},
        {" \t\n", " a\t\tb\nc ", {"a", "b", "c"}},
        {"\xA7\xFF",
         "a\xA7"
         "b\xFF"
         "c\x80",
         {"a", "b", "c\x80"}},
        {",", "A,a,A", {"A", "a", "A"}},
        {"a", "AaA", {"A", "A"}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.delimiters) + " in " + row.text);
        TextArray tokens;
        EXPECT_TRUE(TEVUtilString::Tokenize(row.delimiters, row.text, tokens.array, tokens.count));
        EXPECT_EQ(tokens.Strings(), row.expected);
    }
}

TEST(Tokenize, NothingButDelimitersGivesNoArray) {
    for (const char* text : {";;;", ";", ",;,;"}) {
        SCOPED_TRACE(text);
        char* slot = nullptr;
        char** tokens = &slot;
        std::size_t count = 7;
        EXPECT_FALSE(TEVUtilString::Tokenize(",;", text, tokens, count));
        EXPECT_EQ(tokens, nullptr);
        EXPECT_EQ(count, 0U);
    }
}

TEST(Tokenize, NullOrEmptyArgumentsLeaveTheOutputsUntouched) {
    const struct {
        const char* delimiters;
        const char* text;
    } rows[] = {{nullptr, "a,b"}, {"", "a,b"},        {",", nullptr},
                {",", ""},        {nullptr, nullptr}, {"", ""}};
    for (const auto& row : rows) {
        SCOPED_TRACE(&row - rows);
        char* slot = nullptr;
        char** tokens = &slot;
        std::size_t count = 7;
        EXPECT_FALSE(TEVUtilString::Tokenize(row.delimiters, row.text, tokens, count));
        EXPECT_EQ(tokens, &slot);
        EXPECT_EQ(count, 7U);
    }
}

TEST(Tokenize, DelimitersComeFirst_Kept) {
    TextArray tokens;
    EXPECT_TRUE(TEVUtilString::Tokenize(",", "a,b", tokens.array, tokens.count));
    EXPECT_THAT(tokens.Strings(), ElementsAre("a", "b"));
    char** none = nullptr;
    std::size_t count = 0;
    EXPECT_FALSE(TEVUtilString::Tokenize("a,b", ",", none, count));
}

TEST(Tokenize, OutputIsOverwrittenNotFreed) {
    char text[] = "stale";
    char* slot = text;
    TextArray tokens;
    tokens.array = &slot;
    tokens.count = 1;
    const bool done = TEVUtilString::Tokenize(",", "a,b", tokens.array, tokens.count);
    ASSERT_NE(tokens.array, &slot);
    EXPECT_TRUE(done);
    EXPECT_THAT(tokens.Strings(), ElementsAre("a", "b"));
    EXPECT_EQ(slot, text);
}

TEST(Tokenize, TokensAreCopiesThatCanBeReleasedAlone) {
    char text[] = "first,second";
    TextArray tokens;
    ASSERT_TRUE(TEVUtilString::Tokenize(",", text, tokens.array, tokens.count));
    EXPECT_STREQ(text, "first,second");
    std::memset(text, 'x', sizeof text - 1);
    ASSERT_THAT(tokens.Strings(), ElementsAre("first", "second"));
    TEVUtilString::DeleteCString(&tokens.array[0]);
    EXPECT_THAT(tokens.Strings(), ElementsAre("(null)", "second"));
}

TEST(Tokenize, CallersOwnTokenizerGoesOn) {
    char text[] = "a,b,c";
    ASSERT_STREQ(std::strtok(text, ","), "a");
    TextArray tokens;
    ASSERT_TRUE(TEVUtilString::Tokenize(";", "x;y", tokens.array, tokens.count));
    EXPECT_STREQ(std::strtok(nullptr, ","), "b");
}

TEST(Tokenize, ManyAndLongTokens) {
    constexpr std::size_t kTokens = 10000;
    const std::string longToken(100000, 'x');
    std::string text = longToken;
    for (std::size_t i = 1; i < kTokens; ++i) text += ';' + std::to_string(i);
    TextArray tokens;
    ASSERT_TRUE(TEVUtilString::Tokenize(";", text.c_str(), tokens.array, tokens.count));
    ASSERT_EQ(tokens.count, kTokens);
    EXPECT_EQ(tokens.array[0], longToken);
    for (std::size_t i = 1; i < kTokens; ++i) ASSERT_EQ(tokens.array[i], std::to_string(i));
}

}  // namespace
