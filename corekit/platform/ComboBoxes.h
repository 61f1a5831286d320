// The combo box: a list box with a field above it that shows the choice or takes text.
//
// Indices count from 0. Messages answer CB_ERR for an index that does not exist. The height that a window of
// the drop-down kinds is given is that of field and open list together; the window itself is as high as its
// field.
#pragma once

#include "corekit/platform/Controls.h"

inline constexpr DWORD CBS_SIMPLE = 0x1;             // the list is always open
inline constexpr DWORD CBS_DROPDOWN = 0x2;           // text can be entered
inline constexpr DWORD CBS_DROPDOWNLIST = 0x3;       // only the list's rows
inline constexpr DWORD CBS_OWNERDRAWFIXED = 0x10;    // the parent draws rows of one height
inline constexpr DWORD CBS_OWNERDRAWVARIABLE = 0x20; // WM_MEASUREITEM for each row
inline constexpr DWORD CBS_AUTOHSCROLL = 0x40;       // accepted: every field scrolls
inline constexpr DWORD CBS_SORT = 0x100;             // CB_ADDSTRING finds the place
inline constexpr DWORD CBS_HASSTRINGS = 0x200;       // rows that the parent draws have text, too
inline constexpr DWORD CBS_NOINTEGRALHEIGHT = 0x400; // accepted
inline constexpr DWORD CBS_DISABLENOSCROLL = 0x800;  // accepted
inline constexpr DWORD CBS_UPPERCASE = 0x2000;       // what the user enters becomes so
inline constexpr DWORD CBS_LOWERCASE = 0x4000;       // likewise

inline constexpr LRESULT CB_OKAY = 0;
inline constexpr LRESULT CB_ERR = -1;

inline constexpr UINT CB_GETEDITSEL = 0x140;   // wParam, lParam: DWORD* start and end, may be null
inline constexpr UINT CB_LIMITTEXT = 0x141;    // wParam: units that the user can enter, 0: the greatest
inline constexpr UINT CB_SETEDITSEL = 0x142;   // lParam: start and end in its words, -1 as in EM_SETSEL
inline constexpr UINT CB_ADDSTRING = 0x143;    // lParam: text, or the data of a drawn row; answers the index
inline constexpr UINT CB_DELETESTRING = 0x144; // wParam: index; answers how many are left
inline constexpr UINT CB_GETCOUNT = 0x146;
inline constexpr UINT CB_GETCURSEL = 0x147;    // -1 for none
inline constexpr UINT CB_GETLBTEXT = 0x148;    // wParam: index; lParam: a buffer of sufficient size
inline constexpr UINT CB_GETLBTEXTLEN = 0x149; // answers bytes, or units by SendMessageW
inline constexpr UINT CB_INSERTSTRING = 0x14A; // wParam: index, -1 the end
inline constexpr UINT CB_RESETCONTENT = 0x14B; // no rows
inline constexpr UINT CB_FINDSTRING =
    0x14C; // wParam: search begins behind it, -1 at the top; lParam: a beginning
inline constexpr UINT CB_SELECTSTRING = 0x14D; // as CB_FINDSTRING, and chooses it
inline constexpr UINT CB_SETCURSEL = 0x14E;    // wParam: index, -1 none, which empties the field
inline constexpr UINT CB_SHOWDROPDOWN = 0x14F; // wParam: open or not
inline constexpr UINT CB_GETITEMDATA = 0x150;
inline constexpr UINT CB_SETITEMDATA = 0x151;           // wParam: index; lParam: the value
inline constexpr UINT CB_GETDROPPEDCONTROLRECT = 0x152; // lParam: RECT* of both, on the screen
inline constexpr UINT CB_SETITEMHEIGHT = 0x153;         // wParam: index, -1 the field; lParam: pixels
inline constexpr UINT CB_GETITEMHEIGHT = 0x154;
inline constexpr UINT CB_GETDROPPEDSTATE = 0x157; // answers whether the list is open
inline constexpr UINT CB_FINDSTRINGEXACT = 0x158; // the whole text
inline constexpr UINT CB_GETDROPPEDWIDTH = 0x15F; // answers pixels
inline constexpr UINT CB_SETDROPPEDWIDTH = 0x160; // wParam: pixels at least
inline constexpr UINT CB_INITSTORAGE = 0x161;     // wParam: rows to make room for
inline constexpr UINT CB_SETCUEBANNER = 0x1703;   // lParam: const WCHAR* shown while there is no text

// WM_COMMAND. All but focus come from what the user does.
inline constexpr UINT CBN_SELCHANGE = 1; // another row is chosen
inline constexpr UINT CBN_DBLCLK = 2;    // of CBS_SIMPLE
inline constexpr UINT CBN_SETFOCUS = 3;
inline constexpr UINT CBN_KILLFOCUS = 4;
inline constexpr UINT CBN_EDITCHANGE = 5;    // after the text is shown
inline constexpr UINT CBN_EDITUPDATE = 6;    // before
inline constexpr UINT CBN_DROPDOWN = 7;      // the list opens
inline constexpr UINT CBN_CLOSEUP = 8;       // the list has closed
inline constexpr UINT CBN_SELENDOK = 9;      // a row has been chosen, the same one as well
inline constexpr UINT CBN_SELENDCANCEL = 10; // closed without a choice
