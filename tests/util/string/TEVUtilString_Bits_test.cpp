#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <iostream>
#include <limits>
#include <random>
#include <string>

namespace {

using TAMO::TEV::System::Util::TEVUtilString;

__extension__ typedef __int128 Wide;

constexpr unsigned kSeed = 20240608;
constexpr int kBuffers = 200;
constexpr std::uint64_t kBitsPerByte = 8;
constexpr std::uint64_t kMinimumBits = 4;
constexpr std::uint64_t kHighestCount = std::numeric_limits<std::uint64_t>::max();

// The functions of 64 and of 32 bits.
struct Wide64 {
    using Unsigned = std::uint64_t;
    using Signed = std::int64_t;
    static constexpr std::uint64_t kBytes = 8;

    static bool ReadUnsigned(const char* bytes, std::uint64_t byteCount, Unsigned& out) {
        return TEVUtilString::BinaryToUnsignedInt64(bytes, byteCount, out);
    }
    static bool ReadSigned(char alignment, const char* bytes, Signed& out, std::uint64_t bitCount,
                           std::uint64_t byteCount) {
        return TEVUtilString::BitsToSignedInt64(alignment, bytes, out, bitCount, byteCount);
    }
};

struct Wide32 {
    using Unsigned = unsigned long;
    using Signed = long;
    static constexpr std::uint64_t kBytes = 4;

    static bool ReadUnsigned(const char* bytes, std::uint64_t byteCount, Unsigned& out) {
        return TEVUtilString::BinaryToUnsignedLong(bytes, byteCount, out);
    }
    static bool ReadSigned(char alignment, const char* bytes, Signed& out, std::uint64_t bitCount,
                           std::uint64_t byteCount) {
        return TEVUtilString::BitsToSignedLong(alignment, bytes, out, bitCount, byteCount);
    }
};

// A refused call must store 0.
constexpr int kHeld = 77;

template <typename Width>
std::string Unsigned(const char* bytes, std::uint64_t byteCount) {
    typename Width::Unsigned out = kHeld;
    if (Width::ReadUnsigned(bytes, byteCount, out)) return std::to_string(out);
    return out == 0 ? "(refused)" : "(refused, not 0)";
}

template <typename Width>
std::string Signed(char alignment, const char* bytes, std::uint64_t bitCount,
                   std::uint64_t byteCount) {
    typename Width::Signed out = kHeld;
    if (Width::ReadSigned(alignment, bytes, out, bitCount, byteCount)) return std::to_string(out);
    return out == 0 ? "(refused)" : "(refused, not 0)";
}

// Bit 0 is the most significant of the first byte.
int BitOf(const std::string& bytes, std::uint64_t index) {
    const auto byte = static_cast<unsigned char>(bytes[index / kBitsPerByte]);
    return byte >> (kBitsPerByte - 1 - index % kBitsPerByte) & 1;
}

// The sum of the powers of two of the bits from `first` on; the sign bit's counts below 0.
Wide NumberOf(const std::string& bytes, std::uint64_t first, std::uint64_t count, bool isSigned) {
    Wide number = 0;
    for (std::uint64_t i = 0; i < count; ++i) {
        const Wide power = Wide{1} << (count - 1 - i);
        if (BitOf(bytes, first + i) != 0) number += isSigned && i == 0 ? -power : power;
    }
    return number;
}

// Random bytes, or a run of equal bits, which has the extreme numbers.
class Buffers {
 public:
    std::string Next(std::uint64_t size) {
        const unsigned kind = static_cast<unsigned>(engine_()) % 4;
        std::string bytes(size, kind == 0 ? '\xFF' : '\0');
        if (kind > 1)
            for (char& byte : bytes) byte = static_cast<char>(engine_() & 0xFF);
        else
            bytes[engine_() % size] ^= static_cast<char>(1 << engine_() % kBitsPerByte);
        return bytes;
    }

 private:
    std::mt19937 engine_{kSeed};
};

template <typename Width>
class BinaryToUnsigned : public testing::Test {};
template <typename Width>
class BitsToSigned : public testing::Test {};

struct WidthName {
    template <typename Width>
    static std::string GetName(int) {
        return Width::kBytes == 8 ? "Int64" : "Long";
    }
};

using Widths = testing::Types<Wide64, Wide32>;
TYPED_TEST_SUITE(BinaryToUnsigned, Widths, WidthName);
TYPED_TEST_SUITE(BitsToSigned, Widths, WidthName);

TYPED_TEST(BinaryToUnsigned, FirstByteIsTheMostSignificant) {
    EXPECT_EQ(Unsigned<TypeParam>("\x01\x02", 2), "258");
    EXPECT_EQ(Unsigned<TypeParam>("\x01\x02\x03", 3), "66051");
    EXPECT_EQ(Unsigned<TypeParam>("\x80\x00\x00\x01", 4), "2147483649");
}

TYPED_TEST(BinaryToUnsigned, EveryByte) {
    for (int value = 0; value <= 0xFF; ++value) {
        const char byte = static_cast<char>(value);
        EXPECT_EQ(Unsigned<TypeParam>(&byte, 1), std::to_string(value));
    }
}

TYPED_TEST(BinaryToUnsigned, RandomBytesOfEveryCount) {
    Buffers buffers;
    for (std::uint64_t size = 1; size <= TypeParam::kBytes; ++size) {
        for (int i = 0; i < kBuffers; ++i) {
            const std::string bytes = buffers.Next(size);
            const Wide expected = NumberOf(bytes, 0, kBitsPerByte * size, false);
            ASSERT_EQ(Unsigned<TypeParam>(bytes.data(), size),
                      std::to_string(static_cast<std::uint64_t>(expected)))
                << "seed " << kSeed << ", " << testing::PrintToString(bytes);
        }
    }
}

TYPED_TEST(BinaryToUnsigned, RefusesNullAndMoreBytesThanItHolds) {
    const std::string bytes(16, '\x01');
    EXPECT_EQ(Unsigned<TypeParam>(bytes.data(), TypeParam::kBytes + 1), "(refused)");
    EXPECT_EQ(Unsigned<TypeParam>(bytes.data(), 16), "(refused)");
    EXPECT_EQ(Unsigned<TypeParam>(bytes.data(), kHighestCount), "(refused)");
    for (const std::uint64_t byteCount : {0U, 1U, 4U, 8U})
        EXPECT_EQ(Unsigned<TypeParam>(nullptr, byteCount), "(refused)") << byteCount;
}

TEST(BinaryToUnsignedInt64, CountOfZeroReadsEightBytes_Kept) {
    EXPECT_EQ(Unsigned<Wide64>("\x01\x02\x03\x04\x05\x06\x07\x08", 0), "72623859790382856");
    EXPECT_EQ(Unsigned<Wide64>("\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF", 0), "18446744073709551615");
}

TEST(BinaryToUnsignedInt64, AllBitsAreExact) {
    EXPECT_EQ(Unsigned<Wide64>("\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF", 8), "18446744073709551615");
    EXPECT_EQ(Unsigned<Wide64>("\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFE", 8), "18446744073709551614");
    EXPECT_EQ(Unsigned<Wide64>("\x00\x20\x00\x00\x00\x00\x00\x01", 8), "9007199254740993");
    EXPECT_EQ(Unsigned<Wide64>("\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF", 9), "(refused)");
}

TEST(BinaryToUnsignedLong, CountOfZeroReadsFourBytes_Kept) {
    EXPECT_EQ(Unsigned<Wide32>("\x01\x02\x03\x04\x05\x06\x07\x08", 0), "16909060");
    EXPECT_EQ(Unsigned<Wide32>("\xFF\xFF\xFF\xFF", 0), "4294967295");
    EXPECT_EQ(Unsigned<Wide32>("\xFF\xFF\xFF\xFF\xFF", 5), "(refused)");
}

TYPED_TEST(BitsToSigned, Table) {
    const struct {
        char alignment;
        const char* bytes;
        std::uint64_t bitCount;
        std::uint64_t byteCount;
        const char* expected;
    } rows[] = {
        {'R', "\x0F\xFF", 12, 2, "-1"},      {'L', "\x80\x00", 12, 2, "-2048"},
        {'L', "\x80", 4, 1, "-8"},           {'L', "\x70", 4, 1, "7"},
        {'R', "\x08", 4, 1, "-8"},           {'R', "\x07", 4, 1, "7"},
        {'L', "\xF7", 4, 1, "-1"},           {'R', "\xF7", 4, 1, "7"},
        {'L', "\x00\xFF", 8, 2, "0"},        {'R', "\x00\xFF", 8, 2, "-1"},
        {'L', "\x01\x80", 9, 2, "3"},        {'R', "\x01\x80", 9, 2, "-128"},
        {'L', "\x12\x34\x56", 12, 3, "291"}, {'R', "\x12\x34\x56", 12, 3, "1110"},
        {'L', "\x12\x34", 16, 2, "4660"},    {'R', "\x12\x34", 16, 2, "4660"},
        {'L', "\x80\x00", 16, 2, "-32768"},  {'R', "\x80\x01", 16, 2, "-32767"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Signed<TypeParam>(row.alignment, row.bytes, row.bitCount, row.byteCount),
                  row.expected)
            << row.alignment << ' ' << row.bitCount << " bits, expected " << row.expected;
}

TYPED_TEST(BitsToSigned, RandomBytesOfEveryWidthAndAlignment) {
    Buffers buffers;
    int count = 0;
    for (std::uint64_t byteCount = 1; byteCount <= TypeParam::kBytes; ++byteCount) {
        const std::uint64_t bits = kBitsPerByte * byteCount;
        for (std::uint64_t bitCount = kMinimumBits; bitCount <= bits; ++bitCount) {
            for (int i = 0; i < kBuffers; ++i) {
                const std::string bytes = buffers.Next(byteCount);
                for (const char alignment : {'L', 'R'}) {
                    const std::uint64_t first = alignment == 'L' ? 0 : bits - bitCount;
                    const Wide expected = NumberOf(bytes, first, bitCount, true);
                    ASSERT_EQ(Signed<TypeParam>(alignment, bytes.data(), bitCount, byteCount),
                              std::to_string(static_cast<std::int64_t>(expected)))
                        << "seed " << kSeed << ", " << alignment << ' ' << bitCount << " bits of "
                        << testing::PrintToString(bytes);
                    ++count;
                }
            }
        }
    }
    std::cout << "seed " << kSeed << ": " << count << " numbers compared\n";
}

TYPED_TEST(BitsToSigned, FewerBitsThanFourAreRefused_Kept) {
    const std::string bytes(TypeParam::kBytes, '\xFF');
    for (const char alignment : {'L', 'R'}) {
        for (const std::uint64_t bitCount : {0U, 1U, 2U, 3U})
            EXPECT_EQ(Signed<TypeParam>(alignment, bytes.data(), bitCount, bytes.size()),
                      "(refused)")
                << bitCount;
        EXPECT_EQ(Signed<TypeParam>(alignment, bytes.data(), 4, bytes.size()), "-1");
    }
}

TYPED_TEST(BitsToSigned, RefusesMoreBitsThanTheBytesHave) {
    const std::string bytes(16, '\x01');
    for (const char alignment : {'L', 'R'}) {
        for (std::uint64_t byteCount = 1; byteCount <= TypeParam::kBytes; ++byteCount) {
            const std::uint64_t bits = kBitsPerByte * byteCount;
            EXPECT_NE(Signed<TypeParam>(alignment, bytes.data(), bits, byteCount), "(refused)");
            EXPECT_EQ(Signed<TypeParam>(alignment, bytes.data(), bits + 1, byteCount), "(refused)");
        }
        EXPECT_EQ(Signed<TypeParam>(alignment, bytes.data(), kHighestCount, 1), "(refused)");
    }
}

TYPED_TEST(BitsToSigned, RefusesNullAndOtherByteCounts) {
    const std::string bytes(16, '\x01');
    for (const char alignment : {'L', 'R'}) {
        EXPECT_EQ(Signed<TypeParam>(alignment, nullptr, 8, 1), "(refused)");
        for (const std::uint64_t byteCount :
             {std::uint64_t{0}, TypeParam::kBytes + 1, std::uint64_t{16}, kHighestCount})
            EXPECT_EQ(Signed<TypeParam>(alignment, bytes.data(), 8, byteCount), "(refused)")
                << byteCount;
    }
}

TYPED_TEST(BitsToSigned, RefusesAnyOtherAlignment) {
    for (const char alignment : {'X', 'l', 'r', ' ', '\0', 'M'})
        EXPECT_EQ(Signed<TypeParam>(alignment, "\x0F\xFF", 12, 2), "(refused)") << alignment;
}

TEST(BitsToSignedInt64, AllBitsAreExact) {
    EXPECT_EQ(Signed<Wide64>('R', "\x80\0\0\0\0\0\0\0", 64, 8), "-9223372036854775808");
    EXPECT_EQ(Signed<Wide64>('L', "\x80\0\0\0\0\0\0\x01", 64, 8), "-9223372036854775807");
    EXPECT_EQ(Signed<Wide64>('L', "\x7F\xFF\xFF\xFF\xFF\xFF\xFF\xFF", 64, 8),
              "9223372036854775807");
    EXPECT_EQ(Signed<Wide64>('R', "\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF", 64, 8), "-1");
}

TEST(BitsToSignedLong, AllBitsAreExact) {
    EXPECT_EQ(Signed<Wide32>('R', "\x80\0\0\0", 32, 4), "-2147483648");
    EXPECT_EQ(Signed<Wide32>('L', "\x7F\xFF\xFF\xFF", 32, 4), "2147483647");
    EXPECT_EQ(Signed<Wide32>('L', "\xFF\xFF\xFF\xFF", 32, 4), "-1");
}

}  // namespace
