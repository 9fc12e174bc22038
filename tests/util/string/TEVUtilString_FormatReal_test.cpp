#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <locale>
#include <stdexcept>
#include <string>
#include <vector>

#include "support/GlobalLocale.h"
#include "support/Owned.h"

using TAMO::TEV::System::Util::TEVUtilString;
using tev::test::Text;

namespace {

constexpr std::uint64_t kHugeWidth = 3000000;
constexpr int kHugePrecision = 100000;
constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(ToString, JustifiedDouble) {
    const struct {
        char selector;
        double value;
        std::uint64_t width;
        std::uint64_t precision;
        bool showPlus;
        bool zeroFill;
        const char* expected;
    } rows[] = {
        {'R', 3.14159, 8, 2, false, true, "00003.14"},
        {'R', 3.14159, 8, 2, true, true, "+0003.14"},
        {'R', -3.14159, 8, 2, false, true, "-0003.14"},
        {'R', 3.14159, 8, 2, false, false, "    3.14"},
        {'R', 3.14159, 8, 2, true, false, "    3.14"},
        {'R', -3.14159, 8, 2, true, false, "   -3.14"},
        {'r', 3.14159, 8, 2, false, true, "00003.14"},
        {'L', 3.14159, 8, 2, false, false, "3.14    "},
        {'L', 3.14159, 8, 2, true, false, "+3.14   "},
        {'L', -3.14159, 8, 2, true, false, "-3.14   "},
        {'R', 0.0, 6, 2, false, true, "000.00"},
        {'R', 1.5, 8, 4, false, false, "  1.5000"},
        // The point stays without digits behind it.
        {'R', 5, 4, 0, false, false, "  5."},
        {'L', 5, 4, 0, false, false, "5.  "},
        {'R', 5, 4, 0, true, true, "+05."},
        {'R', 5, 2, 0, false, false, "5."},
        {'R', 5, 3, 0, true, true, "+5."},
        // Wider than the width.
        {'R', 123456.789, 4, 2, false, true, "123456.79"},
        {'L', 123456.789, 5, 2, true, false, "+123456.79"},
        {'R', kInfinity, 8, 2, false, false, "     inf"},
        {'L', -kInfinity, 8, 2, false, false, "-inf    "},
    };
    for (const auto& row : rows)
        EXPECT_EQ(TEVUtilString::ToString(row.selector, row.value, row.width, row.precision,
                                          row.showPlus, row.zeroFill),
                  row.expected)
            << row.selector << ' ' << row.value << " width " << row.width << " precision "
            << row.precision << (row.showPlus ? " plus" : "") << (row.zeroFill ? " zeros" : "");
}

TEST(ToString, JustifiedDoubleLeftIgnoresZeroFill_Kept) {
    EXPECT_EQ(TEVUtilString::ToString('L', 3.14159, 8, 2, false, true), "3.14    ");
    EXPECT_EQ(TEVUtilString::ToString('L', 3.14159, 8, 2, true, true), "+3.14   ");
    EXPECT_EQ(TEVUtilString::ToString('L', -3.14159, 8, 2, true, true), "-3.14   ");
}

TEST(ToString, JustifiedDoubleWidthMustExceedThePrecision) {
    const struct {
        std::uint64_t width;
        std::uint64_t precision;
        bool showPlus;
        bool accepted;
    } rows[] = {
        {3, 2, false, false},
        {4, 2, false, true},
        {4, 2, true, false},
        {5, 2, true, true},
        {0, 0, false, false},
        {1, 0, false, false},
        {2, 0, false, true},
        {2, 0, true, false},
        {3, 0, true, true},
        {0, 5, false, false},
        {6, 5, false, false},
        {7, 5, false, true},
        // Where precision + 1 or + 2 leaves 64 bits.
        {8, UINT64_MAX, false, false},
        {8, UINT64_MAX, true, false},
        {0, UINT64_MAX, false, false},
        {8, UINT64_MAX - 1, true, false},
        {1, UINT64_MAX - 1, true, false},
        {UINT64_MAX, UINT64_MAX, false, false},
        {UINT64_MAX, UINT64_MAX, true, false},
        {UINT64_MAX, UINT64_MAX - 1, false, false},
        {UINT64_MAX, UINT64_MAX - 1, true, false},
        {UINT64_MAX, UINT64_MAX - 2, true, false},
        {8, UINT64_MAX - 2, false, false},
    };
    // Infinity has no digits that could fail for want of memory: the rule alone refuses it.
    for (const auto& row : rows) {
        for (const double value : {3.0, kInfinity}) {
            for (const char selector : {'R', 'L'})
                EXPECT_EQ(TEVUtilString::ToString(selector, value, row.width, row.precision,
                                                  row.showPlus, true)
                              .empty(),
                          !row.accepted)
                    << selector << ' ' << value << " width " << row.width << " precision "
                    << row.precision << (row.showPlus ? " plus" : "");
        }
    }
}

TEST(ToString, JustifiedDoubleHugeWidth) {
    const std::string blanks(kHugeWidth - 4, ' ');
    EXPECT_TRUE(TEVUtilString::ToString('R', 1.25, kHugeWidth, 2, false, false) == blanks + "1.25");
    EXPECT_TRUE(TEVUtilString::ToString('L', 1.25, kHugeWidth, 2, false, false) == "1.25" + blanks);
    EXPECT_TRUE(TEVUtilString::ToString('R', -1.25, kHugeWidth, 2, false, true) ==
                '-' + std::string(kHugeWidth - 5, '0') + "1.25");
}

TEST(ToString, JustifiedDoubleWidthBeyondMemoryGivesNothing) {
    EXPECT_EQ(TEVUtilString::ToString('R', 1.25, UINT64_MAX, 2, false, false), "");
    EXPECT_EQ(TEVUtilString::ToString('R', 1.25, UINT64_MAX, 2, true, true), "");
    EXPECT_EQ(TEVUtilString::ToString('L', 1.25, UINT64_MAX, 2, false, false), "");
}

TEST(ToString, JustifiedDoubleHugePrecision) {
    const std::string number = "0.5" + std::string(kHugePrecision - 1, '0');
    EXPECT_TRUE(TEVUtilString::ToString('R', 0.5, kHugePrecision + 2, kHugePrecision, false,
                                        false) == number);
    EXPECT_TRUE(TEVUtilString::ToString('R', 0.5, kHugePrecision + 5, kHugePrecision, true, true) ==
                "+00" + number);
}

const struct {
    double value;
    bool scientific;
    int precision;
    const char* expected;
} kDoubles[] = {
    {1500, true, 2, "1.50e+03"},
    {1500, false, 2, "1500.00"},
    {-1.25, false, 2, "-1.25"},
    {-1.25, true, 2, "-1.25e+00"},
    {0.000125, true, 2, "1.25e-04"},
    {1e300, true, 3, "1.000e+300"},
    {3.14159, false, 3, "3.142"},
    {0, false, 1, "0.0"},
    {-0.0, false, 1, "-0.0"},
    {2, false, 0, "2"},
    {2, true, 0, "2e+00"},
    {1.5, false, -1, "1.50000000000000000000"},
    {1.5, true, -1, "1.50000000000000000000e+00"},
    {0.25, false, -20, "0.25000000000000000000"},
    {0.25, false, std::numeric_limits<int>::min(), "0.25000000000000000000"},
    {0.1, false, 20, "0.10000000000000000555"},
    {kInfinity, false, 2, "inf"},
    {kInfinity, false, 2000, "inf"},
    {-kInfinity, true, 2, "-inf"},
};

TEST(ToString, DoubleInFixedAndScientificNotation) {
    for (const auto& row : kDoubles)
        EXPECT_EQ(TEVUtilString::ToString(row.value, row.scientific, row.precision), row.expected)
            << row.value << " precision " << row.precision;
}

TEST(ToString, DoubleOutputFormAgreesWithStringForm) {
    for (const auto& row : kDoubles) {
        Text text;
        EXPECT_TRUE(TEVUtilString::ToString(text.Out(), row.value, row.scientific, row.precision));
        EXPECT_EQ(text.str(), row.expected);
    }
}

TEST(ToString, DoubleLargestValue) {
    const std::string text = TEVUtilString::ToString(std::numeric_limits<double>::max(), false, 2);
    EXPECT_EQ(text.size(), 312U);
    EXPECT_EQ(text.substr(0, 17), "17976931348623157");
    EXPECT_EQ(text.substr(309), ".00");
}

TEST(ToString, DoubleHugePrecision) {
    const std::string zeros(kHugePrecision, '0');
    EXPECT_TRUE(TEVUtilString::ToString(2, false, kHugePrecision) == "2." + zeros);
    EXPECT_TRUE(TEVUtilString::ToString(2, true, kHugePrecision) == "2." + zeros + "e+00");
    Text text;
    ASSERT_TRUE(TEVUtilString::ToString(text.Out(), 2, false, kHugePrecision));
    EXPECT_TRUE(text.str() == "2." + zeros);
}

TEST(ToString, DoubleSmallestValueHas1074Digits) {
    constexpr double kSmallest = std::numeric_limits<double>::denorm_min();
    const std::string digits = TEVUtilString::ToString(kSmallest, false, 1074);
    ASSERT_EQ(digits.size(), 2U + 1074U);
    EXPECT_EQ(digits.substr(0, 4), "0.00");
    EXPECT_EQ(digits.back(), '5');
    EXPECT_TRUE(TEVUtilString::ToString(kSmallest, false, 2000) == digits + std::string(926, '0'));
}

TEST(ToString, DoubleManyDigitsInScientificNotation) {
    // No value has more digits than the largest below the normal ones.
    const double value = std::nextafter(std::numeric_limits<double>::min(), 0.0);
    const std::string text = TEVUtilString::ToString(value, true, 1100);
    const std::size_t exponent = text.find('e');
    ASSERT_EQ(exponent, 2U + 1100U);
    EXPECT_EQ(text.substr(exponent), "e-308");
    EXPECT_EQ(text.find_last_not_of('0', exponent - 1), 2U + 765U) << "767 digits";
    EXPECT_TRUE(TEVUtilString::ToString(value, true, 1500) ==
                text.substr(0, exponent) + std::string(400, '0') + "e-308");
}

TEST(ToString, DoubleNullOutputIsRefused) {
    EXPECT_FALSE(TEVUtilString::ToString(nullptr, 1.5, false, 2));
}

TEST(ToString, DoubleOutputIsOverwrittenNotFreed) {
    char held[] = "held";
    char* text = held;
    ASSERT_TRUE(TEVUtilString::ToString(&text, 1.5, false, 2));
    ASSERT_NE(text, held);
    const Text owner(text);
    EXPECT_EQ(owner.str(), "1.50");
    EXPECT_STREQ(held, "held");
}

// A locale that writes no number.
class ThrowingNumbers : public std::num_put<char> {
    template <typename Value>
    static iter_type Refuse(Value) {
        throw std::runtime_error("no number");
    }

    iter_type do_put(iter_type, std::ios_base&, char, bool v) const override { return Refuse(v); }
    iter_type do_put(iter_type, std::ios_base&, char, long v) const override { return Refuse(v); }
    iter_type do_put(iter_type, std::ios_base&, char, unsigned long v) const override {
        return Refuse(v);
    }
    iter_type do_put(iter_type, std::ios_base&, char, long long v) const override {
        return Refuse(v);
    }
    iter_type do_put(iter_type, std::ios_base&, char, unsigned long long v) const override {
        return Refuse(v);
    }
    iter_type do_put(iter_type, std::ios_base&, char, double v) const override { return Refuse(v); }
    iter_type do_put(iter_type, std::ios_base&, char, long double v) const override {
        return Refuse(v);
    }
    iter_type do_put(iter_type, std::ios_base&, char, const void* v) const override {
        return Refuse(v);
    }
};

// Every overload's text; that of the output form in `out`.
std::vector<std::string> EveryText(char** out, bool& isDone) {
    constexpr std::uint64_t kWidth = 4;
    std::vector<std::string> texts;
    texts.push_back(TEVUtilString::ToString('R', -7, kWidth, false, true));
    texts.push_back(TEVUtilString::ToString('L', -7L, kWidth, true, false));
    texts.push_back(TEVUtilString::ToString('R', std::int64_t{-7}, kWidth, false, false));
    texts.push_back(TEVUtilString::ToString('R', std::uint64_t{7}, kWidth, false, false));
    texts.push_back(TEVUtilString::ToString('R', kWidth, 7U, false, false));
    texts.push_back(TEVUtilString::ToString('R', 7.5, kWidth, 1, false, false));
    texts.push_back(TEVUtilString::ToString(-7));
    texts.push_back(TEVUtilString::ToString(7U));
    texts.push_back(TEVUtilString::ToString(-7L));
    texts.push_back(TEVUtilString::ToString(7UL));
    texts.push_back(TEVUtilString::ToString(std::int64_t{-7}));
    texts.push_back(TEVUtilString::ToString(std::uint64_t{7}));
    texts.push_back(TEVUtilString::ToString(7.5, false, 1));
    texts.push_back(TEVUtilString::ToString(7.5, true, 1));
    isDone = TEVUtilString::ToString(out, 7.5, false, 1);
    return texts;
}

TEST(ToString, FailureOfTheStreamGivesNothing) {
    Text done;
    bool isDone = false;
    const std::vector<std::string> written = EveryText(done.Out(), isDone);
    EXPECT_EQ(written,
              (std::vector<std::string>{"-007", "-7  ", "  -7", "   7", "   7", " 7.5", "-7", "7",
                                        "-7", "7", "-7", "7", "7.5", "7.5e+00"}));
    EXPECT_TRUE(isDone);
    EXPECT_EQ(done.str(), "7.5");

    char held[] = "held";
    char* out = held;
    std::vector<std::string> refused;
    {
        const tev::test::GlobalLocale locale(new ThrowingNumbers);
        refused = EveryText(&out, isDone);
    }
    EXPECT_EQ(refused, std::vector<std::string>(written.size()));
    EXPECT_FALSE(isDone);
    EXPECT_EQ(out, nullptr);
}

}  // namespace
