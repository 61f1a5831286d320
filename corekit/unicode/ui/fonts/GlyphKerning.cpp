#include "corekit/unicode/ui/fonts/GlyphKerning.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <string>

namespace corekit::detail {
namespace {

// A text that ends, or begins, as the piece does.
struct Edge {
    WORD code = 0;
    std::u16string text;
    ShapedPieces shaped;
    double advance = 0; // of the piece: its text's, or that of a half form
    bool isHalf = false;
};

std::optional<Edge> rightEdge(const ShapingFace& face, const GlyphFontRow& row, const GlyphPieces& pieces)
{
    GlyphPieceShape shape;
    if (pieces.Make(static_cast<BYTE>(row.code & 0xFF), shape) != GlyphPieceState::made) return std::nullopt;
    const bool isHalf = row.piece == GlyphPiece::half;
    const bool isSign = row.piece == GlyphPiece::after && shape.advance > 0;
    const bool isLetter = row.piece == GlyphPiece::whole && row.tail == 0;
    if (!isHalf && !isSign && !isLetter && row.piece != GlyphPiece::tail) return std::nullopt;
    Edge edge{row.code, std::u16string(row.text), face.Shape(row.text), 0, isHalf};
    edge.advance = isHalf ? shape.advance : edge.shaped.advance;
    return edge;
}

std::optional<Edge> leftEdge(const ShapingFace& face, const GlyphFontRow& row)
{
    std::u16string text(row.text);
    switch (row.piece) {
    case GlyphPiece::half:
        text += row.context[0];
        break;
    case GlyphPiece::whole:
    case GlyphPiece::stemless:
    case GlyphPiece::before:
        break;
    default:
        return std::nullopt;
    }
    Edge edge{row.code, text, face.Shape(text), 0, false};
    edge.advance = edge.shaped.advance;
    return edge;
}

// 0 where the two texts have other glyphs together than each alone.
int moveBetween(const ShapingFace& face, const Edge& left, const Edge& right)
{
    const ShapedPieces both = face.Shape(left.text + right.text);
    const auto &b = both.glyphs, &l = left.shaped.glyphs, &r = right.shaped.glyphs;
    const std::size_t before = left.isHalf ? 1 : l.size();
    const auto isSame = [](const ShapedPiece& p, const ShapedPiece& q) { return p.glyph == q.glyph; };
    if (b.size() != before + r.size()) return 0;
    const auto middle = b.begin() + static_cast<std::ptrdiff_t>(before);
    if (!std::equal(middle, b.end(), r.begin(), isSame)) return 0;
    if (!left.isHalf && !std::equal(b.begin(), middle, l.begin(), isSame)) return 0;
    return static_cast<int>(std::lround(both.advance - left.advance - right.advance));
}

} // namespace

std::vector<GlyphPair> kerningOf(const ShapingFace& face, std::span<const GlyphFontRow> rows,
                                 const GlyphPieces& pieces)
{
    std::vector<Edge> lefts, rights;
    for (const GlyphFontRow& row : rows) {
        if (auto edge = rightEdge(face, row, pieces)) lefts.push_back(std::move(*edge));
        if (auto edge = leftEdge(face, row)) rights.push_back(std::move(*edge));
    }
    std::vector<GlyphPair> pairs;
    for (const Edge& left : lefts)
        for (const Edge& right : rights)
            if (const int move = moveBetween(face, left, right))
                pairs.push_back({left.code, right.code, move});
    return pairs;
}

} // namespace corekit::detail
