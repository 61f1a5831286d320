// The list view: rows of columns (report), icons, or names.
//
// Rows and columns count from 0; column 0 is the item itself, the others are its sub-items. The kind of view
// is chosen when the control is made and stays.
//
// With LVS_OWNERDATA the control knows the number of rows only and asks for what it shows (LVN_GETDISPINFO);
// with LVS_OWNERDRAWFIXED the parent draws each row of a report at WM_DRAWITEM.
#pragma once

#include "corekit/platform/Controls.h"
#include "corekit/platform/ImageLists.h"

// The kind of view.
inline constexpr DWORD LVS_ICON = 0x0;
inline constexpr DWORD LVS_REPORT = 0x1;            // rows with columns
inline constexpr DWORD LVS_SMALLICON = 0x2;         // names beside small pictures, row by row
inline constexpr DWORD LVS_LIST = 0x3;              // the same, column by column
inline constexpr DWORD LVS_TYPEMASK = 0x3;          // the bits of the kind
inline constexpr DWORD LVS_SINGLESEL = 0x4;         // one row at most is selected
inline constexpr DWORD LVS_SHOWSELALWAYS = 0x8;     // accepted: a selection always shows
inline constexpr DWORD LVS_SORTASCENDING = 0x10;    // an inserted row finds its own place, by its text
inline constexpr DWORD LVS_SORTDESCENDING = 0x20;   // the same, the other way round
inline constexpr DWORD LVS_SHAREIMAGELISTS = 0x40;  // accepted: lists are never owned
inline constexpr DWORD LVS_AUTOARRANGE = 0x100;     // accepted: items always stand in order
inline constexpr DWORD LVS_EDITLABELS = 0x200;      // the user may change the item's text
inline constexpr DWORD LVS_OWNERDRAWFIXED = 0x400;  // the parent draws rows
inline constexpr DWORD LVS_OWNERDATA = 0x1000;      // the parent has the contents
inline constexpr DWORD LVS_NOCOLUMNHEADER = 0x4000; // a report without titles
inline constexpr DWORD LVS_NOSORTHEADER = 0x8000;   // clicks on the header do nothing

// Styles set by LVM_SETEXTENDEDLISTVIEWSTYLE.
inline constexpr DWORD LVS_EX_GRIDLINES = 0x1;        // lines between the cells of a report
inline constexpr DWORD LVS_EX_SUBITEMIMAGES = 0x2;    // pictures in other columns as well
inline constexpr DWORD LVS_EX_CHECKBOXES = 0x4;       // a check box in front of each row
inline constexpr DWORD LVS_EX_HEADERDRAGDROP = 0x10;  // the user may move columns
inline constexpr DWORD LVS_EX_FULLROWSELECT = 0x20;   // a whole row is selected and can be clicked
inline constexpr DWORD LVS_EX_DOUBLEBUFFER = 0x10000; // accepted: every view is

// Which members of an item count.
inline constexpr UINT LVIF_TEXT = 0x1;    // pszText
inline constexpr UINT LVIF_IMAGE = 0x2;   // iImage
inline constexpr UINT LVIF_PARAM = 0x4;   // lParam
inline constexpr UINT LVIF_STATE = 0x8;   // state, as far as stateMask goes
inline constexpr UINT LVIF_INDENT = 0x10; // iIndent

// States of a row.
inline constexpr UINT LVIS_FOCUSED = 0x1; // the one row that keys start from
inline constexpr UINT LVIS_SELECTED = 0x2;
inline constexpr UINT LVIS_CUT = 0x4;               // drawn faint
inline constexpr UINT LVIS_DROPHILITED = 0x8;       // drawn as the place of a drop
inline constexpr UINT LVIS_STATEIMAGEMASK = 0xF000; // with check boxes: 1 empty, 2 checked, 0 none

template <typename Char>
struct ListViewItem {
    UINT mask;    // LVIF_
    int iItem;    // row
    int iSubItem; // column
    UINT state;   // LVIS_
    UINT stateMask;
    Char* pszText;  // or LPSTR_TEXTCALLBACK
    int cchTextMax; // room for text that is got
    int iImage;     // in the image list
    LPARAM lParam;  // the caller's own
    int iIndent;    // kept and given back
};
using LVITEMA = ListViewItem<char>;
using LVITEMW = ListViewItem<WCHAR>;
using LVITEM = LVITEMA;

// Which members of a column count.
inline constexpr UINT LVCF_FMT = 0x1;     // fmt
inline constexpr UINT LVCF_WIDTH = 0x2;   // cx
inline constexpr UINT LVCF_TEXT = 0x4;    // pszText
inline constexpr UINT LVCF_SUBITEM = 0x8; // iSubItem
inline constexpr UINT LVCF_IMAGE = 0x10;  // iImage
inline constexpr UINT LVCF_ORDER = 0x20;  // iOrder
// Where text stands in a column and its title.
inline constexpr int LVCFMT_LEFT = 0;
inline constexpr int LVCFMT_RIGHT = 1;
inline constexpr int LVCFMT_CENTER = 2;
inline constexpr int LVCFMT_JUSTIFYMASK = 3;

template <typename Char>
struct ListViewColumn {
    UINT mask;
    int fmt;
    int cx; // pixels
    Char* pszText;
    int cchTextMax;
    int iSubItem;
    int iImage;
    int iOrder; // place from the left
};
using LVCOLUMNA = ListViewColumn<char>;
using LVCOLUMNW = ListViewColumn<WCHAR>;
using LVCOLUMN = LVCOLUMNA;

// How LVM_FINDITEM compares.
inline constexpr UINT LVFI_PARAM = 0x1;   // the row's lParam
inline constexpr UINT LVFI_STRING = 0x2;  // the item's whole text, case disregarded
inline constexpr UINT LVFI_PARTIAL = 0x8; // a beginning
inline constexpr UINT LVFI_WRAP = 0x20;   // goes on at the top
template <typename Char>
struct ListViewFind {
    UINT flags; // LVFI_
    const Char* psz;
    LPARAM lParam;
    POINT pt;
    UINT vkDirection; // not used, as pt
};
using LVFINDINFOA = ListViewFind<char>;
using LVFINDINFOW = ListViewFind<WCHAR>;
using LVFINDINFO = LVFINDINFOA;

// What lies at a point.
inline constexpr UINT LVHT_NOWHERE = 0x1; // on no item
inline constexpr UINT LVHT_ONITEMICON = 0x2;
inline constexpr UINT LVHT_ONITEMLABEL = 0x4;
inline constexpr UINT LVHT_ONITEMSTATEICON = 0x8; // the check box
inline constexpr UINT LVHT_ONITEM = LVHT_ONITEMICON | LVHT_ONITEMLABEL | LVHT_ONITEMSTATEICON;
struct LVHITTESTINFO {
    POINT pt; // in the client
    UINT flags;
    int iItem;
    int iSubItem;
};

// States that the row looked for has.
inline constexpr LPARAM LVNI_ALL = 0x0;
inline constexpr LPARAM LVNI_FOCUSED = 0x1;
inline constexpr LPARAM LVNI_SELECTED = 0x2;
inline constexpr LPARAM LVNI_CUT = 0x4;
inline constexpr LPARAM LVNI_DROPHILITED = 0x8;
// Parts of a row: all of it, its picture, its text, what is selected.
inline constexpr int LVIR_BOUNDS = 0;
inline constexpr int LVIR_ICON = 1;
inline constexpr int LVIR_LABEL = 2;
inline constexpr int LVIR_SELECTBOUNDS = 3;
inline constexpr int LVSCW_AUTOSIZE = -1;           // as wide as contents and title
inline constexpr int LVSCW_AUTOSIZE_USEHEADER = -2; // the last column takes what is left
inline constexpr WPARAM LVSIL_NORMAL = 0;           // for LVS_ICON
inline constexpr WPARAM LVSIL_SMALL = 1;            // for the other kinds
inline constexpr WPARAM LVSIL_STATE = 2;            // kept and given back; not drawn
inline constexpr LPARAM LVSICF_NOSCROLL = 2;        // accepted

// Above 0: the first belongs behind the second. The arguments are lParam values, or rows with
// LVM_SORTITEMSEX, and the parameter given.
using PFNLVCOMPARE = int (*)(LPARAM, LPARAM, LPARAM);

// wParam is a row or column, lParam the structure, unless said otherwise. What sets answers TRUE for success.
inline constexpr UINT LVM_GETBKCOLOR = 0x1000;
inline constexpr UINT LVM_SETBKCOLOR = 0x1001; // lParam: COLORREF; CLR_DEFAULT: the theme's, as in the next
inline constexpr UINT LVM_GETIMAGELIST = 0x1002;
inline constexpr UINT LVM_SETIMAGELIST = 0x1003; // wParam: LVSIL_; lParam: HIMAGELIST; answers the one before
inline constexpr UINT LVM_GETITEMCOUNT = 0x1004; // answers rows
inline constexpr UINT LVM_GETITEMA = 0x1005;     // lParam: LVITEM*
inline constexpr UINT LVM_SETITEMA = 0x1006;
inline constexpr UINT LVM_INSERTITEMA = 0x1007; // answers the row, -1 on failure
inline constexpr UINT LVM_DELETEITEM = 0x1008;  // tells LVN_DELETEITEM before
inline constexpr UINT LVM_DELETEALLITEMS = 0x1009;
inline constexpr UINT LVM_GETNEXTITEM = 0x100C; // wParam: search behind it, -1 from the top; lParam: LVNI_
inline constexpr UINT LVM_FINDITEMA = 0x100D;   // wParam: search behind it; lParam: const LVFINDINFO*
inline constexpr UINT LVM_GETITEMRECT = 0x100E; // lParam: RECT*, whose left is LVIR_
inline constexpr UINT LVM_GETSTRINGWIDTHA = 0x1011; // lParam: text; answers pixels
inline constexpr UINT LVM_HITTEST = 0x1012;         // lParam: LVHITTESTINFO*; answers the row
inline constexpr UINT LVM_ENSUREVISIBLE = 0x1013;   // scrolls the row into view
inline constexpr UINT LVM_SCROLL = 0x1014;          // wParam, lParam: pixels right and down
inline constexpr UINT LVM_REDRAWITEMS = 0x1015;     // wParam, lParam: first and last
inline constexpr UINT LVM_EDITLABELA = 0x1017;      // answers the edit control
inline constexpr UINT LVM_GETEDITCONTROL = 0x1018;  // while a text is edited
inline constexpr UINT LVM_GETCOLUMNA = 0x1019;
inline constexpr UINT LVM_SETCOLUMNA = 0x101A;
inline constexpr UINT LVM_INSERTCOLUMNA = 0x101B; // answers the column
inline constexpr UINT LVM_DELETECOLUMN = 0x101C;
inline constexpr UINT LVM_GETCOLUMNWIDTH = 0x101D; // answers pixels
inline constexpr UINT LVM_SETCOLUMNWIDTH = 0x101E; // lParam: pixels or LVSCW_
inline constexpr UINT LVM_GETHEADER = 0x101F;      // the header's window, null unless a report
inline constexpr UINT LVM_GETTEXTCOLOR = 0x1023;
inline constexpr UINT LVM_SETTEXTCOLOR = 0x1024;
inline constexpr UINT LVM_GETTEXTBKCOLOR = 0x1025;
inline constexpr UINT LVM_SETTEXTBKCOLOR = 0x1026;  // kept and given back
inline constexpr UINT LVM_GETTOPINDEX = 0x1027;     // first row in view of a report
inline constexpr UINT LVM_GETCOUNTPERPAGE = 0x1028; // rows that fit into a report
inline constexpr UINT LVM_UPDATE = 0x102A;          // draws the row anew
inline constexpr UINT LVM_SETITEMSTATE =
    0x102B; // wParam: row, -1 all; lParam: const LVITEM* with state and stateMask
inline constexpr UINT LVM_GETITEMSTATE = 0x102C; // lParam: mask
inline constexpr UINT LVM_GETITEMTEXTA =
    0x102D; // lParam: LVITEM* with iSubItem and buffer; answers the length
inline constexpr UINT LVM_SETITEMTEXTA = 0x102E;
inline constexpr UINT LVM_SETITEMCOUNT = 0x102F; // wParam: rows of LVS_OWNERDATA, else rows to make room for
inline constexpr UINT LVM_SORTITEMS = 0x1030;    // wParam: parameter; lParam: PFNLVCOMPARE
inline constexpr UINT LVM_GETSELECTEDCOUNT = 0x1032; // kept, so it costs nothing
inline constexpr UINT LVM_SETEXTENDEDLISTVIEWSTYLE =
    0x1036; // wParam: mask, 0 all; lParam: LVS_EX_; answers the one before
inline constexpr UINT LVM_GETEXTENDEDLISTVIEWSTYLE = 0x1037;
inline constexpr UINT LVM_GETSUBITEMRECT = 0x1038;      // lParam: RECT* with left LVIR_ and top the column
inline constexpr UINT LVM_SUBITEMHITTEST = 0x1039;      // as LVM_HITTEST, with the column
inline constexpr UINT LVM_SETCOLUMNORDERARRAY = 0x103A; // wParam: count; lParam: int* columns from the left
inline constexpr UINT LVM_GETCOLUMNORDERARRAY = 0x103B;
inline constexpr UINT LVM_GETSELECTIONMARK = 0x1042; // where a selection with Shift begins
inline constexpr UINT LVM_SETSELECTIONMARK = 0x1043; // lParam: row; answers the former
inline constexpr UINT LVM_GETITEMW = 0x104B;
inline constexpr UINT LVM_SETITEMW = 0x104C;
inline constexpr UINT LVM_INSERTITEMW = 0x104D;
inline constexpr UINT LVM_SORTITEMSEX = 0x1051; // as LVM_SORTITEMS, by rows
inline constexpr UINT LVM_FINDITEMW = 0x1053;
inline constexpr UINT LVM_GETSTRINGWIDTHW = 0x1057;
inline constexpr UINT LVM_GETCOLUMNW = 0x105F;
inline constexpr UINT LVM_SETCOLUMNW = 0x1060;
inline constexpr UINT LVM_INSERTCOLUMNW = 0x1061;
inline constexpr UINT LVM_GETITEMTEXTW = 0x1073;
inline constexpr UINT LVM_SETITEMTEXTW = 0x1074;
inline constexpr UINT LVM_GETITEM = LVM_GETITEMA;
inline constexpr UINT LVM_SETITEM = LVM_SETITEMA;
inline constexpr UINT LVM_INSERTITEM = LVM_INSERTITEMA;
inline constexpr UINT LVM_INSERTCOLUMN = LVM_INSERTCOLUMNA;
inline constexpr UINT LVM_GETITEMTEXT = LVM_GETITEMTEXTA;
inline constexpr UINT LVM_SETITEMTEXT = LVM_SETITEMTEXTA;
