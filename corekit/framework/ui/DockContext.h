// A bar on its way: where it would go if the user let go of it now, shown by an outline.
//
// Near an edge where the bar may be docked it would be docked there, anywhere else it would float. Made when
// the mouse goes down on the bar; Drop puts it in force, and without it nothing has changed.
//
// The outline is four windows of its own, three pixels thick. User-interface thread; the object lives while
// the mouse button is down. The bar and its frame must outlive it.
#pragma once

#include "corekit/framework/ui/BarDrag.h"
#include "corekit/framework/ui/Wnd.h"

#include <array>

class CControlBar;
class CDockBar;

class CDockContext final : public corekit::detail::BarDrag {
public:
    // `screen` is where the mouse went down. The bar gets the focus, so that Escape arrives there.
    CDockContext(CControlBar& bar, CPoint screen);
    // Takes the outline away and gives the focus back, if the bar still has it.
    ~CDockContext() override;
    CDockContext(const CDockContext&) = delete;
    CDockContext& operator=(const CDockContext&) = delete;

    // The outline appears once the mouse has gone the system's drag distance, and from then on follows it.
    void MoveTo(CPoint screen, Docking docking) override;
    // Nothing where the mouse has not moved far enough for a drag. The bar may have another parent
    // afterwards.
    void Drop() override;

private:
    // The dock within 16 pixels of which the point lies and that the bar allows; null if there is none.
    CDockBar* DockAt(CPoint screen) const;
    void ShowOutline(const CRect& rect);

    CControlBar& m_bar;
    CPoint m_start;               // where the mouse went down
    CSize m_grip;                 // from the bar's corner to the mouse
    bool m_moves = false;         // the mouse has gone far enough
    CDockBar* m_target = nullptr; // null: it floats
    CRect m_outline;              // on the screen, where the bar or its frame would be
    std::array<CWnd, 4> m_sides;  // windows of the outline
    HWND m_formerFocus = nullptr; // gets the focus back
};
