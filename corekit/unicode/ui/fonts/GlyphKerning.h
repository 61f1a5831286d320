// How far the base face moves pieces of writing that stand beside each other.
#pragma once

#include "corekit/unicode/ui/fonts/GlyphPieces.h"

#include <vector>

namespace corekit::detail {

struct GlyphPair {
    WORD left, right; // glyph codes
    int move = 0;     // of the right one, in units, to the right; not 0
};

// The pairs of which both pieces end and begin as letters do; marks over and below them take no part.
std::vector<GlyphPair> kerningOf(const ShapingFace& face, std::span<const GlyphFontRow> rows,
                                 const GlyphPieces& pieces);

} // namespace corekit::detail
