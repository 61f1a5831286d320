// Contexts on pixels that something else owns: the backing store of a window while it paints.
#pragma once

#include "corekit/platform/Gdi.h"

#include <optional>
#include <QRegion>

namespace corekit::detail {

// 32 bits a pixel, 0xAARRGGBB, the top row first.
struct ForeignPixels {
    std::uint32_t* pixels = nullptr; // null: nothing is drawn, text can be measured
    int width = 0, height = 0;
    std::ptrdiff_t stride = 0;        // pixels from one row to the next
    int originX = 0, originY = 0;     // the pixel at which unit 0, 0 of the context lies
    double scale = 1;                 // pixels a unit, the device pixel ratio
    std::optional<QRegion> clip = {}; // in units from the origin; without one the pixels' own bounds hold
};

// A context that draws on them, with the attributes of a fresh memory context; null if scale or stride make
// no sense or the handle table is full. DeleteDC ends it: before the pixels go. It takes no bitmap;
// everything that it draws is opaque.
COREKIT_API HDC makeForeignContext(const ForeignPixels& on);
// Lets a context go on with other pixels, its attributes kept: for windows that keep a context of their own.
// False for a context that was made otherwise.
COREKIT_API bool retargetForeignContext(HDC dc, const ForeignPixels& on);

} // namespace corekit::detail
