#pragma once

#include <cstddef>
#include <string_view>

// Base64 of RFC 4648: the standard alphabet, padded, without line breaks.
namespace TAMO::TEV::System::Util::detail {

// The characters of so many bytes. Throws std::length_error when nothing is that large.
std::size_t Base64EncodedSize(std::size_t byteCount);
void Base64Encode(std::string_view bytes, char* to);

// The bytes that so many characters can hold at most.
std::size_t Base64DecodedCapacity(std::size_t characterCount);
// Lenient: the first character outside the alphabet ends the input; a last group of k characters
// gives k - 1 bytes. Gives the count of bytes; what lies behind them, up to the capacity, may have
// been written to as well.
std::size_t Base64Decode(std::string_view text, char* to);

}  // namespace TAMO::TEV::System::Util::detail
