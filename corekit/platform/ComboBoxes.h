// The combo box: a list box with a field above it that shows the choice or takes text.
//
// Indices count from 0. Messages answer CB_ERR for an index that does not exist. The height that a window of
// the drop-down kinds is given is that of field and open list together; the window itself is as high as its
// field.
#pragma once

#include "corekit/platform/Controls.h"

inline constexpr DWORD CBS_SIMPLE = 0x1;       // the list is always open
inline constexpr DWORD CBS_DROPDOWN = 0x2;     // text can be entered
inline constexpr DWORD CBS_DROPDOWNLIST = 0x3; // only the list's rows
inline constexpr DWORD CBS_OWNERDRAWFIXED = 0x10;
inline constexpr DWORD CBS_OWNERDRAWVARIABLE = 0x20;
inline constexpr DWORD CBS_AUTOHSCROLL = 0x40;
inline constexpr DWORD CBS_SORT = 0x100;
inline constexpr DWORD CBS_HASSTRINGS = 0x200;
inline constexpr DWORD CBS_NOINTEGRALHEIGHT = 0x400;
inline constexpr DWORD CBS_DISABLENOSCROLL = 0x800;
inline constexpr DWORD CBS_UPPERCASE = 0x2000;
inline constexpr DWORD CBS_LOWERCASE = 0x4000;

inline constexpr LRESULT CB_OKAY = 0;
inline constexpr LRESULT CB_ERR = -1;

inline constexpr UINT CB_GETEDITSEL = 0x140; // wParam, lParam: DWORD* start and end, may be null
inline constexpr UINT CB_LIMITTEXT = 0x141;  // wParam: units that the user can enter, 0: the greatest
inline constexpr UINT CB_SETEDITSEL = 0x142; // lParam: start and end in its words, -1 as in EM_SETSEL
inline constexpr UINT CB_ADDSTRING = 0x143;
inline constexpr UINT CB_DELETESTRING = 0x144;
inline constexpr UINT CB_GETCOUNT = 0x146;
inline constexpr UINT CB_GETCURSEL = 0x147;
inline constexpr UINT CB_GETLBTEXT = 0x148; // wParam: index; lParam: a buffer of sufficient size
inline constexpr UINT CB_GETLBTEXTLEN = 0x149;
inline constexpr UINT CB_INSERTSTRING = 0x14A; // wParam: index, -1 the end
inline constexpr UINT CB_RESETCONTENT = 0x14B;
inline constexpr UINT CB_FINDSTRING =
    0x14C; // wParam: search begins behind it, -1 at the top; lParam: a beginning
inline constexpr UINT CB_SELECTSTRING = 0x14D;
inline constexpr UINT CB_SETCURSEL = 0x14E;    // wParam: index, -1 none, which empties the field
inline constexpr UINT CB_SHOWDROPDOWN = 0x14F; // wParam: open or not
inline constexpr UINT CB_GETITEMDATA = 0x150;
inline constexpr UINT CB_SETITEMDATA = 0x151;
inline constexpr UINT CB_GETDROPPEDCONTROLRECT = 0x152; // lParam: RECT* of both, on the screen
inline constexpr UINT CB_SETITEMHEIGHT = 0x153;         // wParam: index, -1 the field; lParam: pixels
inline constexpr UINT CB_GETITEMHEIGHT = 0x154;
inline constexpr UINT CB_GETDROPPEDSTATE = 0x157;
inline constexpr UINT CB_FINDSTRINGEXACT = 0x158;
inline constexpr UINT CB_GETDROPPEDWIDTH = 0x15F;
inline constexpr UINT CB_SETDROPPEDWIDTH = 0x160; // wParam: pixels at least
inline constexpr UINT CB_INITSTORAGE = 0x161;
inline constexpr UINT CB_SETCUEBANNER = 0x1703; // lParam: const WCHAR* shown while there is no text

// WM_COMMAND. All but focus come from what the user does.
inline constexpr UINT CBN_SELCHANGE = 1;
inline constexpr UINT CBN_DBLCLK = 2;
inline constexpr UINT CBN_SETFOCUS = 3;
inline constexpr UINT CBN_KILLFOCUS = 4;
inline constexpr UINT CBN_EDITCHANGE = 5; // after the text is shown
inline constexpr UINT CBN_EDITUPDATE = 6; // before
inline constexpr UINT CBN_DROPDOWN = 7;
inline constexpr UINT CBN_CLOSEUP = 8;
inline constexpr UINT CBN_SELENDOK = 9;
inline constexpr UINT CBN_SELENDCANCEL = 10;
