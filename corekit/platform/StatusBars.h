// The status bar: a line of parts at the lower edge of a window. It places itself there at each WM_SIZE,
// unless CCS_NOPARENTALIGN is set.
#pragma once

#include "corekit/platform/Controls.h"

inline constexpr DWORD SBARS_SIZEGRIP = 0x100; // a corner to size the window by

inline constexpr WPARAM SBT_NOBORDERS = 0x100; // flat
inline constexpr WPARAM SBT_POPOUT = 0x200;    // raised
inline constexpr WPARAM SBT_OWNERDRAW =
    0x1000; // the parent draws the part, at WM_DRAWITEM; lParam is its data

inline constexpr int SB_SIMPLEID = 0xFF; // the one text of the simple mode
inline constexpr int maximumStatusBarParts = 255;

// Parts count from 0. One part takes the whole bar at first.
inline constexpr UINT SB_SETTEXTA =
    0x401; // wParam: part and SBT_; lParam: text; tabs centre and right-align it
inline constexpr UINT SB_GETTEXTA =
    0x402; // wParam: part; lParam: a buffer of sufficient size; answers length and SBT_
inline constexpr UINT SB_GETTEXTLENGTHA = 0x403; // answers bytes and, above, SBT_
inline constexpr UINT SB_SETPARTS = 0x404; // wParam: count; lParam: const int* right edges, -1 the bar's end
inline constexpr UINT SB_GETPARTS = 0x406; // wParam: count; lParam: int*, may be null; answers the count
inline constexpr UINT SB_GETBORDERS = 0x407;   // lParam: int[3]: horizontal, vertical, between parts
inline constexpr UINT SB_SETMINHEIGHT = 0x408; // wParam: pixels of a part
inline constexpr UINT SB_SIMPLE = 0x409;       // wParam: one text, or the parts
inline constexpr UINT SB_GETRECT = 0x40A;      // wParam: part; lParam: RECT*
inline constexpr UINT SB_SETTEXTW = 0x40B;
inline constexpr UINT SB_GETTEXTLENGTHW = 0x40C;
inline constexpr UINT SB_GETTEXTW = 0x40D;
inline constexpr UINT SB_ISSIMPLE = 0x40E;    // answers whether one text shows
inline constexpr UINT SB_SETICON = 0x40F;     // wParam: part; lParam: HICON, not owned
inline constexpr UINT SB_SETTIPTEXTA = 0x410; // wParam: part; lParam: text
inline constexpr UINT SB_GETTIPTEXTA = 0x412; // wParam: part and, above it, the buffer's size
inline constexpr UINT SB_GETICON = 0x414;     // wParam: part
inline constexpr UINT SB_SETTEXT = SB_SETTEXTA;
inline constexpr UINT SB_GETTEXT = SB_GETTEXTA;
inline constexpr UINT SB_GETTEXTLENGTH = SB_GETTEXTLENGTHA;
