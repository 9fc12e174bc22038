#include "TEVSystemLib/util/string/detail/Tokens.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "models/TextModel.h"
#include "support/Effort.h"
#include "support/Random.h"

namespace {

using TAMO::TEV::System::Util::detail::Tokens;
using namespace std::string_view_literals;

TEST(Tokens, CutsAtEveryCharacterOfTheSet) {
    const struct {
        std::string_view delimiters;
        std::string_view text;
        std::vector<std::string_view> expected;
    } rows[] = {
        {",", "", {}},
        {",", ",", {}},
        {",;", ";,;", {}},
        {"", "", {}},
        {"", "a,b", {"a,b"}},
        {",", "a", {"a"}},
        {",", "a,", {"a"}},
        {",", ",a", {"a"}},
        {",", "a,b", {"a", "b"}},
        {",;", ",a;;b,", {"a", "b"}},
        {";,", ",a;;b,", {"a", "b"}},
        {",,", "a,b", {"a", "b"}},
        {",", "a b", {"a b"}},
        {"\0"sv, "a\0b"sv, {"a", "b"}},
        {",", "a\0b,c"sv, {"a\0b"sv, "c"}},
        {"\xFF", "a\xFF\xFE", {"a", "\xFE"}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Tokens(row.delimiters, row.text), row.expected)
            << '[' << row.text << "] at [" << row.delimiters << ']';
}

TEST(Tokens, PointIntoTheText) {
    const std::string text = ",first,,second,";
    const auto tokens = Tokens(",", text);
    ASSERT_EQ(tokens.size(), 2U);
    EXPECT_EQ(tokens[0].data(), text.data() + 1);
    EXPECT_EQ(tokens[1].data(), text.data() + 8);
}

// Delimiters and texts of the same few characters, from each quarter of the set of all.
TEST(Tokens, RandomTextsAgreeWithModel) {
    constexpr std::string_view kCharacters = ",\0@b\x80\xFFxyz ab"sv;
    tev::test::Random random(50311);
    for (std::int64_t i = 0; i < tev::test::Repetitions(1'000'000); ++i) {
        const std::string delimiters = random.Text(kCharacters, random.Below(4));
        const std::string text = random.Text(kCharacters, random.Below(16));
        const auto tokens = Tokens(delimiters, text);
        ASSERT_EQ(std::vector<std::string>(tokens.begin(), tokens.end()),
                  tev::test::PiecesOf(delimiters, text))
            << testing::PrintToString(text) << " at " << testing::PrintToString(delimiters);
    }
}

}  // namespace
