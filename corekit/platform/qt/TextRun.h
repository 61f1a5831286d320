// From the units of a text to glyphs with positions, and to its width: one road for measuring and drawing.
#pragma once

#include "corekit/platform/qt/SizedFont.h"

#include <span>

namespace corekit::detail {

struct TextRun {
    std::u16string_view units;
    bool oneToOne = false;
    bool rightToLeft = false;         // the base direction
    std::span<const int> distances{}; // empty, or an advance in pixels for every unit
};

struct PlacedGlyph {
    Subpixels x; // from the start of the run
    int y;       // pixels below the baseline
    std::uint16_t glyph;
};

// Units beyond which the layout is not asked.
inline constexpr std::size_t longestShaped = 8192;
inline constexpr std::size_t longestRun = 65535;

// Whether the run is within the bounds above.
bool canPlace(const TextRun& run);
Subpixels measureRun(SizedFont& font, const TextRun& run);
// Replaces `glyphs`; returns the same width as measureRun.
Subpixels placeRun(SizedFont& font, const TextRun& run, std::vector<PlacedGlyph>& glyphs);

} // namespace corekit::detail
