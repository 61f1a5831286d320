// Straight work on outlines: moving them, and cutting them along a line.
#pragma once

#include "corekit/platform/ShapingFace.h"

namespace corekit::detail {

void moveOutline(GlyphOutline& outline, double x, double y);

enum class CutSide { left, right, above, below };

// What of the outline lies on this side of an upright line (left, right) or a level one (above, below) at
// `place`,
// closed along it. Filled without regard to overlaps (non-zero winding), it is the exact part of the shape.
GlyphOutline partOf(const GlyphOutline& outline, CutSide side, double place);

} // namespace corekit::detail
