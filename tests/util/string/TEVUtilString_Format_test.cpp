#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <limits>
#include <ostream>
#include <string>
#include <type_traits>

#include "support/Owned.h"

using TAMO::TEV::System::Util::TEVUtilString;
using tev::test::Text;

namespace {

constexpr std::uint64_t kHugeWidth = 3000000;
constexpr int kHugePrecision = 100000;
constexpr double kInfinity = std::numeric_limits<double>::infinity();

template <typename Value>
std::string Justified(char selector, Value value, std::uint64_t width, bool showPlus,
                      bool zeroFill) {
    if constexpr (std::is_same_v<Value, unsigned int>)
        return TEVUtilString::ToString(selector, width, value, showPlus, zeroFill);
    else
        return TEVUtilString::ToString(selector, value, width, showPlus, zeroFill);
}

template <typename Value>
class ToStringJustified : public testing::Test {};

struct ValueName {
    template <typename Value>
    static std::string GetName(int) {
        if constexpr (std::is_same_v<Value, int>) return "Int";
        if constexpr (std::is_same_v<Value, long>) return "Long";
        if constexpr (std::is_same_v<Value, std::int64_t>) return "Int64";
        if constexpr (std::is_same_v<Value, std::uint64_t>) return "UInt64";
        return "UnsignedInt";
    }
};

using ValueTypes = testing::Types<int, long, std::int64_t, std::uint64_t, unsigned int>;
TYPED_TEST_SUITE(ToStringJustified, ValueTypes, ValueName);

template <typename Value>
class ToStringJustifiedSigned : public testing::Test {};

using SignedTypes = testing::Types<int, long, std::int64_t>;
TYPED_TEST_SUITE(ToStringJustifiedSigned, SignedTypes, ValueName);

template <typename Value>
class ToStringJustifiedUnsigned : public testing::Test {};

using UnsignedTypes = testing::Types<std::uint64_t, unsigned int>;
TYPED_TEST_SUITE(ToStringJustifiedUnsigned, UnsignedTypes, ValueName);

struct Row {
    char selector;
    int value;
    std::uint64_t width;
    bool showPlus;
    bool zeroFill;
    const char* expected;
};

std::ostream& operator<<(std::ostream& stream, const Row& row) {
    return stream << row.selector << ", " << row.value << ", width " << row.width
                  << (row.showPlus ? ", plus" : "") << (row.zeroFill ? ", zeros" : "");
}

template <typename Value, std::size_t size>
void ExpectRows(const Row (&rows)[size]) {
    for (const Row& row : rows)
        EXPECT_EQ(Justified(row.selector, static_cast<Value>(row.value), row.width, row.showPlus,
                            row.zeroFill),
                  row.expected)
            << row;
}

TYPED_TEST(ToStringJustified, WithoutPlusSign) {
    ExpectRows<TypeParam>({
        {'R', 42, 6, false, true, "000042"},
        {'R', 42, 6, false, false, "    42"},
        {'L', 42, 6, false, false, "42    "},
        {'L', 42, 6, false, true, "42    "},
        {'R', 5, 8, false, true, "00000005"},
        {'R', 0, 3, false, true, "000"},
        {'R', 0, 3, false, false, "  0"},
        {'L', 0, 3, false, false, "0  "},
        {'R', 7, 1, false, false, "7"},
        {'R', 7, 1, false, true, "7"},
        {'L', 7, 1, false, false, "7"},
    });
}

TYPED_TEST(ToStringJustified, AnySelectorButLJustifiesRight) {
    for (const char selector : {'R', 'r', 'l', ' ', '\0', '\xCC'}) {
        SCOPED_TRACE(static_cast<int>(selector));
        EXPECT_EQ(Justified<TypeParam>(selector, 42, 6, false, false), "    42");
        EXPECT_EQ(Justified<TypeParam>(selector, 42, 6, false, true), "000042");
    }
}

TYPED_TEST(ToStringJustified, WidthBelowTheMinimumGivesNothing) {
    for (const char selector : {'R', 'L'}) {
        for (const bool zeroFill : {true, false}) {
            SCOPED_TRACE(std::string(1, selector) + (zeroFill ? " zeros" : " blanks"));
            EXPECT_EQ(Justified<TypeParam>(selector, 7, 0, false, zeroFill), "");
            EXPECT_EQ(Justified<TypeParam>(selector, 7, 0, true, zeroFill), "");
            EXPECT_EQ(Justified<TypeParam>(selector, 7, 1, true, zeroFill), "");
        }
    }
}

TYPED_TEST(ToStringJustified, WiderValueIsNeverCut) {
    for (const char selector : {'R', 'L'}) {
        for (const bool zeroFill : {true, false})
            EXPECT_EQ(Justified<TypeParam>(selector, 123456, 3, false, zeroFill), "123456");
    }
}

TYPED_TEST(ToStringJustified, NoPlusSignOnBlankFilledRight_Kept) {
    EXPECT_EQ(Justified<TypeParam>('R', 42, 6, true, false), "    42");
    EXPECT_EQ(Justified<TypeParam>('R', 42, 2, true, false), "42");
    EXPECT_EQ(Justified<TypeParam>('R', 0, 2, true, false), " 0");
}

TYPED_TEST(ToStringJustified, HugeWidth) {
    const std::string blanks(kHugeWidth - 2, ' ');
    EXPECT_TRUE(Justified<TypeParam>('R', 42, kHugeWidth, false, false) == blanks + "42");
    EXPECT_TRUE(Justified<TypeParam>('L', 42, kHugeWidth, false, false) == "42" + blanks);
    EXPECT_TRUE(Justified<TypeParam>('R', 42, kHugeWidth, false, true) ==
                std::string(kHugeWidth - 2, '0') + "42");
}

TYPED_TEST(ToStringJustified, WidthBeyondMemoryGivesNothing) {
    for (const std::uint64_t width : {UINT64_MAX, UINT64_MAX - 1, std::uint64_t{1} << 63}) {
        EXPECT_EQ(Justified<TypeParam>('R', 42, width, false, false), "");
        EXPECT_EQ(Justified<TypeParam>('R', 42, width, true, true), "");
        EXPECT_EQ(Justified<TypeParam>('L', 42, width, true, false), "");
    }
}

TYPED_TEST(ToStringJustified, LargestValue) {
    constexpr TypeParam largest = std::numeric_limits<TypeParam>::max();
    const std::string digits = std::to_string(largest);
    EXPECT_EQ(Justified<TypeParam>('R', largest, 1, false, false), digits);
    EXPECT_EQ(Justified<TypeParam>('R', largest, 22, false, true),
              std::string(22 - digits.size(), '0') + digits);
    EXPECT_EQ(Justified<TypeParam>('L', largest, 22, false, false),
              digits + std::string(22 - digits.size(), ' '));
}

TYPED_TEST(ToStringJustifiedSigned, PlusSign) {
    ExpectRows<TypeParam>({
        {'R', 42, 6, true, true, "+00042"},
        {'L', 42, 6, true, false, "+42   "},
        {'L', 42, 6, true, true, "+42   "},
        {'R', 0, 4, true, true, "+000"},
        {'L', 0, 4, true, false, "+0  "},
        {'R', 7, 2, true, true, "+7"},
        {'L', 7, 2, true, false, "+7"},
        {'L', 123456, 3, true, false, "+123456"},
        {'R', 123456, 3, true, true, "+123456"},
        {'R', 123456, 3, true, false, "123456"},
    });
}

TYPED_TEST(ToStringJustifiedSigned, NegativeValues) {
    ExpectRows<TypeParam>({
        {'R', -42, 6, false, true, "-00042"},
        {'R', -42, 6, true, true, "-00042"},
        {'R', -42, 6, false, false, "   -42"},
        {'R', -42, 6, true, false, "   -42"},
        {'L', -42, 6, false, false, "-42   "},
        {'L', -42, 6, true, true, "-42   "},
        {'R', -7, 1, false, true, "-7"},
        {'L', -7, 1, false, false, "-7"},
    });
}

TYPED_TEST(ToStringJustifiedSigned, SmallestValue) {
    constexpr TypeParam smallest = std::numeric_limits<TypeParam>::min();
    const std::string digits = std::to_string(smallest).substr(1);
    EXPECT_EQ(Justified<TypeParam>('R', smallest, 1, false, false), '-' + digits);
    EXPECT_EQ(Justified<TypeParam>('R', smallest, 24, true, true),
              '-' + std::string(23 - digits.size(), '0') + digits);
}

TYPED_TEST(ToStringJustifiedUnsigned, StreamsWriteNoPlusSign) {
    ExpectRows<TypeParam>({
        {'R', 42, 6, true, true, "000042"},
        {'L', 42, 6, true, false, "42    "},
        {'L', 7, 2, true, false, "7 "},
        {'R', 7, 2, true, true, "07"},
    });
}

TEST(ToString, UnsignedIntTakesTheWidthFirst_Kept) {
    const std::uint64_t first = 8;
    const unsigned int second = 5;
    EXPECT_EQ(TEVUtilString::ToString('R', first, second, false, true), "00000005");
    const std::uint64_t value = 8;
    const std::uint64_t width = 5;
    EXPECT_EQ(TEVUtilString::ToString('R', value, width, false, true), "00008");
}

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
        {'L', 3.14159, 8, 2, false, true, "3.14    "},
        {'L', 3.14159, 8, 2, true, true, "+3.14   "},
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

TEST(ToString, JustifiedDoubleHugePrecision) {
    const std::string number = "0.5" + std::string(kHugePrecision - 1, '0');
    EXPECT_TRUE(TEVUtilString::ToString('R', 0.5, kHugePrecision + 2, kHugePrecision, false,
                                        false) == number);
    EXPECT_TRUE(TEVUtilString::ToString('R', 0.5, kHugePrecision + 5, kHugePrecision, true, true) ==
                "+00" + number);
}

TEST(ToString, PlainIntegers) {
    EXPECT_EQ(TEVUtilString::ToString(-42), "-42");
    EXPECT_EQ(TEVUtilString::ToString(0), "0");
    EXPECT_EQ(TEVUtilString::ToString(std::numeric_limits<int>::max()), "2147483647");
    EXPECT_EQ(TEVUtilString::ToString(std::numeric_limits<int>::min()), "-2147483648");
    EXPECT_EQ(TEVUtilString::ToString(0U), "0");
    EXPECT_EQ(TEVUtilString::ToString(std::numeric_limits<unsigned int>::max()), "4294967295");
    EXPECT_EQ(TEVUtilString::ToString(-42L), "-42");
    EXPECT_EQ(TEVUtilString::ToString(std::numeric_limits<long>::max()), "2147483647");
    EXPECT_EQ(TEVUtilString::ToString(std::numeric_limits<long>::min()), "-2147483648");
    EXPECT_EQ(TEVUtilString::ToString(0UL), "0");
    EXPECT_EQ(TEVUtilString::ToString(std::numeric_limits<unsigned long>::max()), "4294967295");
    EXPECT_EQ(TEVUtilString::ToString(std::int64_t{-42}), "-42");
    EXPECT_EQ(TEVUtilString::ToString(std::numeric_limits<std::int64_t>::max()),
              "9223372036854775807");
    EXPECT_EQ(TEVUtilString::ToString(std::numeric_limits<std::int64_t>::min()),
              "-9223372036854775808");
    EXPECT_EQ(TEVUtilString::ToString(std::uint64_t{0}), "0");
    EXPECT_EQ(TEVUtilString::ToString(std::numeric_limits<std::uint64_t>::max()),
              "18446744073709551615");
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

}  // namespace
