#include "TEVSystemLib/util/file/detail/KeyValueParser.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <string_view>

#include "models/KeyValueModel.h"
#include "support/Effort.h"
#include "support/Random.h"

namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;
using namespace TAMO::TEV::System::Util::detail;

using tev::test::KeyValueModel;
using Pairs = KeyValueModel::Pairs;

Pairs Parse(std::string_view text, KeyValueSyntax syntax) {
    KeyValueParser parser(text, syntax);
    Pairs pairs;
    while (const auto pair = parser.Next()) pairs.emplace_back(pair->key, pair->value);
    return pairs;
}

TEST(KeyValueParser, PairsInTheOrderOfTheLines) {
    EXPECT_EQ(Parse("b = 1\n# c = 2\n\na=2 # note\nb=3", KeyValueSyntax::EqualSeparated),
              (Pairs{{"b", "1"}, {"a", "2 # note"}, {"b", "3"}}));
    EXPECT_EQ(Parse("b 1\n# c 2\n=d 3\na  = x ", KeyValueSyntax::BlankSeparated),
              (Pairs{{"b", "1"}, {"a", "= x"}}));
}

TEST(KeyValueParser, LinesWithoutAPairAreSkipped) {
    for (const std::string& text : {""s, "\n"s, " \t\r\n"s, "b"s, "b\n"s, "b="s, "b= \r\n"s, "=b"s,
                                    "#b=1"s, "\0"s, "b=\n\0"s})
        EXPECT_EQ(Parse(text, KeyValueSyntax::EqualSeparated), Pairs()) << text;
    for (const std::string& text : {""s, "b"s, "b "s, "b \r\n"s, "b=1"s, "= 1"s, "# 1"s})
        EXPECT_EQ(Parse(text, KeyValueSyntax::BlankSeparated), Pairs()) << text;
}

TEST(KeyValueParser, SecondEqualBelongsToTheValue) {
    EXPECT_EQ(Parse("k==x", KeyValueSyntax::EqualSeparated), (Pairs{{"k", "=x"}}));
    EXPECT_EQ(Parse("k=v=w=", KeyValueSyntax::EqualSeparated), (Pairs{{"k", "v=w="}}));
}

TEST(KeyValueParser, NulEndsAValueAndIsOrdinaryElsewhere) {
    EXPECT_EQ(Parse("a=1\0b=2"s, KeyValueSyntax::EqualSeparated), (Pairs{{"a", "1"}, {"b", "2"}}));
    EXPECT_EQ(Parse("\0a\0 = \0x"s, KeyValueSyntax::EqualSeparated), (Pairs{{"\0a\0"s, "\0x"s}}));
    EXPECT_EQ(Parse("a=\0"s, KeyValueSyntax::EqualSeparated), (Pairs{{"a", "\0"s}}));
    EXPECT_EQ(Parse("#\0a=1"s, KeyValueSyntax::EqualSeparated), Pairs());
}

TEST(KeyValueParser, ReadsNothingBehindTheText) {
    const std::string_view text = std::string_view("a=1 rest", 3);
    EXPECT_EQ(Parse(text, KeyValueSyntax::EqualSeparated), (Pairs{{"a", "1"}}));
    EXPECT_EQ(Parse(std::string_view("a=1", 2), KeyValueSyntax::EqualSeparated), Pairs());
}

TEST(KeyValueParser, NothingMoreAtTheEnd) {
    KeyValueParser parser("a=1", KeyValueSyntax::EqualSeparated);
    EXPECT_TRUE(parser.Next().has_value());
    EXPECT_FALSE(parser.Next().has_value());
    EXPECT_FALSE(parser.Next().has_value());
}

TEST(KeyValueParser, PointsIntoTheText) {
    const std::string text = " key one = value one ";
    KeyValueParser parser(text, KeyValueSyntax::EqualSeparated);
    const auto pair = parser.Next();
    ASSERT_TRUE(pair.has_value());
    EXPECT_EQ(pair->key.data(), text.data() + 1);
    EXPECT_EQ(pair->key, "key one");
    EXPECT_EQ(pair->value.data(), text.data() + 11);
    EXPECT_EQ(pair->value, "value one");
}

// Mostly short texts; a long one now and then has lines enough to fail behind others.
TEST(KeyValueParser, AgreesWithTheModelOnRandomBytes) {
    const std::int64_t texts = tev::test::Repetitions(1'000'000);
    tev::test::Random random(20240607);
    std::int64_t pairs = 0;
    for (std::int64_t i = 0; i < texts; ++i) {
        const bool blankSeparated = random.Coin();
        const std::string text =
            random.Text("aab==#\t\r\n\n\0 "sv, random.Below(random.OneIn(8) ? 80 : 16));
        const auto syntax =
            blankSeparated ? KeyValueSyntax::BlankSeparated : KeyValueSyntax::EqualSeparated;
        const Pairs expected = KeyValueModel(blankSeparated).Run(text);
        ASSERT_EQ(Parse(text, syntax), expected)
            << testing::PrintToString(text) << (blankSeparated ? " by blanks" : "");
        pairs += static_cast<std::int64_t>(expected.size());
    }
    EXPECT_GT(pairs, texts / 4) << "the texts hardly hold a pair";
}

TEST(NextLine, TellsWhyALineAddsNothing) {
    const struct {
        const char *text, *key, *value;
        LineFault fault;
    } rows[] = {
        {"a = 1", "a", "1", LineFault::None},
        {"\n # c\n a b\t= 1 2 \r\n", "a b", "1 2", LineFault::None},
        {"a", "a", "", LineFault::NoSeparator},
        {" a b \t\n=", "a b", "", LineFault::NoSeparator},
        {"a=", "a", "", LineFault::NoValue},
        {"a b = \t\r\n", "a b", "", LineFault::NoValue},
        {"=", "", "", LineFault::NoKey},
        {"  = 1\n", "", "", LineFault::NoKey},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        KeyValueParser parser(row.text, KeyValueSyntax::EqualSeparated);
        const auto line = parser.NextLine();
        ASSERT_TRUE(line);
        EXPECT_EQ(line->fault, row.fault);
        EXPECT_EQ(line->pair.key, row.key);
        EXPECT_EQ(line->pair.value, row.value);
    }
}

TEST(NextLine, SkipsEmptyLinesAndCommentsAndGoesOnBehindAFault) {
    KeyValueParser parser("# a\n\n \t\r\nb\n=\nc=\nd=1", KeyValueSyntax::EqualSeparated);
    std::string faults;
    while (const auto line = parser.NextLine())
        faults += std::to_string(static_cast<int>(line->fault));
    EXPECT_EQ(faults, "1320");
}

}  // namespace
