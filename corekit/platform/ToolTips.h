// The tool tip control: texts that appear while the pointer rests on a tool, which is a window or a part of
// one.
//
// Tips appear and go by the toolkit's own timing, and look as the theme's.
#pragma once

#include "corekit/platform/Controls.h"

inline constexpr DWORD TTS_ALWAYSTIP = 0x1; // accepted
inline constexpr DWORD TTS_NOPREFIX = 0x2;  // & is a character as any other
inline constexpr DWORD TTS_BALLOON = 0x40;  // accepted

inline constexpr UINT TTF_IDISHWND = 0x1;  // the tool is the whole window uId
inline constexpr UINT TTF_SUBCLASS = 0x10; // accepted: the control watches the tools in any case
inline constexpr UINT TTF_TRACK = 0x20;    // appears by TTM_TRACKACTIVATE only
inline constexpr UINT TTF_ABSOLUTE = 0x80; // accepted

struct TOOLINFOA {
    UINT cbSize;     // of this record
    UINT uFlags;     // TTF_
    HWND hwnd;       // holds the tool and gets the notifications
    UINT_PTR uId;    // number, or with TTF_IDISHWND the window
    RECT rect;       // in the client of hwnd
    HINSTANCE hinst; // kept
    char* lpszText;  // or LPSTR_TEXTCALLBACK; a number below 65536 shows nothing (CToolTipCtrl looks it up)
    LPARAM lParam;   // kept
};
using TOOLINFO = TOOLINFOA;
using TTTOOLINFO = TOOLINFOA;

inline constexpr UINT TTM_ACTIVATE = 0x401; // wParam: tips appear or not
inline constexpr UINT TTM_SETDELAYTIME =
    0x403;                                  // wParam: TTDT_AUTOPOP; lParam: milliseconds, -1 the toolkit's
inline constexpr UINT TTM_ADDTOOLA = 0x404; // lParam: const TOOLINFO*
inline constexpr UINT TTM_DELTOOLA = 0x405; // lParam: by hwnd and uId, as the next ones
inline constexpr UINT TTM_NEWTOOLRECTA = 0x406;   // its rectangle
inline constexpr UINT TTM_RELAYEVENT = 0x407;     // accepted: the control watches the tools itself
inline constexpr UINT TTM_GETTOOLINFOA = 0x408;   // text goes to lpszText: 1,024 bytes
inline constexpr UINT TTM_SETTOOLINFOA = 0x409;   // all of it
inline constexpr UINT TTM_GETTEXTA = 0x40B;       // wParam: size; into lpszText
inline constexpr UINT TTM_UPDATETIPTEXTA = 0x40C; // its text alone
inline constexpr UINT TTM_GETTOOLCOUNT = 0x40D;   // answers tools
inline constexpr UINT TTM_TRACKACTIVATE = 0x411;  // wParam: show or hide; lParam: the tool
inline constexpr UINT TTM_TRACKPOSITION = 0x412;  // lParam: x and y on the screen in its words
inline constexpr UINT TTM_GETDELAYTIME = 0x415;   // wParam: TTDT_AUTOPOP
inline constexpr UINT TTM_SETMAXTIPWIDTH = 0x418; // lParam: pixels at which text wraps, -1 never
inline constexpr UINT TTM_GETMAXTIPWIDTH = 0x419;
inline constexpr UINT TTM_POP = 0x41C;    // hides the tip on show
inline constexpr WPARAM TTDT_AUTOPOP = 2; // how long a tip stays

// What a tool is asked for: a text in szText, or lpszText made to point at it.
struct NMTTDISPINFOA {
    NMHDR hdr; // idFrom: the tool's uId
    char* lpszText;
    char szText[80];
    HINSTANCE hinst;
    UINT uFlags;
    LPARAM lParam;
};
using NMTTDISPINFO = NMTTDISPINFOA;
using TOOLTIPTEXT = NMTTDISPINFOA;
using TOOLTIPTEXTA = NMTTDISPINFOA;

// WM_NOTIFY to the tool's hwnd.
inline constexpr UINT TTN_GETDISPINFO = 0u - 520; // NMTTDISPINFO; an empty text shows no tip
inline constexpr UINT TTN_NEEDTEXT = TTN_GETDISPINFO;
inline constexpr UINT TTN_NEEDTEXTA = TTN_GETDISPINFO;
inline constexpr UINT TTN_SHOW = 0u - 521; // just before a tip appears
