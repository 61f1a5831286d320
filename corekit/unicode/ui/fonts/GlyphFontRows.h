// What the glyph codes of a script mean: how each is taken from the shaped text of an ordinary face.
#pragma once

#include "corekit/platform/Types.h"

#include <span>
#include <string_view>

namespace corekit::detail {

enum class GlyphPiece : BYTE {
    whole,    // all of `text`; its last part's width is left to the row `tail`, if one is named
    stemless, // all of `text` but the stem at its right end, which another code draws
    after,    // what `text` shows more than `context`, placed where the pen stands behind the context
    hung,     // the same for a mark, moved to where marks stand over plain letters
    half, // `text`, a letter with its virama, before the first letter of `context` that it does not melt with
    before, // the same for a sign that stands in front of the context
    beyond, // what of `text` stands right of the width of `context`, a form that has not all of its ink
    above,  // what of `text` rises above the top of `context`, placed over what stands before it
    below,  // what of `text` hangs below the foot of `context`, placed under what stands before it
    tail,   // no ink: the way from where marks stand over `text` to its end
    blank,  // neither ink nor width
};

struct GlyphFontRow {
    WORD code;
    GlyphPiece piece;
    std::u16string_view text;
    std::u16string_view context;
    WORD tail;
};

constexpr GlyphFontRow whole(WORD code, std::u16string_view text, WORD tail = 0)
{
    return {code, GlyphPiece::whole, text, {}, tail};
}
constexpr GlyphFontRow stemless(WORD code, std::u16string_view text)
{
    return {code, GlyphPiece::stemless, text, {}, 0};
}
constexpr GlyphFontRow after(WORD code, std::u16string_view context, std::u16string_view text)
{
    return {code, GlyphPiece::after, text, context, 0};
}
constexpr GlyphFontRow hung(WORD code, std::u16string_view context, std::u16string_view text)
{
    return {code, GlyphPiece::hung, text, context, 0};
}
constexpr GlyphFontRow before(WORD code, std::u16string_view context, std::u16string_view text)
{
    return {code, GlyphPiece::before, text, context, 0};
}
constexpr GlyphFontRow beyond(WORD code, std::u16string_view context, std::u16string_view text)
{
    return {code, GlyphPiece::beyond, text, context, 0};
}
constexpr GlyphFontRow above(WORD code, std::u16string_view context, std::u16string_view text)
{
    return {code, GlyphPiece::above, text, context, 0};
}
constexpr GlyphFontRow below(WORD code, std::u16string_view context, std::u16string_view text)
{
    return {code, GlyphPiece::below, text, context, 0};
}
constexpr GlyphFontRow half(WORD code, std::u16string_view text, std::u16string_view followers)
{
    return {code, GlyphPiece::half, text, followers, 0};
}
constexpr GlyphFontRow blank(WORD code) { return {code, GlyphPiece::blank, {}, {}, 0}; }
constexpr GlyphFontRow tail(WORD code, std::u16string_view text)
{
    return {code, GlyphPiece::tail, text, {}, 0};
}

std::span<const GlyphFontRow> devanagariFontRows();
std::span<const GlyphFontRow> bengaliFontRows();
std::span<const GlyphFontRow> tamilFontRows();

} // namespace corekit::detail
