#include <gtest/gtest.h>

#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>
#include <random>
#include <string>
#include <string_view>

#include "TEVSystemLib/util/string/detail/NumberText.h"
#include "support/Effort.h"

namespace {

using namespace TAMO::TEV::System::Util::detail;

// The number read; nothing when none is, which must then store nothing.
template <typename T>
std::optional<T> Plain(const char* text, Sign sign = Sign::PlusOrMinus) {
    T value = 77;
    if (ReadPlainInteger(text, sign, value)) return value;
    EXPECT_EQ(value, T{77});
    return std::nullopt;
}

TEST(ReadPlainInteger, SignDigitsAndPerhapsAPoint) {
    const struct {
        const char* text;
        std::optional<int> number;
    } rows[] = {
        {nullptr, {}},
        {"", {}},
        {"+", {}},
        {"-", {}},
        {".", {}},
        {".5", {}},
        {"0", 0},
        {"9", 9},
        {"12", 12},
        {"+12", 12},
        {"-12", -12},
        {"-0", 0},
        {"--1", {}},
        {"+-1", {}},
        {"++1", {}},
        {"007", 7},
        {"12.", 12},
        {"12.90", 12},
        {"12.9.", {}},
        {"12.x", {}},
        {"12x", {}},
        {"x12", {}},
        {" 12", {}},
        {"12 ", {}},
        {"1-", {}},
        {"123456789", 123456789},
        {"-999999999", -999999999},
        {"1000000000", {}},
        {"1/", {}},
        {"1:", {}},
        {"1,5", {}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Plain<int>(row.text), row.number) << (row.text == nullptr ? "null" : row.text);
}

TEST(ReadPlainInteger, AsManyDigitsAsSurelyFit) {
    EXPECT_EQ(Plain<std::int64_t>("-999999999999999999"), -999999999999999999);
    EXPECT_EQ(Plain<std::int64_t>("1000000000000000000"), std::nullopt);
    EXPECT_EQ(Plain<std::uint64_t>("9999999999999999999"), 9999999999999999999U);
    EXPECT_EQ(Plain<std::uint64_t>("10000000000000000000"), std::nullopt);
    EXPECT_EQ(Plain<std::uint64_t>("-1"), std::numeric_limits<std::uint64_t>::max());
}

TEST(ReadPlainInteger, MinusOnlyWhereItIsAllowed) {
    EXPECT_EQ(Plain<int>("-1", Sign::PlusOnly), std::nullopt);
    EXPECT_EQ(Plain<int>("+1", Sign::PlusOnly), 1);
    EXPECT_EQ(Plain<int>("1", Sign::PlusOnly), 1);
}

template <typename T>
std::optional<T> Leading(const char* text) {
    constexpr T kBefore = 77;
    T value = kBefore;
    if (ReadLeadingInteger(text, value)) return value;
    EXPECT_EQ(value, kBefore) << text;
    return std::nullopt;
}

TEST(ReadLeadingInteger, UpToWhatIsNoDigit) {
    const struct {
        const char* text;
        std::optional<int> number;
    } rows[] = {
        {"12", 12},         {"+12", 12}, {"-12", -12},
        {"12.9", 12},       {"-.5", {}}, {"2147483647", 2147483647},
        {"2147483648", {}}, {"", {}},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Leading<int>(row.text), row.number) << row.text;
    }
}

TEST(ReadPlainReal, FewDigitsWithPerhapsAPointAndAnExponent) {
    const struct {
        const char* text;
        std::optional<double> number;
    } rows[] = {
        {nullptr, {}},
        {"", {}},
        {"+", {}},
        {"-", {}},
        {".", {}},
        {"-.", {}},
        {"0", 0.0},
        {"-0", -0.0},
        {"-.0", -0.0},
        {"9", 9.0},
        {"+1.5", 1.5},
        {"-1.5", -1.5},
        {".5", 0.5},
        {"5.", 5.0},
        {"0.1", 0.1},
        {"1..", {}},
        {"1.5.", {}},
        {"+-1", {}},
        {"-+1", {}},
        {" 1", {}},
        {"1 ", {}},
        {"1/", {}},
        {"1:", {}},
        {"1,5", {}},
        {"inf", {}},
        {"999999999999999", 999999999999999.0},
        {"-99999999999999.9", -99999999999999.9},
        {"0.00000000000001", 1e-14},
        {"9007199254740993", 9007199254740992.0},
        {"9007199254740995", 9007199254740996.0},
        {"9007199254740993.1", 9007199254740994.0},
        {"0.10000000000000001", 0.1},
        {"9999999999999999999", 1e19},
        {"10000000000000000000", {}},
        {"0.000000000000000001", 1e-18},
        {"0.0000000000000000001", {}},
        {"1e3", 1000.0},
        {"-2.5E-1", -0.25},
        {"+.25e+1", 2.5},
        {"1.e0003", 1000.0},
        {"0e0", 0.0},
        {"-0e-27", -0.0},
        {"1e27", 1e27},
        {"9999999999999999999e27", 9999999999999999999e27},
        {"1e28", {}},
        {"1.5e28", 1.5e28},
        {"1e-27", 1e-27},
        {"1.5e-26", 1.5e-26},
        {"1.5e-27", {}},
        {"9007199254740993e-27", 9007199254740993e-27},
        {"11920928955078125e-23", 0x1p-23},
        {"1e", {}},
        {"1e+", {}},
        {"1e-", {}},
        {"1e+-1", {}},
        {"1e1.", {}},
        {"1e1e1", {}},
        {"1e00003", {}},
        {"1e4294967297", {}},
        {"e1", {}},
        {".e1", {}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text == nullptr ? "null" : row.text);
        double value = 77;
        EXPECT_EQ(ReadPlainReal(row.text, value), row.number.has_value());
        EXPECT_EQ(value, row.number.value_or(77));
        EXPECT_EQ(std::signbit(value), std::signbit(row.number.value_or(77)));
    }
}

TEST(ReadPlainReal, RoundsAsTheStandardLibraryDoes) {
    std::mt19937_64 random(1909);
    const std::int64_t inputs = tev::test::Repetitions(200'000);
    for (std::int64_t i = 0; i < inputs && !HasFailure(); ++i) {
        std::string text = std::to_string(random() >> (random() % 64));
        text.insert(random() % (text.size() + 1), 1, '.');
        if (text.size() > 20) text.pop_back();
        if (random() % 2 == 0) text += "e" + std::to_string(static_cast<int>(random() % 70) - 35);
        double value = 0;
        if (!ReadPlainReal(text.c_str(), value)) continue;
        double expected = 0;
        std::from_chars(text.data(), text.data() + text.size(), expected);
        EXPECT_EQ(value, expected) << text;
    }
}

TEST(ReadLeadingInteger, UpToTheLimitsOfTheType) {
    EXPECT_EQ(Leading<std::int64_t>("9223372036854775807.9"), INT64_MAX);
    EXPECT_EQ(Leading<std::int64_t>("9223372036854775808"), std::nullopt);
    EXPECT_EQ(Leading<std::int64_t>("-9223372036854775808"), INT64_MIN);
    EXPECT_EQ(Leading<std::uint64_t>("18446744073709551615"), UINT64_MAX);
    EXPECT_EQ(Leading<std::uint64_t>("18446744073709551616"), std::nullopt);
}

TEST(ReadLeadingInteger, NothingBehindTheText) {
    int value = 0;
    EXPECT_TRUE(ReadLeadingInteger(std::string_view("123").substr(0, 2), value));
    EXPECT_EQ(value, 12);
}

TEST(ReadReal, WholeTextsOfNumbersThatFit) {
    const struct {
        const char* text;
        std::optional<double> number;
    } rows[] = {
        {"0", 0.0},       {"-0", -0.0},  {"1", 1.0},      {"+1.5", 1.5},      {"-1.5", -1.5},
        {".5", 0.5},      {"5.", 5.0},   {"1e3", 1000.0}, {"-2.5E-1", -0.25}, {"+.25e+1", 2.5},
        {"1e308", 1e308}, {"1e400", {}}, {"1e-400", {}},  {"1e-310", {}},     {"1x", {}},
        {"x", {}},        {" 1", {}},    {"1 ", {}},      {"+-1", {}},        {"-+1", {}},
        {"--1", {}},      {"", {}},      {"+", {}},       {"-", {}},          {"1e", {}},
        {"inf", {}},      {"nan", {}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        double value = 77;
        EXPECT_EQ(ReadReal(row.text, value), row.number.has_value());
        EXPECT_EQ(value, row.number.value_or(77));
        EXPECT_EQ(std::signbit(value), std::signbit(row.number.value_or(77)));
    }
}

}  // namespace
