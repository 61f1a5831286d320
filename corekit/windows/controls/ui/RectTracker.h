// A rectangle that the user moves and sizes by eight handles within a window.
//
// The window passes its mouse messages on: Press in WM_LBUTTONDOWN, and while that has answered true MoveTo
// and Release. The rectangle stays within the limits, and no smaller than the least size.
#pragma once

#include "corekit/framework/Geometry.h"
#include "corekit/framework/ui/DC.h"

class COREKIT_API CRectTracker {
public:
    // The handles by where they lie.
    enum Hit { nothing, inside, topLeft, top, topRight, right, bottomRight, bottom, bottomLeft, left };

    // In client pixels, as all of it. The rectangle is normalised: left of right, top above bottom.
    explicit CRectTracker(const CRect& rect = CRect()) : m_rect(rect) {}

    CRect m_rect;   // where it is now
    CRect m_limits; // empty: none
    CSize m_leastSize{8, 8};
    static constexpr int handle = 6; // side of a handle

    void Draw(CDC& dc) const;
    // The part that a point is on, handles first; `nothing` outside.
    Hit HitTest(CPoint point) const;
    // The resource of the cursor that shows what a press there would do, for LoadCursorA.
    const char* CursorOf(Hit hit) const;

    // Starts a move or a change of size.
    bool Press(CPoint point); // false: not on the rectangle
    // To where the mouse is; counted from the press, so nothing is lost at the limits.
    void MoveTo(CPoint point);

    void Release() { m_hit = nothing; }
    void Cancel();                                       // as it was before Press
    bool IsTracking() const { return m_hit != nothing; } // between Press and Release

private:
    CRect HandleRect(Hit hit) const;

    Hit m_hit = nothing;
    CPoint m_from;  // where it was pressed
    CRect m_former; // and what it was then
};
