#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

// One character in UTF-8 and in UTF-16, told by its bits.
namespace tev::test {

constexpr std::uint32_t kCharactersEnd = 0x110000;

// The bits of a character, six to a byte from the end; `size` may be more than it needs.
inline std::string Spread(std::uint32_t character, std::size_t size) {
    if (size == 1) return {static_cast<char>(character)};
    std::string bytes(size, '\0');
    for (std::size_t i = size; i-- > 1; character >>= 6)
        bytes[i] = static_cast<char>(0x80 | (character & 0x3F));
    bytes[0] = static_cast<char>((0xF00 >> size & 0xFF) | character);
    return bytes;
}

inline std::size_t ShortestSize(std::uint32_t character) {
    return character < 0x80 ? 1 : character < 0x800 ? 2 : character < 0x10000 ? 3 : 4;
}

inline std::string BytesOf(std::uint32_t character) {
    return Spread(character, ShortestSize(character));
}

inline bool IsSurrogate(std::uint32_t character) {
    return character >= 0xD800 && character < 0xE000;
}

inline std::u16string UnitsOf(std::uint32_t character) {
    if (character < 0x10000) return {static_cast<char16_t>(character)};
    return {static_cast<char16_t>(0xD7C0 + (character >> 10)),
            static_cast<char16_t>(0xDC00 + character % 0x400)};
}

}  // namespace tev::test
