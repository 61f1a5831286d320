// An installed face as its designer drew it: text shaped by the face's own rules, and the outlines of its
// glyphs.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

struct hb_language_impl_t;

// Coordinates are design units, x to the right and y upward from the baseline.
struct OutlinePoint {
    double x = 0, y = 0;
};
// One side of a contour, a parabola; a straight side has its control point in the middle.
struct OutlineCurve {
    OutlinePoint start, control, end;
};
// Each contour is closed: every side starts where the one before ends.
using OutlineContour = std::vector<OutlineCurve>;
using GlyphOutline = std::vector<OutlineContour>;

struct ShapedPiece {
    unsigned glyph = 0;
    double x = 0, y = 0; // the glyph's origin, from the start of the text
};
struct ShapedPieces {
    std::vector<ShapedPiece> glyphs; // in display order
    double advance = 0;
};

// One face. User-interface thread; needs a running toolkit.
class COREKIT_API ShapingFace {
public:
    // The regular style of the face with this name (UTF-8, without regard to case), with the shapes that a
    // language ("mr", "ne") has of its own; without one, those of most.
    explicit ShapingFace(const char* name, const std::string& language = {});
    ~ShapingFace();
    ShapingFace(const ShapingFace&) = delete;
    ShapingFace& operator=(const ShapingFace&) = delete;

    // False if the machine has no such face; nothing else may be asked then.
    bool IsFound() const { return m_font != nullptr; }

    ShapedPieces Shape(std::u16string_view text) const;
    // The same without the shapes of the language.
    ShapedPieces ShapeForMost(std::u16string_view text) const;
    GlyphOutline Outline(unsigned glyph) const;

    int UnitsPerEm() const;
    int CellAscent() const;  // of a line's cell, above the baseline
    int CellDescent() const; // below it
    // Entry of the face's name table in English: 0 copyright, 13 licence, 14 the licence's address. Empty if
    // it has none.
    std::string Name(unsigned id) const;

private:
    struct Font;
    ShapedPieces ShapeIn(const hb_language_impl_t* language, std::u16string_view text) const;

    std::unique_ptr<Font> m_font;
};
