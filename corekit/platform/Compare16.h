// Sixteen comparisons at once.
#pragma once

#include <cstdint>
#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace corekit::detail {

// Bit i is set where words[i] is the one wanted, for i from 0 to 15.
inline std::uint32_t EqualAmong16(const std::uint32_t* words, std::uint32_t wanted)
{
#ifdef __SSE2__
    const __m128i each = _mm_set1_epi32(static_cast<int>(wanted));
    const auto equal = [&](int i) {
        return _mm_cmpeq_epi32(_mm_loadu_si128(reinterpret_cast<const __m128i*>(words + i)), each);
    };
    const __m128i low = _mm_packs_epi32(equal(0), equal(4)), high = _mm_packs_epi32(equal(8), equal(12));
    return static_cast<std::uint32_t>(_mm_movemask_epi8(_mm_packs_epi16(low, high)));
#else
    std::uint32_t bits = 0;
    for (unsigned i = 0; i < 16; ++i) bits |= static_cast<std::uint32_t>(words[i] == wanted) << i;
    return bits;
#endif
}

} // namespace corekit::detail
