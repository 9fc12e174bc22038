#include "TEVSystemLib/util/string/detail/Utf8.h"

#include <cstdint>
#include <type_traits>

#include "TEVSystemLib/util/string/detail/wide/Kernels.h"

namespace TAMO::TEV::System::Util::detail {

namespace {

constexpr std::uint32_t kHighSurrogates = 0xD800;
constexpr std::uint32_t kLowSurrogates = 0xDC00;
constexpr std::uint32_t kSurrogatesEnd = 0xE000;
constexpr std::uint32_t kBeyondOneUnit = 0x10000;
constexpr std::uint32_t kBeyondUnicode = 0x110000;

constexpr bool IsContinuation(unsigned char byte) { return (byte & 0xC0) == 0x80; }

struct Sequence {
    std::uint32_t character;
    std::size_t size;  // 0 for one that is not valid
};

// The sequence of several bytes at the front of a text that is not empty.
Sequence DecodeSequence(std::string_view text) {
    const auto byte = [text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const auto bits = [&byte](std::size_t i) { return std::uint32_t{byte(i)} & 0x3F; };
    const unsigned char lead = byte(0);
    const std::size_t size = lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    if (lead < 0xC2 || lead > 0xF4 || text.size() < size) return {0, 0};
    for (std::size_t i = 1; i < size; ++i)
        if (!IsContinuation(byte(i))) return {0, 0};
    if (size == 2) return {(lead & 0x1FU) << 6 | bits(1), size};
    if (size == 3) {
        const std::uint32_t character = (lead & 0x0FU) << 12 | bits(1) << 6 | bits(2);
        const bool isSurrogate = character >= kHighSurrogates && character < kSurrogatesEnd;
        return {character, character < 0x800 || isSurrogate ? 0 : size};
    }
    const std::uint32_t character = (lead & 0x07U) << 18 | bits(1) << 12 | bits(2) << 6 | bits(3);
    return {character, character < kBeyondOneUnit || character >= kBeyondUnicode ? 0 : size};
}

template <typename Unit>
Unit* PutUnits(std::uint32_t character, Unit* to) {
    if (character < kBeyondOneUnit) {
        *to++ = static_cast<Unit>(character);
    } else {
        character -= kBeyondOneUnit;
        *to++ = static_cast<Unit>(kHighSurrogates + (character >> 10));
        *to++ = static_cast<Unit>(kLowSurrogates + (character & 0x3FF));
    }
    return to;
}

template <typename Unit>
std::uint32_t ValueOf(Unit unit) {
    return static_cast<std::make_unsigned_t<Unit>>(unit);
}

// The character of one or two units at the front of a text that is not empty.
template <typename Unit>
Sequence DecodeUnits(std::basic_string_view<Unit> text) {
    const auto first = ValueOf(text[0]);
    if (first < kHighSurrogates || first >= kSurrogatesEnd) return {first, 1};
    if (first >= kLowSurrogates || text.size() < 2) return {0, 0};
    const auto second = ValueOf(text[1]);
    if (second < kLowSurrogates || second >= kSurrogatesEnd) return {0, 0};
    return {kBeyondOneUnit + ((first - kHighSurrogates) << 10) + (second - kLowSurrogates), 2};
}

// A character beyond ASCII.
char* PutBytes(std::uint32_t character, char* to) {
    const auto tail = [&to, character](int shift) {
        *to++ = static_cast<char>(0x80 | (character >> shift & 0x3F));
    };
    if (character < 0x800) {
        *to++ = static_cast<char>(0xC0 | character >> 6);
        tail(0);
    } else if (character < kBeyondOneUnit) {
        *to++ = static_cast<char>(0xE0 | character >> 12);
        tail(6);
        tail(0);
    } else {
        *to++ = static_cast<char>(0xF0 | character >> 18);
        tail(12);
        tail(6);
        tail(0);
    }
    return to;
}

}  // namespace

template <typename Unit>
std::size_t WidenAscii(std::string_view text, Unit* to) {
    std::size_t done = 0;
    if constexpr (sizeof(Unit) == sizeof(char16_t))
        done = wide::Best().widenAscii(text.data(), text.size(), reinterpret_cast<char16_t*>(to));
    for (; done < text.size() && (text[done] & 0x80) == 0; ++done)
        to[done] = static_cast<Unit>(text[done]);
    return done;
}

template <typename Unit>
std::size_t NarrowAscii(std::basic_string_view<Unit> text, char* to) {
    std::size_t done = 0;
    if constexpr (sizeof(Unit) == sizeof(char16_t))
        done = wide::Best().narrowAscii(reinterpret_cast<const char16_t*>(text.data()), text.size(),
                                        to);
    for (; done < text.size() && text[done] < 0x80; ++done)
        to[done] = static_cast<char>(text[done]);
    return done;
}

std::size_t Utf16Size(std::string_view text) {
    std::size_t size = 0;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        size += (IsContinuation(byte) ? 0U : 1U) + (byte >= 0xF0 ? 1U : 0U);
    }
    return size;
}

template <typename Unit>
std::size_t Utf8Size(std::basic_string_view<Unit> text) {
    std::size_t size = text.size();
    for (const Unit c : text) {
        const auto unit = ValueOf(c);
        const bool isSurrogate = unit >= kHighSurrogates && unit < kSurrogatesEnd;
        size += (unit >= 0x80 ? 1U : 0U) + (unit >= 0x800 && !isSurrogate ? 1U : 0U);
    }
    return size;
}

template <typename Unit>
bool WidenUtf8(std::string_view text, Unit* to) {
    while (!text.empty()) {
        const std::size_t ascii = WidenAscii(text, to);
        to += ascii;
        text.remove_prefix(ascii);
        while (!text.empty() && (text[0] & 0x80) != 0) {
            const Sequence sequence = DecodeSequence(text);
            if (sequence.size == 0) return false;
            to = PutUnits(sequence.character, to);
            text.remove_prefix(sequence.size);
        }
    }
    return true;
}

template <typename Unit>
bool NarrowUtf16(std::basic_string_view<Unit> text, char* to) {
    while (!text.empty()) {
        const std::size_t ascii = NarrowAscii(text, to);
        to += ascii;
        text.remove_prefix(ascii);
        while (!text.empty() && text[0] >= 0x80) {
            const Sequence sequence = DecodeUnits(text);
            if (sequence.size == 0) return false;
            to = PutBytes(sequence.character, to);
            text.remove_prefix(sequence.size);
        }
    }
    return true;
}

template std::size_t WidenAscii(std::string_view text, char16_t* to);
template std::size_t NarrowAscii(std::u16string_view text, char* to);
template std::size_t WidenAscii(std::string_view text, wchar_t* to);
template std::size_t NarrowAscii(std::wstring_view text, char* to);
template std::size_t Utf8Size(std::u16string_view text);
template bool WidenUtf8(std::string_view text, char16_t* to);
template bool NarrowUtf16(std::u16string_view text, char* to);
template std::size_t Utf8Size(std::wstring_view text);
template bool WidenUtf8(std::string_view text, wchar_t* to);
template bool NarrowUtf16(std::wstring_view text, char* to);

}  // namespace TAMO::TEV::System::Util::detail
