#include "corekit/platform/Errors.h"
#include "corekit/platform/PairKerning.h"
#include "corekit/platform/qt/text/GlyphPainter.h"
#include "corekit/platform/qt/text/WideText.h"

#include <algorithm>
#include <cmath>
#include <limits>

using namespace corekit::detail;

namespace {

constexpr UINT knownOptions =
    ETO_OPAQUE | ETO_CLIPPED | ETO_RTLREADING | ETO_IGNORELANGUAGE | ETO_PAIRKERNING;

TextRun runOf(const WCHAR* text, std::size_t count, UINT options, UINT align, const int* distances)
{
    TextRun run{std::u16string_view(text, count)};
    run.oneToOne = (options & ETO_IGNORELANGUAGE) != 0;
    run.kerned = (options & ETO_PAIRKERNING) != 0;
    run.rightToLeft = ((options & ETO_RTLREADING) | (align & TA_RTLREADING)) != 0;
    if (distances) run.distances = std::span(distances, count);
    return run;
}

LONG toLong(std::int64_t v)
{
    using Limits = std::numeric_limits<LONG>;
    return static_cast<LONG>(std::clamp<std::int64_t>(v, Limits::min(), Limits::max()));
}

// The cell of a text of this width at the reference point.
Area cellAt(const SizedFont& font, UINT align, std::int64_t x, std::int64_t y, std::int64_t width)
{
    if ((align & TA_CENTER) == TA_CENTER)
        x -= width / 2;
    else if (align & TA_RIGHT)
        x -= width;
    if ((align & TA_BASELINE) == TA_BASELINE)
        y -= font.ascent();
    else if (align & TA_BOTTOM)
        y -= font.height();
    return {x, y, x + width, y + font.height()};
}

void drawLines(DeviceContext& context, const SizedFont& font, const Area& cell, const Area& clip)
{
    const FontTables& t = font.face().tables();
    const std::int64_t baseline = cell.top + font.ascent();
    const auto line = [&](int below, int thickness) {
        const Area bar{cell.left, baseline + below, cell.right,
                       baseline + below + std::max(1, font.down(thickness))};
        fillArea(context, context.pixelsOf(bar).cut(clip), pixelOf(context.textColour));
    };
    if (context.font->request.underline) line(std::max(1, font.down(t.underlineTop)), t.underlineThickness);
    if (context.font->request.strikeOut) line(-font.down(t.strikeOutTop), t.strikeOutThickness);
}

// Units become pixels: the glyphs are drawn larger and stand as much further apart.
void stretch(PlacedRun& placed, double scale)
{
    for (PlacedGlyph& g : placed.glyphs) {
        g.x = std::llround(static_cast<double>(g.x) * scale);
        g.y = static_cast<int>(std::lround(g.y * scale));
    }
}

BOOL refuse()
{
    SetLastError(ERROR_INVALID_PARAMETER);
    return FALSE;
}

} // namespace

BOOL GetTextExtentPoint32W(HDC dc, const WCHAR* text, int count, SIZE* size, UINT options)
{
    DeviceContext* const context = GdiTable::find<DeviceContext>(dc);
    if (!context) return FALSE;
    if (!size || count < 0 || (!text && count > 0)) return refuse();
    SizedFont* const font = context->glyphs();
    if (!font) return FALSE;
    const TextRun run = runOf(text, static_cast<std::size_t>(count), options, context->align, nullptr);
    if (run.units.size() > longestShaped && !canPlace(run)) return refuse();
    size->cx = toLong(toPixels(measureRun(*font, run)));
    size->cy = font->height();
    return TRUE;
}

BOOL ExtTextOutW(HDC dc, int x, int y, UINT options, const RECT* rect, const WCHAR* text, UINT count,
                 const int* distances)
{
    DeviceContext* const context = GdiTable::find<DeviceContext>(dc);
    if (!context) return FALSE;
    if ((options & ~knownOptions) || (!text && count > 0)) return refuse();
    const std::uint32_t back = pixelOf(context->backColour);
    SizedFont* const font = count ? context->glyphs() : nullptr;
    const TextRun run = runOf(text, count, options, context->align, distances);
    if (count && !font) return FALSE;
    if (run.units.size() > longestShaped && !canPlace(run)) return refuse();

    if (rect && options & ETO_OPAQUE) fillArea(*context, context->pixelsOf(areaOf(*rect)), back);
    if (!count) return TRUE;
    Area clip = context->box;
    if (rect && options & ETO_CLIPPED) clip = clip.cut(context->pixelsOf(areaOf(*rect)));

    SizedFont::trimMasks();
    static thread_local PlacedRun placed;
    placeRun(*font, run, placed);
    const Area cell = cellAt(*font, context->align, x, y, toPixels(placed.width));
    const Area where = context->pixelsOf(cell);
    if (context->backMode == OPAQUE) fillArea(*context, where.cut(clip), back);
    SizedFont* const drawn = context->drawnGlyphs();
    if (!drawn) return FALSE;
    if (context->scale != 1) stretch(placed, context->scale);
    const std::int64_t baseline = context->pixelY(cell.top + font->ascent());
    context->forEachPart(clip, [&](const Area& part) {
        GlyphPainter(*context->bitmap, part, pixelOf(context->textColour))
            .draw(*drawn, placed, where.left, baseline);
    });
    drawLines(*context, *font, cell, clip);
    return TRUE;
}

BOOL TextOutW(HDC dc, int x, int y, const WCHAR* text, int count)
{
    return count < 0 ? refuse() : ExtTextOutW(dc, x, y, 0, nullptr, text, static_cast<UINT>(count));
}

BOOL GetTextExtentPoint32A(HDC dc, const char* text, int count, SIZE* size)
{
    if (count < 0 || (!text && count > 0)) return refuse();
    const std::u16string wide = wideText(text, count);
    return GetTextExtentPoint32W(dc, wide.data(), static_cast<int>(wide.size()), size);
}

BOOL ExtTextOutA(HDC dc, int x, int y, UINT options, const RECT* rect, const char* text, UINT count,
                 const int* distances)
{
    if ((!text && count > 0) || count > INT32_MAX) return refuse();
    const std::u16string wide = wideText(text, static_cast<int>(count));
    // Distances belong to bytes; where characters have several, they fit no longer.
    const int* const fitting = wide.size() == count ? distances : nullptr;
    return ExtTextOutW(dc, x, y, options, rect, wide.data(), static_cast<UINT>(wide.size()), fitting);
}

BOOL TextOutA(HDC dc, int x, int y, const char* text, int count)
{
    return count < 0 ? refuse() : ExtTextOutA(dc, x, y, 0, nullptr, text, static_cast<UINT>(count));
}
