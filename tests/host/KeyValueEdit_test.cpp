#include "TEVSystemLib/util/file/detail/KeyValueEdit.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace {

using namespace std::string_literals;
using TAMO::TEV::System::Util::detail::PairsOf;
using TAMO::TEV::System::Util::detail::TextPairs;
using TAMO::TEV::System::Util::detail::WithPairs;

TEST(WithPairs, ChangesTheLinesOfItsKeysOnly) {
    const struct {
        std::string text;
        TextPairs pairs;
        std::string edited;
    } rows[] = {
        {"", {}, ""},
        {"# c\n\n a=1", {}, "# c\n\n a=1"},
        {"a=1\n", {{"a", "2"}}, "a=2\n"},
        {"# c\r\n a \t= 1 \r\nb=2", {{"a", "x y"}}, "# c\r\n a \t= x y \r\nb=2"},
        {"a=1\na=2\n", {{"a", "3"}}, "a=1\na=3\n"},
        {"a=1\n", {{"b", "2"}}, "a=1\nb = 2\n"},
        {"a=1", {{"b", "2"}}, "a=1\nb = 2\n"},
        {"a=1\r\n", {{"b", "2"}, {"c", "3"}}, "a=1\r\nb = 2\r\nc = 3\r\n"},
        {"", {{"a", "1"}}, "a = 1\n"},
        {"a=1\r\nb=2\n", {{"c", "3"}}, "a=1\r\nb=2\nc = 3\r\n"},
        {"a=1\nb=2\r\n", {{"c", "3"}}, "a=1\nb=2\r\nc = 3\n"},
        {"\r\na=1", {{"b", "2"}}, "\r\na=1\r\nb = 2\r\n"},
        {"\na=1", {{"b", "2"}}, "\na=1\nb = 2\n"},
        {"b=2\na=1\n", {{"a", "long text"}, {"b", ""s + "x"}}, "b=x\na=long text\n"},
        {"a=\n", {{"a", "1"}}, "a=\na = 1\n"},
        {"a=1\0b=2\n"s, {{"a", "3"}, {"b", "4"}}, "a=3\0b=4\n"s},
        {"a=%x%\n", {{"a", "%x%"}}, "a=%x%\n"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(WithPairs(row.text, row.pairs), row.edited);
    }
}

TEST(WithPairs, RefusesWhatALineCannotHold) {
    const TextPairs refused[] = {{{"", "1"}},     {{"a", ""}},     {{" a", "1"}},
                                 {{"a", "1 "}},   {{"#a", "1"}},   {{"a=b", "1"}},
                                 {{"=", "1"}},    {{"a", "1\n2"}}, {{"a", "1\nb=2"}},
                                 {{"a\nb", "1"}}, {{"a", "\t1"}},  {{"a", "x\0y"s}}};
    for (const TextPairs& pairs : refused) {
        SCOPED_TRACE(pairs.begin()->first + '|' + pairs.begin()->second);
        EXPECT_EQ(WithPairs("a=0\n", pairs), std::nullopt);
        EXPECT_EQ(WithPairs("", pairs), std::nullopt);
    }
}

TEST(WithPairs, ReadsBackAsWhatWasAskedFor) {
    std::mt19937 random(4);
    const std::string alphabet = "ab=# \t\r\n\n%"s + '\0';
    const auto text = [&](std::size_t length) {
        std::string made;
        while (made.size() < length) made += alphabet[random() % alphabet.size()];
        return made;
    };
    int edits = 0;
    for (int i = 0; i < 20000; ++i) {
        const std::string before = text(random() % 40);
        const TextPairs pairs{{text(1 + random() % 2), text(1 + random() % 4)}};
        const auto after = WithPairs(before, pairs);
        if (!after) continue;
        ++edits;
        TextPairs expected = PairsOf(before);
        expected[pairs.begin()->first] = pairs.begin()->second;
        ASSERT_EQ(PairsOf(*after), expected) << before;
    }
    EXPECT_GT(edits, 500);
}

}  // namespace
