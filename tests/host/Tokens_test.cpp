#include "TEVSystemLib/util/string/detail/Tokens.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

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

}  // namespace
