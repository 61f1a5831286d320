// Brushes, and the areas and shapes that are drawn with them.
#include "corekit/platform/Errors.h"
#include "corekit/platform/qt/drawing/Fill.h"
#include "corekit/platform/qt/drawing/Lines.h"
#include "corekit/platform/qt/drawing/ToolkitPainter.h"
#include "corekit/platform/SystemColours.h"

#include <algorithm>
#include <cmath>
#include <span>
#include <utility>
#include <vector>

using namespace corekit::detail;

namespace {

BOOL refuse()
{
    SetLastError(ERROR_INVALID_PARAMETER);
    return FALSE;
}

// Calls back for each side of the polygon, the one from the last point to the first included.
template <typename Use>
void forEachSide(std::span<const POINT> points, Use use)
{
    for (std::size_t i = 0; i < points.size(); ++i) use(points[i], points[(i + 1) % points.size()]);
}

struct Corner {
    std::int64_t x, y;
};

// A pixel belongs to the inside if its coordinates do; of the border, what lies to the left and above.
void fillInside(DeviceContext& context, std::span<const Corner> corners)
{
    const auto [least, most] = std::ranges::minmax(corners, {}, &Corner::y);
    std::vector<double> crossings;
    for (auto y = std::max(least.y, context.box.top); y < std::min(most.y, context.box.bottom); ++y) {
        crossings.clear();
        for (std::size_t i = 0; i < corners.size(); ++i) {
            Corner a = corners[i], b = corners[(i + 1) % corners.size()];
            if (a.y > b.y) std::swap(a, b);
            if (a.y > y || y >= b.y) continue;
            // Quotients of 32-bit differences are exact enough to tell a whole number from its neighbours.
            crossings.push_back(static_cast<double>(a.x) + static_cast<double>(b.x - a.x) *
                                                               static_cast<double>(y - a.y) /
                                                               static_cast<double>(b.y - a.y));
        }
        std::ranges::sort(crossings);
        for (std::size_t i = 0; i + 1 < crossings.size(); i += 2)
            fillArea(context,
                     {static_cast<std::int64_t>(std::ceil(crossings[i])), y,
                      static_cast<std::int64_t>(std::ceil(crossings[i + 1])), y + 1},
                     *context.brush);
    }
}

// A brush, or the brush of the system colour whose number plus 1 stands in its place.
const Brush* brushFor(HBRUSH brush)
{
    const auto number = reinterpret_cast<UINT_PTR>(brush);
    if (number >= 1 && number <= COLOR_LAST + 1)
        return GdiTable::find<Brush>(GetSysColorBrush(static_cast<int>(number) - 1));
    return GdiTable::find<Brush>(brush);
}

// The four sides of a frame, none of their corners twice.
void fillFrame(DeviceContext& context, const Area& outer, const Area& inner, const Brush& brush)
{
    const auto fill = [&](const Area& a) { fillArea(context, context.pixelsOf(a), brush); };
    fill({outer.left, outer.top, outer.right, std::min(inner.top, outer.bottom)});
    fill({outer.left, std::max(inner.bottom, inner.top), outer.right, outer.bottom});
    fill({outer.left, inner.top, std::min(inner.left, outer.right), inner.bottom});
    fill({std::max(inner.right, inner.left), inner.top, outer.right, inner.bottom});
}

Area shrunk(const Area& a, std::int64_t by) { return {a.left + by, a.top + by, a.right - by, a.bottom - by}; }

void frameRectangle(DeviceContext& context, const Area& rect)
{
    const Pen& pen = *context.pen;
    const std::int64_t width = std::max(pen.width, 1);
    const std::int64_t outside = pen.style == PS_INSIDEFRAME ? 0 : width / 2;
    const Area outer = shrunk(rect, -outside), inner = shrunk(outer, width);
    fillFrame(context, outer, inner, Brush(BS_SOLID, pen.colour));
}

// The edges are cut so that the arithmetic of the toolkit holds.
QRectF outlineOf(const Area& a)
{
    constexpr double most = 1 << 24;
    const auto edge = [=](std::int64_t v) { return std::clamp(static_cast<double>(v), -most, most); };
    return QRectF(QPointF(edge(a.left), edge(a.top)), QPointF(edge(a.right - 1), edge(a.bottom - 1)));
}

} // namespace

HBRUSH CreateSolidBrush(COLORREF colour)
{
    return static_cast<HBRUSH>(GdiTable::add(std::make_shared<Brush>(BS_SOLID, colour)));
}

HBRUSH CreateHatchBrush(int hatch, COLORREF colour)
{
    if (hatch < HS_HORIZONTAL || hatch > HS_DIAGCROSS) {
        refuse();
        return nullptr;
    }
    return static_cast<HBRUSH>(GdiTable::add(std::make_shared<Brush>(BS_HATCHED, colour, hatch)));
}

HBRUSH CreatePatternBrush(HBITMAP handle)
{
    Bitmap* const bitmap = GdiTable::find<Bitmap>(handle);
    if (!bitmap) return nullptr;
    auto copy = bitmap->pixels ? makeBitmap(bitmap->width, bitmap->height) : nullptr;
    if (!copy) {
        refuse();
        return nullptr;
    }
    for (int y = 0; y < bitmap->height; ++y) std::copy_n(bitmap->row(y), bitmap->width, copy->row(y));
    copy->isMonochrome = bitmap->isMonochrome;
    auto brush = std::make_shared<Brush>(BS_PATTERN, 0);
    brush->pattern = std::move(copy);
    return static_cast<HBRUSH>(GdiTable::add(std::move(brush)));
}

int FillRect(HDC dc, const RECT* rect, HBRUSH handle)
{
    DeviceContext* const context = GdiTable::find<DeviceContext>(dc);
    const Brush* const brush = context ? brushFor(handle) : nullptr;
    if (!brush || (!rect && !refuse())) return FALSE;
    fillArea(*context, context->pixelsOf(areaOf(*rect)), *brush);
    return TRUE;
}

int FrameRect(HDC dc, const RECT* rect, HBRUSH handle)
{
    DeviceContext* const context = GdiTable::find<DeviceContext>(dc);
    const Brush* const brush = context ? brushFor(handle) : nullptr;
    if (!brush || (!rect && !refuse())) return FALSE;
    const Area outer = areaOf(*rect);
    if (!outer.isEmpty()) fillFrame(*context, outer, shrunk(outer, 1), *brush);
    return TRUE;
}

BOOL InvertRect(HDC dc, const RECT* rect)
{
    if (!rect) return refuse();
    const Area a = areaOf(*rect);
    if (a.isEmpty() || a.width() > INT32_MAX || a.height() > INT32_MAX)
        return GdiTable::find<DeviceContext>(dc) != nullptr;
    return PatBlt(dc, rect->left, rect->top, static_cast<int>(a.width()), static_cast<int>(a.height()),
                  DSTINVERT);
}

BOOL Polygon(HDC dc, const POINT* points, int count)
{
    DeviceContext* const context = GdiTable::find<DeviceContext>(dc);
    if (!context) return FALSE;
    if (!points || count < 2) return refuse();
    const std::span all(points, static_cast<std::size_t>(count));
    std::vector<Corner> corners;
    for (const POINT p : all) corners.push_back({context->pixelX(p.x), context->pixelY(p.y)});
    fillInside(*context, corners);
    forEachSide(all, [&](POINT a, POINT b) { drawLine(*context, a, b, LineEnd::drawn); });
    return TRUE;
}

BOOL Rectangle(HDC dc, int left, int top, int right, int bottom)
{
    DeviceContext* const context = GdiTable::find<DeviceContext>(dc);
    if (!context) return FALSE;
    const Area rect = orderedArea(left, top, right, bottom);
    if (rect.isEmpty()) return TRUE;
    const Pen& pen = *context->pen;
    fillArea(*context, context->pixelsOf(rect), *context->brush);
    if (pen.style == PS_NULL) return TRUE;
    if (pen.width > 1 || pen.style == PS_SOLID || pen.style == PS_INSIDEFRAME) {
        frameRectangle(*context, rect);
        return TRUE;
    }
    const LONG l = std::min(left, right), t = std::min(top, bottom), r = std::max(left, right) - 1,
               b = std::max(top, bottom) - 1;
    const POINT corners[] = {{l, t}, {r, t}, {r, b}, {l, b}};
    forEachSide(corners, [&](POINT from, POINT to) { drawLine(*context, from, to, LineEnd::drawn); });
    return TRUE;
}

BOOL Ellipse(HDC dc, int left, int top, int right, int bottom)
{
    DeviceContext* const context = GdiTable::find<DeviceContext>(dc);
    if (!context) return FALSE;
    const Area rect = orderedArea(left, top, right, bottom);
    if (rect.isEmpty()) return TRUE;
    ToolkitPainter painter(*context);
    painter.useContextPen();
    painter.useContextBrush();
    painter->drawEllipse(outlineOf(rect));
    return TRUE;
}
