// A bar on its way: where it would go if the user let go of it now, shown by an outline.
//
// Near an edge where the bar may be docked it would be docked there, anywhere else it would float. Made when
// the mouse goes down on the bar; Drop puts it in force, and without it nothing has changed.
#pragma once

#include "corekit/framework/ui/BarDrag.h"
#include "corekit/framework/ui/Wnd.h"

#include <array>

class CControlBar;
class CDockBar;

class CDockContext final : public corekit::detail::BarDrag {
public:
    CDockContext(CControlBar& bar, CPoint screen);
    ~CDockContext() override;
    CDockContext(const CDockContext&) = delete;
    CDockContext& operator=(const CDockContext&) = delete;

    void MoveTo(CPoint screen, Docking docking) override;
    // Nothing where the mouse has not moved far enough for a drag.
    void Drop() override;

private:
    CDockBar* DockAt(CPoint screen) const;
    void ShowOutline(const CRect& rect);

    CControlBar& m_bar;
    CPoint m_start;
    CSize m_grip; // from the bar's corner to the mouse
    bool m_moves = false;
    CDockBar* m_target = nullptr; // null: it floats
    CRect m_outline;
    std::array<CWnd, 4> m_sides;
    HWND m_formerFocus = nullptr;
};
