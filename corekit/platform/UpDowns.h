// The up-down control: two arrows that count, often beside an edit control, its buddy.
//
// The parent gets WM_VSCROLL (WM_HSCROLL of the horizontal kind) with SB_THUMBPOSITION and the position, and
// SB_ENDSCROLL when the user lets go.
#pragma once

#include "corekit/platform/Controls.h"

inline constexpr DWORD UDS_WRAP = 0x1;         // behind the end it goes on from the beginning
inline constexpr DWORD UDS_SETBUDDYINT = 0x2;  // the position is the buddy's text
inline constexpr DWORD UDS_ALIGNRIGHT = 0x4;   // lies in the buddy, which becomes narrower
inline constexpr DWORD UDS_ALIGNLEFT = 0x8;    // at its other end
inline constexpr DWORD UDS_AUTOBUDDY = 0x10;   // the buddy is the control made before it
inline constexpr DWORD UDS_ARROWKEYS = 0x20;   // up and down count in the buddy as well
inline constexpr DWORD UDS_HORZ = 0x40;        // arrows to left and right
inline constexpr DWORD UDS_NOTHOUSANDS = 0x80; // no separators in the buddy's text

// How far a step goes once the user has held the arrow for so many seconds.
struct UDACCEL {
    UINT nSec;
    UINT nInc;
};

// The range is 100 to 0 at first; where the upper limit is below the lower one, up counts down.
inline constexpr UINT UDM_SETRANGE = 0x465; // lParam: upper and lower limit in its words, signed
inline constexpr UINT UDM_GETRANGE = 0x466; // answers the same
inline constexpr UINT UDM_SETPOS = 0x467;   // lParam: position in its low word; answers the one before
inline constexpr UINT UDM_GETPOS =
    0x468; // of the buddy's text; the high word is not 0 if that is no such number
inline constexpr UINT UDM_SETBUDDY = 0x469; // wParam: HWND; answers the one before
inline constexpr UINT UDM_GETBUDDY = 0x46A;
inline constexpr UINT UDM_SETACCEL = 0x46B; // wParam: count; lParam: const UDACCEL*
inline constexpr UINT UDM_GETACCEL = 0x46C; // answers how many there are
inline constexpr UINT UDM_SETBASE = 0x46D;  // wParam: 10 or 16; answers the one before
inline constexpr UINT UDM_GETBASE = 0x46E;
inline constexpr UINT UDM_SETRANGE32 = 0x46F; // wParam: lower; lParam: upper
inline constexpr UINT UDM_GETRANGE32 = 0x470; // wParam, lParam: int*
inline constexpr UINT UDM_SETPOS32 = 0x471;   // lParam: position; answers the one before
inline constexpr UINT UDM_GETPOS32 = 0x472;   // lParam: BOOL* that tells of a wrong text, may be null

struct NMUPDOWN {
    NMHDR hdr;
    int iPos;   // before the change
    int iDelta; // the parent may change it
};
using NM_UPDOWN = NMUPDOWN;

inline constexpr UINT UDN_DELTAPOS = 0u - 722; // WM_NOTIFY; an answer other than 0 keeps the position
