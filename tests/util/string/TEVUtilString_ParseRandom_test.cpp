#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <iostream>
#include <limits>
#include <optional>
#include <string>
#include <string_view>

#include "models/NumberModel.h"
#include "models/TextModel.h"
#include "util/string/RandomTexts.h"

// The parsers on random texts against a model of them: what is accepted, and the value where it is
// settled.
namespace {

using TAMO::TEV::System::Util::TEVUtilString;
using tev::test::LooksReal;
using tev::test::RandomTexts;
using tev::test::TrimmedIfSpaced;

constexpr int kTexts = 150000;
constexpr unsigned kSeed = 20240531;
constexpr std::string_view kDigits = "0123456789";
constexpr std::uint64_t kHighestInt = 2147483647;
constexpr int kUntouched = 77;

enum class Answer { Refused, Accepted, Open };

// What is expected of one text. No value: not settled when accepted, untouched when refused.
template <typename Number>
struct Verdict {
    Answer answer = Answer::Refused;
    std::optional<Number> value;
};

// These take what stands at the front of the text.
std::string TakeDigits(std::string_view& text) {
    const std::size_t count = std::min(text.find_first_not_of(kDigits), text.size());
    std::string digits(text.substr(0, count));
    text.remove_prefix(count);
    return digits;
}

char TakeOne(std::string_view& text, std::string_view characters) {
    if (text.empty() || characters.find(text[0]) == std::string_view::npos) return '\0';
    const char taken = text[0];
    text.remove_prefix(1);
    return taken;
}

// The value of digits; nothing beyond 64 bits.
std::optional<std::uint64_t> Magnitude(const std::string& digits) {
    std::uint64_t magnitude = 0;
    for (const char c : digits) {
        const auto digit = static_cast<std::uint64_t>(c - '0');
        if (magnitude > (std::numeric_limits<std::uint64_t>::max() - digit) / 10) return {};
        magnitude = magnitude * 10 + digit;
    }
    return magnitude;
}

struct IntegerRules {
    std::string_view signs;
    std::uint64_t highest;
    Answer bareSign;
    Answer outOfRange;
};

constexpr IntegerRules kSigned32 = {"+-", kHighestInt, Answer::Refused, Answer::Accepted};
constexpr IntegerRules kUnsigned32 = {"+", kHighestInt, Answer::Refused, Answer::Open};
constexpr IntegerRules kSigned64 = {"+-", 9223372036854775807U, Answer::Accepted, Answer::Accepted};
constexpr IntegerRules kUnsigned64 = {"+", 18446744073709551615U, Answer::Accepted,
                                      Answer::Accepted};

template <typename Number>
Verdict<Number> IntegerModel(const std::string& text, const IntegerRules& rules) {
    const std::string prepared = TrimmedIfSpaced(text);
    std::string_view rest = prepared;
    const char sign = TakeOne(rest, rules.signs);
    const std::string whole = TakeDigits(rest);
    const bool point = TakeOne(rest, ".") != '\0';
    TakeDigits(rest);
    if (prepared.empty() || !rest.empty()) return {};
    if (whole.empty() && point) return {Answer::Accepted, Number{0}};
    if (whole.empty()) return {rules.bareSign, {}};
    const std::optional<std::uint64_t> magnitude = Magnitude(whole);
    const std::uint64_t limit = sign == '-' ? rules.highest + 1 : rules.highest;
    if (!magnitude || *magnitude > limit) return {rules.outOfRange, {}};
    return {Answer::Accepted, static_cast<Number>(sign == '-' ? 0 - *magnitude : *magnitude)};
}

// The number at the front of the text as the C language reads it: an exponent marker needs digits.
std::optional<long double> ScanReal(std::string_view text) {
    constexpr std::uint64_t kBeyondEveryDouble = 4000;
    const char sign = TakeOne(text, "+-");
    std::string digits = TakeDigits(text);
    std::string decimals;
    if (TakeOne(text, ".") != '\0') decimals = TakeDigits(text);
    digits += decimals;
    if (digits.empty()) return {};
    auto exponent = -static_cast<long double>(decimals.size());
    if (TakeOne(text, "eE") != '\0') {
        const char direction = TakeOne(text, "+-");
        const std::string power = TakeDigits(text);
        if (power.empty()) return {};
        const auto size = static_cast<long double>(
            std::min(Magnitude(power).value_or(kBeyondEveryDouble), kBeyondEveryDouble));
        exponent += direction == '-' ? -size : size;
    }
    long double value = 0;
    for (const char c : digits) value = value * 10 + static_cast<long double>(c - '0');
    if (value != 0) value *= std::pow(10.0L, exponent);
    return sign == '-' ? -value : value;
}

Verdict<double> RealModel(const std::string& text) {
    const std::string prepared = TrimmedIfSpaced(text);
    if (prepared.empty() || !LooksReal(prepared)) return {};
    const std::optional<long double> value = ScanReal(prepared);
    if (!value) return {};
    if (std::abs(*value) > std::numeric_limits<double>::max())
        return {Answer::Refused,
                std::copysign(std::numeric_limits<double>::infinity(), *value < 0 ? -1.0 : 1.0)};
    return {Answer::Accepted, static_cast<double>(*value)};
}

template <typename Number>
bool Same(Number left, Number right) {
    return left == right;
}

// A runtime may miss the nearest double by a little, and do with a denormal one as it likes.
bool Same(double left, double right) {
    const double tolerance =
        std::max(std::abs(right) * 4.5e-16, std::numeric_limits<double>::min());
    return left == right || std::abs(left - right) <= tolerance;
}

// How many texts met which fate: a run in which one kind is missing proves nothing.
struct Tally {
    int accepted = 0;
    int refused = 0;
    int settled = 0;

    void Print() const {
        std::cout << "seed " << kSeed << ": " << accepted << " texts accepted, " << refused
                  << " refused, " << settled << " values compared\n";
        EXPECT_EQ(accepted + refused, kTexts);
        EXPECT_GT(accepted, kTexts / 20);
        EXPECT_GT(refused, kTexts / 20);
        EXPECT_GT(settled, kTexts / 20);
    }
};

template <typename Number, typename Parse, typename Model>
void Compare(Parse parse, Model model) {
    RandomTexts texts(kSeed);
    Tally tally;
    for (int i = 0; i < kTexts; ++i) {
        const std::string text = texts.Number();
        const Verdict<Number> expected = model(text);
        auto value = static_cast<Number>(kUntouched);
        const Number before = value;
        const bool accepted = parse(text.c_str(), value);
        ASSERT_TRUE(expected.answer == Answer::Open ||
                    accepted == (expected.answer == Answer::Accepted))
            << testing::PrintToString(text) << " accepted: " << accepted;
        ++(accepted ? tally.accepted : tally.refused);
        ASSERT_TRUE(accepted || value == expected.value.value_or(before))
            << testing::PrintToString(text) << " refused, but stored "
            << testing::PrintToString(value);
        if (!accepted || !expected.value) continue;
        ++tally.settled;
        ASSERT_TRUE(Same(value, *expected.value))
            << testing::PrintToString(text) << " gives " << testing::PrintToString(value)
            << ", not " << testing::PrintToString(*expected.value);
    }
    tally.Print();
}

TEST(ToInteger, RandomTextsAgreeWithModel) {
    Compare<int>(&TEVUtilString::ToInteger,
                 [](const std::string& text) { return IntegerModel<int>(text, kSigned32); });
}

TEST(ToLong, RandomTextsAgreeWithModel) {
    Compare<long>(&TEVUtilString::ToLong,
                  [](const std::string& text) { return IntegerModel<long>(text, kSigned32); });
}

TEST(ToUnsignedInt, RandomTextsAgreeWithModel) {
    const auto parse = [](const char* text, unsigned int& value) {
        const bool accepted = TEVUtilString::ToUnsignedInt(text, value);
        EXPECT_LE(value, kHighestInt) << testing::PrintToString(std::string(text));
        return accepted;
    };
    Compare<unsigned int>(
        parse, [](const std::string& text) { return IntegerModel<unsigned>(text, kUnsigned32); });
}

TEST(ToInt64, RandomTextsAgreeWithModel) {
    Compare<std::int64_t>(&TEVUtilString::ToInt64, [](const std::string& text) {
        return IntegerModel<std::int64_t>(text, kSigned64);
    });
}

TEST(ToUInt64, RandomTextsAgreeWithModel) {
    Compare<std::uint64_t>(&TEVUtilString::ToUInt64, [](const std::string& text) {
        return IntegerModel<std::uint64_t>(text, kUnsigned64);
    });
}

TEST(ToDouble, RandomTextsAgreeWithModel) { Compare<double>(&TEVUtilString::ToDouble, RealModel); }

TEST(ExtractIndices, RandomTextsAgreeWithModel) {
    RandomTexts texts(kSeed);
    Tally tally;
    for (int i = 0; i < kTexts; ++i) {
        const std::string text = texts.Pair();
        Verdict<int> first;
        Verdict<int> second;
        const std::size_t comma = text.find(',');
        if (text.size() >= 5 && text.front() == '[' && text.back() == ']' &&
            comma != std::string::npos) {
            first = IntegerModel<int>(text.substr(1, comma - 1), kSigned32);
            second = IntegerModel<int>(text.substr(comma + 1, text.size() - comma - 2), kSigned32);
        }
        const bool expected = first.answer == Answer::Accepted && second.answer == Answer::Accepted;
        int values[] = {kUntouched, kUntouched};
        const bool accepted = TEVUtilString::ExtractIndices(text.c_str(), values[0], values[1]);
        ASSERT_EQ(accepted, expected) << testing::PrintToString(text);
        ++(accepted ? tally.accepted : tally.refused);
        tally.settled += expected && first.value && second.value ? 1 : 0;
        ASSERT_EQ(values[0], expected ? first.value.value_or(values[0]) : -1)
            << testing::PrintToString(text);
        ASSERT_EQ(values[1], expected ? second.value.value_or(values[1]) : -1)
            << testing::PrintToString(text);
    }
    tally.Print();
}

}  // namespace
