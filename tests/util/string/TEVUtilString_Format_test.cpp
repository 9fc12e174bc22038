#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <limits>
#include <ostream>
#include <string>
#include <type_traits>

using TAMO::TEV::System::Util::TEVUtilString;

namespace {

constexpr std::uint64_t kHugeWidth = 3000000;

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

TYPED_TEST(ToStringJustified, LeftIgnoresZeroFill_Kept) {
    EXPECT_EQ(Justified<TypeParam>('L', 42, 6, false, true), "42    ");
    EXPECT_EQ(Justified<TypeParam>('L', 0, 3, false, true), "0  ");
    for (const std::uint64_t width : {1U, 2U, 3U, 20U})
        EXPECT_EQ(Justified<TypeParam>('L', 42, width, true, true),
                  Justified<TypeParam>('L', 42, width, true, false))
            << width;
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
        {'L', -42, 6, true, false, "-42   "},
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

}  // namespace
