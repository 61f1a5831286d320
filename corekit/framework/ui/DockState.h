// Which bars a frame has and where they stand: taken by CFrameWnd::GetDockState, put in force by
// SetDockState.
#pragma once

#include "corekit/framework/ui/ControlBar.h"

struct CDockState {
    std::vector<CControlBarInfo> m_arrBarInfo;
    CSize m_screen; // on which the places were taken

    CSize GetScreenSize() const { return m_screen; }
    void SetScreenSize(CSize screen) { m_screen = screen; }
};
