// Eight 16-bit units at a time: the few vector steps that the 16-bit text functions are made of.
#pragma once

#include <bit>
#include <cstdint>
#include <cstring>

namespace corekit::detail {

using Units = std::uint16_t __attribute__((vector_size(16)));

inline Units loadUnits(const void* from)
{
    Units units;
    std::memcpy(&units, from, sizeof units);
    return units;
}

inline Units spreadUnit(char16_t unit)
{
    const auto u = static_cast<std::uint16_t>(unit);
    return Units{u, u, u, u, u, u, u, u};
}

// A block that lies in a page of the text may be read whole although the text ends earlier; the checkers must
// not take offence. Sanitized builds run the same loops.
#define COREKIT_READS_WHOLE_BLOCKS [[gnu::no_sanitize_address, gnu::no_sanitize_thread]]

// Whether a block that starts here ends in the same page. No machine has smaller pages.
inline bool isBlockInPage(const void* p)
{
    constexpr std::uintptr_t pageSize = 4096;
    return reinterpret_cast<std::uintptr_t>(p) % pageSize <= pageSize - sizeof(Units);
}

COREKIT_READS_WHOLE_BLOCKS inline Units anyBlock(const void* p)
{
    using AnyPlace = Units __attribute__((may_alias, aligned(1)));
    return *static_cast<const AnyPlace*>(p);
}

// One bit per byte of a lane mask, so that bit number / 2 is the lane.
inline unsigned laneBits(Units mask)
{
#if defined(__SSE2__)
    using Bytes = char __attribute__((vector_size(16)));
    return static_cast<unsigned>(__builtin_ia32_pmovmskb128(reinterpret_cast<Bytes>(mask)));
#else
    unsigned bits = 0;
    for (unsigned lane = 0; lane < 8; ++lane)
        if (mask[lane] != 0) bits |= 3u << (lane * 2);
    return bits;
#endif
}

inline Units equalLanes(Units a, Units b) { return reinterpret_cast<Units>(a == b); }

inline std::size_t firstLane(unsigned bits) { return static_cast<std::size_t>(std::countr_zero(bits)) / 2; }

} // namespace corekit::detail
