// Which bars a frame has and where they stand: taken by CFrameWnd::GetDockState, put in force by
// SetDockState.
//
// A record holds plain values and refers to no window, so it may be kept and stored. Bars are known by their
// ids.
//
//     CDockState state;
//     frame.GetDockState(state); // when the program ends
//     frame.SetDockState(state); // when it has made its bars anew
#pragma once

#include "corekit/framework/ui/ControlBar.h"

// Places count in pixels of the screen that they were taken on; nothing is scaled when they are put in
// force.
struct CDockState {
    std::vector<CControlBarInfo> m_arrBarInfo; // one each bar and dock, in the frame's order
    CSize m_screen;                            // on which the places were taken

    // In pixels; 0 by 0 for a record that was never taken.
    CSize GetScreenSize() const { return m_screen; }
    void SetScreenSize(CSize screen) { m_screen = screen; }
};
