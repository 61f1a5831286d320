// What a list view tells its parent by WM_NOTIFY.
//
// Each arrives as WM_NOTIFY: lParam is the structure, which begins with an NMHDR, and the code says which
// one. Structures are good during the message. Where an answer counts, a handler puts it into its result.
#pragma once

#include "corekit/platform/ListViews.h"

// Of most notifications; members that a notification has no use for are 0.
struct NMLISTVIEW {
    NMHDR hdr;
    int iItem;      // -1: all rows
    int iSubItem;   // column
    UINT uNewState; // LVIS_, after
    UINT uOldState; // before
    UINT uChanged;  // LVIF_
    POINT ptAction; // in the client area
    LPARAM lParam;  // the row's own
};
using NM_LISTVIEW = NMLISTVIEW;
using LPNMLISTVIEW = NMLISTVIEW*;

// With the clicks NM_CLICK, NM_DBLCLK, NM_RCLICK, NM_RDBLCLK and with LVN_ITEMACTIVATE; -1: on no row.
struct NMITEMACTIVATE {
    NMHDR hdr;
    int iItem; // row
    int iSubItem;
    UINT uNewState;
    UINT uOldState;
    UINT uChanged; // LVIF_
    POINT ptAction;
    LPARAM lParam;
    UINT uKeyFlags; // 0
};
using LPNMITEMACTIVATE = NMITEMACTIVATE*;

// What the parent is asked for, or is told of an edited text. Text goes to pszText, which has room for
// cchTextMax bytes, or pszText is made to point at the parent's own.
struct NMLVDISPINFOA {
    NMHDR hdr;
    LVITEMA item;
};
using NMLVDISPINFO = NMLVDISPINFOA;
using LV_DISPINFO = NMLVDISPINFOA;

// A key was pressed in the list.
struct NMLVKEYDOWN {
    NMHDR hdr;
    WORD wVKey; // virtual key
    UINT flags; // 0
};
// A row of LVS_OWNERDATA that begins with what the user types.
struct NMLVFINDITEMA {
    NMHDR hdr;
    int iStart;       // where the search begins
    LVFINDINFOA lvfi; // what is looked for
};
using NMLVFINDITEM = NMLVFINDITEMA;
// The same change for a range of rows.
struct NMLVODSTATECHANGE {
    NMHDR hdr;
    int iFrom, iTo; // first and last row
    UINT uNewState;
    UINT uOldState;
};

inline constexpr UINT LVN_ITEMCHANGING =
    0u - 100; // NMLISTVIEW; an answer other than 0 refuses a message's change
inline constexpr UINT LVN_ITEMCHANGED = 0u - 101;    // NMLISTVIEW
inline constexpr UINT LVN_INSERTITEM = 0u - 102;     // NMLISTVIEW: a row has come
inline constexpr UINT LVN_DELETEITEM = 0u - 103;     // NMLISTVIEW: a row is about to go
inline constexpr UINT LVN_DELETEALLITEMS = 0u - 104; // an answer other than 0: no LVN_DELETEITEM for each
inline constexpr UINT LVN_BEGINLABELEDIT = 0u - 105; // NMLVDISPINFO; an answer other than 0 refuses
inline constexpr UINT LVN_ENDLABELEDIT =
    0u - 106; // pszText is null when dropped; an answer other than 0 takes it
inline constexpr UINT LVN_COLUMNCLICK = 0u - 108;  // NMLISTVIEW: iSubItem
inline constexpr UINT LVN_BEGINDRAG = 0u - 109;    // NMLISTVIEW: iItem and ptAction
inline constexpr UINT LVN_ITEMACTIVATE = 0u - 114; // NMITEMACTIVATE
inline constexpr UINT LVN_ODSTATECHANGED =
    0u - 115;                                     // NMLVODSTATECHANGE: several rows of LVS_OWNERDATA at once
inline constexpr UINT LVN_GETDISPINFO = 0u - 150; // NMLVDISPINFO, whose mask says what is asked for
inline constexpr UINT LVN_ODFINDITEM = 0u - 152;  // NMLVFINDITEM; answers the row, -1 for none
inline constexpr UINT LVN_KEYDOWN = 0u - 155;     // NMLVKEYDOWN
