#include "corekit/platform/Errors.h"
#include "corekit/platform/qt/text/GlyphPainter.h"

#include <algorithm>
#include <limits>

using namespace corekit::detail;

namespace {

constexpr UINT knownOptions = ETO_OPAQUE | ETO_CLIPPED | ETO_RTLREADING | ETO_IGNORELANGUAGE;

TextRun runOf(const WCHAR* text, std::size_t count, UINT options, UINT align, const int* distances)
{
    TextRun run{std::u16string_view(text, count)};
    run.oneToOne = (options & ETO_IGNORELANGUAGE) != 0;
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

void drawLines(const DeviceContext& context, const SizedFont& font, const Area& cell, const Area& clip)
{
    const FontTables& t = font.face().tables();
    const std::int64_t baseline = cell.top + font.ascent();
    const auto line = [&](int below, int thickness) {
        const Area bar{cell.left, baseline + below, cell.right,
                       baseline + below + std::max(1, font.down(thickness))};
        fillArea(*context.bitmap, bar.cut(clip), pixelOf(context.textColour));
    };
    if (context.font->request.underline) line(std::max(1, font.down(t.underlineTop)), t.underlineThickness);
    if (context.font->request.strikeOut) line(-font.down(t.strikeOutTop), t.strikeOutThickness);
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
    Bitmap& bitmap = *context->bitmap;
    const std::uint32_t back = pixelOf(context->backColour);
    SizedFont* const font = count ? context->glyphs() : nullptr;
    const TextRun run = runOf(text, count, options, context->align, distances);
    if (count && !font) return FALSE;
    if (run.units.size() > longestShaped && !canPlace(run)) return refuse();

    if (rect && options & ETO_OPAQUE) fillArea(bitmap, areaOf(*rect), back);
    if (!count) return TRUE;
    Area clip = areaOf(bitmap);
    if (rect && options & ETO_CLIPPED) clip = clip.cut(areaOf(*rect));

    SizedFont::trimMasks();
    static thread_local PlacedRun placed;
    placeRun(*font, run, placed);
    const Area cell = cellAt(*font, context->align, x, y, toPixels(placed.width));
    if (context->backMode == OPAQUE) fillArea(bitmap, cell.cut(clip), back);
    GlyphPainter(bitmap, clip, pixelOf(context->textColour))
        .draw(*font, placed, cell.left, cell.top + font->ascent());
    drawLines(*context, *font, cell, clip);
    return TRUE;
}
