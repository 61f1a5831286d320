// Regions, and the clips made of them.
#include "corekit/platform/Errors.h"
#include "corekit/platform/qt/drawing/Fill.h"
#include "corekit/platform/qt/drawing/Region.h"

#include <QRect>
#include <utility>

using namespace corekit::detail;

namespace {

struct Region final : GdiObject {
    static constexpr GdiKind kindOf = GdiKind::region;
    explicit Region(QRegion s) : GdiObject(GdiKind::region), set(std::move(s)) {}

    QRegion set;
};

// The toolkit counts both corners of a rectangle in, in 32 bits: edges that far out are moved in.
QRegion rectangle(std::int64_t left, std::int64_t top, std::int64_t right, std::int64_t bottom)
{
    constexpr std::int64_t most = 1 << 29;
    const auto edge = [=](std::int64_t v) { return static_cast<int>(std::clamp(v, -most, most)); };
    const Area a = orderedArea(edge(left), edge(top), edge(right), edge(bottom));
    if (a.isEmpty()) return {};
    return QRegion(QRect(QPoint(edge(a.left), edge(a.top)), QPoint(edge(a.right) - 1, edge(a.bottom) - 1)));
}

QRegion everything() { return rectangle(INT32_MIN, INT32_MIN, INT32_MAX, INT32_MAX); }

int complexityOf(const QRegion& set)
{
    return set.isEmpty() ? NULLREGION : set.rectCount() == 1 ? SIMPLEREGION : COMPLEXREGION;
}

RECT boundsOf(const QRegion& set)
{
    const QRect r = set.boundingRect();
    return set.isEmpty() ? RECT{} : RECT{r.left(), r.top(), r.left() + r.width(), r.top() + r.height()};
}

QRegion combined(const QRegion& a, const QRegion& b, int mode)
{
    switch (mode) {
    case RGN_AND:
        return a.intersected(b);
    case RGN_OR:
        return a.united(b);
    case RGN_XOR:
        return a.xored(b);
    case RGN_DIFF:
        return a.subtracted(b);
    default:
        return a;
    }
}

template <typename Value>
Value refuse(Value failure)
{
    SetLastError(ERROR_INVALID_PARAMETER);
    return failure;
}

// The surface in units of the context.
QRegion surfaceOf(const DeviceContext& context)
{
    const Area all = areaOf(*context.bitmap);
    const auto unit = [&](std::int64_t pixel, std::int64_t base) {
        return static_cast<std::int64_t>(static_cast<double>(pixel - base) / context.scale);
    };
    return rectangle(unit(all.left, context.baseX), unit(all.top, context.baseY),
                     unit(all.right, context.baseX) + (context.scale != 1),
                     unit(all.bottom, context.baseY) + (context.scale != 1));
}

// All that can be drawn on, in units of the surface.
QRegion visibleOf(const DeviceContext& context)
{
    QRegion all = surfaceOf(context);
    if (context.systemClip) all &= *context.systemClip;
    if (context.chosen) all &= *context.chosen;
    return all;
}

int choose(DeviceContext& context, std::optional<QRegion> clip)
{
    context.chosen = std::move(clip);
    context.updateClip();
    return complexityOf(visibleOf(context));
}

int combineClip(HDC dc, int left, int top, int right, int bottom, int mode)
{
    DeviceContext* const context = GdiTable::find<DeviceContext>(dc);
    if (!context) return ERROR_REGION;
    const auto& origin = context->viewport;
    const QRegion part = rectangle(std::int64_t{left} + origin.x, std::int64_t{top} + origin.y,
                                   std::int64_t{right} + origin.x, std::int64_t{bottom} + origin.y);
    return choose(*context, combined(context->chosen ? *context->chosen : everything(), part, mode));
}

} // namespace

const QRegion* corekit::detail::regionOf(HGDIOBJ region)
{
    const Region* const found = GdiTable::find<Region>(region);
    return found ? &found->set : nullptr;
}

HRGN CreateRectRgn(int left, int top, int right, int bottom)
{
    return static_cast<HRGN>(GdiTable::add(std::make_shared<Region>(rectangle(left, top, right, bottom))));
}

BOOL SetRectRgn(HRGN region, int left, int top, int right, int bottom)
{
    Region* const r = GdiTable::find<Region>(region);
    if (r) r->set = rectangle(left, top, right, bottom);
    return r != nullptr;
}

int CombineRgn(HRGN to, HRGN first, HRGN second, int mode)
{
    Region* const result = GdiTable::find<Region>(to);
    const Region* const a = GdiTable::find<Region>(first);
    const Region* const b = mode == RGN_COPY ? a : GdiTable::find<Region>(second);
    if (!result || !a || !b) return ERROR_REGION;
    if (mode < RGN_AND || mode > RGN_COPY) return refuse(ERROR_REGION);
    result->set = combined(a->set, b->set, mode);
    return complexityOf(result->set);
}

int OffsetRgn(HRGN region, int dx, int dy)
{
    Region* const r = GdiTable::find<Region>(region);
    if (!r) return ERROR_REGION;
    constexpr int most = 1 << 29;
    r->set.translate(std::clamp(dx, -most, most), std::clamp(dy, -most, most));
    return complexityOf(r->set);
}

int GetRgnBox(HRGN region, RECT* box)
{
    const Region* const r = GdiTable::find<Region>(region);
    if (!r || !box) return r ? refuse(ERROR_REGION) : ERROR_REGION;
    *box = boundsOf(r->set);
    return complexityOf(r->set);
}

BOOL EqualRgn(HRGN a, HRGN b)
{
    const Region* const first = GdiTable::find<Region>(a);
    const Region* const second = GdiTable::find<Region>(b);
    return first && second && first->set == second->set;
}

BOOL PtInRegion(HRGN region, int x, int y)
{
    const Region* const r = GdiTable::find<Region>(region);
    return r && r->set.contains(QPoint(x, y));
}

BOOL RectInRegion(HRGN region, const RECT* rect)
{
    const Region* const r = GdiTable::find<Region>(region);
    return r && rect && r->set.intersects(rectangle(rect->left, rect->top, rect->right, rect->bottom));
}

BOOL FillRgn(HDC dc, HRGN region, HBRUSH brush)
{
    DeviceContext* const context = GdiTable::find<DeviceContext>(dc);
    const Region* const r = GdiTable::find<Region>(region);
    const Brush* const with = GdiTable::find<Brush>(brush);
    if (!context || !r || !with) return FALSE;
    for (const QRect& part : r->set)
        fillArea(*context,
                 context->pixelsOf({part.left(), part.top(), std::int64_t{part.left()} + part.width(),
                                    std::int64_t{part.top()} + part.height()}),
                 *with);
    return TRUE;
}

int SelectClipRgn(HDC dc, HRGN region)
{
    DeviceContext* const context = GdiTable::find<DeviceContext>(dc);
    if (!context) return ERROR_REGION;
    if (!region) return choose(*context, std::nullopt);
    const Region* const r = GdiTable::find<Region>(region);
    return r ? choose(*context, r->set) : ERROR_REGION;
}

int ExtSelectClipRgn(HDC dc, HRGN region, int mode)
{
    if (mode == RGN_COPY) return SelectClipRgn(dc, region);
    DeviceContext* const context = GdiTable::find<DeviceContext>(dc);
    const Region* const r = GdiTable::find<Region>(region);
    if (!context || !r) return ERROR_REGION;
    if (mode < RGN_AND || mode > RGN_COPY) return refuse(ERROR_REGION);
    return choose(*context, combined(context->chosen ? *context->chosen : everything(), r->set, mode));
}

int IntersectClipRect(HDC dc, int left, int top, int right, int bottom)
{
    return combineClip(dc, left, top, right, bottom, RGN_AND);
}

int ExcludeClipRect(HDC dc, int left, int top, int right, int bottom)
{
    return combineClip(dc, left, top, right, bottom, RGN_DIFF);
}

int GetClipBox(HDC dc, RECT* box)
{
    const DeviceContext* const context = GdiTable::find<DeviceContext>(dc);
    if (!context || !box) return context ? refuse(ERROR_REGION) : ERROR_REGION;
    const QRegion all = visibleOf(*context);
    *box = boundsOf(all.translated(-context->viewport.x, -context->viewport.y));
    return complexityOf(all);
}

BOOL RectVisible(HDC dc, const RECT* rect)
{
    const DeviceContext* const context = GdiTable::find<DeviceContext>(dc);
    if (!context || !rect) return context ? refuse(FALSE) : FALSE;
    BOOL isSeen = FALSE;
    context->forEachPart(context->pixelsOf(areaOf(*rect)), [&](const Area&) { isSeen = TRUE; });
    return isSeen;
}

BOOL PtVisible(HDC dc, int x, int y)
{
    const RECT pixel{x, y, x == INT32_MAX ? x : x + 1, y == INT32_MAX ? y : y + 1};
    return RectVisible(dc, &pixel);
}
