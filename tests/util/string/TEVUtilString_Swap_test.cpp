#include <TEVSystemLib/system/TEVSysCnst.h>
#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <iostream>
#include <limits>
#include <random>
#include <string>
#include <type_traits>
#include <vector>

namespace {

using namespace std::string_literals;
using TAMO::TEV::System::TEVSysCnst;
using TAMO::TEV::System::Util::TEVUtilString;

constexpr unsigned kSeed = 20240610;

bool Swap(short* array, int count) { return TEVUtilString::Swap16BitWord(array, count); }
bool Swap(unsigned short* array, int count) { return TEVUtilString::Swap16BitWord(array, count); }
bool Swap(int* array, int count) { return TEVUtilString::Swap32BitWord(array, count); }
bool Swap(unsigned int* array, int count) { return TEVUtilString::Swap32BitWord(array, count); }
bool Swap(float* array, int count) { return TEVUtilString::Swap32BitFloat(array, count); }
bool Swap(double* array, int count) { return TEVUtilString::Swap64BitDouble(array, count); }

// An array filled through its bytes and read through them, so that no element is ever a number.
template <typename Element>
class Elements {
 public:
    explicit Elements(const std::string& bytes) : elements_(bytes.size() / sizeof(Element)) {
        std::memcpy(elements_.data(), bytes.data(), bytes.size());
    }

    bool Swap(int count) { return ::Swap(elements_.data(), count); }
    bool SwapAll() { return Swap(static_cast<int>(elements_.size())); }

    std::string Bytes() const {
        std::string bytes(elements_.size() * sizeof(Element), '\0');
        std::memcpy(bytes.data(), elements_.data(), bytes.size());
        return bytes;
    }

 private:
    std::vector<Element> elements_;
};

std::string Reversed(const std::string& bytes, std::size_t elementSize) {
    std::string reversed;
    for (std::size_t start = 0; start < bytes.size(); start += elementSize)
        for (std::size_t i = elementSize; i-- > 0;) reversed += bytes[start + i];
    return reversed;
}

// 1, 2, 3... as bytes.
std::string Counted(std::size_t size) {
    std::string bytes;
    while (bytes.size() < size) bytes += static_cast<char>(bytes.size() + 1);
    return bytes;
}

template <typename Element>
class SwapOfElements : public testing::Test {};

struct ElementName {
    template <typename Element>
    static std::string GetName(int) {
        if constexpr (std::is_same_v<Element, short>) return "Short";
        if constexpr (std::is_same_v<Element, unsigned short>) return "UnsignedShort";
        if constexpr (std::is_same_v<Element, int>) return "Int";
        if constexpr (std::is_same_v<Element, unsigned int>) return "UnsignedInt";
        if constexpr (std::is_same_v<Element, float>) return "Float";
        return "Double";
    }
};

using ElementTypes = testing::Types<short, unsigned short, int, unsigned int, float, double>;
TYPED_TEST_SUITE(SwapOfElements, ElementTypes, ElementName);

TYPED_TEST(SwapOfElements, ReversesTheBytesOfEveryElement) {
    for (const std::size_t count : {1U, 2U, 3U, 8U, 31U}) {
        const std::string bytes = Counted(count * sizeof(TypeParam));
        Elements<TypeParam> elements(bytes);
        EXPECT_TRUE(elements.SwapAll());
        EXPECT_EQ(elements.Bytes(), Reversed(bytes, sizeof(TypeParam))) << count;
    }
}

TYPED_TEST(SwapOfElements, TwiceRestoresTheArray) {
    const std::string bytes = Counted(9 * sizeof(TypeParam));
    Elements<TypeParam> elements(bytes);
    EXPECT_TRUE(elements.SwapAll());
    EXPECT_NE(elements.Bytes(), bytes);
    EXPECT_TRUE(elements.SwapAll());
    EXPECT_EQ(elements.Bytes(), bytes);
}

TYPED_TEST(SwapOfElements, RandomBytes) {
    std::cout << "seed " << kSeed << "\n";
    std::mt19937 engine(kSeed);
    std::string bytes(1000 * sizeof(TypeParam), '\0');
    for (char& byte : bytes) byte = static_cast<char>(engine() & 0xFF);
    Elements<TypeParam> elements(bytes);
    EXPECT_TRUE(elements.SwapAll());
    EXPECT_EQ(elements.Bytes(), Reversed(bytes, sizeof(TypeParam))) << "seed " << kSeed;
    EXPECT_TRUE(elements.SwapAll());
    EXPECT_EQ(elements.Bytes(), bytes) << "seed " << kSeed;
}

TYPED_TEST(SwapOfElements, LeavesWhatIsBeyondTheCount) {
    constexpr std::size_t kSize = sizeof(TypeParam);
    const std::string bytes = Counted(3 * kSize);
    Elements<TypeParam> elements(bytes);
    EXPECT_TRUE(elements.Swap(2));
    EXPECT_EQ(elements.Bytes(),
              Reversed(bytes.substr(0, 2 * kSize), kSize) + bytes.substr(2 * kSize));
}

TYPED_TEST(SwapOfElements, RefusesACountBelowOne) {
    const std::string bytes = Counted(2 * sizeof(TypeParam));
    Elements<TypeParam> elements(bytes);
    for (const int count : {0, -1, -2, std::numeric_limits<int>::min()}) {
        EXPECT_FALSE(elements.Swap(count)) << count;
        EXPECT_EQ(elements.Bytes(), bytes) << count;
    }
}

TYPED_TEST(SwapOfElements, RefusesNull) {
    for (const int count : {-1, 0, 1, 2})
        EXPECT_FALSE(Swap(static_cast<TypeParam*>(nullptr), count)) << count;
}

TEST(Swap16BitWord, Values) {
    short words[] = {0x0102, -2};
    EXPECT_TRUE(TEVUtilString::Swap16BitWord(words, 2));
    EXPECT_EQ(words[0], 0x0201);
    EXPECT_EQ(words[1], -257);
    unsigned short unsignedWords[] = {0x0102, 0xFE80};
    EXPECT_TRUE(TEVUtilString::Swap16BitWord(unsignedWords, 2));
    EXPECT_EQ(unsignedWords[0], 0x0201);
    EXPECT_EQ(unsignedWords[1], 0x80FE);
}

TEST(Swap32BitWord, Values) {
    int words[] = {0x01020304, -2};
    EXPECT_TRUE(TEVUtilString::Swap32BitWord(words, 2));
    EXPECT_EQ(words[0], 0x04030201);
    EXPECT_EQ(words[1], -16777217);
    unsigned int unsignedWords[] = {0x01020304, 0xFEDCBA80};
    EXPECT_TRUE(TEVUtilString::Swap32BitWord(unsignedWords, 2));
    EXPECT_EQ(unsignedWords[0], 0x04030201U);
    EXPECT_EQ(unsignedWords[1], 0x80BADCFEU);
}

TEST(Swap32BitFloat, Values) {
    const std::uint32_t bytes = 0x0000803F;
    float value = 0;
    std::memcpy(&value, &bytes, sizeof value);
    EXPECT_TRUE(TEVUtilString::Swap32BitFloat(&value, 1));
    EXPECT_EQ(value, 1.0F);
}

TEST(Swap64BitDouble, Values) {
    const std::uint64_t bytes = 0x000000000000F03F;
    double value = 0;
    std::memcpy(&value, &bytes, sizeof value);
    EXPECT_TRUE(TEVUtilString::Swap64BitDouble(&value, 1));
    EXPECT_EQ(value, 1.0);
}

// A signalling NaN that is moved as a number may come out as a quiet one. The bytes are those in
// memory, where the sign stands in the last.
template <typename Element>
void ExpectBytesOnly(const std::string& signallingNaN) {
    const std::string reversed = Reversed(signallingNaN, sizeof(Element));
    Elements<Element> before(signallingNaN);
    EXPECT_TRUE(before.SwapAll());
    EXPECT_EQ(before.Bytes(), reversed);
    EXPECT_TRUE(before.SwapAll());
    EXPECT_EQ(before.Bytes(), signallingNaN);
    Elements<Element> after(reversed);
    EXPECT_TRUE(after.SwapAll());
    EXPECT_EQ(after.Bytes(), signallingNaN);
}

TEST(Swap32BitFloat, SignallingNaNsAreBytesOnly) {
    for (const std::string& bytes :
         {"\x01\x00\x80\x7F"s, "\x01\x00\x80\xFF"s, "\xFF\xFF\xBF\x7F"s, "\xA5\xA5\xA5\x7F"s})
        ExpectBytesOnly<float>(bytes);
}

TEST(Swap64BitDouble, SignallingNaNsAreBytesOnly) {
    for (const std::string& bytes :
         {"\x01\x00\x00\x00\x00\x00\xF0\x7F"s, "\x01\x00\x00\x00\x00\x00\xF0\xFF"s,
          "\xFF\xFF\xFF\xFF\xFF\xFF\xF7\x7F"s, "\xA5\xA5\xA5\xA5\xA5\xA5\xF5\x7F"s})
        ExpectBytesOnly<double>(bytes);
}

TEST(SystemByteOrder, IsLittleEndianWithoutAProbe_Kept) {
    EXPECT_EQ(static_cast<int>(TEVUtilString::SystemByteOrder()), 1);
    EXPECT_EQ(TEVUtilString::SystemByteOrder(), TEVSysCnst::LittleEndian);
}

}  // namespace
