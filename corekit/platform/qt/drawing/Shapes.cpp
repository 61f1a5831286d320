// Pens, brushes, and what they draw.
#include "corekit/platform/Errors.h"
#include "corekit/platform/qt/text/GlyphPainter.h"

#include <algorithm>
#include <cmath>
#include <span>
#include <utility>
#include <vector>

using namespace corekit::detail;

namespace {

// Calls back for each side of the polygon, the one from the last point to the first included.
template <typename Use>
void forEachSide(std::span<const POINT> points, Use use)
{
    for (std::size_t i = 0; i < points.size(); ++i) use(points[i], points[(i + 1) % points.size()]);
}

// Coordinates have 32 bits, so that differences fit a double, and quotients of those on any picture are exact
// enough to tell a whole number from its neighbours.
double along(double from, double to, double part, double whole) { return from + (to - from) * part / whole; }

// A pixel belongs to the inside if its coordinates do; of the border, what lies to the left and above.
void fillInside(Bitmap& bitmap, std::span<const POINT> points, std::uint32_t pixel)
{
    const Area all = areaOf(bitmap);
    const auto [least, most] = std::ranges::minmax(points, {}, &POINT::y);
    std::vector<double> crossings;
    for (auto y = std::max<std::int64_t>(least.y, all.top); y < std::min<std::int64_t>(most.y, all.bottom);
         ++y) {
        crossings.clear();
        forEachSide(points, [&](POINT a, POINT b) {
            if (a.y > b.y) std::swap(a, b);
            if (a.y <= y && y < b.y)
                crossings.push_back(
                    along(a.x, b.x, static_cast<double>(y - a.y), static_cast<double>(b.y) - a.y));
        });
        std::ranges::sort(crossings);
        for (std::size_t i = 0; i + 1 < crossings.size(); i += 2)
            fillArea(bitmap,
                     {static_cast<std::int64_t>(std::ceil(crossings[i])), y,
                      static_cast<std::int64_t>(std::ceil(crossings[i + 1])), y + 1},
                     pixel);
    }
}

// One pixel for each step of the longer direction, both ends included, whichever of them comes first; halfway
// between two pixels it goes down or right.
void drawSide(Bitmap& bitmap, POINT a, POINT b, std::uint32_t pixel)
{
    const double width = std::abs(static_cast<double>(b.x) - a.x),
                 height = std::abs(static_cast<double>(b.y) - a.y);
    const bool isSteep = height > width;
    const auto longer = isSteep ? &POINT::y : &POINT::x, shorter = isSteep ? &POINT::x : &POINT::y;
    if (a.*longer > b.*longer) std::swap(a, b);
    const Area all = areaOf(bitmap);
    const auto first = std::max<std::int64_t>(a.*longer, 0);
    const auto last = std::min<std::int64_t>(b.*longer, (isSteep ? all.bottom : all.right) - 1);
    for (auto step = first; step <= last; ++step) {
        const double exact = a.*longer == b.*longer
                                 ? a.*shorter
                                 : along(a.*shorter, b.*shorter, static_cast<double>(step - a.*longer),
                                         std::max(width, height));
        const auto across = static_cast<std::int64_t>(std::floor(exact + 0.5));
        const std::int64_t x = isSteep ? across : step, y = isSteep ? step : across;
        fillArea(bitmap, {x, y, x + 1, y + 1}, pixel);
    }
}

} // namespace

HBRUSH CreateSolidBrush(COLORREF colour)
{
    return static_cast<HBRUSH>(GdiTable::add(std::make_shared<Brush>(colour)));
}

HPEN CreatePen(int style, int width, COLORREF colour)
{
    if ((style != PS_SOLID && style != PS_NULL) || width < 0 || width > 1) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
    return static_cast<HPEN>(GdiTable::add(std::make_shared<Pen>(style == PS_SOLID, colour)));
}

BOOL Polygon(HDC dc, const POINT* points, int count)
{
    DeviceContext* const context = GdiTable::find<DeviceContext>(dc);
    if (!context) return FALSE;
    if (!points || count < 2) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    const std::span all(points, static_cast<std::size_t>(count));
    fillInside(*context->bitmap, all, pixelOf(context->brush->colour));
    if (context->pen->isDrawing)
        forEachSide(
            all, [&](POINT a, POINT b) { drawSide(*context->bitmap, a, b, pixelOf(context->pen->colour)); });
    return TRUE;
}
