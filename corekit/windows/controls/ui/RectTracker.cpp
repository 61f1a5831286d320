#include "corekit/windows/controls/ui/RectTracker.h"

#include "corekit/platform/SystemColours.h"

#include <algorithm>

namespace {

using Hit = CRectTracker::Hit;
bool isLeft(Hit hit) { return hit == Hit::topLeft || hit == Hit::left || hit == Hit::bottomLeft; }
bool isRight(Hit hit) { return hit == Hit::topRight || hit == Hit::right || hit == Hit::bottomRight; }
bool isTop(Hit hit) { return hit == Hit::topLeft || hit == Hit::top || hit == Hit::topRight; }
bool isBottom(Hit hit) { return hit == Hit::bottomLeft || hit == Hit::bottom || hit == Hit::bottomRight; }
constexpr Hit handles[] = {Hit::topLeft,     Hit::top,    Hit::topRight,   Hit::right,
                           Hit::bottomRight, Hit::bottom, Hit::bottomLeft, Hit::left};

// Within the limits; as far as its least extent allows where these are too narrow.
LONG within(LONG value, LONG low, LONG high) { return std::max(low, std::min(value, high)); }

} // namespace

CRect CRectTracker::HandleRect(Hit hit) const
{
    const CPoint middle = m_rect.CenterPoint();
    const LONG x = isLeft(hit) ? m_rect.left : isRight(hit) ? m_rect.right - handle : middle.x - handle / 2;
    const LONG y = isTop(hit) ? m_rect.top : isBottom(hit) ? m_rect.bottom - handle : middle.y - handle / 2;
    return {CPoint(x, y), CSize(handle, handle)};
}

void CRectTracker::Draw(CDC& dc) const
{
    const COLORREF colour = GetSysColor(COLOR_HIGHLIGHT);
    dc.Draw3dRect(&m_rect, colour, colour);
    for (const Hit hit : handles) {
        const CRect rect = HandleRect(hit);
        dc.FillSolidRect(&rect, colour);
    }
}

CRectTracker::Hit CRectTracker::HitTest(CPoint point) const
{
    for (const Hit hit : handles)
        if (HandleRect(hit).PtInRect(point)) return hit;
    return m_rect.PtInRect(point) ? inside : nothing;
}

const char* CRectTracker::CursorOf(Hit hit) const
{
    if (hit == topLeft || hit == bottomRight) return IDC_SIZENWSE;
    if (hit == topRight || hit == bottomLeft) return IDC_SIZENESW;
    if (hit == left || hit == right) return IDC_SIZEWE;
    if (hit == top || hit == bottom) return IDC_SIZENS;
    return hit == inside ? IDC_SIZEALL : IDC_ARROW;
}

bool CRectTracker::Press(CPoint point)
{
    m_hit = HitTest(point);
    m_from = point;
    m_former = m_rect;
    return m_hit != nothing;
}

void CRectTracker::Cancel()
{
    if (IsTracking()) m_rect = m_former;
    m_hit = nothing;
}

void CRectTracker::MoveTo(CPoint point)
{
    if (!IsTracking()) return;
    const CSize way = point - m_from;
    const CRect limits =
        m_limits.IsRectEmpty() ? CRect(-0x3FFFFFFF, -0x3FFFFFFF, 0x3FFFFFFF, 0x3FFFFFFF) : m_limits;
    m_rect = m_former;
    if (m_hit == inside) {
        m_rect.MoveToXY(within(m_former.left + way.cx, limits.left, limits.right - m_former.Width()),
                        within(m_former.top + way.cy, limits.top, limits.bottom - m_former.Height()));
        return;
    }
    if (isLeft(m_hit))
        m_rect.left = within(m_former.left + way.cx, limits.left, m_rect.right - m_leastSize.cx);
    if (isTop(m_hit)) m_rect.top = within(m_former.top + way.cy, limits.top, m_rect.bottom - m_leastSize.cy);
    if (isRight(m_hit))
        m_rect.right = within(m_former.right + way.cx, m_rect.left + m_leastSize.cx, limits.right);
    if (isBottom(m_hit))
        m_rect.bottom = within(m_former.bottom + way.cy, m_rect.top + m_leastSize.cy, limits.bottom);
}
