#include "corekit/platform/qt/drawing/Lines.h"

#include "corekit/platform/Errors.h"
#include "corekit/platform/qt/drawing/Fill.h"
#include "corekit/platform/qt/drawing/ToolkitPainter.h"

#include <algorithm>
#include <cmath>
#include <QLineF>

using namespace corekit::detail;

namespace {

// Steps drawn and left out in turn, 0 behind the last.
constexpr int dashes[][6] = {
    {},                 // PS_SOLID
    {18, 6},            // PS_DASH
    {3, 3},             // PS_DOT
    {9, 6, 3, 6},       // PS_DASHDOT
    {9, 3, 3, 3, 3, 3}, // PS_DASHDOTDOT
};

bool isDashed(const Pen& pen) { return pen.style >= PS_DASH && pen.style <= PS_DASHDOTDOT && pen.width <= 1; }

bool isInDash(int style, std::int64_t step)
{
    int all = 0;
    for (const int length : dashes[style]) all += length;
    step %= all;
    bool isDrawn = true;
    for (const int length : dashes[style]) {
        if (step < length) break;
        step -= length;
        isDrawn = !isDrawn;
    }
    return isDrawn;
}

// A line of single units, one for each step of the longer direction; halfway between two it goes down or
// right.
struct Steps {
    LONG POINT::*longer;
    LONG POINT::*shorter;
    POINT from, to; // ascending along the longer direction

    Steps(POINT a, POINT b) : longer(&POINT::x), shorter(&POINT::y), from(a), to(b)
    {
        const auto distance = [&](LONG POINT::*of) { return std::abs(std::int64_t{b.*of} - a.*of); };
        if (distance(&POINT::y) > distance(&POINT::x)) std::swap(longer, shorter);
        if (from.*longer > to.*longer) std::swap(from, to);
    }
    // Coordinates have 32 bits, so that differences fit a double.
    std::int64_t across(std::int64_t step) const
    {
        const double whole = static_cast<double>(to.*longer) - from.*longer;
        if (whole == 0) return from.*shorter;
        const double part = static_cast<double>(step - from.*longer);
        const double exact =
            from.*shorter + (static_cast<double>(to.*shorter) - from.*shorter) * part / whole;
        return static_cast<std::int64_t>(std::floor(exact + 0.5));
    }
};

void drawSteps(DeviceContext& context, POINT a, POINT b, LineEnd end)
{
    const Steps steps(a, b);
    const bool isAlongX = steps.longer == &POINT::x;
    const std::int64_t base = isAlongX ? context.pixelX(0) : context.pixelY(0);
    const auto unitNear = [&](std::int64_t pixel) {
        return std::llround(static_cast<double>(pixel - base) / context.scale);
    };
    const auto first = std::max<std::int64_t>(steps.from.*steps.longer,
                                              unitNear(isAlongX ? context.box.left : context.box.top) - 1);
    const auto last = std::min<std::int64_t>(steps.to.*steps.longer,
                                             unitNear(isAlongX ? context.box.right : context.box.bottom) + 1);
    const std::uint32_t line = pixelOf(context.pen->colour), gap = pixelOf(context.backColour);
    for (std::int64_t step = first; step <= last; ++step) {
        if (end == LineEnd::leftOut && step == b.*steps.longer) continue;
        const bool isDrawn =
            !isDashed(*context.pen) || isInDash(context.pen->style, std::abs(step - a.*steps.longer));
        if (!isDrawn && context.backMode != OPAQUE) continue;
        const std::int64_t across = steps.across(step);
        const std::int64_t x = isAlongX ? step : across, y = isAlongX ? across : step;
        fillArea(context, context.pixelsOf({x, y, x + 1, y + 1}), isDrawn ? line : gap);
    }
}

// Along an axis, a solid line is a bar.
void drawBar(DeviceContext& context, POINT a, POINT b, LineEnd end)
{
    Area bar = orderedArea(a.x, a.y, b.x, b.y);
    if (end == LineEnd::leftOut && b.x != a.x) b.x > a.x ? --bar.right : ++bar.left;
    if (end == LineEnd::leftOut && b.y != a.y) b.y > a.y ? --bar.bottom : ++bar.top;
    fillArea(context, context.pixelsOf({bar.left, bar.top, bar.right + 1, bar.bottom + 1}),
             pixelOf(context.pen->colour));
}

BOOL refuse()
{
    SetLastError(ERROR_INVALID_PARAMETER);
    return FALSE;
}

bool isStyle(int style) { return style >= PS_SOLID && style <= PS_INSIDEFRAME; }

constexpr int broadestPen = 4096;

} // namespace

namespace corekit::detail {

void drawLine(DeviceContext& context, POINT a, POINT b, LineEnd end)
{
    const Pen& pen = *context.pen;
    if (pen.style == PS_NULL || (end == LineEnd::leftOut && a.x == b.x && a.y == b.y)) return;
    const bool isStraight = a.x == b.x || a.y == b.y;
    if (pen.width > 1 || (context.scale != 1 && !isStraight && !isDashed(pen))) {
        ToolkitPainter painter(context);
        painter.useContextPen();
        painter->drawLine(QPointF(a.x, a.y), QPointF(b.x, b.y));
    } else if (isStraight && !isDashed(pen)) {
        drawBar(context, a, b, end);
    } else {
        drawSteps(context, a, b, end);
    }
}

} // namespace corekit::detail

HPEN CreatePen(int style, int width, COLORREF colour)
{
    if (!isStyle(style) || width < 0 || width > broadestPen) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    return static_cast<HPEN>(GdiTable::add(std::make_shared<Pen>(style, width, colour)));
}

BOOL MoveToEx(HDC dc, int x, int y, POINT* before)
{
    DeviceContext* const context = GdiTable::find<DeviceContext>(dc);
    if (!context) return FALSE;
    if (before) *before = context->position;
    context->position = {x, y};
    return TRUE;
}

BOOL LineTo(HDC dc, int x, int y)
{
    DeviceContext* const context = GdiTable::find<DeviceContext>(dc);
    if (!context) return FALSE;
    drawLine(*context, context->position, {x, y}, LineEnd::leftOut);
    context->position = {x, y};
    return TRUE;
}

BOOL Polyline(HDC dc, const POINT* points, int count)
{
    DeviceContext* const context = GdiTable::find<DeviceContext>(dc);
    if (!context) return FALSE;
    if (!points || count < 2) return refuse();
    for (int i = 1; i < count; ++i) drawLine(*context, points[i - 1], points[i], LineEnd::leftOut);
    return TRUE;
}

COLORREF SetPixel(HDC dc, int x, int y, COLORREF colour)
{
    DeviceContext* const context = GdiTable::find<DeviceContext>(dc);
    if (!context) return CLR_INVALID;
    const COLORREF before = GetPixel(dc, x, y);
    if (before != CLR_INVALID)
        fillArea(*context, context->pixelsOf({x, y, std::int64_t{x} + 1, std::int64_t{y} + 1}),
                 pixelOf(colour));
    return before;
}

COLORREF GetPixel(HDC dc, int x, int y)
{
    const DeviceContext* const context = GdiTable::find<DeviceContext>(dc);
    if (!context) return CLR_INVALID;
    COLORREF colour = CLR_INVALID;
    context->forEachPart(
        context->pixelsOf({x, y, std::int64_t{x} + 1, std::int64_t{y} + 1}), [&](const Area& part) {
            const std::uint32_t pixel = context->bitmap->row(static_cast<int>(part.top))[part.left];
            colour = pixelOf(pixel) & 0xFFFFFF; // the same exchange of red and blue
        });
    return colour;
}
