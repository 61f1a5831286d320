#include "corekit/windows/AppBarGeometry.h"

#include <algorithm>
#include <cstdlib>

namespace corekit::detail {
namespace {

// Sides as WM_SIZING numbers them.
constexpr UINT sizesLeft = 1, sizesRight = 2, sizesTop = 3, sizesTopLeft = 4, sizesTopRight = 5,
               sizesBottom = 6, sizesBottomLeft = 7, sizesBottomRight = 8;
// Answers to WM_NCHITTEST.
constexpr int hitLeft = 10, hitRight = 11, hitTop = 12, hitBottom = 15, hitBorder = 18;

int sliding(LONG start, LONG end, int elapsed)
{
    const LONGLONG way = (static_cast<LONGLONG>(start) - end) * elapsed / slideMilliseconds;
    return static_cast<int>(start - way);
}

int roundedTo(int length, int increment)
{
    if (increment < 1) return length;
    const LONGLONG count = (2LL * std::max(length, 0) + increment) / (2LL * increment);
    return static_cast<int>(count * increment);
}

} // namespace

UINT edgeFromPoint(DWORD allowed, POINT point, const AppBarScreen& screen)
{
    const bool sides = allowed & appBarAllowLeftRight, ends = allowed & appBarAllowTopBottom;
    if (allowed & appBarAllowFloat) {
        CRect inner = screen.workArea;
        inner.DeflateRect(screen.scrollBars.cx, screen.scrollBars.cy);
        if (inner.PtInRect(point) || (!sides && !ends)) return appBarFloat;
    }
    const CPoint centre(screen.size.cx / 2, screen.size.cy / 2);
    const UINT side = point.x < centre.x ? ABE_LEFT : ABE_RIGHT;
    const UINT end = point.y < centre.y ? ABE_TOP : ABE_BOTTOM;
    // Along the diagonals of the screen both are equally far away.
    const LONGLONG across = std::llabs(static_cast<LONGLONG>(point.x) - centre.x) * screen.size.cy;
    const LONGLONG along = std::llabs(static_cast<LONGLONG>(point.y) - centre.y) * screen.size.cx;
    if (along <= across && sides) return side;
    return ends ? end : side;
}

CRect dockedRect(UINT edge, const CRect& area, UINT breadth)
{
    CRect rect = area;
    const auto pixels = static_cast<LONG>(breadth);
    switch (edge) {
    case ABE_LEFT:
        rect.right = wrapAdd(rect.left, pixels);
        break;
    case ABE_TOP:
        rect.bottom = wrapAdd(rect.top, pixels);
        break;
    case ABE_RIGHT:
        rect.left = wrapSub(rect.right, pixels);
        break;
    case ABE_BOTTOM:
        rect.top = wrapSub(rect.bottom, pixels);
        break;
    default:
        break;
    }
    return rect;
}

bool moveForAutohide(UINT edge, AppBarShow show, const AppBarScreen& screen, CRect& rect)
{
    if (edge > ABE_BOTTOM) return false;
    const CSize size = rect.Size();
    const bool hides = show == AppBarShow::hidden;
    CPoint at(0, 0);
    if (edge == ABE_LEFT && hides) at.x = 2 * screen.border.cx - size.cx;
    if (edge == ABE_TOP && hides) at.y = 2 * screen.border.cy - size.cy;
    if (edge == ABE_RIGHT) at.x = screen.size.cx - (hides ? 2 * screen.border.cx : size.cx);
    if (edge == ABE_BOTTOM) at.y = screen.size.cy - (hides ? 2 * screen.border.cy : size.cy);
    rect = CRect(at, size);
    return true;
}

CRect slidingRect(const CRect& start, const CRect& end, int elapsed)
{
    if (elapsed >= slideMilliseconds) return end;
    const CPoint at(sliding(start.left, end.left, elapsed), sliding(start.top, end.top, elapsed));
    const CSize size(sliding(start.Width(), end.Width(), elapsed),
                     sliding(start.Height(), end.Height(), elapsed));
    return {at, size};
}

CRect wholeIncrements(const CRect& rect, CSize frame, CSize increment, UINT side)
{
    const int width = roundedTo(rect.Width() - frame.cx, increment.cx) + frame.cx;
    const int height = roundedTo(rect.Height() - frame.cy, increment.cy) + frame.cy;
    CRect whole = rect;
    if (side == sizesLeft || side == sizesTopLeft || side == sizesBottomLeft) whole.left = rect.right - width;
    if (side == sizesRight || side == sizesTopRight || side == sizesBottomRight)
        whole.right = rect.left + width;
    if (side == sizesTop || side == sizesTopLeft || side == sizesTopRight) whole.top = rect.bottom - height;
    if (side == sizesBottom || side == sizesBottomLeft || side == sizesBottomRight)
        whole.bottom = rect.top + height;
    return whole;
}

int dockedHitTest(UINT edge, POINT point, const CRect& client, CSize increment)
{
    if ((isSideEdge(edge) ? increment.cx : increment.cy) == 0) return hitBorder;
    switch (edge) {
    case ABE_LEFT:
        return point.x > client.right ? hitRight : hitBorder;
    case ABE_TOP:
        return point.y > client.bottom ? hitBottom : hitBorder;
    case ABE_RIGHT:
        return point.x < client.left ? hitLeft : hitBorder;
    case ABE_BOTTOM:
        return point.y < client.top ? hitTop : hitBorder;
    default:
        return hitBorder;
    }
}

} // namespace corekit::detail
