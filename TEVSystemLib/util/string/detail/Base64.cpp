#include "TEVSystemLib/util/string/detail/Base64.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>
#include <stdexcept>

#include "TEVSystemLib/util/string/detail/wide/Kernels.h"

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

std::size_t Base64EncodedSize(std::size_t byteCount) {
    constexpr std::size_t kMaxGroups = std::numeric_limits<std::ptrdiff_t>::max() / 4;
    const std::size_t groups = byteCount / 3 + (byteCount % 3 != 0 ? 1 : 0);
    if (groups > kMaxGroups) throw std::length_error("too many bytes to encode");
    return 4 * groups;
}

void Base64Encode(std::string_view bytes, char* to) {
    const auto* from = reinterpret_cast<const unsigned char*>(bytes.data());
    const std::size_t done = wide::Best().encodeBase64(from, bytes.size(), to);
    to += done / 3 * 4;
    for (std::size_t i = done; i < bytes.size(); i += 3) {
        const std::size_t count = std::min<std::size_t>(3, bytes.size() - i);
        std::uint32_t group = 0;
        for (std::size_t k = 0; k < count; ++k) group |= std::uint32_t{from[i + k]} << (16 - 8 * k);
        for (std::size_t k = 0; k < 4; ++k)
            *to++ = k <= count ? kAlphabet[(group >> (18 - 6 * k)) & 0x3F] : '=';
    }
}

std::size_t Base64DecodedCapacity(std::size_t characterCount) {
    return characterCount / 4 * 3 + characterCount % 4;
}

std::size_t Base64Decode(std::string_view text, char* to) {
    char* at = to;
    const std::size_t done =
        wide::Best().decodeBase64(text.data(), text.size(), reinterpret_cast<unsigned char*>(at));
    at += done / 4 * 3;
    // KEEP: a foreign character, a line break too, ends the input without an error; a lone last
    // character adds nothing.
    std::uint32_t group = 0;
    std::size_t count = 0;
    for (const char character : text.substr(done)) {
        const std::int8_t sextet = Sextet(character);
        if (sextet == kForeign) break;
        group = group << 6 | static_cast<std::uint32_t>(sextet);
        if (++count != 4) continue;
        for (const int shift : {16, 8, 0}) *at++ = static_cast<char>(group >> shift & 0xFF);
        group = 0;
        count = 0;
    }
    if (count >= 2) *at++ = static_cast<char>(group >> (6 * count - 8) & 0xFF);
    if (count == 3) *at++ = static_cast<char>(group >> 2 & 0xFF);
    return static_cast<std::size_t>(at - to);
}

}  // namespace TAMO::TEV::System::Util::detail
