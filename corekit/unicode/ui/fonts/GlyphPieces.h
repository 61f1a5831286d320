// The piece of writing that a glyph code stands for, cut from shaped text of a face.
#pragma once

#include "corekit/platform/ShapingFace.h"
#include "corekit/unicode/ui/fonts/GlyphFontRows.h"

namespace corekit::detail {

struct GlyphFontRules {
    std::span<const GlyphFontRow> rows;
    std::u16string_view letter;  // a plain letter, with its stem at the right end where the script has stems
    std::u16string_view marked;  // the same letter with the mark by which tails are measured
    std::u16string_view stemmed; // the same letter and a further stem
};

enum class GlyphPieceState {
    made,
    none,        // the position has no meaning
    inseparable, // the face draws the piece as one with its context, or not at all
};

struct GlyphPieceShape {
    GlyphOutline outline; // its origin is where the pen stands when the code is drawn
    double advance = 0;   // whole units
};

class GlyphPieces {
public:
    // Keeps a reference to the face.
    GlyphPieces(const ShapingFace& face, const GlyphFontRules& rules);

    GlyphPieceState Make(BYTE position, GlyphPieceShape& shape) const;

private:
    const GlyphFontRow* RowOf(WORD code) const;
    GlyphPieceState Whole(const GlyphFontRow& row, GlyphPieceShape& shape) const;
    GlyphPieceState Stemless(const GlyphFontRow& row, GlyphPieceShape& shape) const;
    bool HasStem(const ShapedPieces& letter) const;
    GlyphPieceState Beside(const GlyphFontRow& row, GlyphPieceShape& shape) const;
    GlyphPieceState Half(const GlyphFontRow& row, GlyphPieceShape& shape) const;
    void Beyond(const GlyphFontRow& row, GlyphPieceShape& shape) const;
    void Above(const GlyphFontRow& row, GlyphPieceShape& shape) const;
    void Below(const GlyphFontRow& row, GlyphPieceShape& shape) const;
    GlyphOutline Ink(const ShapedPieces& text) const;
    bool Remainder(GlyphPiece side, std::u16string_view text, std::u16string_view context,
                   GlyphOutline& ink) const;
    double TailWidth(WORD code) const;
    double MarkReach(std::u16string_view letter) const;

    const ShapingFace& m_face;
    GlyphFontRules m_rules;
    double m_stemWidth = 0, m_stemInk = 0; // its advance, and where its upright stroke begins
    double m_markDistance = 0;             // from the left edge of the mark to the end of the letter
};

} // namespace corekit::detail
