#include <TEVSystemLib/util/memory/TEVUtilMemory.h>
#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <iostream>
#include <random>
#include <string>
#include <string_view>

#include "util/string/OutputPointer.h"

namespace {

using namespace std::string_view_literals;
using TAMO::TEV::System::Util::TEVUtilMemory;
using TAMO::TEV::System::Util::TEVUtilString;
using tev::test::ExpectNewText;
using tev::test::Stale;

constexpr unsigned kSeed = 20240609;

// "1011" as an array of the numbers 1, 0, 1, 1; other characters become other numbers.
std::string Array(std::string_view digits) {
    std::string array;
    for (const char digit : digits) array += static_cast<char>(digit - '0');
    return array;
}

std::string DigitsOf(std::string_view array) {
    std::string digits;
    for (const char element : array) digits += static_cast<char>(element + '0');
    return digits;
}

std::string BinaryText(std::uint64_t number, std::size_t length) {
    std::string digits;
    for (std::size_t i = length; i-- > 0;) digits += (number >> i & 1) != 0 ? '1' : '0';
    return digits;
}

// "SUM CARRY" of two texts of bits of equal length, or "(refused)".
std::string Sum(std::string_view first, std::string_view second) {
    std::string left = Array(first);
    std::string right = Array(second);
    std::string answers[2];
    for (const bool before : {false, true}) {
        std::string sum(left.size(), '\x55');
        bool carry = before;
        const bool added = TEVUtilString::AddTwoBinaryBitArrays(carry, left.data(), right.data(),
                                                                sum.data(), left.size());
        EXPECT_TRUE(added || !carry) << "a refused call clears the carry";
        EXPECT_TRUE(added || sum == std::string(sum.size(), '\0')) << "and the sum";
        answers[before] = added ? DigitsOf(sum) + (carry ? " 1" : " 0") : "(refused)";
    }
    EXPECT_EQ(answers[0], answers[1]) << first << " + " << second;
    EXPECT_EQ(left, Array(first)) << "the addends are left as they are";
    EXPECT_EQ(right, Array(second)) << "the addends are left as they are";
    return answers[0];
}

TEST(AddTwoBinaryBitArrays, Table) {
    const struct {
        const char* first;
        const char* second;
        const char* expected;
    } rows[] = {
        {"11", "01", "00 1"},       {"0", "0", "0 0"},
        {"0", "1", "1 0"},          {"1", "0", "1 0"},
        {"1", "1", "0 1"},          {"01", "01", "10 0"},
        {"0111", "0001", "1000 0"}, {"1111", "1111", "1110 1"},
        {"1000", "1000", "0000 1"}, {"10101010", "01010101", "11111111 0"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Sum(row.first, row.second), row.expected) << row.first << " + " << row.second;
}

TEST(AddTwoBinaryBitArrays, EveryPairOfFourBits) {
    for (unsigned first = 0; first < 16; ++first) {
        for (unsigned second = 0; second < 16; ++second) {
            const std::string expected =
                BinaryText((first + second) % 16, 4) + (first + second >= 16 ? " 1" : " 0");
            EXPECT_EQ(Sum(BinaryText(first, 4), BinaryText(second, 4)), expected)
                << first << " + " << second;
        }
    }
}

TEST(AddTwoBinaryBitArrays, RandomPairsOfEveryLengthUpTo63) {
    constexpr int kPairs = 100;
    std::cout << "seed " << kSeed << "\n";
    std::mt19937_64 engine(kSeed);
    for (std::size_t length = 1; length <= 63; ++length) {
        const std::uint64_t end = std::uint64_t{1} << length;
        for (int i = 0; i < kPairs; ++i) {
            const std::uint64_t first = engine() % end;
            const std::uint64_t second = engine() % end;
            const std::string expected =
                BinaryText((first + second) % end, length) + (first + second >= end ? " 1" : " 0");
            ASSERT_EQ(Sum(BinaryText(first, length), BinaryText(second, length)), expected)
                << "seed " << kSeed << ", length " << length;
        }
    }
}

TEST(AddTwoBinaryBitArrays, CarryRunsThroughALongArray) {
    constexpr std::size_t kLength = 1000;
    const std::string one = std::string(kLength - 1, '0') + '1';
    EXPECT_EQ(Sum(std::string(kLength, '1'), one), std::string(kLength, '0') + " 1");
    EXPECT_EQ(Sum('0' + std::string(kLength - 1, '1'), one),
              '1' + std::string(kLength - 1, '0') + " 0");
}

TEST(AddTwoBinaryBitArrays, RefusesElementsThatAreNoBits) {
    for (const std::string_view bad : {"2"sv, "3"sv, "/"sv, "\x60"sv, "\x61"sv, "\xB0"sv}) {
        for (std::size_t place = 0; place < 3; ++place) {
            const std::string addend = std::string("010").replace(place, 1, bad);
            EXPECT_EQ(Sum(addend, "001"), "(refused)") << testing::PrintToString(addend);
            EXPECT_EQ(Sum("001", addend), "(refused)") << testing::PrintToString(addend);
        }
    }
}

TEST(AddTwoBinaryBitArrays, RefusesNullAndALengthOfZero) {
    char bits[] = {1, 1};
    char sum[] = {7, 7};
    const struct {
        char* first;
        char* second;
        char* sum;
        std::uint64_t length;
    } rows[] = {
        {nullptr, bits, sum, 2}, {bits, nullptr, sum, 2},        {bits, bits, nullptr, 2},
        {bits, bits, sum, 0},    {nullptr, nullptr, nullptr, 0},
    };
    for (const auto& row : rows) {
        bool carry = true;
        EXPECT_FALSE(TEVUtilString::AddTwoBinaryBitArrays(carry, row.first, row.second, row.sum,
                                                          row.length));
        EXPECT_FALSE(carry);
    }
    EXPECT_EQ(std::string(sum, 2), "\7\7");
}

TEST(AddTwoBinaryBitArrays, TouchesNoElementBeyondTheLength) {
    std::string first = Array("119");
    std::string second = Array("019");
    std::string sum = Array("777");
    bool carry = false;
    EXPECT_TRUE(
        TEVUtilString::AddTwoBinaryBitArrays(carry, first.data(), second.data(), sum.data(), 2));
    EXPECT_TRUE(carry);
    EXPECT_EQ(DigitsOf(sum), "007");
}

TEST(AddTwoBinaryBitArrays, SumMayBeAnAddend) {
    std::string first = Array("0110");
    std::string second = Array("0011");
    bool carry = true;
    EXPECT_TRUE(
        TEVUtilString::AddTwoBinaryBitArrays(carry, first.data(), second.data(), first.data(), 4));
    EXPECT_EQ(DigitsOf(first), "1001");
    EXPECT_FALSE(carry);
    EXPECT_TRUE(
        TEVUtilString::AddTwoBinaryBitArrays(carry, first.data(), second.data(), second.data(), 4));
    EXPECT_EQ(DigitsOf(second), "1100");
    EXPECT_TRUE(TEVUtilString::AddTwoBinaryBitArrays(carry, second.data(), second.data(),
                                                     second.data(), 4));
    EXPECT_EQ(DigitsOf(second), "1000");
    EXPECT_TRUE(carry);
}

// The text of the bytes, or "(refused)".
std::string Shown(std::string_view bytes, bool commaSeparated, bool asBits) {
    char* text = nullptr;
    if (!TEVUtilString::DecimalRepresentationOfBinary(bytes.data(), bytes.size(), &text,
                                                      commaSeparated, asBits)) {
        EXPECT_EQ(text, nullptr);
        return "(refused)";
    }
    std::string result = text == nullptr ? "(null)" : text;
    TEVUtilMemory::DeallocateCharArray(&text);
    return result;
}

TEST(DecimalRepresentationOfBinary, Table) {
    const struct {
        std::string_view bytes;
        const char* commasNumbers;
        const char* numbers;
        const char* commasBits;
        const char* bits;
    } rows[] = {
        {"\x0A\xFF"sv, "10,255", "10255", "00001010,11111111", "0000101011111111"},
        {"\0"sv, "0", "0", "00000000", "00000000"},
        {"\x80"sv, "128", "128", "10000000", "10000000"},
        {"\x01\0\x7F"sv, "1,0,127", "10127", "00000001,00000000,01111111",
         "000000010000000001111111"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.commasNumbers);
        EXPECT_EQ(Shown(row.bytes, true, false), row.commasNumbers);
        EXPECT_EQ(Shown(row.bytes, false, false), row.numbers);
        EXPECT_EQ(Shown(row.bytes, true, true), row.commasBits);
        EXPECT_EQ(Shown(row.bytes, false, true), row.bits);
    }
}

TEST(DecimalRepresentationOfBinary, EveryByte) {
    std::string bytes;
    std::string numbers;
    std::string bits;
    for (unsigned value = 0; value <= 0xFF; ++value) {
        bytes += static_cast<char>(value);
        numbers += (value == 0 ? "" : ",") + std::to_string(value);
        bits += BinaryText(value, 8);
    }
    EXPECT_EQ(Shown(bytes, true, false), numbers);
    EXPECT_EQ(Shown(bytes, false, true), bits);
}

TEST(DecimalRepresentationOfBinary, LongBuffer) {
    constexpr std::size_t kSize = 100000;
    std::string expected = "7";
    for (std::size_t i = 1; i < kSize; ++i) expected += ",7";
    EXPECT_EQ(Shown(std::string(kSize, '\7'), true, false), expected);
}

TEST(DecimalRepresentationOfBinary, RefusesNullAndNoBytes) {
    EXPECT_FALSE(TEVUtilString::DecimalRepresentationOfBinary("\x01", 1, nullptr, true, false));
    for (const bool asBits : {false, true}) {
        char* text = Stale();
        EXPECT_FALSE(TEVUtilString::DecimalRepresentationOfBinary(nullptr, 1, &text, true, asBits));
        EXPECT_EQ(text, nullptr);
        text = Stale();
        EXPECT_FALSE(TEVUtilString::DecimalRepresentationOfBinary("\x01", 0, &text, true, asBits));
        EXPECT_EQ(text, nullptr);
    }
}

TEST(DecimalRepresentationOfBinary, MakesANewText) {
    ExpectNewText(
        [](char** out) {
            TEVUtilString::DecimalRepresentationOfBinary("\x0A\xFF", 2, out, true, false);
        },
        "10,255");
}

}  // namespace
