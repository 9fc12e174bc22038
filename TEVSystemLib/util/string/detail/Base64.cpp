#include "TEVSystemLib/util/string/detail/Base64.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace TAMO::TEV::System::Util::detail {

namespace {

constexpr std::string_view kAlphabet =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr std::int8_t kForeign = -1;

constexpr std::array<std::int8_t, 256> MakeSextets() {
    std::array<std::int8_t, 256> sextets{};
    for (auto& sextet : sextets) sextet = kForeign;
    for (std::size_t i = 0; i < kAlphabet.size(); ++i)
        sextets[static_cast<unsigned char>(kAlphabet[i])] = static_cast<std::int8_t>(i);
    return sextets;
}

constexpr auto kSextets = MakeSextets();

std::int8_t Sextet(char c) { return kSextets[static_cast<unsigned char>(c)]; }

}  // namespace

std::string Base64Encode(std::string_view bytes) {
    std::string text;
    text.reserve((bytes.size() + 2) / 3 * 4);
    for (std::size_t i = 0; i < bytes.size(); i += 3) {
        const std::size_t count = std::min<std::size_t>(3, bytes.size() - i);
        std::uint32_t group = 0;
        for (std::size_t k = 0; k < count; ++k)
            group |= std::uint32_t{static_cast<unsigned char>(bytes[i + k])} << (16 - 8 * k);
        for (std::size_t k = 0; k < 4; ++k)
            text += k <= count ? kAlphabet[(group >> (18 - 6 * k)) & 0x3F] : '=';
    }
    return text;
}

std::string Base64Decode(std::string_view text) {
    // KEEP: a foreign character, a line break too, ends the input without an error; a lone last
    // character adds nothing.
    std::size_t length = 0;
    while (length < text.size() && Sextet(text[length]) != kForeign) ++length;
    text = text.substr(0, length);
    std::string bytes;
    bytes.reserve(text.size() / 4 * 3 + 2);
    for (std::size_t i = 0; i < text.size(); i += 4) {
        const std::size_t count = std::min<std::size_t>(4, text.size() - i);
        std::uint32_t group = 0;
        for (std::size_t k = 0; k < count; ++k)
            group |= static_cast<std::uint32_t>(Sextet(text[i + k])) << (18 - 6 * k);
        for (std::size_t k = 0; k + 1 < count; ++k)
            bytes += static_cast<char>((group >> (16 - 8 * k)) & 0xFF);
    }
    return bytes;
}

}  // namespace TAMO::TEV::System::Util::detail
