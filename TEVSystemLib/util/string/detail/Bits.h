#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

// Two representations that must not be mixed up. A byte buffer: the first byte is the most
// significant, and bit 7 of a byte. A bit array: elements holding the numbers 0 and 1, the first
// the most significant.
namespace TAMO::TEV::System::Util::detail {

enum class BitAlignment { Left, Right };

// The number that up to eight bytes form.
std::uint64_t UnsignedFromBytes(std::string_view bytes);

// The two's-complement number that the first (Left) or last (Right) `bitCount` bits of up to eight
// bytes form; bitCount is at least 1 and lies within the bytes.
std::int64_t SignedFromBits(std::string_view bytes, std::size_t bitCount, BitAlignment alignment);

// Adds two bit arrays of `length` elements. False for an element that is neither 0 nor 1; the sum
// is then all 0. `carry` says whether a bit left the first element.
bool AddBitArrays(const char* first, const char* second, char* sum, std::size_t length,
                  bool& carry);

// The eight bits of a byte as characters, bit 7 first.
std::string BitsOf(unsigned char byte);

// Reverses the bytes of every element in place; elements are 2, 4 or 8 bytes here, whatever their
// type.
void SwapBytes(void* elements, std::size_t count, std::size_t elementSize);

}  // namespace TAMO::TEV::System::Util::detail
