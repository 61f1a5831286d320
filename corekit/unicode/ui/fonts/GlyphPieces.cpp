#include "corekit/unicode/ui/fonts/GlyphPieces.h"

#include "corekit/unicode/ui/fonts/OutlineCut.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace corekit::detail {

namespace {

struct Extent {
    double left = std::numeric_limits<double>::max(), top = std::numeric_limits<double>::lowest();
    double bottom = std::numeric_limits<double>::max();
};

Extent extentOf(const GlyphOutline& outline, double below = std::numeric_limits<double>::max())
{
    Extent e;
    for (const OutlineContour& contour : outline)
        for (const OutlineCurve& side : contour) {
            if (side.start.y < below) e.left = std::min(e.left, side.start.x);
            e.top = std::max(e.top, side.start.y);
            e.bottom = std::min(e.bottom, side.start.y);
        }
    return e;
}

void addTo(GlyphOutline& all, GlyphOutline&& more)
{
    all.insert(all.end(), std::make_move_iterator(more.begin()), std::make_move_iterator(more.end()));
}

bool lacksGlyphs(const ShapedPieces& shaped)
{
    return std::any_of(shaped.glyphs.begin(), shaped.glyphs.end(),
                       [](const ShapedPiece& p) { return p.glyph == 0; });
}

constexpr double near = 1.5; // units, by which equal contours may differ

bool areAlike(const OutlineContour& a, const OutlineContour& b)
{
    return a.size() == b.size() &&
           std::equal(a.begin(), a.end(), b.begin(), [](const auto& s, const auto& t) {
               return std::abs(s.start.x - t.start.x) < near && std::abs(s.start.y - t.start.y) < near;
           });
}

// False if one of them is not there.
bool removeContours(GlyphOutline& from, const GlyphOutline& contours)
{
    for (const OutlineContour& contour : contours) {
        const auto same =
            std::find_if(from.begin(), from.end(), [&](const auto& c) { return areAlike(c, contour); });
        if (same == from.end()) return false;
        from.erase(same);
    }
    return true;
}

} // namespace

GlyphPieces::GlyphPieces(const ShapingFace& face, const GlyphFontRules& rules) : m_face(face), m_rules(rules)
{
    const double letter = face.Shape(rules.letter).advance;
    GlyphOutline ink;
    if (Remainder(GlyphPiece::after, rules.stemmed, rules.letter, ink)) {
        m_stemWidth = face.Shape(rules.stemmed).advance - letter;
        m_stemInk = extentOf(ink, extentOf(ink).top / 2).left - letter; // below the headline
    }
    GlyphOutline mark;
    if (Remainder(GlyphPiece::after, rules.marked, rules.letter, mark))
        m_markDistance = letter - extentOf(mark).left;
}

const GlyphFontRow* GlyphPieces::RowOf(WORD code) const
{
    const auto found = std::find_if(m_rules.rows.begin(), m_rules.rows.end(),
                                    [code](const GlyphFontRow& row) { return row.code == code; });
    return found == m_rules.rows.end() ? nullptr : &*found;
}

GlyphPieceState GlyphPieces::Make(BYTE position, GlyphPieceShape& shape) const
{
    const GlyphFontRow* const row = RowOf(static_cast<WORD>((m_rules.rows.front().code & 0xFF00) | position));
    if (row == nullptr) return GlyphPieceState::none;
    GlyphPieceState state = GlyphPieceState::made;
    switch (row->piece) {
    case GlyphPiece::whole:
        state = Whole(*row, shape);
        break;
    case GlyphPiece::stemless:
        state = Stemless(*row, shape);
        break;
    case GlyphPiece::after:
    case GlyphPiece::hung:
    case GlyphPiece::before:
        state = Beside(*row, shape);
        break;
    case GlyphPiece::half:
        state = Half(*row, shape);
        break;
    case GlyphPiece::beyond:
        Beyond(*row, shape);
        break;
    case GlyphPiece::above:
        Above(*row, shape);
        break;
    case GlyphPiece::below:
        Below(*row, shape);
        break;
    case GlyphPiece::blank:
        break;
    case GlyphPiece::tail:
        shape.advance = TailWidth(row->code);
        break;
    }
    shape.advance = std::round(shape.advance);
    return state;
}

GlyphPieceState GlyphPieces::Whole(const GlyphFontRow& row, GlyphPieceShape& shape) const
{
    const ShapedPieces shaped = m_face.Shape(row.text);
    if (lacksGlyphs(shaped)) return GlyphPieceState::inseparable;
    shape.outline = Ink(shaped);
    shape.advance = shaped.advance - (row.tail ? TailWidth(row.tail) : 0);
    return GlyphPieceState::made;
}

// Some languages have shapes without a stem for letters that others write with one, la of Marathi among them:
// as the stem is drawn by its own code, such a letter is taken as most languages write it.
GlyphPieceState GlyphPieces::Stemless(const GlyphFontRow& row, GlyphPieceShape& shape) const
{
    ShapedPieces letter = m_face.Shape(row.text);
    if (lacksGlyphs(letter)) return GlyphPieceState::inseparable;
    if (!HasStem(letter)) letter = m_face.ShapeForMost(row.text);
    shape.advance = letter.advance - m_stemWidth;
    shape.outline = partOf(Ink(letter), CutSide::left, shape.advance + m_stemInk);
    return GlyphPieceState::made;
}

// An upright side behind the place where the letter is cut, from the headline half way down or more.
bool GlyphPieces::HasStem(const ShapedPieces& letter) const
{
    const GlyphOutline ink = Ink(letter);
    const double from = letter.advance - m_stemWidth + m_stemInk - near, height = extentOf(ink).top;
    for (const OutlineContour& contour : ink)
        for (const OutlineCurve& side : contour)
            if (side.start.x > from && std::abs(side.start.x - side.end.x) < near &&
                std::abs(side.start.y - side.end.y) > height / 2)
                return true;
    return false;
}

GlyphPieceState GlyphPieces::Beside(const GlyphFontRow& row, GlyphPieceShape& shape) const
{
    if (!Remainder(row.piece, row.text, row.context, shape.outline)) return GlyphPieceState::inseparable;
    const double reach = row.piece == GlyphPiece::hung ? MarkReach(row.context) : 0;
    if (row.piece != GlyphPiece::before)
        moveOutline(shape.outline, reach - m_face.Shape(row.context).advance, 0);
    shape.advance = m_face.Shape(row.text).advance - m_face.Shape(row.context).advance;
    return GlyphPieceState::made;
}

GlyphPieceState GlyphPieces::Half(const GlyphFontRow& row, GlyphPieceShape& shape) const
{
    for (const char16_t& follower : row.context) {
        const std::u16string_view context(&follower, 1);
        const std::u16string both = std::u16string(row.text).append(context);
        if (Beside({row.code, GlyphPiece::before, both, context, 0}, shape) == GlyphPieceState::made)
            return GlyphPieceState::made;
    }
    return GlyphPieceState::inseparable;
}

void GlyphPieces::Beyond(const GlyphFontRow& row, GlyphPieceShape& shape) const
{
    const ShapedPieces all = m_face.Shape(row.text);
    const double edge = m_face.Shape(row.context).advance;
    shape.outline = partOf(Ink(all), CutSide::right, edge);
    moveOutline(shape.outline, -edge, 0);
    shape.advance = std::max(0.0, all.advance - edge);
}

void GlyphPieces::Above(const GlyphFontRow& row, GlyphPieceShape& shape) const
{
    const ShapedPieces all = m_face.Shape(row.text);
    shape.outline = partOf(Ink(all), CutSide::above, extentOf(Ink(m_face.Shape(row.context))).top);
    moveOutline(shape.outline, -all.advance, 0);
}

void GlyphPieces::Below(const GlyphFontRow& row, GlyphPieceShape& shape) const
{
    const ShapedPieces all = m_face.Shape(row.text);
    shape.outline = partOf(Ink(all), CutSide::below, extentOf(Ink(m_face.Shape(row.context))).bottom);
    moveOutline(shape.outline, -all.advance, 0);
}

GlyphOutline GlyphPieces::Ink(const ShapedPieces& text) const
{
    GlyphOutline ink;
    for (const ShapedPiece& piece : text.glyphs) {
        GlyphOutline one = m_face.Outline(piece.glyph);
        moveOutline(one, piece.x, piece.y);
        addTo(ink, std::move(one));
    }
    return ink;
}

// What `text` shows more than `context`: glyphs that are not the context's or, where the face has one glyph
// for both, the contours that are not. A sign in front of its context is given from where it begins.
bool GlyphPieces::Remainder(GlyphPiece side, std::u16string_view text, std::u16string_view context,
                            GlyphOutline& ink) const
{
    const ShapedPieces all = m_face.Shape(text), known = m_face.Shape(context);
    if (lacksGlyphs(all)) return false;
    ShapedPieces more = all;
    bool isApart = true;
    for (const ShapedPiece& piece : known.glyphs) {
        const auto same = std::find_if(more.glyphs.begin(), more.glyphs.end(),
                                       [&](const ShapedPiece& p) { return p.glyph == piece.glyph; });
        isApart &= same != more.glyphs.end();
        if (same != more.glyphs.end()) more.glyphs.erase(same);
    }
    if (!isApart && side == GlyphPiece::before) return false;
    ink = isApart ? Ink(more) : Ink(all);
    if (!isApart && !removeContours(ink, Ink(known))) return false;
    if (side == GlyphPiece::before && !more.glyphs.empty()) moveOutline(ink, -more.glyphs.front().x, 0);
    return !ink.empty();
}

double GlyphPieces::TailWidth(WORD code) const
{
    const GlyphFontRow* const row = RowOf(code);
    return row == nullptr || row->piece != GlyphPiece::tail ? 0 : MarkReach(row->text);
}

// How far a letter reaches beyond the place where marks after plain letters find theirs. 0 where it takes the
// mark into its own shape.
double GlyphPieces::MarkReach(std::u16string_view letter) const
{
    GlyphOutline mark;
    const std::u16string marked = std::u16string(letter).append(m_rules.marked.substr(m_rules.letter.size()));
    if (!Remainder(GlyphPiece::after, marked, letter, mark)) return 0;
    return m_face.Shape(letter).advance - extentOf(mark).left - m_markDistance;
}

} // namespace corekit::detail
