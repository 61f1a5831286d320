// The bytes of a block file; docs/formats/block-file.md tells them in full.
#pragma once

#include "corekit/platform/Types.h"

#include <cstddef>
#include <cstdint>

namespace corekit::detail {

inline constexpr DWORD blockFileVersion = 256;
inline constexpr DWORD blockFileHeaderPage = 4096; // where block 0 lies
inline constexpr DWORD mapPageBytes = 1024;
inline constexpr DWORD blocksOfMapPage = mapPageBytes * 8;
inline constexpr DWORD firstMapPages = 3; // those of the header page
inline constexpr DWORD mostMapPages = 243;

inline constexpr BYTE blockFileMagic[16] = {0x40, 0xFC, 0x58, 0x07, 0x3F, 0x9C, 0xD1, 0x11,
                                            0xBD, 0x7B, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF};

struct BlockFileHeader {
    BYTE magic[16];
    DWORD version;
    DWORD blockSize;
    DWORD blockShift;
    DWORD blockCount;
    GUID classId;
    DWORD mapPages;
    DWORD mapOffsets[mostMapPages]; // places in the file
};
static_assert(offsetof(BlockFileHeader, mapOffsets) == 52 && sizeof(BlockFileHeader) == 1024);

} // namespace corekit::detail
