// Sixteen bytes at once.
#pragma once

#include <cstdint>
#include <cstring>
#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace corekit::detail {

using Bytes16 = signed char __attribute__((vector_size(16)));

inline Bytes16 Load16(const void* from)
{
    Bytes16 bytes;
    std::memcpy(&bytes, from, sizeof bytes);
    return bytes;
}

inline Bytes16 Spread16(std::uint8_t byte) { return Bytes16{} + static_cast<signed char>(byte); }

// Bit i is set where byte i is the same in both.
inline std::uint32_t Equal16(Bytes16 a, Bytes16 b)
{
    const Bytes16 equal = a == b;
#ifdef __SSE2__
    return static_cast<std::uint32_t>(_mm_movemask_epi8(reinterpret_cast<__m128i>(equal)));
#else
    std::uint32_t bits = 0;
    for (unsigned i = 0; i < 16; ++i) bits |= static_cast<std::uint32_t>(equal[i] & 1) << i;
    return bits;
#endif
}

// Small letters for A to Z.
inline Bytes16 Fold16(Bytes16 bytes)
{
    return bytes | ((bytes > Spread16('A' - 1)) & (bytes < Spread16('Z' + 1)) & Spread16(0x20));
}

} // namespace corekit::detail
