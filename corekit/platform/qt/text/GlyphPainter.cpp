#include "corekit/platform/qt/text/GlyphPainter.h"

#include "corekit/platform/qt/drawing/Blend.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace corekit::detail {

namespace {

constexpr std::size_t keptScratch = std::size_t{4} << 20;

Area maskArea(const GlyphMask& mask, std::int64_t x, std::int64_t y)
{
    return {x, y, x + mask.width, y + mask.height};
}

std::uint32_t* pixelAt(Bitmap& bitmap, const Area& area)
{
    return bitmap.row(static_cast<int>(area.top)) + area.left;
}

std::ptrdiff_t strideOf(const Bitmap& bitmap) { return bitmap.topDown ? bitmap.stride : -bitmap.stride; }

// Where a glyph's pen stands, to the nearest quarter of a pixel.
struct GlyphPen {
    std::int64_t x;
    unsigned quarter;
};

GlyphPen penAt(std::int64_t origin, Subpixels x)
{
    const Subpixels quarters = (x + wholePixel / 8) >> (subpixelBits - 2);
    return {origin + (quarters >> 2), static_cast<unsigned>(quarters & 3)};
}

int widthOf(const Area& area) { return static_cast<int>(area.width()); }
int heightOf(const Area& area) { return static_cast<int>(area.height()); }

} // namespace

void GlyphPainter::draw(SizedFont& font, const PlacedRun& run, std::int64_t x, std::int64_t baseline)
{
    if (m_clip.isEmpty()) return;
    const std::span<const PlacedGlyph> glyphs = run.glyphs;
    for (std::size_t i = 0, end = 0; i < glyphs.size(); i = end) {
        end = i + 1;
        if (run.joins && !font.face().isBlank(glyphs[i].glyph))
            while (end < glyphs.size() && end - i < longestWord && !font.face().isBlank(glyphs[end].glyph))
                ++end;
        if (end == i + 1 || !drawWord(font, glyphs.subspan(i, end - i), x, baseline))
            for (const PlacedGlyph& g : glyphs.subspan(i, end - i)) drawGlyph(font, g, x, baseline);
    }
    flush();
}

bool GlyphPainter::drawWord(SizedFont& font, std::span<const PlacedGlyph> word, std::int64_t x,
                            std::int64_t baseline)
{
    const GlyphPen pen = penAt(x, word.front().x);
    const GlyphMask& mask = font.wordMask(word, pen.quarter);
    if (!mask.coverage) return false;
    add(mask, pen.x + mask.left, baseline + mask.top);
    return true;
}

void GlyphPainter::drawGlyph(SizedFont& font, const PlacedGlyph& g, std::int64_t x, std::int64_t baseline)
{
    const GlyphPen pen = penAt(x, g.x);
    const GlyphMask& mask = font.mask(g.glyph, pen.quarter);
    const std::int64_t penY = baseline + g.y;
    if (mask.width == 0 || mask.coverage) {
        add(mask, pen.x + mask.left, penY + mask.top);
        return;
    }
    const Area seen = maskArea(mask, pen.x + mask.left, penY + mask.top).cut(m_clip);
    if (seen.isEmpty()) return;
    flush();
    const GlyphMask part = font.maskPart(
        g.glyph, pen.quarter, static_cast<int>(seen.left - pen.x), static_cast<int>(seen.top - penY),
        static_cast<int>(seen.right - pen.x), static_cast<int>(seen.bottom - penY));
    blend(part.coverage.get(), part.stride, seen);
}

void GlyphPainter::add(const GlyphMask& mask, std::int64_t left, std::int64_t top)
{
    const Area seen = maskArea(mask, left, top).cut(m_clip);
    if (seen.isEmpty()) return;
    m_box = m_count ? joined(m_box, seen) : seen;
    m_pending[m_count++] = {&mask, static_cast<int>(left), static_cast<int>(top)};
    if (m_count == longestStretch) flush();
}

void GlyphPainter::blend(const std::uint8_t* mask, std::ptrdiff_t stride, const Area& box)
{
    blendMask(pixelAt(m_bitmap, box), strideOf(m_bitmap), mask, stride, widthOf(box), heightOf(box), m_pixel,
              static_cast<std::ptrdiff_t>(m_bitmap.width - box.right));
}

void GlyphPainter::flush()
{
    const std::size_t count = std::exchange(m_count, 0);
    if (count == 0) return;
    if (const Item& only = m_pending[0]; count == 1 && m_box.covers(maskArea(*only.mask, only.x, only.y))) {
        blend(only.mask->coverage.get(), only.mask->stride, m_box);
        return;
    }
    static thread_local std::vector<std::uint8_t> scratch;
    const std::ptrdiff_t stride = (widthOf(m_box) + 2 * blendStep - 1) / blendStep * blendStep;
    const auto bytes =
        static_cast<std::size_t>(stride) * static_cast<std::size_t>(heightOf(m_box)) + blendStep;
    if (scratch.size() < bytes) scratch.resize(bytes);
    std::memset(scratch.data(), 0, bytes);
    for (const Item& item : std::span(m_pending, count)) {
        const GlyphMask& m = *item.mask;
        const Area whole = maskArea(m, item.x, item.y);
        const Area seen = whole.cut(m_box);
        std::uint8_t* const to = scratch.data() + (seen.top - m_box.top) * stride + (seen.left - m_box.left);
        const std::uint8_t* const from =
            m.coverage.get() + (seen.top - whole.top) * m.stride + (seen.left - whole.left);
        const auto add = widthOf(seen) == m.width ? addMask : addMaskExactly;
        add(to, stride, from, m.stride, widthOf(seen), heightOf(seen));
    }
    blend(scratch.data(), stride, m_box);
    if (bytes > keptScratch) scratch = {};
}

} // namespace corekit::detail
