#include "corekit/platform/qt/drawing/Fill.h"

#include "corekit/platform/qt/drawing/Blend.h"

#include <algorithm>

namespace corekit::detail {

namespace {

constexpr int hatchSize = 8;

// A bit for each place of a line, the left one highest.
constexpr BYTE hatches[][hatchSize] = {
    {0x00, 0x00, 0x00, 0x00, 0xFF, 0x00, 0x00, 0x00}, // HS_HORIZONTAL
    {0x08, 0x08, 0x08, 0x08, 0x08, 0x08, 0x08, 0x08}, // HS_VERTICAL
    {0x80, 0x40, 0x20, 0x10, 0x08, 0x04, 0x02, 0x01}, // HS_FDIAGONAL
    {0x01, 0x02, 0x04, 0x08, 0x10, 0x20, 0x40, 0x80}, // HS_BDIAGONAL
    {0x08, 0x08, 0x08, 0x08, 0xFF, 0x08, 0x08, 0x08}, // HS_CROSS
    {0x81, 0x42, 0x24, 0x18, 0x18, 0x24, 0x42, 0x81}, // HS_DIAGCROSS
};

std::size_t wrapped(std::int64_t v, std::int64_t size)
{
    return static_cast<std::size_t>((v % size + size) % size);
}

void hatchRow(const DeviceContext& context, const Brush& brush, std::int64_t x, std::int64_t y,
              std::span<std::uint32_t> to)
{
    const unsigned bits = hatches[brush.hatch][wrapped(y, hatchSize)];
    const std::uint32_t line = pixelOf(brush.colour);
    const std::uint32_t ground = context.backMode == OPAQUE ? pixelOf(context.backColour) : 0;
    for (std::size_t i = 0; i < to.size(); ++i)
        to[i] = bits >> (hatchSize - 1 - wrapped(x + static_cast<std::int64_t>(i), hatchSize)) & 1 ? line
                                                                                                   : ground;
}

void patternRow(const DeviceContext& context, Bitmap& pattern, std::int64_t x, std::int64_t y,
                std::span<std::uint32_t> to)
{
    const std::uint32_t* const row = pattern.row(static_cast<int>(wrapped(y, pattern.height)));
    std::size_t at = wrapped(x, pattern.width);
    for (std::uint32_t& pixel : to) {
        pixel = row[at] | 0xFF000000u;
        if (pattern.isMonochrome)
            pixel = pixelOf(row[at] & 0xFFFFFF ? context.backColour : context.textColour);
        if (++at == static_cast<std::size_t>(pattern.width)) at = 0;
    }
}

} // namespace

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
    if (seen.isEmpty()) return;
    fillPixels(bitmap.row(static_cast<int>(seen.top)) + seen.left,
               bitmap.topDown ? bitmap.stride : -bitmap.stride, static_cast<int>(seen.width()),
               static_cast<int>(seen.height()), pixel);
}

void fillArea(DeviceContext& context, const Area& area, std::uint32_t pixel)
{
    context.forEachPart(area, [&](const Area& part) { fillArea(*context.bitmap, part, pixel); });
}

void fillArea(DeviceContext& context, const Area& area, const Brush& brush)
{
    if (brush.style == BS_NULL) return;
    if (brush.style == BS_SOLID) return fillArea(context, area, pixelOf(brush.colour));
    std::vector<std::uint32_t> row;
    context.forEachPart(area, [&](const Area& part) {
        row.resize(static_cast<std::size_t>(part.width()));
        for (std::int64_t y = part.top; y < part.bottom; ++y) {
            brushRow(context, brush, part.left, y, row);
            std::uint32_t* const to = context.bitmap->row(static_cast<int>(y)) + part.left;
            for (std::size_t i = 0; i < row.size(); ++i)
                if (row[i]) to[i] = row[i];
        }
    });
}

void brushRow(const DeviceContext& context, const Brush& brush, std::int64_t x, std::int64_t y,
              std::span<std::uint32_t> to)
{
    if (brush.style == BS_HATCHED) return hatchRow(context, brush, x - context.baseX, y - context.baseY, to);
    if (brush.style == BS_PATTERN)
        return patternRow(context, *brush.pattern, x - context.baseX, y - context.baseY, to);
    std::ranges::fill(to, pixelOf(brush.colour));
}

} // namespace corekit::detail
