// What each UTF-16 unit means for laying out a run, in one byte: enough to tell whether a run can be
// drawn glyph by glyph.
#pragma once

#include <cstdint>

namespace corekit::detail {

enum TextClass : std::uint8_t {
    textLeft = 1,      // strong left
    textDigit = 2,     // a European digit, which runs left to right everywhere
    textRight = 4,     // strong right, and stands by itself: Hebrew letters, ready-joined Arabic forms
    textNeutral = 8,   // takes its direction from what is around it
    textMirrored = 16, // has a counterpart in right-to-left text
    textComplex = 32,  // joins, combines, reorders or controls: needs the layout
    textJoins = 64,    // its glyph may touch the next one: cursive scripts, headlines, private forms
    textMark = 128,    // goes with the letter before it and no other: accents, Hebrew points, joiners
};

// 65,536 entries, made at the first call.
const std::uint8_t* textClasses();

} // namespace corekit::detail
