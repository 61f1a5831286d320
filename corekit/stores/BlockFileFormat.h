// The bytes of a block file, little-endian; docs/formats/block-file.md tells them in full.
//
// Page 0 of 4096 bytes has the header and the first pages of the map; the blocks follow without a gap. A
// map page has one bit for each of 8192 blocks, the lowest bit of the first byte being block 0, set for a
// block in use.
#pragma once

#include "corekit/platform/Types.h"

#include <cstddef>
#include <cstdint>

namespace corekit::detail {

inline constexpr DWORD blockFileVersion = 256;             // the only one
inline constexpr DWORD blockFileHeaderPage = 4096;         // where block 0 lies
inline constexpr DWORD mapPageBytes = 1024;                // bytes of one map page
inline constexpr DWORD blocksOfMapPage = mapPageBytes * 8; // one bit each
inline constexpr DWORD firstMapPages = 3;                  // those of the header page
inline constexpr DWORD mostMapPages = 243;                 // what the header has room for: 1,990,656 blocks

// The first 16 bytes of every block file.
inline constexpr BYTE blockFileMagic[16] = {0x40, 0xFC, 0x58, 0x07, 0x3F, 0x9C, 0xD1, 0x11,
                                            0xBD, 0x7B, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF};

// The first 1024 bytes of the file.
struct BlockFileHeader {
    BYTE magic[16];
    DWORD version;
    DWORD blockSize;                // in bytes, a power of two
    DWORD blockShift;               // its logarithm
    DWORD blockCount;               // blocks in the file, free ones included
    GUID classId;                   // for the user of the file
    DWORD mapPages;                 // map pages in use, at least firstMapPages
    DWORD mapOffsets[mostMapPages]; // places in the file
};
static_assert(offsetof(BlockFileHeader, mapOffsets) == 52 && sizeof(BlockFileHeader) == 1024);

} // namespace corekit::detail
