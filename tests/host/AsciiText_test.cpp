#include "TEVSystemLib/util/string/detail/AsciiText.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "models/TextModel.h"
#include "support/Effort.h"
#include "support/Random.h"

namespace {

namespace detail = TAMO::TEV::System::Util::detail;
using namespace std::string_view_literals;

constexpr std::string_view kBlanks = " \t\n\v\f\r";
constexpr std::string_view kUpper = "ABCDEFGHIJKLMNOPQRSTUVWXYZ";
constexpr std::string_view kLower = "abcdefghijklmnopqrstuvwxyz";

TEST(IsBlank, SixBytesOfAll) {
    for (int byte = 0; byte <= 255; ++byte) {
        const char c = static_cast<char>(byte);
        EXPECT_EQ(detail::IsBlank(c), kBlanks.find(c) != std::string_view::npos) << byte;
    }
}

TEST(ToLower, LettersOfAsciiOnly) {
    for (int byte = 0; byte <= 255; ++byte) {
        const char c = static_cast<char>(byte);
        const std::size_t letter = kUpper.find(c);
        EXPECT_EQ(detail::ToLower(c), letter == std::string_view::npos ? c : kLower[letter])
            << byte;
    }
}

TEST(ToUpper, LettersOfAsciiOnly) {
    for (int byte = 0; byte <= 255; ++byte) {
        const char c = static_cast<char>(byte);
        const std::size_t letter = kLower.find(c);
        EXPECT_EQ(detail::ToUpper(c), letter == std::string_view::npos ? c : kUpper[letter])
            << byte;
    }
}

TEST(ToLower, WholeTextWithItsNulBytes) {
    EXPECT_EQ(detail::ToLower("A\0\xC4Z["sv), "a\0\xC4z["sv);
    EXPECT_EQ(detail::ToUpper("a\0\xE4z{"sv), "A\0\xE4Z{"sv);
    EXPECT_EQ(detail::ToLower(""sv), "");
    EXPECT_EQ(detail::ToUpper(""sv), "");
}

const struct {
    std::string_view first;
    std::string_view second;
    int order;
    int orderIgnoringCase;
} kComparisons[] = {
    {"", "", 0, 0},
    {"", "a", -1, -1},
    {"abc", "abc", 0, 0},
    {"ab", "abc", -1, -1},
    {"b", "abc", 1, 1},
    {"ABC", "abc", -1, 0},
    {"B", "a", -1, 1},
    {"AB", "abc", -1, -1},
    // Unsigned bytes: those above 127 come last.
    {"\x80", "a", 1, 1},
    {"\xFF", "\x80", 1, 1},
    {"\xC4", "\xE4", -1, -1},
    // Between "Z" and "a": letters count as small ones.
    {"_", "A", 1, -1},
    {"[", "Z", 1, -1},
    {"@", "A", -1, -1},
    {"a\0b"sv, "a\0c"sv, -1, -1},
    {"a\0"sv, "a"sv, 1, 1},
};

TEST(Compare, BytesThenLength) {
    for (const auto& row : kComparisons) {
        EXPECT_EQ(detail::Compare(row.first, row.second), row.order)
            << row.first << ' ' << row.second;
        EXPECT_EQ(detail::Compare(row.second, row.first), -row.order)
            << row.second << ' ' << row.first;
    }
}

TEST(CompareIgnoringCase, SmallLettersThenLength) {
    for (const auto& row : kComparisons) {
        EXPECT_EQ(detail::CompareIgnoringCase(row.first, row.second), row.orderIgnoringCase)
            << row.first << ' ' << row.second;
        EXPECT_EQ(detail::CompareIgnoringCase(row.second, row.first), -row.orderIgnoringCase)
            << row.second << ' ' << row.first;
    }
}

TEST(CompareIgnoringCase, OfTextsUpToTheirTerminators) {
    for (const auto& row : kComparisons) {
        const std::string first(row.first);
        const std::string second(row.second);
        if ((first + second).find('\0') != std::string::npos) continue;
        EXPECT_EQ(detail::CompareIgnoringCase(first.c_str(), second.c_str()), row.orderIgnoringCase)
            << first << ' ' << second;
    }
}

TEST(EqualsIgnoringCase, AgreesWithCompareIgnoringCase) {
    for (const auto& row : kComparisons)
        EXPECT_EQ(detail::EqualsIgnoringCase(row.first, row.second), row.orderIgnoringCase == 0)
            << row.first << ' ' << row.second;
}

// Nearly the same texts, on both sides of the length from which registers compare them.
TEST(EqualsIgnoringCase, RandomTextsAgreeWithModel) {
    tev::test::Random random(70417);
    for (std::int64_t i = 0; i < tev::test::Repetitions(1'000'000); ++i) {
        const std::string first = random.Text("aAzZ@[`{\xC1\xE1", random.Below(20));
        std::string second = random.Coin() ? detail::ToUpper(first) : tev::test::Lowered(first);
        if (!second.empty() && random.Coin())
            second[random.Below(second.size())] ^= static_cast<char>(1 << random.Below(8));
        if (random.OneIn(8)) second += 'a';
        ASSERT_EQ(detail::EqualsIgnoringCase(first, second),
                  tev::test::Lowered(first) == tev::test::Lowered(second))
            << testing::PrintToString(first) << ' ' << testing::PrintToString(second);
    }
}

// Where the trimmed text stands in `text` says as much as what it holds.
TEST(Trim, EndsAskedFor) {
    const struct {
        std::string_view text;
        bool start;
        bool end;
        std::size_t offset;
        std::size_t length;
    } rows[] = {
        {"", true, true, 0, 0},
        {"x", true, true, 0, 1},
        {"  x  ", true, true, 2, 1},
        {"  x  ", true, false, 2, 3},
        {"  x  ", false, true, 0, 3},
        {"  x  ", false, false, 0, 5},
        {" \t\n\v\f\rx\r\f\v\n\t ", true, true, 6, 1},
        {" a b ", true, true, 1, 3},
        {"\xA0x\xA0", true, true, 0, 3},
        {"\0x\0"sv, true, true, 0, 3},
        // Nothing but blanks: nothing is left, at the last one when the start was trimmed.
        {"   ", true, true, 2, 0},
        {"   ", true, false, 2, 0},
        {"   ", false, true, 0, 0},
        {"   ", false, false, 0, 3},
        {" ", true, true, 0, 0},
        {" ", false, false, 0, 0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE('[' + std::string(row.text) + ']' + (row.start ? " start" : "") +
                     (row.end ? " end" : ""));
        const std::string_view trimmed = detail::Trim(row.text, row.start, row.end);
        EXPECT_EQ(trimmed.data(), row.text.data() + row.offset);
        EXPECT_EQ(trimmed.size(), row.length);
    }
}

TEST(Trim, BothEndsUnlessToldOtherwise) { EXPECT_EQ(detail::Trim(" x "), "x"); }

TEST(OrEmpty, NullCountsAsEmpty) {
    EXPECT_EQ(detail::OrEmpty(nullptr), "");
    EXPECT_EQ(detail::OrEmpty(""), "");
    EXPECT_EQ(detail::OrEmpty("abc"), "abc");
}

TEST(TrimIfSpaced, OnlyAPlainSpaceAtAnEndStartsTheTrimming_Kept) {
    const struct {
        std::string_view text;
        std::string_view expected;
    } rows[] = {
        {"", ""},
        {"abc", "abc"},
        {" abc", "abc"},
        {"abc ", "abc"},
        {" abc\t", "abc"},
        {"\tabc ", "abc"},
        {" \t\n\v\f\rabc", "abc"},
        {"\tabc", "\tabc"},
        {"abc\n", "abc\n"},
        {"\t abc \t", "\t abc \t"},
        {"a b", "a b"},
        {" ", ""},
        {"   ", ""},
        {"\t", "\t"},
        {"\t\n", "\t\n"},
        {" \t", ""},
        {"\t ", ""},
    };
    for (const auto& row : rows) EXPECT_EQ(detail::TrimIfSpaced(row.text), row.expected);
}

}  // namespace
