// A record file as it lies on disk: the header in the first sector, and the entries of index and free-space
// map. docs/formats/records.md tells the whole.
#pragma once

#include "corekit/platform/Types.h"

#include <bit>

static_assert(std::endian::native == std::endian::little, "the file's numbers are read as they lie");

// A run of bytes, 8 bytes on disk: one entry of the index (a record) or of the free-space map.
struct VLRExtent {
    DWORD nOffset; // from the start of the file
    DWORD nSize;   // in bytes

    friend bool operator==(const VLRExtent&, const VLRExtent&) = default;
};
static_assert(sizeof(VLRExtent) == 8);

namespace corekit::detail {

// The first 16 bytes of every record file.
inline constexpr BYTE recordFileMagic[16] = {0xC0, 0xE5, 0x4F, 0x11, 0xD7, 0xA3, 0xD1, 0x11,
                                             0xBD, 0x7B, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF};

// The first 64 bytes of the file, little-endian. Offsets are from the start of the file, sizes in bytes
// unless they count sectors.
struct RecordFileHeader {
    BYTE magic[16];
    DWORD fileSize;     // of the whole file
    DWORD sectorSize;   // a power of two
    DWORD indexOffset;  // of the index of records
    DWORD indexSectors; // the room for it
    DWORD indexEntries; // entries in use
    DWORD mapOffset;    // the same of the free-space map
    DWORD mapSectors;   // the room for it
    DWORD mapEntries;   // entries in use
    BYTE reserved[16];  // zeros

    // Whether the file begins as a record file does.
    bool HasMagic() const;
    // A power of two that has room for the header.
    bool HasUsableSectors() const { return std::has_single_bit(sectorSize) && sectorSize >= sizeof *this; }
    // The file has at least the bytes that the header speaks of, and they hold a header.
    bool HasPossibleSize(std::uint64_t bytesOnDisk) const;
    // Whether all of it can be true: what is above, both areas aligned, inside the file, apart from the
    // header and from each other, and big enough for their entries.
    bool IsPossible(std::uint64_t bytesOnDisk) const;
};
static_assert(sizeof(RecordFileHeader) == 64);

} // namespace corekit::detail
