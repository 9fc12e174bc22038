#pragma once

#include <immintrin.h>

#include <cstddef>
#include <cstdint>
#include <cstring>

// Registers of bytes behind one set of operations. Included by the sources of one level only, each
// compiled for its own instructions: what stands here has internal linkage, so that no code of a
// higher level is taken for a lower one.
namespace TAMO::TEV::System::Util::detail::wide {

// NOLINTNEXTLINE(cert-dcl59-cpp): each level has code of its own, see Vectors.h.
namespace {

// As many bytes as a number has, in a register of 16.
template <typename Number>
struct Narrow {
    static constexpr std::size_t kSize = sizeof(Number);
    using Bits = __m128i;
    using Mask = std::uint32_t;
    static constexpr Mask kFull = (Mask{1} << kSize) - 1;

    static Bits Load(const void* from) {
        Number number;
        std::memcpy(&number, from, kSize);
        return _mm_cvtsi64_si128(static_cast<long long>(number));
    }
    static void Store(void* to, Bits bits) {
        const auto number = static_cast<Number>(_mm_cvtsi128_si64(bits));
        std::memcpy(to, &number, kSize);
    }

    static Bits Splat(char byte) { return _mm_set1_epi8(byte); }
    static Bits And(Bits a, Bits b) { return _mm_and_si128(a, b); }
    static Bits Or(Bits a, Bits b) { return _mm_or_si128(a, b); }
    static Bits Xor(Bits a, Bits b) { return _mm_xor_si128(a, b); }
    static Bits Add(Bits a, Bits b) { return _mm_add_epi8(a, b); }
    static Bits Equal(Bits a, Bits b) { return _mm_cmpeq_epi8(a, b); }
    static Bits Greater(Bits a, Bits b) { return _mm_cmpgt_epi8(a, b); }
    static Mask MaskOf(Bits bits) { return static_cast<Mask>(_mm_movemask_epi8(bits)) & kFull; }
};

using Bytes1 = Narrow<std::uint8_t>;
struct Bytes2 : Narrow<std::uint16_t> {
    using Half = Bytes1;
};
struct Bytes4 : Narrow<std::uint32_t> {
    using Half = Bytes2;
};
struct Bytes8 : Narrow<std::uint64_t> {
    using Half = Bytes4;
};

struct Bytes16 : Bytes8 {
    using Half = Bytes8;
    static constexpr std::size_t kSize = 16;
    static constexpr Mask kFull = 0xFFFF;

    static Bits Load(const void* from) { return _mm_loadu_si128(static_cast<const Bits*>(from)); }
    static void Store(void* to, Bits bits) { _mm_storeu_si128(static_cast<Bits*>(to), bits); }
    static Mask MaskOf(Bits bits) { return static_cast<Mask>(_mm_movemask_epi8(bits)); }
    static Bits LoadAligned(const void* from) {
        return _mm_load_si128(static_cast<const Bits*>(from));
    }
    static Bits Repeat(Bits lane) { return lane; }
    // Four groups of three bytes a lane; reads four bytes more.
    static Bits LoadTriples(const unsigned char* from) { return Load(from); }
    static void StoreTriples(unsigned char* to, Bits triples) { Store(to, triples); }
    static constexpr std::size_t kTripleBytes = 12;

    static Bits Shuffle(Bits table, Bits index) { return _mm_shuffle_epi8(table, index); }
    static Bits SplatWord(int word) { return _mm_set1_epi32(word); }
    static Bits MultiplyHigh(Bits a, Bits b) { return _mm_mulhi_epu16(a, b); }
    static Bits MultiplyLow(Bits a, Bits b) { return _mm_mullo_epi16(a, b); }
    static Bits MultiplyAddBytes(Bits a, Bits b) { return _mm_maddubs_epi16(a, b); }
    static Bits MultiplyAddPairs(Bits a, Bits b) { return _mm_madd_epi16(a, b); }
    static Bits SubtractToZero(Bits a, Bits b) { return _mm_subs_epu8(a, b); }
    static Bits ShiftRight4(Bits a) { return _mm_srli_epi32(a, 4); }

    static void StoreWidened(char16_t* to, Bits bytes) {
        const Bits zero = _mm_setzero_si128();
        _mm_storeu_si128(reinterpret_cast<Bits*>(to), _mm_unpacklo_epi8(bytes, zero));
        _mm_storeu_si128(reinterpret_cast<Bits*>(to + 8), _mm_unpackhi_epi8(bytes, zero));
    }
    // Two registers of 16-bit units below 256 as one of bytes.
    static Bits PackUnits(Bits low, Bits high) { return _mm_packus_epi16(low, high); }
};

#ifdef __AVX2__
struct Bytes32 {
    static constexpr std::size_t kSize = 32;
    using Bits = __m256i;
    using Half = Bytes16;
    using Mask = std::uint32_t;
    static constexpr Mask kFull = ~Mask{0};

    static Bits Load(const void* from) {
        return _mm256_loadu_si256(static_cast<const Bits*>(from));
    }
    static Bits LoadAligned(const void* from) {
        return _mm256_load_si256(static_cast<const Bits*>(from));
    }
    static void Store(void* to, Bits bits) { _mm256_storeu_si256(static_cast<Bits*>(to), bits); }
    static Bits Repeat(__m128i lane) { return _mm256_broadcastsi128_si256(lane); }
    static constexpr std::size_t kTripleBytes = 24;
    static Bits LoadTriples(const unsigned char* from) {
        return _mm256_set_m128i(Bytes16::Load(from + Bytes16::kTripleBytes), Bytes16::Load(from));
    }
    static void StoreTriples(unsigned char* to, Bits triples) {
        const Bits order = _mm256_setr_epi32(0, 1, 2, 4, 5, 6, 7, 7);
        Store(to, _mm256_permutevar8x32_epi32(triples, order));
    }

    static Bits Splat(char byte) { return _mm256_set1_epi8(byte); }
    static Bits SplatWord(int word) { return _mm256_set1_epi32(word); }
    static Bits And(Bits a, Bits b) { return _mm256_and_si256(a, b); }
    static Bits Or(Bits a, Bits b) { return _mm256_or_si256(a, b); }
    static Bits Xor(Bits a, Bits b) { return _mm256_xor_si256(a, b); }
    static Bits Add(Bits a, Bits b) { return _mm256_add_epi8(a, b); }
    static Bits Equal(Bits a, Bits b) { return _mm256_cmpeq_epi8(a, b); }
    static Bits Greater(Bits a, Bits b) { return _mm256_cmpgt_epi8(a, b); }
    static Bits Shuffle(Bits table, Bits index) { return _mm256_shuffle_epi8(table, index); }
    static Bits MultiplyHigh(Bits a, Bits b) { return _mm256_mulhi_epu16(a, b); }
    static Bits MultiplyLow(Bits a, Bits b) { return _mm256_mullo_epi16(a, b); }
    static Bits MultiplyAddBytes(Bits a, Bits b) { return _mm256_maddubs_epi16(a, b); }
    static Bits MultiplyAddPairs(Bits a, Bits b) { return _mm256_madd_epi16(a, b); }
    static Bits SubtractToZero(Bits a, Bits b) { return _mm256_subs_epu8(a, b); }
    static Bits ShiftRight4(Bits a) { return _mm256_srli_epi32(a, 4); }
    static Mask MaskOf(Bits bits) { return static_cast<Mask>(_mm256_movemask_epi8(bits)); }

    static void StoreWidened(char16_t* to, Bits bytes) {
        Store(to, _mm256_cvtepu8_epi16(_mm256_castsi256_si128(bytes)));
        Store(to + 16, _mm256_cvtepu8_epi16(_mm256_extracti128_si256(bytes, 1)));
    }
    static Bits PackUnits(Bits low, Bits high) {
        constexpr int kLanesInOrder = 0xD8;
        return _mm256_permute4x64_epi64(_mm256_packus_epi16(low, high), kLanesInOrder);
    }
};
#endif

inline std::size_t LowestBit(std::uint32_t mask) {
#ifdef _MSC_VER
    unsigned long index;
    _BitScanForward(&index, mask);
    return index;
#else
    return static_cast<std::size_t>(__builtin_ctz(mask));
#endif
}

}  // namespace

}  // namespace TAMO::TEV::System::Util::detail::wide
