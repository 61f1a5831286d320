// From the units of a text to glyphs with positions, and to its width: one road for measuring and drawing.
#pragma once

#include "corekit/platform/qt/text/SizedFont.h"

#include <span>

namespace corekit::detail {

struct TextRun {
    std::u16string_view units;
    bool oneToOne = false;
    bool kerned = false;              // one to one by the kern table, else by the layout
    bool rightToLeft = false;         // the base direction
    std::span<const int> distances{}; // empty, or an advance in pixels for every unit
};

struct PlacedRun {
    std::vector<PlacedGlyph> glyphs;
    Subpixels width = 0;
    bool joins = false; // neighbours may touch
};

// Units beyond which the layout is not asked.
inline constexpr std::size_t longestShaped = 8192;
inline constexpr std::size_t longestRun = 65535;

// Whether the run is within the bounds above.
bool canPlace(const TextRun& run);
Subpixels measureRun(SizedFont& font, const TextRun& run);
// Replaces what `placed` held; the width is that of measureRun.
void placeRun(SizedFont& font, const TextRun& run, PlacedRun& placed);

} // namespace corekit::detail
