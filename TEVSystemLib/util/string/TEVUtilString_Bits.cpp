#include <TEVSystemLib/util/string/TEVUtilString.h>

#include <atomic>
#include <optional>

#include "TEVSystemLib/util/string/detail/Bits.h"
#include "TEVSystemLib/util/string/detail/HandOut.h"

namespace TAMO::TEV::System::Util {

namespace {

constexpr std::uint64_t kBitsPerByte = 8;
// KEEP: shorter fields are refused, deliberately.
constexpr std::uint64_t kMinimumBits = 4;

// The unsigned number of a buffer that must fit `T`; a count of 0 means all of its bytes.
template <typename T>
bool ReadUnsigned(const char* bytes, std::uint64_t byteCount, T& out) {
    out = 0;
    if (bytes == nullptr) return false;
    // KEEP: no count means all bytes.
    if (byteCount == 0) byteCount = sizeof(T);
    if (byteCount > sizeof(T)) return false;
    out = static_cast<T>(detail::UnsignedFromBytes({bytes, byteCount}));
    return true;
}

std::optional<detail::BitAlignment> AlignmentOf(char selector) {
    if (selector == 'L') return detail::BitAlignment::Left;
    if (selector == 'R') return detail::BitAlignment::Right;
    return std::nullopt;
}

template <typename T>
bool ReadSigned(char selector, const char* bytes, T& out, std::uint64_t bitCount,
                std::uint64_t byteCount) {
    out = 0;
    const auto alignment = AlignmentOf(selector);
    if (!alignment || bytes == nullptr || byteCount == 0 || byteCount > sizeof(T) ||
        bitCount < kMinimumBits || bitCount > kBitsPerByte * byteCount)
        return false;
    out = static_cast<T>(detail::SignedFromBits({bytes, byteCount}, bitCount, *alignment));
    return true;
}

template <typename T>
bool SwapAll(T* array, int count) {
    if (array == nullptr || count < 1) return false;
    detail::SwapBytes(array, static_cast<std::size_t>(count), sizeof(T));
    return true;
}

}  // namespace

bool TEVUtilString::BinaryToUnsignedInt64(const char* const bytes, std::uint64_t byteCount,
                                          std::uint64_t& out) {
    return ReadUnsigned(bytes, byteCount, out);
}

bool TEVUtilString::BinaryToUnsignedLong(const char* const bytes, std::uint64_t byteCount,
                                         unsigned long& out) {
    return ReadUnsigned(bytes, byteCount, out);
}

bool TEVUtilString::BitsToSignedInt64(char alignment, const char* const bytes, std::int64_t& out,
                                      std::uint64_t bitCount, std::uint64_t byteCount) {
    return ReadSigned(alignment, bytes, out, bitCount, byteCount);
}

bool TEVUtilString::BitsToSignedLong(char alignment, const char* const bytes, long& out,
                                     std::uint64_t bitCount, std::uint64_t byteCount) {
    return ReadSigned(alignment, bytes, out, bitCount, byteCount);
}

bool TEVUtilString::AddTwoBinaryBitArrays(bool& carry, char* first, char* second, char* sum,
                                          std::uint64_t length) {
    carry = false;
    if (first == nullptr || second == nullptr || sum == nullptr || length == 0) return false;
    return detail::AddBitArrays(first, second, sum, length, carry);
}

bool TEVUtilString::DecimalRepresentationOfBinary(const char* const bytes, std::uint64_t byteCount,
                                                  char** out, bool commaSeparated,
                                                  bool asBits) try {
    if (out == nullptr) return false;
    *out = nullptr;
    if (bytes == nullptr || byteCount == 0) return false;
    std::string text;
    for (const char byte : std::string_view(bytes, byteCount)) {
        const auto value = static_cast<unsigned char>(byte);
        if (commaSeparated && !text.empty()) text += TEVSysCnst::DELIMITER_COMMA;
        text += asBits ? detail::BitsOf(value) : std::to_string(value);
    }
    return detail::HandOut(text, out);
} catch (...) {
    return false;
}

bool TEVUtilString::Swap16BitWord(short* array, int count) { return SwapAll(array, count); }
bool TEVUtilString::Swap16BitWord(unsigned short* array, int count) {
    return SwapAll(array, count);
}
bool TEVUtilString::Swap32BitWord(int* array, int count) { return SwapAll(array, count); }
bool TEVUtilString::Swap32BitWord(unsigned int* array, int count) { return SwapAll(array, count); }
bool TEVUtilString::Swap32BitFloat(float* array, int count) { return SwapAll(array, count); }
bool TEVUtilString::Swap64BitDouble(double* array, int count) { return SwapAll(array, count); }

TEVSysCnst::ByteOrder TEVUtilString::SystemByteOrder() {
    // KEEP: no probe; the library is built for little-endian hosts only.
    static std::atomic<TEVSysCnst::ByteOrder> order{TEVSysCnst::Undetermined};
    static std::atomic<bool> isDetermined{false};
    if (!isDetermined) {
        order = TEVSysCnst::LittleEndian;
        isDetermined = true;
    }
    return order;
}

}  // namespace TAMO::TEV::System::Util
