// The few glyphs that one row of a shaping table gives.
#pragma once

#include "corekit/platform/Types.h"

#include <cstring>
#include <initializer_list>

namespace corekit::detail {

// None to three glyphs. Eight bytes, copied whole: see Put.
class GlyphList {
public:
    constexpr GlyphList() = default;
    constexpr GlyphList(std::initializer_list<WCHAR> glyphs)
    {
        for (const WCHAR glyph : glyphs) m_glyphs[m_count++] = glyph;
    }

    // `glyph` behind the others; 0 is none.
    constexpr GlyphList Then(WCHAR glyph) const
    {
        GlyphList longer = *this;
        if (glyph) longer.m_glyphs[longer.m_count++] = glyph;
        return longer;
    }

    constexpr int Count() const { return m_count; }
    constexpr WCHAR operator[](int i) const { return m_glyphs[i]; }

    // Copies the glyphs to `out` and gives the place behind them. Writes `spill` units, whatever the count.
    WCHAR* Put(WCHAR* out) const
    {
        std::memcpy(out, this, sizeof *this);
        return out + m_count;
    }
    static constexpr int spill = 4;

private:
    WCHAR m_glyphs[3] = {};
    WCHAR m_count = 0;
};

static_assert(sizeof(GlyphList) == GlyphList::spill * sizeof(WCHAR));

} // namespace corekit::detail
