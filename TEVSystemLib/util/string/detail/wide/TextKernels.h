#pragma once

#include "TEVSystemLib/util/string/detail/wide/Kernels.h"
#include "TEVSystemLib/util/string/detail/wide/Vectors.h"

// Searching, comparing and mapping characters over any of the registers; see Vectors.h for the
// linkage.
namespace TAMO::TEV::System::Util::detail::wide {

// NOLINTNEXTLINE(cert-dcl59-cpp): each level has code of its own, see Vectors.h.
namespace {

// The bytes from `first` to `last`, both ASCII, as a mask.
template <typename V>
typename V::Bits IsBetween(typename V::Bits bytes, char first, char last) {
    // Moved so that `first` becomes the smallest signed byte.
    const auto shift = static_cast<char>(-128 - first);
    const auto limit = static_cast<char>(last + 1 + shift);
    return V::Greater(V::Splat(limit), V::Add(bytes, V::Splat(shift)));
}

template <typename V>
typename V::Bits FlipCaseBetween(typename V::Bits bytes, char first, char last) {
    return V::Xor(bytes, V::And(IsBetween<V>(bytes, first, last), V::Splat(0x20)));
}

struct Lower {
    template <typename V>
    typename V::Bits operator()(V, typename V::Bits bytes) const {
        return FlipCaseBetween<V>(bytes, 'A', 'Z');
    }
};

struct Upper {
    template <typename V>
    typename V::Bits operator()(V, typename V::Bits bytes) const {
        return FlipCaseBetween<V>(bytes, 'a', 'z');
    }
};

struct Replaced {
    char old;
    char replacement;

    template <typename V>
    typename V::Bits operator()(V, typename V::Bits bytes) const {
        const auto isOld = V::Equal(bytes, V::Splat(old));
        const auto change = V::Splat(static_cast<char>(old ^ replacement));
        return V::Xor(bytes, V::And(isOld, change));
    }
};

// Fewer bytes than the smallest register has.
template <typename Map>
void MapShort(const char* from, std::size_t count, char* to, Map map) {
    char bytes[Bytes8::kSize] = {};
    for (std::size_t i = 0; i < count; ++i) bytes[i] = from[i];
    Bytes8::Store(bytes, map(Bytes8(), Bytes8::Load(bytes)));
    for (std::size_t i = 0; i < count; ++i) to[i] = bytes[i];
}

// The last register overlaps the one before it; it is read first, so that this serves in place.
template <typename V, typename Map>
void MapRegisters(const char* from, std::size_t count, char* to, Map map) {
    const auto last = map(V(), V::Load(from + count - V::kSize));
    for (std::size_t i = 0; i + V::kSize < count; i += V::kSize)
        V::Store(to + i, map(V(), V::Load(from + i)));
    V::Store(to + count - V::kSize, last);
}

template <typename V, typename Map>
void MapBytes(const char* from, std::size_t count, char* to, Map map) {
    if (count >= V::kSize) return MapRegisters<V>(from, count, to, map);
    if constexpr (V::kSize > Bytes8::kSize)
        MapBytes<typename V::Half>(from, count, to, map);
    else
        MapShort(from, count, to, map);
}

template <typename V>
void ToLowerWide(const char* from, std::size_t count, char* to) {
    MapBytes<V>(from, count, to, Lower());
}

template <typename V>
void ToUpperWide(const char* from, std::size_t count, char* to) {
    MapBytes<V>(from, count, to, Upper());
}

template <typename V>
void ReplaceByteWide(const char* from, std::size_t count, char* to, char old, char replacement) {
    MapBytes<V>(from, count, to, Replaced{old, replacement});
}

#ifdef TEV_ADDRESS_SANITIZER
// The address sanitizer takes the bytes behind the terminator for an error.
template <typename V>
std::size_t LengthWide(const char* text) {
    return std::strlen(text);
}
#else
template <typename V>
std::size_t LengthWide(const char* text) {
    const auto zero = V::Splat(0);
    const std::size_t ahead = reinterpret_cast<std::uintptr_t>(text) % V::kSize;
    const char* at = text - ahead;
    auto ends = V::MaskOf(V::Equal(V::LoadAligned(at), zero)) >> ahead;
    if (ends != 0) return LowestBit(ends);
    do {
        at += V::kSize;
        ends = V::MaskOf(V::Equal(V::LoadAligned(at), zero));
    } while (ends == 0);
    return static_cast<std::size_t>(at - text) + LowestBit(ends);
}
#endif

template <typename V>
std::size_t FindByteWide(const char* text, std::size_t count, char byte) {
    const auto wanted = V::Splat(byte);
    std::size_t i = 0;
    for (; i + V::kSize <= count; i += V::kSize) {
        const auto found = V::MaskOf(V::Equal(V::Load(text + i), wanted));
        if (found != 0) return i + LowestBit(found);
    }
    if constexpr (V::kSize > Bytes8::kSize)
        return i + FindByteWide<typename V::Half>(text + i, count - i, byte);
    while (i < count && text[i] != byte) ++i;
    return i;
}

inline bool IsSame(const char* first, const char* second, std::size_t count) {
    return std::memcmp(first, second, count) == 0;
}

// Compares where both the first and the last byte of the pattern stand.
template <typename V>
std::size_t FindWide(const char* text, std::size_t count, const char* pattern,
                     std::size_t patternCount) {
    if (patternCount == 1) return FindByteWide<V>(text, count, *pattern);
    if (patternCount > count) return count;
    const std::size_t starts = count - patternCount + 1;
    const auto first = V::Splat(pattern[0]);
    const auto last = V::Splat(pattern[patternCount - 1]);
    std::size_t i = 0;
    for (; i + V::kSize <= starts; i += V::kSize) {
        auto candidates = V::MaskOf(V::And(V::Equal(V::Load(text + i), first),
                                           V::Equal(V::Load(text + i + patternCount - 1), last)));
        for (; candidates != 0; candidates &= candidates - 1) {
            const std::size_t at = i + LowestBit(candidates);
            if (IsSame(text + at, pattern, patternCount)) return at;
        }
    }
    if constexpr (V::kSize > Bytes8::kSize) {
        const std::size_t found =
            FindWide<typename V::Half>(text + i, count - i, pattern, patternCount);
        return i + found;
    }
    for (; i < starts; ++i) {
        if (text[i] == pattern[0] && IsSame(text + i, pattern, patternCount)) return i;
    }
    return count;
}

template <typename V>
std::size_t MismatchWide(const char* first, const char* second, std::size_t count) {
    constexpr Lower kLower;
    std::size_t i = 0;
    for (; i + V::kSize <= count; i += V::kSize) {
        const auto same =
            V::MaskOf(V::Equal(kLower(V(), V::Load(first + i)), kLower(V(), V::Load(second + i))));
        if (same != V::kFull) return i + LowestBit(~same);
    }
    if constexpr (V::kSize > Bytes8::kSize)
        return i + MismatchWide<typename V::Half>(first + i, second + i, count - i);
    if (i == count) return count;
    char firstRest[Bytes8::kSize] = {};
    char secondRest[Bytes8::kSize] = {};
    for (std::size_t k = 0; i + k < count; ++k) {
        firstRest[k] = first[i + k];
        secondRest[k] = second[i + k];
    }
    const std::size_t found = MismatchWide<Bytes8>(firstRest, secondRest, Bytes8::kSize);
    return i + found < count ? i + found : count;
}

}  // namespace

}  // namespace TAMO::TEV::System::Util::detail::wide
