// Writes outlines as a TrueType font (the OpenType font file, ISO/IEC 14496-22, with glyf outlines).
#pragma once

#include "corekit/platform/ShapingFace.h"

namespace corekit::detail {

struct TrueTypeGlyph {
    GlyphOutline outline;
    int advance = 0;
};

struct TrueTypeCode {
    WORD character, glyph;
};

struct TrueTypePair {
    WORD left, right; // glyphs
    int move = 0;     // of the right one, to the right
};

struct TrueTypeFile {
    int unitsPerEm = 1000, ascent = 0, descent = 0;
    std::string family, copyright, licence, licenceAddress; // UTF-8
    std::vector<TrueTypeGlyph> glyphs;                      // the first stands for what is missing
    std::vector<TrueTypeCode> codes;                        // any order, each character once

    std::vector<TrueTypePair> pairs; // for the kern table; any order, each pair once

    std::vector<BYTE> Write() const;
};

} // namespace corekit::detail
