// Draws placed glyphs into a bitmap: gathers the masks of a stretch, then blends the colour through them
// once, so that shapes which touch leave no seam.
#pragma once

#include "corekit/platform/qt/drawing/Fill.h"
#include "corekit/platform/qt/text/TextRun.h"

namespace corekit::detail {

class GlyphPainter {
public:
    // `clip` lies within the bitmap.
    GlyphPainter(Bitmap& bitmap, const Area& clip, std::uint32_t pixel)
        : m_bitmap(bitmap), m_clip(clip), m_pixel(pixel)
    {
    }

    void draw(SizedFont& font, const PlacedRun& run, std::int64_t x, std::int64_t baseline);

private:
    struct Item {
        const GlyphMask* mask;
        int x, y; // of the mask's first pixel
    };
    static constexpr std::size_t longestStretch = 512;
    static constexpr std::size_t longestWord = 48;

    // False if the word is too large for one mask.
    bool drawWord(SizedFont& font, std::span<const PlacedGlyph> word, std::int64_t x, std::int64_t baseline);
    void drawGlyph(SizedFont& font, const PlacedGlyph& glyph, std::int64_t x, std::int64_t baseline);
    void add(const GlyphMask& mask, std::int64_t left, std::int64_t top);
    void flush();
    void blend(const std::uint8_t* mask, std::ptrdiff_t stride, const Area& box);

    Bitmap& m_bitmap;
    const Area m_clip;
    const std::uint32_t m_pixel;
    std::size_t m_count = 0;
    Area m_box{}; // of all pending masks, within the clip
    Item m_pending[longestStretch];
};

} // namespace corekit::detail
