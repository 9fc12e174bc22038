#pragma once

#include <string>
#include <string_view>

// Bits as a text of the characters 0 and 1, and the numbers that such texts stand for.
namespace tev::test {

__extension__ typedef __int128 WideNumber;

// The bits of a buffer as characters, the most significant first.
inline std::string BinaryText(std::string_view bytes) {
    std::string bits;
    for (const char byte : bytes)
        for (int bit = 7; bit >= 0; --bit)
            bits += (static_cast<unsigned char>(byte) >> bit & 1) != 0 ? '1' : '0';
    return bits;
}

inline WideNumber Unsigned(std::string_view bits) {
    WideNumber number = 0;
    for (const char bit : bits) number = 2 * number + (bit - '0');
    return number;
}

// Two's complement: the first half of the numbers stand for themselves, the others for what they
// are above the whole range.
inline WideNumber Signed(std::string_view bits) {
    const WideNumber range = WideNumber{1} << bits.size();
    const WideNumber number = Unsigned(bits);
    return number < range / 2 ? number : number - range;
}

}  // namespace tev::test
