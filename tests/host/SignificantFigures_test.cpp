#include "TEVSystemLib/util/string/detail/SignificantFigures.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <iostream>
#include <limits>
#include <optional>
#include <random>
#include <string>
#include <string_view>

namespace {

using TAMO::TEV::System::Util::detail::AnalyseFigures;
using TAMO::TEV::System::Util::detail::Exponent;
using TAMO::TEV::System::Util::detail::ExponentOf;
using TAMO::TEV::System::Util::detail::Figures;
using TAMO::TEV::System::Util::detail::FiguresWorthShowing;
using TAMO::TEV::System::Util::detail::InExponentForm;
using TAMO::TEV::System::Util::detail::RoundToFigures;
using TAMO::TEV::System::Util::detail::SeparatorOrPoint;
using TAMO::TEV::System::Util::detail::WithoutIdlePoint;

constexpr unsigned kSeed = 20240612;

// "FIRST LAST POINT COUNT"; "zeros" for a number of zeros, "(refused)".
std::string Analysed(std::string_view number) {
    const std::optional<Figures> figures = AnalyseFigures(number);
    if (!figures) return "(refused)";
    EXPECT_EQ(figures->hasPoint, figures->point != -1) << number;
    EXPECT_EQ(figures->hasDigits, figures->count != 0) << number;
    if (!figures->hasDigits) {
        EXPECT_EQ(figures->first, -1) << number;
        EXPECT_EQ(figures->last, -1) << number;
        return "zeros";
    }
    return std::to_string(figures->first) + ' ' + std::to_string(figures->last) + ' ' +
           std::to_string(figures->point) + ' ' + std::to_string(figures->count);
}

TEST(AnalyseFigures, Table) {
    const struct {
        std::string_view number;
        std::string_view expected;
    } rows[] = {
        {"1200", "0 1 -1 2"},      {"-1203", "1 4 -1 4"},  {"00120", "2 3 -1 2"},
        {"1200.", "0 3 4 4"},      {"+1200.", "1 4 5 4"},  {"1.200", "0 4 1 4"},
        {"-0.00450", "5 7 2 3"},   {"0.0012", "4 5 1 2"},  {"5.", "0 0 1 1"},
        {".5", "1 1 0 1"},         {"10.01", "0 4 2 4"},   {"0", "zeros"},
        {"000", "zeros"},          {"-0", "zeros"},        {"0.000", "(refused)"},
        {"0.", "(refused)"},       {".", "(refused)"},     {"", "(refused)"},
        {"+", "(refused)"},        {"-", "(refused)"},     {"-.", "(refused)"},
        {"+-1", "(refused)"},      {"1-", "(refused)"},    {" 12", "(refused)"},
        {"12 ", "(refused)"},      {"1.2e3", "(refused)"}, {"1.2.3", "(refused)"},
        {"1,2", "(refused)"},      {"inf", "(refused)"},   {"4\xB2", "(refused)"},
        {{"1\0", 2}, "(refused)"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Analysed(row.number), row.expected) << testing::PrintToString(row.number);
}

struct Row {
    const char* number;
    int figures;
    const char* fixed;
    const char* exponentForm;
};

const Row kRows[] = {
    {"0.02340000000000000052", 1, "0.02", "2.e-02"},
    {"123.456", 5, "123.46", "1.2346e+02"},
    {"123.456", 3, "123.", "1.23e+02"},
    {"123.456", 2, "120.", "1.2e+02"},
    {"123", 2, "120.", "1.2e+02"},
    {"123", 3, "123.", "1.23e+02"},
    {"00120", 1, "00100.", "1.e+02"},
    {"5", 3, "5.00", "5.00e+00"},
    {"0.5", 4, "0.5000", "5.000e-01"},
    {"1449", 2, "1400.", "1.4e+03"},
    {"1451", 2, "1500.", "1.5e+03"},
    {"145.0001", 2, "150.", "1.5e+02"},
    {"1.2500000000000000000000000000000001", 2, "1.3", "1.3e+00"},
    {"9.6", 1, "10.", "1.e+01"},
    {"0.96", 1, "1.0", "1.e+00"},
    {"0.0096", 1, "0.010", "1.e-02"},
    {"96", 1, "100.", "1.e+02"},
    {"9.96", 2, "10.0", "1.0e+01"},
    {"99.96", 3, "100.0", "1.00e+02"},
    {"1999.6", 4, "2000.", "2.000e+03"},
    {"10000000000", 1, "10000000000.", "1.e+10"},
    {"0.00000000000000000001", 1, "0.00000000000000000001", "1.e-20"},
};

TEST(RoundToFigures, Table) {
    for (const Row& row : kRows)
        EXPECT_EQ(RoundToFigures(row.number, row.figures), row.fixed)
            << row.number << " to " << row.figures;
}

TEST(InExponentForm, Table) {
    for (const Row& row : kRows)
        EXPECT_EQ(InExponentForm(row.fixed, row.figures), row.exponentForm)
            << row.fixed << " with " << row.figures;
}

TEST(InExponentForm, LongExponentIsWrittenInFull) {
    const std::string zeros(100, '0');
    EXPECT_EQ(InExponentForm("12" + zeros + ".", 2), "1.2e+101");
    EXPECT_EQ(InExponentForm("0." + zeros + "12", 2), "1.2e-101");
}

TEST(RoundToFigures, RefusesNumbersWithoutFiguresAndNoFigures) {
    for (const char* number : {"", "0", "000", "0.000", "nan", "inf", "1e3", "1.2.3", " 1"})
        EXPECT_EQ(RoundToFigures(number, 1), std::nullopt) << number;
    for (const int figures : {0, -1, std::numeric_limits<int>::min()})
        EXPECT_EQ(RoundToFigures("123.456", figures), std::nullopt) << figures;
}

// The last kept digit decides; both an integer's half and a fraction's, however far the zeros go.
void ExpectHalfGives(char lastDigit, const std::string& rounded) {
    const std::string kept = std::string("1") + lastDigit;
    EXPECT_EQ(RoundToFigures(kept + ".5", 2), rounded + '.') << kept;
    EXPECT_EQ(RoundToFigures(kept + ".50000000000000000000", 2), rounded + '.') << kept;
    EXPECT_EQ(RoundToFigures(kept + "5", 2), rounded + "0.") << kept;
    EXPECT_EQ(RoundToFigures(kept + "500.000", 2), rounded + "000.") << kept;
    EXPECT_EQ(RoundToFigures("0.00" + kept + "5", 2), "0.00" + rounded) << kept;
    EXPECT_EQ(RoundToFigures("0." + kept + "500", 2), "0." + rounded) << kept;
}

TEST(RoundToFigures, ExactHalfGoesDownOntoTwoFourSixEight) {
    for (const char digit : {'2', '4', '6', '8'}) ExpectHalfGives(digit, std::string("1") + digit);
}

TEST(RoundToFigures, ExactHalfGoesUpFromAnOddDigit) {
    ExpectHalfGives('1', "12");
    ExpectHalfGives('3', "14");
    ExpectHalfGives('5', "16");
    ExpectHalfGives('7', "18");
    ExpectHalfGives('9', "20");
}

TEST(RoundToFigures, ExactHalfGoesUpFromAKeptZero_Kept) { ExpectHalfGives('0', "11"); }

TEST(RoundToFigures, RandomIntegersAgreeWithIntegerDivision) {
    constexpr int kNumbers = 20000;
    std::cout << "seed " << kSeed << "\n";
    std::mt19937_64 engine(kSeed);
    // Digits that make a half likely.
    constexpr std::uint64_t kHalves[] = {0, 0, 5, 9};
    for (int i = 0; i < kNumbers; ++i) {
        const auto size = 1 + engine() % 17;
        std::uint64_t number = 1 + engine() % 9;
        for (std::uint64_t digit = 1; digit < size; ++digit)
            number = number * 10 + (engine() % 2 == 0 ? kHalves[engine() % 4] : engine() % 10);
        const std::uint64_t figures = 1 + engine() % size;
        std::uint64_t weight = 1;
        for (std::uint64_t dropped = figures; dropped < size; ++dropped) weight *= 10;
        std::uint64_t kept = number / weight;
        const std::uint64_t doubledRest = number % weight * 2;
        const bool staysOnHalf = kept % 2 == 0 && kept % 10 != 0;
        if (doubledRest > weight || (doubledRest == weight && !staysOnHalf)) ++kept;
        ASSERT_EQ(RoundToFigures(std::to_string(number), static_cast<int>(figures)),
                  std::to_string(kept * weight) + '.')
            << "seed " << kSeed << ", " << number << " to " << figures;
    }
}

// The exponent as a number, or "(none)".
std::string ExponentIn(std::string_view text) {
    const std::optional<Exponent> exponent = ExponentOf(text);
    if (!exponent) return "(none)";
    return (exponent->isNegative ? "-" : "+") + std::to_string(exponent->magnitude);
}

TEST(ExponentOf, Table) {
    const struct {
        std::string_view text;
        std::string_view expected;
    } rows[] = {
        {"2.e-02", "-2"},
        {"1.e+00", "+0"},
        {"5.e-00", "-0"},
        {"1.234e+17", "+17"},
        {"1.e+308", "+308"},
        {"1.E-09", "-9"},
        {"", "(none)"},
        {"2.5", "(none)"},
        {"2.e02", "(none)"},
        {"2.e-2", "(none)"},
        {"2.e+", "(none)"},
        {"2.e", "(none)"},
        {"2.e+1x", "(none)"},
        {"2.e+2147483647", "+2147483647"},
        {"2.e-02147483647", "-2147483647"},
        {"2.e+2147483648", "(none)"},
        {"2.e+2147483650", "(none)"},
        {"2.e-99999999999", "(none)"},
        {"2.e+01e-07", "-7"},
        {"2.e012", "(none)"},
    };
    for (const auto& row : rows) EXPECT_EQ(ExponentIn(row.text), row.expected) << row.text;
}

int Worth(double magnitude, std::string_view text, double uncertainty, Exponent exponent) {
    return FiguresWorthShowing(magnitude, AnalyseFigures(text).value(), uncertainty, exponent);
}

TEST(FiguresWorthShowing, AboveOneThePointAndTheExponentDecide) {
    EXPECT_EQ(Worth(123.456, "123.456", 0.0234, {true, 2}), 5);
    EXPECT_EQ(Worth(123.456, "123.456", 3.0, {false, 0}), 3);
    EXPECT_EQ(Worth(123.456, "123.456", 20.0, {false, 1}), 2);
    EXPECT_EQ(Worth(1.5, "1.50", 0.25, {true, 1}), 2);
}

TEST(FiguresWorthShowing, BelowOneTheFirstFigureCountsToo) {
    EXPECT_EQ(Worth(0.04567, "0.04567", 0.0012, {true, 3}), 2);
    EXPECT_EQ(Worth(0.5, "0.50", 0.25, {true, 1}), 1);
    EXPECT_EQ(Worth(0.25, "0.25", 0.001, {true, 3}), 3);
}

TEST(FiguresWorthShowing, OneAtLeast) {
    EXPECT_EQ(Worth(3.0, "3.0", 5000.0, {false, 3}), 1);
    EXPECT_EQ(Worth(0.004, "0.004", 0.5, {true, 1}), 1);
    EXPECT_EQ(Worth(0.5, "0.5", 1.0, {false, 0}), 1);
}

TEST(FiguresWorthShowing, OneBelowOneBesideAnUncertaintyAboveOne) {
    EXPECT_EQ(Worth(0.123456, "0.123456", 20.0, {false, 1}), 1);
    EXPECT_EQ(Worth(0.123456, "0.123456", 1e18, {false, 18}), 1);
}

TEST(FiguresWorthShowing, AnUncertaintyOfOneIsNotAboveOne) {
    EXPECT_EQ(Worth(0.25, "0.25", 1.0, {false, 2}), 2);
}

TEST(FiguresWorthShowing, ExponentIsAddedWhateverItsSignForAValueOfOne_Kept) {
    EXPECT_EQ(Worth(1.0, "1.00", 0.01, {true, 2}), 4);
    EXPECT_EQ(Worth(1.0, "1.00", 100.0, {false, 2}), 4);
    EXPECT_EQ(Worth(1.0, "1.00", 2.0, {false, 0}), 2);
}

TEST(WithoutIdlePoint, Table) {
    const struct {
        const char* text;
        const char* expected;
    } rows[] = {
        {"123.", "123"},
        {"-5.", "-5"},
        {"5.e+02", "5e+02"},
        {"-5.e+02", "-5e+02"},
        {"5.E+02", "5E+02"},
        {"1.5e+02", "1.5e+02"},
        {"-1.5e+02", "-1.5e+02"},
        {"0.02", "0.02"},
        {"1.0", "1.0"},
        {"123", "123"},
        {"123.e+02", "123.e+02"},
        {"", ""},
        {"5.", "5"},
        {".", "."},
        {"5.e", "5e"},
        {"-5.e", "-5e"},
    };
    for (const auto& row : rows) EXPECT_EQ(WithoutIdlePoint(row.text), row.expected) << row.text;
}

TEST(WithoutIdlePoint, PointAfterAZeroStays_Kept) {
    for (const char* text : {"10.", "-10.", "120.", "1000.", "0."})
        EXPECT_EQ(WithoutIdlePoint(text), text);
}

TEST(SeparatorOrPoint, PointWhenTheLocaleHasNone) {
    EXPECT_EQ(SeparatorOrPoint(nullptr), ".");
    EXPECT_EQ(SeparatorOrPoint(""), ".");
    EXPECT_EQ(SeparatorOrPoint(","), ",");
    EXPECT_EQ(SeparatorOrPoint("::"), "::");
}

}  // namespace
