// Application bars: windows that keep a strip along an edge of the screen for themselves.
//
// On an X11 desktop the strip is reserved with the window manager, also against the windows of other
// programs, and at most one bar of all programs hides itself on an edge. Elsewhere the calls answer the same
// way for the bars of this program, nothing is reserved, and debug output says so once. There is no task bar
// whose settings could be asked: its state is 0. Rectangles are in pixels of the primary screen. Toolkit's
// thread.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

inline constexpr DWORD ABM_NEW = 0, ABM_REMOVE = 1, ABM_QUERYPOS = 2, ABM_SETPOS = 3, ABM_GETSTATE = 4,
                       ABM_ACTIVATE = 6, ABM_GETAUTOHIDEBAR = 7, ABM_SETAUTOHIDEBAR = 8,
                       ABM_WINDOWPOSCHANGED = 9;
// In wParam of the callback message.
inline constexpr UINT ABN_STATECHANGE = 0, ABN_POSCHANGED = 1, ABN_FULLSCREENAPP = 2, ABN_WINDOWARRANGE = 3;
inline constexpr UINT ABE_LEFT = 0, ABE_TOP = 1, ABE_RIGHT = 2, ABE_BOTTOM = 3;

struct APPBARDATA {
    DWORD cbSize;
    HWND hWnd;
    UINT uCallbackMessage; // ABM_NEW: posted with ABN_POSCHANGED when another bar has changed, and on an X11
                           // desktop with ABN_FULLSCREENAPP when the first window of any program that covers
                           // the whole screen has come (lParam 1) and when the last one has gone (0)
    UINT uEdge;            // ABE_; any other one stands for no strip
    RECT rc;               // asked for and, trimmed to what is free along the edge, given
    LPARAM lParam;         // ABM_SETAUTOHIDEBAR: whether to take the edge or to give it back
};

// 0 for a window that is no bar, and for an edge that is taken. ABM_GETAUTOHIDEBAR answers the window of this
// program that hides itself on the edge, 0 for none.
COREKIT_API UINT_PTR SHAppBarMessage(DWORD message, APPBARDATA* data);
