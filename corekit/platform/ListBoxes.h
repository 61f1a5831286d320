// The list box: rows of text, or of whatever its parent draws, of which one or several are selected.
//
// Indices count from 0. Messages answer LB_ERR for an index that does not exist. Text compares without regard
// to case.
#pragma once

#include "corekit/platform/Controls.h"

inline constexpr DWORD LBS_NOTIFY = 0x1;          // tells selection and double clicks
inline constexpr DWORD LBS_SORT = 0x2;            // LB_ADDSTRING finds the place
inline constexpr DWORD LBS_MULTIPLESEL = 0x8;     // several, each click switches one
inline constexpr DWORD LBS_OWNERDRAWFIXED = 0x10; // the parent draws rows of one height (WM_MEASUREITEM once)
inline constexpr DWORD LBS_OWNERDRAWVARIABLE = 0x20; // WM_MEASUREITEM for each row
inline constexpr DWORD LBS_HASSTRINGS = 0x40;        // rows that the parent draws have text, too
inline constexpr DWORD LBS_NOINTEGRALHEIGHT = 0x100; // accepted
inline constexpr DWORD LBS_MULTICOLUMN = 0x200;      // rows go on in further columns
inline constexpr DWORD LBS_EXTENDEDSEL = 0x800;      // several, with Shift and Ctrl
inline constexpr DWORD LBS_DISABLENOSCROLL = 0x1000; // a bar that is not needed stays
inline constexpr DWORD LBS_NODATA = 0x2000;          // rows without text or data, by LB_SETCOUNT
inline constexpr DWORD LBS_NOSEL = 0x4000;           // rows cannot be selected

inline constexpr LRESULT LB_OKAY = 0;
inline constexpr LRESULT LB_ERR = -1;

inline constexpr UINT LB_ADDSTRING = 0x180;    // lParam: text, or the data of a drawn row; answers the index
inline constexpr UINT LB_INSERTSTRING = 0x181; // wParam: index, -1 the end
inline constexpr UINT LB_DELETESTRING = 0x182; // wParam: index; answers how many are left
inline constexpr UINT LB_SELITEMRANGEEX = 0x183; // wParam, lParam: first and last; first above last deselects
inline constexpr UINT LB_RESETCONTENT = 0x184;   // no rows
inline constexpr UINT LB_SETSEL =
    0x185; // wParam: select or not; lParam: index, -1 all; of the multiple kinds
inline constexpr UINT LB_SETCURSEL = 0x186; // wParam: index, -1 none; of the single kind
inline constexpr UINT LB_GETSEL = 0x187;    // wParam: index; above 0 when selected
inline constexpr UINT LB_GETCURSEL = 0x188; // the row in focus, of the multiple kinds
inline constexpr UINT LB_GETTEXT =
    0x189; // wParam: index; lParam: a buffer of sufficient size; answers the length
inline constexpr UINT LB_GETTEXTLEN = 0x18A; // answers bytes, or units by SendMessageW
inline constexpr UINT LB_GETCOUNT = 0x18B;
inline constexpr UINT LB_SELECTSTRING = 0x18C; // as LB_FINDSTRING, and selects it
inline constexpr UINT LB_GETTOPINDEX = 0x18E;
inline constexpr UINT LB_FINDSTRING =
    0x18F; // wParam: search begins behind it, -1 at the top; lParam: a beginning
inline constexpr UINT LB_GETSELCOUNT = 0x190; // of the multiple kinds
inline constexpr UINT LB_GETSELITEMS = 0x191; // wParam: count; lParam: int*; answers how many were stored
inline constexpr UINT LB_GETHORIZONTALEXTENT = 0x193;
inline constexpr UINT LB_SETHORIZONTALEXTENT = 0x194; // wParam: pixels that can be scrolled to
inline constexpr UINT LB_SETCOLUMNWIDTH = 0x195;      // wParam: pixels, of the multi-column kind
inline constexpr UINT LB_SETTOPINDEX = 0x197;         // wParam: index
inline constexpr UINT LB_GETITEMRECT = 0x198;         // wParam: index; lParam: RECT* in the client
inline constexpr UINT LB_GETITEMDATA = 0x199;
inline constexpr UINT LB_SETITEMDATA = 0x19A;    // wParam: index; lParam: the value
inline constexpr UINT LB_SELITEMRANGE = 0x19B;   // wParam: select or not; lParam: first and last in its words
inline constexpr UINT LB_SETANCHORINDEX = 0x19C; // kept and given back
inline constexpr UINT LB_GETANCHORINDEX = 0x19D;
inline constexpr UINT LB_SETCARETINDEX = 0x19E; // wParam: row that gets the focus
inline constexpr UINT LB_GETCARETINDEX = 0x19F;
inline constexpr UINT LB_SETITEMHEIGHT = 0x1A0; // wParam: index, of variable heights; lParam: pixels
inline constexpr UINT LB_GETITEMHEIGHT = 0x1A1;
inline constexpr UINT LB_FINDSTRINGEXACT = 0x1A2; // the whole text
inline constexpr UINT LB_SETCOUNT = 0x1A7;        // wParam: rows, of LBS_NODATA
inline constexpr UINT LB_INITSTORAGE = 0x1A8;     // wParam: rows to make room for
inline constexpr UINT LB_ITEMFROMPOINT =
    0x1A9; // lParam: x and y; answers the nearest, and 1 above it for outside

// A check mark in front of each row: the platform's list box with the toolkit's own marks.
inline constexpr UINT CLB_SETCHECK = 0x1F0; // wParam: index; lParam: BST_ value; the first call shows marks
inline constexpr UINT CLB_GETCHECK = 0x1F1; // answers a BST_ value
inline constexpr UINT CLB_ENABLE = 0x1F2;   // wParam: index; lParam: enabled or grey
inline constexpr UINT CLB_ISENABLED = 0x1F3;
inline constexpr UINT CLB_SETCHECKSTYLE = 0x1F4; // wParam: a BS_ style of check boxes; 0: no marks
inline constexpr UINT CLB_GETCHECKSTYLE = 0x1F5;

// WM_COMMAND.
inline constexpr UINT LBN_SELCHANGE = 1; // by the user
inline constexpr UINT LBN_DBLCLK = 2;
inline constexpr UINT LBN_SETFOCUS = 4;
inline constexpr UINT LBN_KILLFOCUS = 5;
inline constexpr UINT CLBN_CHKCHANGE = 40; // a check mark, by the user
