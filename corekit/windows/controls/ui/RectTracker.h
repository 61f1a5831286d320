// A rectangle that the user moves and sizes by eight handles within a window.
//
// The window passes its mouse messages on: Press in WM_LBUTTONDOWN, and while that has answered true MoveTo
// and Release. The rectangle stays within the limits, and no smaller than the least size.
#pragma once

#include "corekit/framework/Geometry.h"
#include "corekit/framework/ui/DC.h"

class COREKIT_API CRectTracker {
public:
    enum Hit { nothing, inside, topLeft, top, topRight, right, bottomRight, bottom, bottomLeft, left };

    explicit CRectTracker(const CRect& rect = CRect()) : m_rect(rect) {}

    CRect m_rect;
    CRect m_limits; // empty: none
    CSize m_leastSize{8, 8};
    static constexpr int handle = 6; // side of a handle

    void Draw(CDC& dc) const;
    Hit HitTest(CPoint point) const;
    const char* CursorOf(Hit hit) const; // for LoadCursorA

    bool Press(CPoint point); // false: not on the rectangle
    void MoveTo(CPoint point);
    void Release() { m_hit = nothing; }
    void Cancel(); // as it was before Press
    bool IsTracking() const { return m_hit != nothing; }

private:
    CRect HandleRect(Hit hit) const;

    Hit m_hit = nothing;
    CPoint m_from;
    CRect m_former;
};
