#include "TEVSystemLib/util/string/detail/Bits.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "models/BitModel.h"
#include "support/Effort.h"
#include "support/Random.h"

namespace {

using namespace std::string_literals;
using TAMO::TEV::System::Util::detail::AddBitArrays;
using TAMO::TEV::System::Util::detail::BitAlignment;
using TAMO::TEV::System::Util::detail::BitsOf;
using TAMO::TEV::System::Util::detail::SignedFromBits;
using TAMO::TEV::System::Util::detail::SwapBytes;
using TAMO::TEV::System::Util::detail::UnsignedFromBytes;
using tev::test::BinaryText;
using tev::test::Random;
using tev::test::Repetitions;
using tev::test::Signed;
using tev::test::Unsigned;

constexpr std::int64_t kInputs = 1'000'000;
constexpr std::size_t kMaxBytes = 8;

TEST(UnsignedFromBytes, FirstByteIsTheMostSignificant) {
    EXPECT_EQ(UnsignedFromBytes(""), 0U);
    EXPECT_EQ(UnsignedFromBytes("\x01\x02"), 258U);
    EXPECT_EQ(UnsignedFromBytes("\x80"), 128U);
    EXPECT_EQ(UnsignedFromBytes("\0\0\x01"s), 1U);
    EXPECT_EQ(UnsignedFromBytes(std::string(kMaxBytes, '\xFF')),
              std::numeric_limits<std::uint64_t>::max());
}

// Every second buffer has a size that is read in one load.
std::string RandomBytes(Random& random) {
    const std::size_t size = random.Coin() ? 4 + 4 * random.Below(2) : 1 + random.Below(kMaxBytes);
    return random.Bytes(size);
}

TEST(UnsignedFromBytes, RandomBytes) {
    Random random(20240611);
    for (std::int64_t i = 0; i < Repetitions(kInputs); ++i) {
        const std::string bytes = RandomBytes(random);
        ASSERT_TRUE(UnsignedFromBytes(bytes) == Unsigned(BinaryText(bytes)))
            << testing::PrintToString(bytes);
    }
}

TEST(SignedFromBits, Limits) {
    constexpr auto kLeft = BitAlignment::Left;
    constexpr auto kRight = BitAlignment::Right;
    EXPECT_EQ(SignedFromBits("\x0F\xFF", 12, kRight), -1);
    EXPECT_EQ(SignedFromBits("\x80\0"s, 12, kLeft), -2048);
    EXPECT_EQ(SignedFromBits("\x80", 4, kLeft), -8);
    EXPECT_EQ(SignedFromBits("\x07", 4, kRight), 7);
    EXPECT_EQ(SignedFromBits("\x80", 1, kLeft), -1);
    EXPECT_EQ(SignedFromBits("\x7F", 1, kLeft), 0);
    EXPECT_EQ(SignedFromBits("\x80\0\0\0\0\0\0\0"s, 64, kLeft),
              std::numeric_limits<std::int64_t>::min());
    EXPECT_EQ(SignedFromBits("\x7F\xFF\xFF\xFF\xFF\xFF\xFF\xFF", 64, kRight),
              std::numeric_limits<std::int64_t>::max());
}

TEST(SignedFromBits, RandomBytesOfRandomWidth) {
    Random random(20240611);
    for (std::int64_t i = 0; i < Repetitions(kInputs); ++i) {
        const std::string bytes = RandomBytes(random);
        const std::string bits = BinaryText(bytes);
        const std::size_t count = 1 + random.Below(bits.size());
        ASSERT_TRUE(SignedFromBits(bytes, count, BitAlignment::Left) ==
                    Signed(bits.substr(0, count)))
            << "the first " << count << " of " << bits;
        ASSERT_TRUE(SignedFromBits(bytes, count, BitAlignment::Right) ==
                    Signed(bits.substr(bits.size() - count)))
            << "the last " << count << " of " << bits;
    }
}

std::vector<char> BitArray(unsigned number, std::size_t length) {
    std::vector<char> bits;
    for (std::size_t i = 0; i < length; ++i)
        bits.push_back(static_cast<char>(number >> (length - 1 - i) & 1U));
    return bits;
}

TEST(AddBitArrays, EveryPairUpToFiveBits) {
    for (std::size_t length = 1; length <= 5; ++length) {
        const unsigned end = 1U << length;
        for (unsigned first = 0; first < end; ++first) {
            for (unsigned second = 0; second < end; ++second) {
                std::vector<char> sum(length, 7);
                bool carry = first + second < end;
                EXPECT_TRUE(AddBitArrays(BitArray(first, length).data(),
                                         BitArray(second, length).data(), sum.data(), length,
                                         carry));
                EXPECT_EQ(sum, BitArray((first + second) % end, length))
                    << first << " + " << second;
                EXPECT_EQ(carry, first + second >= end) << first << " + " << second;
            }
        }
    }
}

TEST(AddBitArrays, ElementThatIsNoBitIsRefusedWithASumOfZeros) {
    for (const char bad : {'\2', '\x7F', '0', '1', '\xFF', '\x80'}) {
        for (std::size_t place = 0; place < 3; ++place) {
            const std::vector<char> good = {1, 1, 1};
            std::vector<char> wrong = good;
            wrong[place] = bad;
            for (const bool isFirst : {false, true}) {
                std::vector<char> sum(3, 7);
                bool carry = true;
                EXPECT_FALSE(AddBitArrays(isFirst ? wrong.data() : good.data(),
                                          isFirst ? good.data() : wrong.data(), sum.data(), 3,
                                          carry));
                EXPECT_EQ(sum, std::vector<char>(3, 0));
                EXPECT_FALSE(carry);
            }
        }
    }
}

TEST(AddBitArrays, SumMayBeAnAddend) {
    std::vector<char> bits = BitArray(11, 4);
    bool carry = false;
    EXPECT_TRUE(AddBitArrays(bits.data(), BitArray(6, 4).data(), bits.data(), 4, carry));
    EXPECT_EQ(bits, BitArray(1, 4));
    EXPECT_TRUE(carry);
}

TEST(BitsOf, EveryByte) {
    for (unsigned value = 0; value <= 0xFF; ++value) {
        const char byte = static_cast<char>(value);
        EXPECT_EQ(BitsOf(static_cast<unsigned char>(value)), BinaryText({&byte, 1}));
    }
    EXPECT_EQ(BitsOf(0x0A), "00001010");
}

TEST(SwapBytes, ReversesEveryElement) {
    const struct {
        const char* before;
        std::size_t size;
        const char* after;
    } rows[] = {
        {"abcdefgh", 1, "abcdefgh"}, {"abcdefgh", 2, "badcfehg"},   {"abcdefgh", 4, "dcbahgfe"},
        {"abcdefgh", 8, "hgfedcba"}, {"abcdefghi", 3, "cbafedihg"}, {"", 4, ""},
    };
    for (const auto& row : rows) {
        std::string bytes = row.before;
        SwapBytes(bytes.data(), bytes.size() / row.size, row.size);
        EXPECT_EQ(bytes, row.after) << row.size;
        SwapBytes(bytes.data(), bytes.size() / row.size, row.size);
        EXPECT_EQ(bytes, row.before) << row.size;
    }
}

TEST(SwapBytes, LeavesWhatIsBeyondTheCount) {
    std::string bytes = "abcdefgh";
    SwapBytes(bytes.data(), 1, 4);
    EXPECT_EQ(bytes, "dcbaefgh");
    SwapBytes(bytes.data(), 0, 4);
    EXPECT_EQ(bytes, "dcbaefgh");
}

TEST(SwapBytes, NumbersAreBytesHere) {
    const std::uint64_t signallingNaN = 0x7FF0000000000001;
    double value = 0;
    std::memcpy(&value, &signallingNaN, sizeof value);
    SwapBytes(&value, 1, sizeof value);
    SwapBytes(&value, 1, sizeof value);
    std::uint64_t after = 0;
    std::memcpy(&after, &value, sizeof after);
    EXPECT_EQ(after, signallingNaN);
}

}  // namespace
