#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>
#include <type_traits>

namespace {

using TAMO::TEV::System::Util::TEVUtilString;

template <typename Number>
using Parser = bool (*)(const char*, Number&);

std::string Shown(const char* text) {
    return text == nullptr ? "(null)" : testing::PrintToString(std::string(text));
}

template <typename Number>
void ExpectAccepted(Parser<Number> parse, const char* text, Number expected) {
    Number value = 77;
    EXPECT_TRUE(parse(text, value)) << Shown(text);
    EXPECT_EQ(value, expected) << Shown(text);
}

template <typename Number>
void ExpectRefused(Parser<Number> parse, const char* text) {
    Number value = 77;
    EXPECT_FALSE(parse(text, value)) << Shown(text);
    EXPECT_EQ(value, Number{77}) << Shown(text);
}

struct IntegerRow {
    const char* text;
    int value;
};

// Taken by every integer parser.
constexpr IntegerRow kUnsigned[] = {
    {"0", 0},
    {"42", 42},
    {"+42", 42},
    {"+7", 7},
    {"007", 7},
    {"+0", 0},
    {"0000000000000000000000000000000042", 42},
    {"12.", 12},
    {"12.9", 12},
    {"+12.9", 12},
    {"0.999", 0},
    {"1.99999999999999999999", 1},
    {".5", 0},
    {".", 0},
    {"+.", 0},
    {"+.5", 0},
    {".99999999999999999999999", 0},
    {"2147483646", 2147483646},
    {"2147483647", 2147483647},
    {"+2147483647", 2147483647},
    {"2147483647.9", 2147483647},
    {" 42", 42},
    {"42 ", 42},
    {"    42    ", 42},
    {"\t\n42 ", 42},
    {" 42\v\f\r\n", 42},
    {" .5 ", 0},
};

// Taken by the parsers that know a minus sign.
constexpr IntegerRow kNegative[] = {
    {"-1", -1},
    {"-42", -42},
    {"-0042", -42},
    {"-0", 0},
    {"-12.", -12},
    {"-12.9", -12},
    {"-12.75", -12},
    {"-0.9", 0},
    {"-.5", 0},
    {"-.", 0},
    {"-2147483647", -2147483647},
    {"-2147483648", -2147483647 - 1},
    {"-2147483648.9", -2147483647 - 1},
    {" -42 ", -42},
    {"\t-42 ", -42},
};

constexpr const char* kRefused[] = {
    nullptr,
    "",
    " ",
    "     ",
    " \t\n ",
    "0x1A",
    "0X1a",
    "1e3",
    "1E3",
    "1 2",
    "+ 1",
    "--1",
    "++1",
    "+-1",
    "-+1",
    "1-",
    "1+",
    "1-2",
    "1.2.3",
    "..",
    ".+",
    ".5-",
    "1,000",
    "1'000",
    "1_000",
    "abc",
    "42a",
    "a42",
    "10L",
    "10u",
    "0b1",
    "true",
    "inf",
    "nan",
    "%d",
    "4\xB2",
    "\xA0"
    "42",
    // Only a plain space starts the trimming.
    "\t42",
    "42\t",
    "\n42\n",
    "42\r",
};

template <typename Number>
void ExpectIntegerTables(Parser<Number> parse) {
    for (const IntegerRow& row : kUnsigned)
        ExpectAccepted(parse, row.text, static_cast<Number>(row.value));
    for (const IntegerRow& row : kNegative) {
        if constexpr (std::is_signed_v<Number>)
            ExpectAccepted(parse, row.text, Number{row.value});
        else
            ExpectRefused(parse, row.text);
    }
    for (const char* text : kRefused) ExpectRefused(parse, text);
}

// Only the success is promised: the value is what the runtime makes of the digits.
template <typename Number>
void ExpectSuccess(Parser<Number> parse, const char* text) {
    Number value = 77;
    EXPECT_TRUE(parse(text, value)) << Shown(text);
}

constexpr const char* kBeyond32Bits[] = {
    "2147483648",
    "-2147483649",
    "+2147483648.5",
    "4294967295",
    "4294967296",
    "-4294967296",
    "99999999999",
    "-99999999999",
    "9223372036854775807",
    "18446744073709551616",
    "123456789012345678901234567890",
};

TEST(ToInteger, Tables) { ExpectIntegerTables<int>(&TEVUtilString::ToInteger); }

TEST(ToInteger, BareSignIsRefused) {
    for (const char* text : {"-", "+", " - ", "+ "})
        ExpectRefused<int>(&TEVUtilString::ToInteger, text);
}

TEST(ToInteger, NumberOutOfRangeIsASuccess_Kept) {
    for (const char* text : kBeyond32Bits) ExpectSuccess<int>(&TEVUtilString::ToInteger, text);
}

TEST(ToLong, Tables) { ExpectIntegerTables<long>(&TEVUtilString::ToLong); }

TEST(ToLong, BareSignIsRefused) {
    for (const char* text : {"-", "+", " - ", "+ "})
        ExpectRefused<long>(&TEVUtilString::ToLong, text);
}

TEST(ToLong, NumberOutOfRangeIsASuccess_Kept) {
    for (const char* text : kBeyond32Bits) ExpectSuccess<long>(&TEVUtilString::ToLong, text);
}

TEST(ToUnsignedInt, Tables) { ExpectIntegerTables<unsigned int>(&TEVUtilString::ToUnsignedInt); }

TEST(ToUnsignedInt, BareSignIsRefused) {
    for (const char* text : {"-", "+", " - ", "+ "})
        ExpectRefused<unsigned int>(&TEVUtilString::ToUnsignedInt, text);
}

TEST(ToUnsignedInt, NothingAboveTheSignedRangeComesOut_Kept) {
    for (const char* text : kBeyond32Bits) {
        unsigned int value = 77;
        const bool accepted = TEVUtilString::ToUnsignedInt(text, value);
        EXPECT_LE(value, 2147483647U) << text;
        EXPECT_TRUE(accepted || value == 77U) << text;
        EXPECT_FALSE(accepted && text[0] == '-') << text;
    }
}

TEST(ToInt64, Tables) {
    ExpectIntegerTables<std::int64_t>(&TEVUtilString::ToInt64);
    const Parser<std::int64_t> parse = &TEVUtilString::ToInt64;
    constexpr std::int64_t kLowest = std::numeric_limits<std::int64_t>::min();
    constexpr std::int64_t kHighest = std::numeric_limits<std::int64_t>::max();
    ExpectAccepted(parse, "-9223372036854775808", kLowest);
    ExpectAccepted(parse, "-9223372036854775808.5", kLowest);
    ExpectAccepted(parse, "-9223372036854775807", kLowest + 1);
    ExpectAccepted(parse, "9223372036854775807", kHighest);
    ExpectAccepted(parse, " +9223372036854775807.5 ", kHighest);
    ExpectAccepted(parse, "2147483648", std::int64_t{2147483648});
    ExpectAccepted(parse, "-2147483649", std::int64_t{-2147483649});
    ExpectAccepted(parse, "00000000000000009223372036854775807", kHighest);
}

TEST(ToInt64, BareSignOrNumberOutOfRangeIsASuccess_Kept) {
    for (const char* text : {"+", "-", " + ", "9223372036854775808", "-9223372036854775809",
                             "+99999999999999999999", "123456789012345678901234567890.5"})
        ExpectSuccess<std::int64_t>(&TEVUtilString::ToInt64, text);
}

TEST(ToUInt64, Tables) {
    ExpectIntegerTables<std::uint64_t>(&TEVUtilString::ToUInt64);
    const Parser<std::uint64_t> parse = &TEVUtilString::ToUInt64;
    constexpr std::uint64_t kHighest = std::numeric_limits<std::uint64_t>::max();
    ExpectAccepted(parse, "18446744073709551615", kHighest);
    ExpectAccepted(parse, "+18446744073709551615.9", kHighest);
    ExpectAccepted(parse, "4294967296", std::uint64_t{4294967296});
    ExpectAccepted(parse, " 9223372036854775808 ", std::uint64_t{1} << 63);
    ExpectRefused(parse, "-");
    ExpectRefused(parse, "-18446744073709551615");
}

TEST(ToUInt64, BareSignOrNumberOutOfRangeIsASuccess_Kept) {
    for (const char* text : {"+", " + ", "18446744073709551616", "+99999999999999999999",
                             "123456789012345678901234567890.5"})
        ExpectSuccess<std::uint64_t>(&TEVUtilString::ToUInt64, text);
}

TEST(IntegerParsers, LongTexts) {
    const std::string zeros(100000, '0');
    const std::string blanks(100000, ' ');
    const std::string text = blanks + '+' + zeros + "42." + zeros + '9' + blanks;
    ExpectAccepted<int>(&TEVUtilString::ToInteger, text.c_str(), 42);
    ExpectAccepted<long>(&TEVUtilString::ToLong, text.c_str(), 42);
    ExpectAccepted<unsigned int>(&TEVUtilString::ToUnsignedInt, text.c_str(), 42);
    ExpectAccepted<std::int64_t>(&TEVUtilString::ToInt64, text.c_str(), 42);
    ExpectAccepted<std::uint64_t>(&TEVUtilString::ToUInt64, text.c_str(), 42);
    ExpectRefused<int>(&TEVUtilString::ToInteger, (text + 'x').c_str());
}

}  // namespace
