// The tree view.
//
// An item is known by its handle, which stays the same until it is deleted; a handle that is none of the
// tree's is refused, whatever it is.
#pragma once

#include "corekit/platform/Controls.h"
#include "corekit/platform/ImageLists.h"

using HTREEITEM = struct _TREEITEM*;

// Styles.
inline constexpr DWORD TVS_HASBUTTONS = 0x1;       // a button opens and closes an item
inline constexpr DWORD TVS_HASLINES = 0x2;         // as the theme draws them
inline constexpr DWORD TVS_LINESATROOT = 0x4;      // buttons at the top as well
inline constexpr DWORD TVS_EDITLABELS = 0x8;       // the user may change texts
inline constexpr DWORD TVS_DISABLEDRAGDROP = 0x10; // no TVN_BEGINDRAG
inline constexpr DWORD TVS_SHOWSELALWAYS = 0x20;   // accepted: a selection always shows
inline constexpr DWORD TVS_CHECKBOXES = 0x100;     // a check box in front of each item
inline constexpr DWORD TVS_SINGLEEXPAND = 0x400;   // an item opens when it is selected
inline constexpr DWORD TVS_FULLROWSELECT = 0x1000; // accepted

// Places at which an item is inserted.
// As parent: the top.
inline HTREEITEM const TVI_ROOT = reinterpret_cast<HTREEITEM>(static_cast<LONG_PTR>(-0x10000));
// Before all siblings.
inline HTREEITEM const TVI_FIRST = reinterpret_cast<HTREEITEM>(static_cast<LONG_PTR>(-0xFFFF));
inline HTREEITEM const TVI_LAST = reinterpret_cast<HTREEITEM>(static_cast<LONG_PTR>(-0xFFFE)); // behind all
inline HTREEITEM const TVI_SORT = reinterpret_cast<HTREEITEM>(static_cast<LONG_PTR>(-0xFFFD)); // by text

// Which members of an item count.
inline constexpr UINT TVIF_TEXT = 0x1;           // pszText
inline constexpr UINT TVIF_IMAGE = 0x2;          // iImage
inline constexpr UINT TVIF_PARAM = 0x4;          // lParam
inline constexpr UINT TVIF_STATE = 0x8;          // state, as far as stateMask goes
inline constexpr UINT TVIF_HANDLE = 0x10;        // hItem; counts in any case
inline constexpr UINT TVIF_SELECTEDIMAGE = 0x20; // iSelectedImage
inline constexpr UINT TVIF_CHILDREN = 0x40;      // cChildren

// States of an item.
inline constexpr UINT TVIS_SELECTED = 0x2;
inline constexpr UINT TVIS_CUT = 0x4;               // drawn faint
inline constexpr UINT TVIS_DROPHILITED = 0x8;       // drawn as the place of a drop
inline constexpr UINT TVIS_BOLD = 0x10;             // bold text
inline constexpr UINT TVIS_EXPANDED = 0x20;         // its children show
inline constexpr UINT TVIS_EXPANDEDONCE = 0x40;     // has been open before
inline constexpr UINT TVIS_STATEIMAGEMASK = 0xF000; // with check boxes: 1 empty, 2 checked, 0 none

inline constexpr int I_CHILDRENCALLBACK = -1; // in cChildren: the parent is asked
inline constexpr int I_IMAGECALLBACK = -1;    // no picture

template <typename Char>
struct TreeViewItem {
    UINT mask; // TVIF_
    HTREEITEM hItem;
    UINT state; // TVIS_
    UINT stateMask;
    Char* pszText;      // or LPSTR_TEXTCALLBACK
    int cchTextMax;     // room for text that is got
    int iImage;         // in the image list
    int iSelectedImage; // while the item is selected
    int cChildren;      // 1: shows a button even before children are there
    LPARAM lParam;      // the caller's own
};
using TVITEMA = TreeViewItem<char>;
using TVITEMW = TreeViewItem<WCHAR>;
using TVITEM = TVITEMA;

template <typename Char>
struct TreeViewInsert {
    HTREEITEM hParent;       // TVI_ROOT or null: the top
    HTREEITEM hInsertAfter;  // an item or one of the places
    TreeViewItem<Char> item; // what it is to be
};
using TVINSERTSTRUCTA = TreeViewInsert<char>;
using TVINSERTSTRUCTW = TreeViewInsert<WCHAR>;
using TVINSERTSTRUCT = TVINSERTSTRUCTA;

struct TVHITTESTINFO {
    POINT pt;        // in the client
    UINT flags;      // out: TVHT_
    HTREEITEM hItem; // out: item or null
};
// What lies at a point.
inline constexpr UINT TVHT_NOWHERE = 0x1; // below the last item
inline constexpr UINT TVHT_ONITEMICON = 0x2;
inline constexpr UINT TVHT_ONITEMLABEL = 0x4;
inline constexpr UINT TVHT_ONITEMINDENT = 0x8;     // before it
inline constexpr UINT TVHT_ONITEMBUTTON = 0x10;    // what opens it
inline constexpr UINT TVHT_ONITEMRIGHT = 0x20;     // behind its text
inline constexpr UINT TVHT_ONITEMSTATEICON = 0x40; // the check box
inline constexpr UINT TVHT_ONITEM = TVHT_ONITEMICON | TVHT_ONITEMLABEL | TVHT_ONITEMSTATEICON;
inline constexpr UINT TVHT_ABOVE = 0x100; // outside of the control, as the next three
inline constexpr UINT TVHT_BELOW = 0x200;
inline constexpr UINT TVHT_TORIGHT = 0x400;
inline constexpr UINT TVHT_TOLEFT = 0x800;

// What TVM_EXPAND does.
inline constexpr UINT TVE_COLLAPSE = 1;
inline constexpr UINT TVE_EXPAND = 2;
inline constexpr UINT TVE_TOGGLE = 3;             // whichever it is not
inline constexpr UINT TVE_COLLAPSERESET = 0x8000; // with TVE_COLLAPSE: the children go

// Relations of items.
inline constexpr UINT TVGN_ROOT = 0;     // the first at the top
inline constexpr UINT TVGN_NEXT = 1;     // sibling behind
inline constexpr UINT TVGN_PREVIOUS = 2; // sibling before
inline constexpr UINT TVGN_PARENT = 3;
inline constexpr UINT TVGN_CHILD = 4;           // first child
inline constexpr UINT TVGN_FIRSTVISIBLE = 5;    // the topmost on show
inline constexpr UINT TVGN_NEXTVISIBLE = 6;     // not within a collapsed item
inline constexpr UINT TVGN_PREVIOUSVISIBLE = 7; // likewise
inline constexpr UINT TVGN_DROPHILITE = 8;      // the place of a drop
inline constexpr UINT TVGN_CARET = 9;           // the selected one

// -1: after all others, 1: before. The third argument is TVSORTCB's lParam.
using PFNTVCOMPARE = int (*)(LPARAM, LPARAM, LPARAM);
struct TVSORTCB {
    HTREEITEM hParent;
    PFNTVCOMPARE lpfnCompare;
    LPARAM lParam;
};

inline constexpr UINT TVM_INSERTITEMA = 0x1100; // lParam: const TVINSERTSTRUCTA*; answers the handle
inline constexpr UINT TVM_DELETEITEM = 0x1101;  // lParam: item, TVI_ROOT all; children go with it
inline constexpr UINT TVM_EXPAND = 0x1102;      // wParam: TVE_; lParam: item
inline constexpr UINT TVM_GETITEMRECT =
    0x1104; // wParam: the text only; lParam: RECT*, which begins as the handle
inline constexpr UINT TVM_GETCOUNT = 0x1105;  // answers items of the whole tree
inline constexpr UINT TVM_GETINDENT = 0x1106; // answers pixels
inline constexpr UINT TVM_SETINDENT = 0x1107; // wParam: pixels of a level
inline constexpr UINT TVM_GETIMAGELIST = 0x1108;
inline constexpr UINT TVM_SETIMAGELIST = 0x1109; // wParam: TVSIL_; lParam: HIMAGELIST; answers the one before
inline constexpr UINT TVM_GETNEXTITEM = 0x110A;  // wParam: TVGN_; lParam: item
inline constexpr UINT TVM_SELECTITEM =
    0x110B; // wParam: TVGN_CARET, FIRSTVISIBLE or DROPHILITE; lParam: item or null
inline constexpr UINT TVM_GETITEMA = 0x110C; // lParam: TVITEM*, as the next one
inline constexpr UINT TVM_SETITEMA = 0x110D;
inline constexpr UINT TVM_EDITLABELA = 0x110E;      // lParam: item; answers the edit control
inline constexpr UINT TVM_GETEDITCONTROL = 0x110F;  // while a text is edited
inline constexpr UINT TVM_GETVISIBLECOUNT = 0x1110; // rows that fit
inline constexpr UINT TVM_HITTEST = 0x1111;         // lParam: TVHITTESTINFO*; answers the item
inline constexpr UINT TVM_SORTCHILDREN = 0x1113;    // lParam: item; by text
inline constexpr UINT TVM_ENSUREVISIBLE = 0x1114;   // lParam: item
inline constexpr UINT TVM_SORTCHILDRENCB = 0x1115;  // lParam: const TVSORTCB*
inline constexpr UINT TVM_ENDEDITLABELNOW = 0x1116; // wParam: drop the text
inline constexpr UINT TVM_SETITEMHEIGHT = 0x111B;   // wParam: pixels, -1 the theme's; answers the one before
inline constexpr UINT TVM_GETITEMHEIGHT = 0x111C;   // answers pixels
inline constexpr UINT TVM_GETITEMSTATE = 0x1127;    // wParam: item; lParam: mask
inline constexpr UINT TVM_INSERTITEMW = 0x1132;
inline constexpr UINT TVM_GETITEMW = 0x113E;
inline constexpr UINT TVM_SETITEMW = 0x113F;
inline constexpr UINT TVM_INSERTITEM = TVM_INSERTITEMA;
inline constexpr UINT TVM_GETITEM = TVM_GETITEMA;
inline constexpr UINT TVM_SETITEM = TVM_SETITEMA;
inline constexpr WPARAM TVSIL_NORMAL = 0; // pictures of items
inline constexpr WPARAM TVSIL_STATE = 2;  // pictures by the state's upper bits

struct NMTREEVIEWA {
    NMHDR hdr;
    UINT action;     // TVC_ for a selection, TVE_ for expanding
    TVITEMA itemOld; // mask says what is filled in
    TVITEMA itemNew;
    POINT ptDrag; // in the client area
};
using NMTREEVIEW = NMTREEVIEWA;
struct NMTVDISPINFOA {
    NMHDR hdr;
    TVITEMA item;
};
using NMTVDISPINFO = NMTVDISPINFOA;
struct NMTVKEYDOWN {
    NMHDR hdr;
    WORD wVKey; // virtual key
    UINT flags;
};
inline constexpr UINT TVC_UNKNOWN = 0;    // by a message
inline constexpr UINT TVC_BYMOUSE = 1;    // the user's click
inline constexpr UINT TVC_BYKEYBOARD = 2; // the user's key

// WM_NOTIFY. Those that end in ING can be refused by an answer other than 0.
inline constexpr UINT TVN_SELCHANGING = 0u - 401;    // NMTREEVIEW
inline constexpr UINT TVN_SELCHANGED = 0u - 402;     // NMTREEVIEW
inline constexpr UINT TVN_GETDISPINFO = 0u - 403;    // NMTVDISPINFO, whose mask says what is asked for
inline constexpr UINT TVN_ITEMEXPANDING = 0u - 405;  // NMTREEVIEW
inline constexpr UINT TVN_ITEMEXPANDED = 0u - 406;   // NMTREEVIEW
inline constexpr UINT TVN_BEGINDRAG = 0u - 407;      // NMTREEVIEW: itemNew and ptDrag
inline constexpr UINT TVN_DELETEITEM = 0u - 409;     // NMTREEVIEW: itemOld
inline constexpr UINT TVN_BEGINLABELEDIT = 0u - 410; // NMTVDISPINFO; an answer other than 0 refuses
inline constexpr UINT TVN_ENDLABELEDIT =
    0u - 411;                                 // pszText is null when dropped; an answer other than 0 takes it
inline constexpr UINT TVN_KEYDOWN = 0u - 412; // NMTVKEYDOWN
