// Eight UTF-16 units, or sixteen bytes, in a vector register: the steps that loops over text are made of.
//
// A mark is a unit of all ones. Sanitized builds run the same steps.
//
// Words: a block is eight units in a register; units count from the lowest address. Everything is inline.
// For the string classes of this library; other code uses those.
#pragma once

#include "corekit/platform/Types.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace corekit::detail {

inline constexpr int unitsAtOnce = 8; // in one block

using Units [[gnu::vector_size(16)]] = std::uint16_t; // eight UTF-16 units
using Bytes16 [[gnu::vector_size(16)]] = signed char; // sixteen bytes, signed for comparisons
using Numbers [[gnu::vector_size(16)]] = int;         // four ints

static_assert(std::endian::native == std::endian::little); // the first unit is the lowest

// From any address; 16 bytes are read.
inline Units loadUnits(const void* from)
{
    Units units;
    std::memcpy(&units, from, sizeof units);
    return units;
}

// To any address; 16 bytes are written.
inline void storeUnits(void* to, Units units) { std::memcpy(to, &units, sizeof units); }

// The same unit eight times.
inline Units spreadUnit(WCHAR unit)
{
    const std::uint16_t u = unit;
    return Units{u, u, u, u, u, u, u, u};
}

// Last unit first: by pairs, then within each, for which every processor has a step.
inline Units reversedUnits(Units units)
{
    using Pairs [[gnu::vector_size(16)]] = std::uint32_t;
    auto pairs = std::bit_cast<Pairs>(units);
    pairs = __builtin_shufflevector(pairs, pairs, 3, 2, 1, 0);
    return std::bit_cast<Units>(pairs << 16 | pairs >> 16);
}

// --- blocks that reach behind their text

// A block that lies in a page of the text may be read whole although the text ends earlier; the checkers must
// not take offence.
#define COREKIT_READS_WHOLE_BLOCKS [[gnu::no_sanitize_address, gnu::no_sanitize_thread]]

// Whether so many bytes from here lie in one page. No machine has smaller pages.
inline bool isInOnePage(const void* p, std::size_t bytes)
{
    constexpr std::uintptr_t pageSize = 4096;
    return reinterpret_cast<std::uintptr_t>(p) % pageSize <= pageSize - bytes;
}

// Like loadUnits, hidden from the checkers: only where isInOnePage holds.
COREKIT_READS_WHOLE_BLOCKS inline Units anyBlock(const void* p)
{
    typedef Units AnyPlace __attribute__((may_alias, aligned(1))); // clang forgets both in an alias
    return *static_cast<const AnyPlace*>(p);
}

// --- marks

// A mark where both are the same.
inline Units equalUnits(Units a, Units b) { return std::bit_cast<Units>(a == b); }
// A mark where the unit is 0.
inline Units zeroUnits(Units units) { return equalUnits(units, Units{}); }

// A mark where the unit lies from first to last, both included.
inline Units unitsInRange(Units units, WCHAR first, WCHAR last)
{
    const std::uint16_t low = first, width = static_cast<std::uint16_t>(last - first);
    return std::bit_cast<Units>(units - low <= width);
}

// The highest bit of each byte. Bit i is that of byte i.
inline std::uint32_t highBits(Bytes16 bytes)
{
#ifdef __SSE2__
    using Chars [[gnu::vector_size(16)]] = char;
    return static_cast<std::uint32_t>(__builtin_ia32_pmovmskb128(std::bit_cast<Chars>(bytes)));
#else
    std::uint32_t bits = 0;
    for (unsigned i = 0; i < 16; ++i) bits |= static_cast<std::uint32_t>(bytes[i] < 0) << i;
    return bits;
#endif
}

// Two bits for each unit, set where it is marked.
inline unsigned markBits(Units marks) { return highBits(std::bit_cast<Bytes16>(marks)); }

// One bit for each unit of two blocks.
inline unsigned markBits(Units low, Units high)
{
#ifdef __SSE2__
    using Shorts [[gnu::vector_size(16)]] = short;
    const auto bytes = __builtin_ia32_packsswb128(std::bit_cast<Shorts>(low), std::bit_cast<Shorts>(high));
#else
    const auto bytes = __builtin_shufflevector(std::bit_cast<Bytes16>(low), std::bit_cast<Bytes16>(high), 0,
                                               2, 4, 6, 8, 10, 12, 14, 16, 18, 20, 22, 24, 26, 28, 30);
#endif
    return highBits(std::bit_cast<Bytes16>(bytes));
}

// The first unit of markBits that is set; some is.
inline std::size_t firstMark(unsigned bits) { return static_cast<std::size_t>(std::countr_zero(bits)) / 2; }

// How many units at the front are marked.
inline std::size_t leadingMarks(Units marks) { return firstMark(~markBits(marks) | 0x10000); }

// Calls with the index of each marked unit, ascending.
template <class F>
void forEachMark(Units marks, F apply)
{
    for (unsigned bits = markBits(marks); bits != 0;) {
        const std::size_t i = firstMark(bits);
        apply(static_cast<int>(i));
        bits &= ~(3u << (2 * i));
    }
}

// --- bytes

// From any address; 16 bytes are read.
inline Bytes16 loadBytes(const void* from) { return std::bit_cast<Bytes16>(loadUnits(from)); }
// The same byte sixteen times.
inline Bytes16 spreadByte(std::uint8_t byte) { return Bytes16{} + static_cast<signed char>(byte); }

// Bit i is set where byte i is the same in both.
inline std::uint32_t equalBytes(Bytes16 a, Bytes16 b) { return highBits(std::bit_cast<Bytes16>(a == b)); }

// Small letters for A to Z.
inline Bytes16 foldedBytes(Bytes16 bytes)
{
    using Numbers8 [[gnu::vector_size(16)]] = std::uint8_t;
    constexpr std::uint8_t toLowest = 128 - 'A'; // A becomes -128, Z the 25th after it
    const auto moved = std::bit_cast<Bytes16>(std::bit_cast<Numbers8>(bytes) + toLowest);
    return bytes | ((moved < spreadByte(128 + 26)) & spreadByte(0x20));
}

// 8 bytes to 8 units; how many at the front were ASCII. What is written behind those means nothing.
inline std::size_t widenAscii(const char* from, WCHAR* to)
{
    using Bytes [[gnu::vector_size(8)]] = std::uint8_t;
    Bytes bytes;
    std::memcpy(&bytes, from, sizeof bytes);
    storeUnits(to, __builtin_convertvector(bytes, Units));
    const std::uint64_t stop = std::bit_cast<std::uint64_t>(bytes) & 0x8080808080808080u;
    return static_cast<std::size_t>(std::countr_zero(stop)) / 8;
}

// 8 units to 8 bytes; the same.
inline std::size_t narrowAscii(const WCHAR* from, char* to)
{
    using Bytes [[gnu::vector_size(8)]] = std::uint8_t;
    const Units units = loadUnits(from);
    const Bytes bytes = __builtin_convertvector(units, Bytes);
    std::memcpy(to, &bytes, sizeof bytes);
    return leadingMarks(zeroUnits(units & spreadUnit(0xFF80)));
}

// --- numbers

// Eight units as numbers.
inline void storeAsNumbers(int* to, Units units)
{
    const Units zero{};
    storeUnits(to, __builtin_shufflevector(units, zero, 0, 8, 1, 9, 2, 10, 3, 11));
    storeUnits(to + 4, __builtin_shufflevector(units, zero, 4, 12, 5, 13, 6, 14, 7, 15));
}

// first, first + step, ... in eight places.
inline void storeSeries(int* to, int first, int step)
{
    const Numbers low = Numbers{0, 1, 2, 3} * step + first, high = low + 4 * step;
    std::memcpy(to, &low, sizeof low);
    std::memcpy(to + 4, &high, sizeof high);
}

} // namespace corekit::detail
