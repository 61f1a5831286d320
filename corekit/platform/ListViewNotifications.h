// What a list view tells its parent by WM_NOTIFY.
#pragma once

#include "corekit/platform/ListViews.h"

struct NMLISTVIEW {
    NMHDR hdr;
    int iItem; // -1: all rows
    int iSubItem;
    UINT uNewState;
    UINT uOldState;
    UINT uChanged; // LVIF_
    POINT ptAction;
    LPARAM lParam;
};
using NM_LISTVIEW = NMLISTVIEW;
using LPNMLISTVIEW = NMLISTVIEW*;

// With the clicks NM_CLICK, NM_DBLCLK, NM_RCLICK, NM_RDBLCLK and with LVN_ITEMACTIVATE; -1: on no row.
struct NMITEMACTIVATE {
    NMHDR hdr;
    int iItem;
    int iSubItem;
    UINT uNewState;
    UINT uOldState;
    UINT uChanged;
    POINT ptAction;
    LPARAM lParam;
    UINT uKeyFlags;
};
using LPNMITEMACTIVATE = NMITEMACTIVATE*;

struct NMLVDISPINFOA {
    NMHDR hdr;
    LVITEMA item;
};
using NMLVDISPINFO = NMLVDISPINFOA;
using LV_DISPINFO = NMLVDISPINFOA;

struct NMLVKEYDOWN {
    NMHDR hdr;
    WORD wVKey;
    UINT flags;
};
struct NMLVFINDITEMA {
    NMHDR hdr;
    int iStart;
    LVFINDINFOA lvfi;
};
using NMLVFINDITEM = NMLVFINDITEMA;
struct NMLVODSTATECHANGE {
    NMHDR hdr;
    int iFrom, iTo;
    UINT uNewState;
    UINT uOldState;
};

inline constexpr UINT LVN_ITEMCHANGING =
    0u - 100; // NMLISTVIEW; an answer other than 0 refuses a message's change
inline constexpr UINT LVN_ITEMCHANGED = 0u - 101; // NMLISTVIEW
inline constexpr UINT LVN_INSERTITEM = 0u - 102;
inline constexpr UINT LVN_DELETEITEM = 0u - 103;
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
