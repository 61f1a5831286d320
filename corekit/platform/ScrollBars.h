// Scroll bars: the two of a window (styles WS_HSCROLL and WS_VSCROLL), and those that are controls.
//
// A bar tells its window by WM_HSCROLL or WM_VSCROLL what the user did, and stays where it is until the
// program sets the position. Positions are 32 bits; SCROLLINFO tells the tracked one whole, a message only
// its low 16 bits. User-interface thread.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

// Which bar: of a window across or upright, a control, both of a window.
inline constexpr int SB_HORZ = 0, SB_VERT = 1, SB_CTL = 2, SB_BOTH = 3;

// What the user did, in LOWORD(wParam); the thumb's position is in the high word.
inline constexpr int SB_LINEUP = 0, SB_LINELEFT = 0, SB_LINEDOWN = 1, SB_LINERIGHT = 1, SB_PAGEUP = 2,
                     SB_PAGELEFT = 2, SB_PAGEDOWN = 3, SB_PAGERIGHT = 3, SB_THUMBPOSITION = 4,
                     SB_THUMBTRACK = 5, SB_TOP = 6, SB_LEFT = 6, SB_BOTTOM = 7, SB_RIGHT = 7,
                     SB_ENDSCROLL = 8;

// Which members of SCROLLINFO count.
inline constexpr UINT SIF_RANGE = 0x1, SIF_PAGE = 0x2, SIF_POS = 0x4, SIF_DISABLENOSCROLL = 0x8,
                      SIF_TRACKPOS = 0x10, SIF_ALL = 0x17;
struct SCROLLINFO {
    UINT cbSize;    // of this record; not looked at
    UINT fMask;     // which of the others count
    int nMin, nMax; // range, both ends included
    UINT nPage;     // positions go from nMin to nMax - nPage + 1
    int nPos;       // held within the range
    int nTrackPos;  // read only: where the user drags the thumb
};

// For SB_CTL the window is the bar itself, which gets these as messages (lParam: SCROLLINFO).
inline constexpr UINT SBM_SETPOS = 0xE0, SBM_GETPOS = 0xE1, SBM_SETRANGE = 0xE2, SBM_GETRANGE = 0xE3,
                      SBM_ENABLE_ARROWS = 0xE4, SBM_SETSCROLLINFO = 0xE9, SBM_GETSCROLLINFO = 0xEA;

// Returns the position that is in force now. A bar of a window with nothing to scroll hides, with
// SIF_DISABLENOSCROLL it stays and is disabled.
COREKIT_API int SetScrollInfo(HWND window, int bar, const SCROLLINFO* info, BOOL redraw);
COREKIT_API BOOL GetScrollInfo(HWND window, int bar, SCROLLINFO* info);
COREKIT_API int SetScrollPos(HWND window, int bar, int position, BOOL redraw); // returns the former
COREKIT_API int GetScrollPos(HWND window, int bar);                            // 0 on failure
// The position is brought within it.
COREKIT_API BOOL SetScrollRange(HWND window, int bar, int minimum, int maximum, BOOL redraw);
COREKIT_API BOOL GetScrollRange(HWND window, int bar, int* minimum, int* maximum);
// By the window's style; a control is shown or hidden itself.
COREKIT_API BOOL ShowScrollBar(HWND window, int bar, BOOL show);

inline constexpr UINT ESB_ENABLE_BOTH = 0, ESB_DISABLE_BOTH = 3;
// Both arrows or none: ESB_DISABLE_BOTH disables the bar, anything else enables it.
COREKIT_API BOOL EnableScrollBar(HWND window, int bar, UINT arrows);
