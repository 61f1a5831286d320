// The documented compound file format: a header, and sectors that a table (the fat) joins to chains.
//
// One chain holds the directory. A stream below the cutoff lies in small sectors of a chain of its own kind;
// these are kept in the root's stream and joined by a second table.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace corekit::detail::compound {

inline constexpr std::array<unsigned char, 8> signature = {0xD0, 0xCF, 0x11, 0xE0, 0xA1, 0xB1, 0x1A, 0xE1};

inline constexpr std::uint32_t fatListSector = 0xFFFFFFFC, fatSector = 0xFFFFFFFD, endOfChain = 0xFFFFFFFE,
                               freeSector = 0xFFFFFFFF; // marks in a fat
inline constexpr std::uint32_t lastSector = 0xFFFFFFFA;
inline constexpr std::uint32_t noEntry = 0xFFFFFFFF;

inline constexpr std::size_t headerSize = 512, entrySize = 128, headerFatSlots = 109, longestName = 31;
inline constexpr std::uint32_t smallCutoff = 4096;
inline constexpr int sectorShift = 9, largeSectorShift = 12, smallSectorShift = 6;

enum EntryType : unsigned char { unusedEntry, storageEntry, streamEntry, rootEntry = 5 };

// Where things stand in the header ...
enum HeaderPlace : std::size_t {
    minorVersionPlace = 24,
    majorVersionPlace = 26,
    byteOrderPlace = 28,
    shiftPlace = 30,
    smallShiftPlace = 32,
    directoryCountPlace = 40, // of large sectors only
    fatCountPlace = 44,
    directoryPlace = 48,
    cutoffPlace = 56,
    smallFatPlace = 60,
    smallFatCountPlace = 64,
    fatListPlace = 68,
    fatListCountPlace = 72,
    fatPlace = 76,
};

// ... and in an entry of the directory.
enum EntryPlace : std::size_t {
    nameLengthPlace = 64, // in bytes, with the zero at its end
    typePlace = 66,
    colourPlace = 67,
    previousPlace = 68,
    nextPlace = 72,
    childPlace = 76,
    classPlace = 80,
    startPlace = 116,
    sizePlace = 120,
};

inline std::uint16_t shortAt(const unsigned char* bytes)
{
    return static_cast<std::uint16_t>(bytes[0] | bytes[1] << 8);
}
inline std::uint32_t numberAt(const unsigned char* bytes)
{
    return shortAt(bytes) | static_cast<std::uint32_t>(shortAt(bytes + 2)) << 16;
}
inline void putShort(unsigned char* bytes, std::uint16_t value)
{
    bytes[0] = static_cast<unsigned char>(value);
    bytes[1] = static_cast<unsigned char>(value >> 8);
}
inline void putNumber(unsigned char* bytes, std::uint32_t value)
{
    putShort(bytes, static_cast<std::uint16_t>(value));
    putShort(bytes + 2, static_cast<std::uint16_t>(value >> 16));
}

} // namespace corekit::detail::compound
