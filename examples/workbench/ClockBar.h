// The time at an edge of the screen.
#pragma once

#include "corekit/windows/ui/AppBar.h"

class ClockBar : public CAppBar {
public:
    ClockBar();
    bool Open(CWnd& owner);

protected:
    void OnTimer(UINT_PTR id);
    DECLARE_MESSAGE_MAP()

private:
    void ShowTime();
};
