#include "TEVSystemLib/util/string/detail/Bits.h"

#include <algorithm>

#include "TEVSystemLib/util/string/detail/wide/Kernels.h"

namespace TAMO::TEV::System::Util::detail {

namespace {

constexpr std::size_t kBitsPerByte = 8;
constexpr std::size_t kMaxBits = 64;

inline std::uint64_t FromBigEndian(const char* bytes, std::size_t count) {
    std::uint64_t number = 0;
    for (std::size_t i = 0; i < count; ++i)
        number = number << kBitsPerByte | static_cast<unsigned char>(bytes[i]);
    return number;
}

bool IsBit(char element) { return element == 0 || element == 1; }

}  // namespace

std::uint64_t UnsignedFromBytes(std::string_view bytes) {
    // With a size that the compiler knows, one load.
    if (bytes.size() == 8) return FromBigEndian(bytes.data(), 8);
    if (bytes.size() == 4) return FromBigEndian(bytes.data(), 4);
    return FromBigEndian(bytes.data(), bytes.size());
}

std::int64_t SignedFromBits(std::string_view bytes, std::size_t bitCount, BitAlignment alignment) {
    const std::size_t unusedRight =
        alignment == BitAlignment::Left ? bytes.size() * kBitsPerByte - bitCount : 0;
    const std::size_t unusedLeft = kMaxBits - bitCount;
    // Up against the sign bit and back: the copies of the sign fill the left.
    const std::uint64_t raised = UnsignedFromBytes(bytes) >> unusedRight << unusedLeft;
    return static_cast<std::int64_t>(raised) >> unusedLeft;
}

bool AddBitArrays(const char* first, const char* second, char* sum, std::size_t length,
                  bool& carry) {
    carry = false;
    if (!std::all_of(first, first + length, IsBit) ||
        !std::all_of(second, second + length, IsBit)) {
        std::fill_n(sum, length, char{0});
        return false;
    }
    int carried = 0;
    for (std::size_t i = length; i-- > 0;) {
        const int total = first[i] + second[i] + carried;
        sum[i] = static_cast<char>(total & 1);
        carried = total >> 1;
    }
    carry = carried != 0;
    return true;
}

std::string BitsOf(unsigned char byte) {
    std::string bits(kBitsPerByte, '0');
    for (std::size_t i = 0; i < kBitsPerByte; ++i) {
        if ((byte >> (kBitsPerByte - 1 - i) & 1) != 0) bits[i] = '1';
    }
    return bits;
}

void SwapBytes(void* elements, std::size_t count, std::size_t elementSize) {
    wide::Best().swapBytes(elements, count, elementSize);
}

}  // namespace TAMO::TEV::System::Util::detail
