#include "TEVSystemLib/util/string/detail/Replacement.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <string>
#include <string_view>

#include "support/Effort.h"

namespace {

using TAMO::TEV::System::Util::detail::Replacement;

std::string Replaced(std::string_view input, std::string_view replacement,
                     std::string_view pattern) {
    const Replacement plan(input, replacement, pattern);
    std::string text(plan.Size() + 1, '?');
    plan.Write(text.data());
    EXPECT_EQ(text.back(), '?');
    text.pop_back();
    EXPECT_EQ(plan.Text(), text);
    return text;
}

// One character after the other.
std::string PlainlyReplaced(std::string_view input, std::string_view replacement,
                            std::string_view pattern) {
    std::string text;
    while (!input.empty()) {
        const bool isMatch = !pattern.empty() && input.substr(0, pattern.size()) == pattern;
        text += isMatch ? replacement : input.substr(0, 1);
        input.remove_prefix(isMatch ? pattern.size() : 1);
    }
    return text;
}

TEST(Replacement, FromLeftToRightWithoutOverlap) {
    const struct {
        std::string_view input, replacement, pattern, expected;
    } rows[] = {
        {"", "x", "a", ""},
        {"abc", "x", "", "abc"},
        {"aaa", "b", "aa", "ba"},
        {"abcabc", "", "b", "acac"},
        {"a/b/c", "\\", "/", "a\\b\\c"},
        {"aXa", "aa", "a", "aaXaa"},
        {"word word", "sentence", "word", "sentence sentence"},
        {"abab", "ab", "ab", "abab"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Replaced(row.input, row.replacement, row.pattern), row.expected) << row.input;
}

TEST(Replacement, BytesOfLongTexts) {
    for (const std::size_t size : {4096U, 16383U, 16384U, 16385U, 20480U, 100000U}) {
        std::string input(size, '/');
        for (std::size_t i = 0; i < size; i += 3) input[i] = static_cast<char>(i);
        EXPECT_EQ(Replaced(input, "\\", "/"), PlainlyReplaced(input, "\\", "/")) << size;
    }
}

TEST(Replacement, MorePlacesThanAreRemembered) {
    for (const std::size_t places : {1U, 31U, 32U, 33U, 100U}) {
        const std::string input(places, 'a');
        EXPECT_EQ(Replaced(input + "b", "", "a"), "b") << places;
        EXPECT_EQ(Replaced(input, "bc", "a").size(), 2 * places) << places;
    }
}

TEST(Replacement, SameAsCharacterByCharacter) {
    constexpr unsigned kSeed = 40771;
    RecordProperty("seed", kSeed);
    std::mt19937 engine(kSeed);
    const auto text = [&engine](std::size_t end) {
        std::string made(engine() % end, 'a');
        for (char& c : made) c = static_cast<char>('a' + engine() % 2);
        return made;
    };
    for (std::int64_t i = 0; i < tev::test::Repetitions(1'000'000); ++i) {
        const std::string input = text(100), replacement = text(6), pattern = text(5);
        ASSERT_EQ(Replaced(input, replacement, pattern),
                  PlainlyReplaced(input, replacement, pattern))
            << input << ' ' << replacement << ' ' << pattern;
    }
}

}  // namespace
