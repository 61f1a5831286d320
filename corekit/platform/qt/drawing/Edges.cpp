#include "corekit/platform/Errors.h"
#include "corekit/platform/GdiFrames.h"
#include "corekit/platform/qt/drawing/Fill.h"
#include "corekit/platform/SystemColours.h"

using namespace corekit::detail;

namespace {

// The system colours of one line of an edge: of its left and upper side, and of its right and lower side.
struct Sides {
    int light, dark;
};

struct Border {
    UINT edge;
    Sides normal, soft, flat, mono;
};

constexpr Border borders[] = {
    {BDR_RAISEDOUTER,
     {COLOR_3DLIGHT, COLOR_3DDKSHADOW},
     {COLOR_BTNHIGHLIGHT, COLOR_3DDKSHADOW},
     {COLOR_BTNSHADOW, COLOR_BTNSHADOW},
     {COLOR_WINDOWFRAME, COLOR_WINDOWFRAME}},
    {BDR_SUNKENOUTER,
     {COLOR_BTNSHADOW, COLOR_BTNHIGHLIGHT},
     {COLOR_3DDKSHADOW, COLOR_BTNHIGHLIGHT},
     {COLOR_BTNSHADOW, COLOR_BTNSHADOW},
     {COLOR_WINDOWFRAME, COLOR_WINDOWFRAME}},
    {BDR_RAISEDINNER,
     {COLOR_BTNHIGHLIGHT, COLOR_BTNSHADOW},
     {COLOR_3DLIGHT, COLOR_BTNSHADOW},
     {COLOR_BTNFACE, COLOR_BTNFACE},
     {COLOR_WINDOW, COLOR_WINDOW}},
    {BDR_SUNKENINNER,
     {COLOR_3DDKSHADOW, COLOR_3DLIGHT},
     {COLOR_BTNSHADOW, COLOR_3DLIGHT},
     {COLOR_BTNFACE, COLOR_BTNFACE},
     {COLOR_WINDOW, COLOR_WINDOW}},
};

const Sides& sidesOf(const Border& border, UINT flags)
{
    if (flags & BF_MONO) return border.mono;
    if (flags & BF_FLAT) return border.flat;
    return flags & BF_SOFT ? border.soft : border.normal;
}

// Draws the sides that the flags name, and takes them off the rectangle.
void drawLineOf(DeviceContext& context, Area& rest, const Sides& sides, UINT flags)
{
    if (rest.isEmpty()) return;
    const auto fill = [&](const Area& line, int colour) {
        fillArea(context, context.pixelsOf(line.cut(rest)), pixelOf(GetSysColor(colour)));
    };
    const Area all = rest;
    // The corners at the end of the lower and right side belong to those.
    if (flags & BF_TOP) fill({all.left, all.top, all.right, all.top + 1}, sides.light);
    if (flags & BF_LEFT) fill({all.left, all.top, all.left + 1, all.bottom}, sides.light);
    if (flags & BF_BOTTOM) fill({all.left, all.bottom - 1, all.right, all.bottom}, sides.dark);
    if (flags & BF_RIGHT) fill({all.right - 1, all.top, all.right, all.bottom}, sides.dark);
    rest.top += flags & BF_TOP ? 1 : 0;
    rest.left += flags & BF_LEFT ? 1 : 0;
    rest.bottom -= flags & BF_BOTTOM ? 1 : 0;
    rest.right -= flags & BF_RIGHT ? 1 : 0;
}

} // namespace

BOOL DrawEdge(HDC dc, RECT* rect, UINT edge, UINT flags)
{
    DeviceContext* const context = GdiTable::find<DeviceContext>(dc);
    if (!context) return FALSE;
    if (!rect) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    Area rest = areaOf(*rect);
    for (const Border& border : borders)
        if (edge & border.edge) drawLineOf(*context, rest, sidesOf(border, flags), flags);
    if (flags & BF_MIDDLE)
        fillArea(*context, context->pixelsOf(rest),
                 pixelOf(GetSysColor(flags & BF_MONO ? COLOR_WINDOW : COLOR_BTNFACE)));
    if (flags & BF_ADJUST)
        *rect = {static_cast<LONG>(rest.left), static_cast<LONG>(rest.top), static_cast<LONG>(rest.right),
                 static_cast<LONG>(rest.bottom)};
    return TRUE;
}

BOOL DrawFocusRect(HDC dc, const RECT* rect)
{
    DeviceContext* const context = GdiTable::find<DeviceContext>(dc);
    if (!context) return FALSE;
    if (!rect) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    const Area all = areaOf(*rect);
    const auto invert = [&](const Area& line) {
        for (std::int64_t y = line.top; y < line.bottom; ++y)
            for (std::int64_t x = line.left + ((line.left + y) & 1); x < line.right; x += 2)
                context->forEachPart(context->pixelsOf({x, y, x + 1, y + 1}), [&](const Area& part) {
                    for (std::int64_t row = part.top; row < part.bottom; ++row)
                        for (std::int64_t at = part.left; at < part.right; ++at)
                            context->bitmap->row(static_cast<int>(row))[at] ^= 0xFFFFFFu;
                });
    };
    if (all.isEmpty()) return TRUE;
    invert({all.left, all.top, all.right, all.top + 1});
    if (all.height() > 1) invert({all.left, all.bottom - 1, all.right, all.bottom});
    if (all.height() > 2) invert({all.left, all.top + 1, all.left + 1, all.bottom - 1});
    if (all.height() > 2 && all.width() > 1) invert({all.right - 1, all.top + 1, all.right, all.bottom - 1});
    return TRUE;
}
