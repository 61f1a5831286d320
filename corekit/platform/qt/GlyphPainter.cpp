#include "corekit/platform/qt/GlyphPainter.h"

#include "corekit/platform/qt/Blend.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace corekit::detail {

namespace {

constexpr std::size_t keptScratch = std::size_t{4} << 20;

Area joined(const Area& a, const Area& b)
{
    return {std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right),
            std::max(a.bottom, b.bottom)};
}

bool covers(const Area& outer, const Area& inner)
{
    return inner.left >= outer.left && inner.right <= outer.right && inner.top >= outer.top &&
           inner.bottom <= outer.bottom;
}

Area maskArea(const GlyphMask& mask, std::int64_t x, std::int64_t y)
{
    return {x, y, x + mask.width, y + mask.height};
}

std::uint32_t* pixelAt(Bitmap& bitmap, const Area& area)
{
    return bitmap.row(static_cast<int>(area.top)) + area.left;
}

std::ptrdiff_t strideOf(const Bitmap& bitmap) { return bitmap.topDown ? bitmap.width : -bitmap.width; }

int widthOf(const Area& area) { return static_cast<int>(area.right - area.left); }
int heightOf(const Area& area) { return static_cast<int>(area.bottom - area.top); }

} // namespace

Area Area::cut(const Area& by) const
{
    return {std::max(left, by.left), std::max(top, by.top), std::min(right, by.right),
            std::min(bottom, by.bottom)};
}

Area areaOf(const RECT& rect) { return {rect.left, rect.top, rect.right, rect.bottom}; }

Area areaOf(const Bitmap& bitmap)
{
    return bitmap.pixels ? Area{0, 0, bitmap.width, bitmap.height} : Area{0, 0, 0, 0};
}

std::uint32_t pixelOf(COLORREF colour)
{
    return 0xFF000000u | (colour & 0xFF) << 16 | (colour & 0xFF00) | (colour >> 16 & 0xFF);
}

void fillArea(Bitmap& bitmap, const Area& area, std::uint32_t pixel)
{
    const Area seen = area.cut(areaOf(bitmap));
    if (!seen.isEmpty())
        fillPixels(pixelAt(bitmap, seen), strideOf(bitmap), widthOf(seen), heightOf(seen), pixel);
}

void GlyphPainter::draw(SizedFont& font, std::span<const PlacedGlyph> glyphs, std::int64_t x,
                        std::int64_t baseline)
{
    if (clip_.isEmpty()) return;
    for (const PlacedGlyph& g : glyphs) {
        const Subpixels quarters = (g.x + wholePixel / 8) >> (subpixelBits - 2);
        const auto quarter = static_cast<unsigned>(quarters & 3);
        const std::int64_t penX = x + (quarters >> 2);
        const GlyphMask& mask = font.mask(g.glyph, quarter);
        if (mask.width == 0) {
            if (count_ > longestStretch / 2) flush(); // between words nothing touches
            continue;
        }
        const Area whole = maskArea(mask, penX + mask.left, baseline + g.y + mask.top);
        const Area seen = whole.cut(clip_);
        if (seen.isEmpty()) continue;
        if (!mask.coverage) {
            drawLarge(font, g.glyph, quarter, seen, penX, baseline + g.y);
            continue;
        }
        box_ = count_ ? joined(box_, seen) : seen;
        pending_[count_++] = {&mask, static_cast<int>(whole.left), static_cast<int>(whole.top)};
        if (count_ == longestStretch) flush();
    }
    flush();
}

void GlyphPainter::drawLarge(const SizedFont& font, std::uint16_t glyph, unsigned quarter, const Area& box,
                             std::int64_t penX, std::int64_t baseline)
{
    flush();
    const GlyphMask part =
        font.maskPart(glyph, quarter, static_cast<int>(box.left - penX), static_cast<int>(box.top - baseline),
                      static_cast<int>(box.right - penX), static_cast<int>(box.bottom - baseline));
    blend(part.coverage.get(), part.stride, box);
}

void GlyphPainter::blend(const std::uint8_t* mask, std::ptrdiff_t stride, const Area& box)
{
    blendMask(pixelAt(bitmap_, box), strideOf(bitmap_), mask, stride, widthOf(box), heightOf(box), pixel_,
              static_cast<std::ptrdiff_t>(bitmap_.width - box.right));
}

void GlyphPainter::flush()
{
    const std::size_t count = std::exchange(count_, 0);
    if (count == 0) return;
    if (const Item& only = pending_[0]; count == 1 && covers(box_, maskArea(*only.mask, only.x, only.y))) {
        blend(only.mask->coverage.get(), only.mask->stride, box_);
        return;
    }
    static thread_local std::vector<std::uint8_t> scratch;
    const std::ptrdiff_t stride = (widthOf(box_) + 2 * blendStep - 1) / blendStep * blendStep;
    const auto bytes =
        static_cast<std::size_t>(stride) * static_cast<std::size_t>(heightOf(box_)) + blendStep;
    if (scratch.size() < bytes) scratch.resize(bytes);
    std::memset(scratch.data(), 0, bytes);
    for (const Item& item : std::span(pending_, count)) {
        const GlyphMask& m = *item.mask;
        const Area whole = maskArea(m, item.x, item.y);
        const Area seen = whole.cut(box_);
        std::uint8_t* const to = scratch.data() + (seen.top - box_.top) * stride + (seen.left - box_.left);
        const std::uint8_t* const from =
            m.coverage.get() + (seen.top - whole.top) * m.stride + (seen.left - whole.left);
        const auto add = widthOf(seen) == m.width ? addMask : addMaskExactly;
        add(to, stride, from, m.stride, widthOf(seen), heightOf(seen));
    }
    blend(scratch.data(), stride, box_);
    if (bytes > keptScratch) scratch = {};
}

} // namespace corekit::detail
