#pragma once

#include "TEVSystemLib/util/string/detail/wide/Kernels.h"
#include "TEVSystemLib/util/string/detail/wide/Vectors.h"

// Base64, byte order and ASCII between bytes and units over any of the registers; see Vectors.h for
// the linkage.
namespace TAMO::TEV::System::Util::detail::wide {

// NOLINTNEXTLINE(cert-dcl59-cpp): each level has code of its own, see Vectors.h.
namespace {

// Bytes abc become the 16-bit units bacb, from which two multiplications take the four sextets.
template <typename V>
typename V::Bits SextetsOf(typename V::Bits triples) {
    const auto order = V::Repeat(_mm_setr_epi8(1, 0, 2, 1, 4, 3, 5, 4, 7, 6, 8, 7, 10, 9, 11, 10));
    const auto units = V::Shuffle(triples, order);
    const auto high =
        V::MultiplyHigh(V::And(units, V::SplatWord(0x0FC0FC00)), V::SplatWord(0x04000040));
    const auto low =
        V::MultiplyLow(V::And(units, V::SplatWord(0x003F03F0)), V::SplatWord(0x01000010));
    return V::Or(high, low);
}

// What to add to a sextet to get its character depends on its class: 13 for the capital letters, 0
// for the small ones, 1 to 10 for the digits, 11 and 12 for "+" and "/".
template <typename V>
typename V::Bits CharactersOf(typename V::Bits sextets) {
    constexpr char kDigit = '0' - 52;
    const auto additions =
        V::Repeat(_mm_setr_epi8('a' - 26, kDigit, kDigit, kDigit, kDigit, kDigit, kDigit, kDigit,
                                kDigit, kDigit, kDigit, '+' - 62, '/' - 63, 'A', 0, 0));
    const auto isCapital = V::Greater(V::Splat(26), sextets);
    const auto classes =
        V::Or(V::SubtractToZero(sextets, V::Splat(51)), V::And(isCapital, V::Splat(13)));
    return V::Add(sextets, V::Shuffle(additions, classes));
}

template <typename V>
std::size_t EncodeWide(const unsigned char* from, std::size_t count, char* to) {
    constexpr std::size_t kReadAhead = 4;
    std::size_t i = 0;
    for (; i + V::kTripleBytes + kReadAhead <= count; i += V::kTripleBytes, to += V::kSize)
        V::Store(to, CharactersOf<V>(SextetsOf<V>(V::LoadTriples(from + i))));
    return i;
}

// The classes of a character's two halves share a bit only outside the alphabet.
template <typename V>
bool AllInAlphabet(typename V::Bits characters, typename V::Bits highHalves) {
    const auto byHigh = V::Repeat(_mm_setr_epi8(0x10, 0x10, 0x01, 0x02, 0x04, 0x08, 0x04, 0x08,
                                                0x10, 0x10, 0x10, 0x10, 0x10, 0x10, 0x10, 0x10));
    const auto byLow = V::Repeat(_mm_setr_epi8(0x15, 0x11, 0x11, 0x11, 0x11, 0x11, 0x11, 0x11, 0x11,
                                               0x11, 0x13, 0x1A, 0x1B, 0x1B, 0x1B, 0x1A));
    const auto low = V::And(characters, V::Splat(0x0F));
    const auto shared = V::And(V::Shuffle(byHigh, highHalves), V::Shuffle(byLow, low));
    return V::MaskOf(V::Equal(shared, V::Splat(0))) == V::kFull;
}

// What to add to a character to get its sextet depends on its upper half, and "/" is apart.
template <typename V>
typename V::Bits SextetsFrom(typename V::Bits characters, typename V::Bits highHalves) {
    const auto additions = V::Repeat(_mm_setr_epi8(0, 63 - '/', 62 - '+', 52 - '0', -'A', -'A',
                                                   26 - 'a', 26 - 'a', 0, 0, 0, 0, 0, 0, 0, 0));
    const auto isSlash = V::Equal(characters, V::Splat('/'));
    return V::Add(characters, V::Shuffle(additions, V::Add(highHalves, isSlash)));
}

template <typename V>
typename V::Bits TriplesOf(typename V::Bits sextets) {
    const auto order =
        V::Repeat(_mm_setr_epi8(2, 1, 0, 6, 5, 4, 10, 9, 8, 14, 13, 12, -1, -1, -1, -1));
    const auto pairs = V::MultiplyAddBytes(sextets, V::SplatWord(0x01400140));
    return V::Shuffle(V::MultiplyAddPairs(pairs, V::SplatWord(0x00011000)), order);
}

template <typename V>
std::size_t DecodeWide(const char* from, std::size_t count, unsigned char* to) {
    // A store writes a whole register, of which a quarter is overwritten later or lies within the
    // bytes of the characters that follow.
    constexpr std::size_t kCharactersAfter = V::kSize / 2;
    std::size_t i = 0;
    for (; i + V::kSize + kCharactersAfter <= count; i += V::kSize, to += V::kTripleBytes) {
        const auto characters = V::Load(from + i);
        const auto highHalves = V::And(V::ShiftRight4(characters), V::Splat(0x0F));
        if (!AllInAlphabet<V>(characters, highHalves)) break;
        V::StoreTriples(to, TriplesOf<V>(SextetsFrom<V>(characters, highHalves)));
    }
    return i;
}

template <typename V>
typename V::Bits ReversalOf(std::size_t elementSize) {
    if (elementSize == 2)
        return V::Repeat(_mm_setr_epi8(1, 0, 3, 2, 5, 4, 7, 6, 9, 8, 11, 10, 13, 12, 15, 14));
    if (elementSize == 4)
        return V::Repeat(_mm_setr_epi8(3, 2, 1, 0, 7, 6, 5, 4, 11, 10, 9, 8, 15, 14, 13, 12));
    return V::Repeat(_mm_setr_epi8(7, 6, 5, 4, 3, 2, 1, 0, 15, 14, 13, 12, 11, 10, 9, 8));
}

template <typename V>
void SwapBytesWide(void* elements, std::size_t count, std::size_t elementSize) {
    const auto order = ReversalOf<V>(elementSize);
    auto* bytes = static_cast<char*>(elements);
    const std::size_t size = count * elementSize;
    std::size_t i = 0;
    for (; i + V::kSize <= size; i += V::kSize)
        V::Store(bytes + i, V::Shuffle(V::Load(bytes + i), order));
    if (i < size) kPortable.swapBytes(bytes + i, (size - i) / elementSize, elementSize);
}

template <typename V>
std::size_t WidenAsciiWide(const char* from, std::size_t count, char16_t* to) {
    std::size_t i = 0;
    for (; i + V::kSize <= count; i += V::kSize) {
        const auto bytes = V::Load(from + i);
        if (V::MaskOf(bytes) != 0) break;
        V::StoreWidened(to + i, bytes);
    }
    return i;
}

template <typename V>
std::size_t NarrowAsciiWide(const char16_t* from, std::size_t count, char* to) {
    const auto beyond = V::SplatWord(static_cast<int>(0xFF80FF80));
    std::size_t i = 0;
    for (; i + V::kSize <= count; i += V::kSize) {
        const auto low = V::Load(from + i);
        const auto high = V::Load(from + i + V::kSize / 2);
        const auto isAscii = V::Equal(V::And(V::Or(low, high), beyond), V::Splat(0));
        if (V::MaskOf(isAscii) != V::kFull) break;
        V::Store(to + i, V::PackUnits(low, high));
    }
    return i;
}

}  // namespace

}  // namespace TAMO::TEV::System::Util::detail::wide
