#pragma once

#include "TEVSystemLib/util/string/detail/AsciiText.h"
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
    if constexpr (V::kSize > 1) MapBytes<typename V::Half>(from, count, to, map);
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

// The first of `count` places that `hits` finds, or `count`: hits(V(), at) gives a mask whose
// lowest bit is the first hit in the register at that place. The last register overlaps the one
// before it.
template <typename V, typename Hits>
std::size_t FirstHit(std::size_t count, Hits hits) {
    if (count < V::kSize) {
        if constexpr (V::kSize > 1)
            return FirstHit<typename V::Half>(count, hits);
        else
            return 0;
    }
    const std::size_t last = count - V::kSize;
    for (std::size_t at = 0; at < last; at += V::kSize) {
        if (const auto found = hits(V(), at); found != 0) return at + LowestBit(found);
    }
    const auto found = hits(V(), last);
    return found != 0 ? last + LowestBit(found) : count;
}

template <typename V>
std::size_t FindByteWide(const char* text, std::size_t count, char byte) {
    return FirstHit<V>(count, [=](auto v, std::size_t at) {
        using W = decltype(v);
        return W::MaskOf(W::Equal(W::Load(text + at), W::Splat(byte)));
    });
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
    const char* const ends = text + patternCount - 1;
    const std::size_t found = FirstHit<V>(starts, [=](auto v, std::size_t at) {
        using W = decltype(v);
        const auto first = W::Equal(W::Load(text + at), W::Splat(pattern[0]));
        const auto last = W::Equal(W::Load(ends + at), W::Splat(pattern[patternCount - 1]));
        auto candidates = W::MaskOf(W::And(first, last));
        while (candidates != 0 && !IsSame(text + at + LowestBit(candidates), pattern, patternCount))
            candidates &= candidates - 1;
        return candidates;
    });
    return found == starts ? count : found;
}

// The bytes that are the same but for the case of a letter.
template <typename V>
typename V::Bits SameIgnoringCase(typename V::Bits first, typename V::Bits second) {
    constexpr Lower kLower;
    return V::Equal(kLower(V(), first), kLower(V(), second));
}

template <typename V>
std::size_t MismatchWide(const char* first, const char* second, std::size_t count) {
    return FirstHit<V>(count, [=](auto v, std::size_t at) {
        using W = decltype(v);
        return W::kFull &
               ~W::MaskOf(SameIgnoringCase<W>(W::Load(first + at), W::Load(second + at)));
    });
}

#ifdef TEV_ADDRESS_SANITIZER
template <typename V>
std::size_t TextMismatchWide(const char* first, const char* second) {
    return kPortable.textMismatchIgnoringCase(first, second);
}
#else
// Reads behind the terminators, but never another page.
template <typename V>
bool EndsPage(const char* text) {
    constexpr std::uintptr_t kPage = 4096;
    return reinterpret_cast<std::uintptr_t>(text) % kPage > kPage - V::kSize;
}

template <typename V>
std::size_t TextMismatchWide(const char* first, const char* second) {
    for (std::size_t at = 0;;) {
        if (EndsPage<V>(first + at) || EndsPage<V>(second + at)) {
            const std::size_t end = at + V::kSize;
            for (; at < end; ++at) {
                if (first[at] == '\0' || detail::ToLower(first[at]) != detail::ToLower(second[at]))
                    return at;
            }
            continue;
        }
        const auto bytes = V::Load(first + at);
        const auto same = V::MaskOf(SameIgnoringCase<V>(bytes, V::Load(second + at)));
        const auto ends = V::MaskOf(V::Equal(bytes, V::Splat(0)));
        if (const auto found = (V::kFull & ~same) | ends; found != 0) return at + LowestBit(found);
        at += V::kSize;
    }
}
#endif

}  // namespace

}  // namespace TAMO::TEV::System::Util::detail::wide
