// Eight characters, or four numbers, in a vector register.
#pragma once

#include "corekit/platform/Types.h"

#include <bit>
#include <cstring>

namespace corekit::detail {

inline constexpr int unitsAtOnce = 8;

using Units [[gnu::vector_size(16)]] = std::uint16_t;
using Numbers [[gnu::vector_size(16)]] = int;

inline Units LoadUnits(const WCHAR* text)
{
    Units units;
    std::memcpy(&units, text, sizeof units);
    return units;
}

inline Units Reversed(Units units) { return __builtin_shufflevector(units, units, 7, 6, 5, 4, 3, 2, 1, 0); }

inline void Store(WCHAR* to, Units units) { std::memcpy(to, &units, sizeof units); }
inline void Store(int* to, Numbers low, Numbers high)
{
    std::memcpy(to, &low, sizeof low);
    std::memcpy(to + 4, &high, sizeof high);
}

static_assert(std::endian::native == std::endian::little); // the first unit is the lowest

// Marks are units of all ones.
using MarkHalves [[gnu::vector_size(16)]] = std::uint64_t;

inline Units InRange(Units units, WCHAR first, WCHAR last)
{
    const std::uint16_t low = first, width = static_cast<std::uint16_t>(last - first);
    return std::bit_cast<Units>(units - low <= width);
}

inline bool AnyMarked(Units marks)
{
    const auto halves = std::bit_cast<MarkHalves>(marks);
    return (halves[0] | halves[1]) != 0;
}

template <class F>
void ForEachMarked(Units marks, F apply)
{
    const auto halves = std::bit_cast<MarkHalves>(marks);
    for (int half = 0; half < 2; ++half)
        for (std::uint64_t left = halves[half]; left;) {
            const int bit = std::countr_zero(left);
            apply(half * 4 + bit / 16);
            left &= ~(std::uint64_t{0xFFFF} << bit);
        }
}

// Eight units as numbers.
inline void StoreWide(int* to, Units units)
{
    const Units zero{};
    Store(to, std::bit_cast<Numbers>(__builtin_shufflevector(units, zero, 0, 8, 1, 9, 2, 10, 3, 11)),
          std::bit_cast<Numbers>(__builtin_shufflevector(units, zero, 4, 12, 5, 13, 6, 14, 7, 15)));
}

// first, first + step, ... in eight places.
inline void StoreSeries(int* to, int first, int step)
{
    const Numbers low = Numbers{0, 1, 2, 3} * step + first;
    Store(to, low, low + 4 * step);
}

} // namespace corekit::detail
