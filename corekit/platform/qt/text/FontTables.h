// What a face tells about itself in its OS/2, hhea and post tables, in design units.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

#include <array>
#include <span>

namespace corekit::detail {

struct COREKIT_API FontTables {
    int unitsPerEm = 1000;
    int cellAscent = 800;  // winAscent, else the ascender of hhea
    int cellDescent = 200; // positive
    int externalLeading = 0;
    int averageWidth = 500;
    int greatestWidth = 1000;
    int weight = 400;
    int underlineTop = 100; // below the baseline
    int underlineThickness = 50;
    int strikeOutTop = 300; // above the baseline
    int strikeOutThickness = 50;
    std::array<DWORD, 4> subsets{};
    std::array<DWORD, 2> codePages{};
    WORD firstChar = 0x20, lastChar = 0xFFFF, defaultChar = 0, breakChar = 0x20;
    bool fixedPitch = false;

    // Takes the tables as they lie in the file; missing or short ones leave the values above.
    void read(std::span<const BYTE> os2, std::span<const BYTE> hhea, std::span<const BYTE> post);
};

} // namespace corekit::detail
