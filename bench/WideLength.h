#pragma once

#include <emmintrin.h>

#include <cstddef>
#include <cstdint>

namespace tev::bench {

// strlen by 16-byte registers: what finding the end of a text costs at least.
inline std::size_t WideLength(const char* text) {
    const auto address = reinterpret_cast<std::uintptr_t>(text);
    const auto* block = reinterpret_cast<const __m128i*>(address & ~std::uintptr_t{15});
    const __m128i zero = _mm_setzero_si128();
    const auto zeros = [&] {
        return static_cast<unsigned>(
            _mm_movemask_epi8(_mm_cmpeq_epi8(_mm_load_si128(block), zero)));
    };
    // Bytes in front of the text do not count.
    unsigned mask = zeros() & (0xffffU << (address & 15));
    while (mask == 0) {
        ++block;
        mask = zeros();
    }
    return reinterpret_cast<std::uintptr_t>(block) + static_cast<unsigned>(__builtin_ctz(mask)) -
           address;
}

}  // namespace tev::bench
