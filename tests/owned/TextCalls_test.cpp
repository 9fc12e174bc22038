#include <TEVSystemLib/TEVOwned.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "support/Environment.h"

namespace {

using namespace TAMO::TEV::System::Host;
using TAMO::TEV::System::Util::TEVUtilString;

using Strings = std::vector<std::string>;

TEST(NamedTokenize, TakesTheDelimitersAsASet) {
    const OwnedTextArray tokens = Tokenize(Text("a,b;;c"), Delimiters(",;"));
    EXPECT_EQ(Strings(tokens.begin(), tokens.end()), (Strings{"a", "b", "c"}));
    EXPECT_TRUE(Tokenize(Text(",,"), Delimiters(",")).empty());
    EXPECT_TRUE(Tokenize(Text(nullptr), Delimiters(",")).empty());
}

TEST(NamedReplace, PutsTheReplacementInPlaceOfThePattern) {
    EXPECT_EQ(Replace(Text("a-b-c"), Pattern("-"), Replacement("+")), "a+b+c");
    EXPECT_EQ(Replace(Text("a-b"), Pattern("-"), Replacement(nullptr)), "ab");
    EXPECT_THROW(static_cast<void>(Replace(Text(nullptr), Pattern("-"), Replacement("+"))),
                 std::invalid_argument);
}

TEST(NamedText, IsWhatItIsMadeOf) {
    const std::string text = "a.tif";
    OwnedText owned;
    ASSERT_TRUE(TEVUtilString::Copy("b.tif", Out(owned), nullptr));
    EXPECT_TRUE(EndWith(Text(text), Suffix(".tif")));
    EXPECT_TRUE(EndWith(Text(text + ".gz"), Suffix(".gz")));
    EXPECT_TRUE(StartWith(Text(owned), Prefix("b")));
}

TEST(NamedStartWith, TellsTextAndPrefixApart) {
    EXPECT_TRUE(StartWith(Text("tev.log.level"), Prefix("tev.")));
    EXPECT_FALSE(StartWith(Text("tev."), Prefix("tev.log.level")));
    EXPECT_FALSE(StartWith(Text("tev.log"), Prefix("TEV.")));
    EXPECT_TRUE(StartWith(Text("tev.log"), Prefix("TEV."), Case::Ignored));
    EXPECT_THROW(StartWith(Text(nullptr), Prefix("a")), std::invalid_argument);
}

TEST(NamedEndWith, TellsTextAndSuffixApart) {
    EXPECT_TRUE(EndWith(Text("a.tif"), Suffix(".tif")));
    EXPECT_FALSE(EndWith(Text(".tif"), Suffix("a.tif")));
    EXPECT_FALSE(EndWith(Text("a.tif"), Suffix(".TIF")));
    EXPECT_TRUE(EndWith(Text("a.tif"), Suffix(".TIF"), Case::Ignored));
}

TEST(NamedExtractIndices, GivesBothNumbersOrNothing) {
    const auto found = ExtractIndices(Text("[3,7]"));
    ASSERT_TRUE(found);
    EXPECT_EQ(found->first, 3);
    EXPECT_EQ(found->second, 7);
    EXPECT_FALSE(ExtractIndices(Text("3,7")));
}

TEST(NamedSetSessionEnvironmentVariable, TellsNameAndValueApart) {
    const tev::test::Variable variable("TEV_OWNED_TEST");
    EXPECT_TRUE(SetSessionEnvironmentVariable(Name("TEV_OWNED_TEST"), Value("on")));
    EXPECT_EQ(tev::test::SystemVariable("TEV_OWNED_TEST"), "on");
    EXPECT_TRUE(SetSessionEnvironmentVariable(Name("TEV_OWNED_TEST"), Value(nullptr)));
    EXPECT_FALSE(SetSessionEnvironmentVariable(Name(""), Value("on")));
}

TEST(NamedGetCurrentProcessEnvironmentVariables, GivesEachNameItsValue) {
    const tev::test::Variable variable("TEV_OWNED_TEST", std::string("on"));
    const EnvironmentVariables variables = GetCurrentProcessEnvironmentVariables();
    ASSERT_EQ(variables.names.size(), variables.values.size());
    const auto* const found = std::find(variables.names.begin(), variables.names.end(),
                                        std::string_view("TEV_OWNED_TEST"));
    ASSERT_NE(found, variables.names.end());
    EXPECT_STREQ(variables.values[static_cast<std::size_t>(found - variables.names.begin())], "on");
}

TEST(NamedToString, TakesTheWidthBehindTheValueForEveryType) {
    EXPECT_EQ(ToString(7, Width(4)), "   7");
    EXPECT_EQ(ToString(7u, Width(4)), "   7");
    EXPECT_EQ(ToString(-7L, Width(4)), "  -7");
    EXPECT_EQ(ToString(7UL, Width(4)), "   7");
    EXPECT_EQ(ToString(std::int64_t{-7}, Width(4)), "  -7");
    EXPECT_EQ(ToString(std::uint64_t{7}, Width(4)), "   7");
    EXPECT_EQ(ToString(1.25, Width(7), Precision(2)), "   1.25");
}

TEST(NamedToString, KeepsEveryDigitOfTheExtremes) {
    EXPECT_EQ(ToString(std::numeric_limits<unsigned int>::max(), Width(1)), "4294967295");
    EXPECT_EQ(ToString(std::numeric_limits<unsigned long>::max(), Width(1)), "4294967295");
    EXPECT_EQ(ToString(std::numeric_limits<std::uint64_t>::max(), Width(1)),
              "18446744073709551615");
    EXPECT_EQ(ToString(std::numeric_limits<std::int64_t>::min(), Width(1)), "-9223372036854775808");
}

TEST(NamedToString, FollowsTheLayout) {
    EXPECT_EQ(ToString(7, Width(4), Layout().Left()), "7   ");
    EXPECT_EQ(ToString(7u, Width(4), Layout().ZeroFill()), "0007");
    EXPECT_EQ(ToString(7, Width(4), Layout().ShowPlus().ZeroFill()), "+007");
    EXPECT_EQ(ToString(1.5, Width(6), Precision(1), Layout().ShowPlus().ZeroFill()), "+001.5");
}

TEST(NamedToString, AWidthBelowTheMinimumGivesNoText_Kept) {
    EXPECT_EQ(ToString(7u, Width(0)), "");
    EXPECT_EQ(ToString(1.5, Width(2), Precision(1)), "");
}

}  // namespace
