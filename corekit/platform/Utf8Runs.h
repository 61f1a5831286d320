// Steps of eight characters between UTF-8 and UTF-16, for characters of one and of two bytes.
//
// Each looks at a whole block, writes a whole block of results, and says how many characters at the front of
// it were of its kind; what it wrote behind those means nothing. Longer characters are the callers' own.
#pragma once

#include "corekit/platform/Types.h"
#include "corekit/platform/Vector16.h"

#include <cstddef>

namespace corekit::detail {

inline constexpr std::size_t runUnits = 8;
inline constexpr std::size_t runBytes = 16; // of eight two-byte characters

// Lanes at the front that fit, of a lane mask.
inline std::size_t leadingLanes(Units fitting)
{
    const unsigned stop = laneBits(fitting) ^ 0xFFFF;
    return stop != 0 ? firstLane(stop) : runUnits;
}

// 8 bytes to 8 units.
inline std::size_t widenAscii(const char* from, WCHAR* to)
{
    using Bytes = std::uint8_t __attribute__((vector_size(8)));
    Bytes bytes;
    std::memcpy(&bytes, from, sizeof bytes);
    const Units units = __builtin_convertvector(bytes, Units);
    std::memcpy(to, &units, sizeof units);
    std::uint64_t word;
    std::memcpy(&word, from, sizeof word);
    const std::uint64_t stop = word & 0x8080808080808080u;
    return stop != 0 ? static_cast<std::size_t>(std::countr_zero(stop)) / 8 : sizeof word;
}

// What is to be made of ASCII in two bytes, those with the lead byte C0 or C1.
enum class Overlong : bool { accepted, refused };

// 16 bytes to 8 units.
template <Overlong overlong>
std::size_t widenPairs(const char* from, WCHAR* to)
{
    const Units pairs = loadUnits(from); // the lead byte in the lower half
    const Units units = (pairs & spreadUnit(0x1F)) << 6 | (pairs >> 8 & spreadUnit(0x3F));
    std::memcpy(to, &units, sizeof units);
    Units fitting = equalLanes(pairs & spreadUnit(0xC0E0), spreadUnit(0x80C0));
    if constexpr (overlong == Overlong::refused) fitting &= ~equalLanes(pairs & spreadUnit(0x1E), Units{});
    return leadingLanes(fitting);
}

// 8 units to 8 bytes.
inline std::size_t narrowAscii(const WCHAR* from, char* to)
{
    using Bytes = std::uint8_t __attribute__((vector_size(8)));
    const Units units = loadUnits(from);
    const Bytes bytes = __builtin_convertvector(units, Bytes);
    std::memcpy(to, &bytes, sizeof bytes);
    return leadingLanes(equalLanes(units & spreadUnit(0xFF80), Units{}));
}

// 8 units to 16 bytes.
inline std::size_t narrowPairs(const WCHAR* from, char* to)
{
    const Units units = loadUnits(from);
    const Units pairs = (units >> 6 | spreadUnit(0xC0)) | ((units & spreadUnit(0x3F)) | spreadUnit(0x80))
                                                              << 8;
    std::memcpy(to, &pairs, sizeof pairs);
    const Units isShort = equalLanes(units & spreadUnit(0xF800), Units{});
    const Units isAscii = equalLanes(units & spreadUnit(0xFF80), Units{});
    return leadingLanes(isShort & ~isAscii);
}

} // namespace corekit::detail
