// The time at an edge of the screen.
#pragma once

#include "corekit/framework/ui/CmdUI.h"
#include "corekit/windows/ui/AppBar.h"

class ClockBar : public CAppBar {
public:
    ClockBar();
    bool Open(CWnd& owner);

protected:
    void OnTimer(UINT_PTR id);
    void OnContextMenu(CWnd* window, CPoint point);
    void OnHides();
    void OnUpdateHides(CCmdUI* item) { item->SetCheck(IsBarAutohide()); }
    void OnStaysOnTop();
    void OnUpdateStaysOnTop(CCmdUI* item) { item->SetCheck(IsBarAlwaysOnTop()); }
    DECLARE_MESSAGE_MAP()

private:
    void ShowTime();
};
