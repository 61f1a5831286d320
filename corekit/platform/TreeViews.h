// The tree view.
//
// An item is known by its handle, which stays the same until it is deleted; a handle that is none of the
// tree's is refused, whatever it is.
#pragma once

#include "corekit/platform/Controls.h"
#include "corekit/platform/ImageLists.h"

using HTREEITEM = struct _TREEITEM*;

inline constexpr DWORD TVS_HASBUTTONS = 0x1;
inline constexpr DWORD TVS_HASLINES = 0x2; // as the theme draws them
inline constexpr DWORD TVS_LINESATROOT = 0x4;
inline constexpr DWORD TVS_EDITLABELS = 0x8;
inline constexpr DWORD TVS_DISABLEDRAGDROP = 0x10;
inline constexpr DWORD TVS_SHOWSELALWAYS = 0x20;
inline constexpr DWORD TVS_CHECKBOXES = 0x100;
inline constexpr DWORD TVS_SINGLEEXPAND = 0x400;
inline constexpr DWORD TVS_FULLROWSELECT = 0x1000;

// Places at which an item is inserted.
inline HTREEITEM const TVI_ROOT = reinterpret_cast<HTREEITEM>(static_cast<LONG_PTR>(-0x10000));
inline HTREEITEM const TVI_FIRST = reinterpret_cast<HTREEITEM>(static_cast<LONG_PTR>(-0xFFFF));
inline HTREEITEM const TVI_LAST = reinterpret_cast<HTREEITEM>(static_cast<LONG_PTR>(-0xFFFE));
inline HTREEITEM const TVI_SORT = reinterpret_cast<HTREEITEM>(static_cast<LONG_PTR>(-0xFFFD));

// Which members of an item count.
inline constexpr UINT TVIF_TEXT = 0x1;
inline constexpr UINT TVIF_IMAGE = 0x2;
inline constexpr UINT TVIF_PARAM = 0x4;
inline constexpr UINT TVIF_STATE = 0x8;
inline constexpr UINT TVIF_HANDLE = 0x10;
inline constexpr UINT TVIF_SELECTEDIMAGE = 0x20;
inline constexpr UINT TVIF_CHILDREN = 0x40;

inline constexpr UINT TVIS_SELECTED = 0x2;
inline constexpr UINT TVIS_CUT = 0x4;
inline constexpr UINT TVIS_DROPHILITED = 0x8;
inline constexpr UINT TVIS_BOLD = 0x10;
inline constexpr UINT TVIS_EXPANDED = 0x20;
inline constexpr UINT TVIS_EXPANDEDONCE = 0x40;
inline constexpr UINT TVIS_STATEIMAGEMASK = 0xF000; // with check boxes: 1 empty, 2 checked, 0 none

inline constexpr int I_CHILDRENCALLBACK = -1;
inline constexpr int I_IMAGECALLBACK = -1;

template <typename Char>
struct TreeViewItem {
    UINT mask;
    HTREEITEM hItem;
    UINT state;
    UINT stateMask;
    Char* pszText; // or LPSTR_TEXTCALLBACK
    int cchTextMax;
    int iImage;
    int iSelectedImage;
    int cChildren; // 1: shows a button even before children are there
    LPARAM lParam;
};
using TVITEMA = TreeViewItem<char>;
using TVITEMW = TreeViewItem<WCHAR>;
using TVITEM = TVITEMA;

template <typename Char>
struct TreeViewInsert {
    HTREEITEM hParent;      // TVI_ROOT or null: the top
    HTREEITEM hInsertAfter; // an item or one of the places
    TreeViewItem<Char> item;
};
using TVINSERTSTRUCTA = TreeViewInsert<char>;
using TVINSERTSTRUCTW = TreeViewInsert<WCHAR>;
using TVINSERTSTRUCT = TVINSERTSTRUCTA;

struct TVHITTESTINFO {
    POINT pt; // in the client
    UINT flags;
    HTREEITEM hItem;
};
inline constexpr UINT TVHT_NOWHERE = 0x1;
inline constexpr UINT TVHT_ONITEMICON = 0x2;
inline constexpr UINT TVHT_ONITEMLABEL = 0x4;
inline constexpr UINT TVHT_ONITEMINDENT = 0x8;
inline constexpr UINT TVHT_ONITEMBUTTON = 0x10;
inline constexpr UINT TVHT_ONITEMRIGHT = 0x20;
inline constexpr UINT TVHT_ONITEMSTATEICON = 0x40;
inline constexpr UINT TVHT_ONITEM = TVHT_ONITEMICON | TVHT_ONITEMLABEL | TVHT_ONITEMSTATEICON;
inline constexpr UINT TVHT_ABOVE = 0x100;
inline constexpr UINT TVHT_BELOW = 0x200;
inline constexpr UINT TVHT_TORIGHT = 0x400;
inline constexpr UINT TVHT_TOLEFT = 0x800;

inline constexpr UINT TVE_COLLAPSE = 1;
inline constexpr UINT TVE_EXPAND = 2;
inline constexpr UINT TVE_TOGGLE = 3;
inline constexpr UINT TVE_COLLAPSERESET = 0x8000; // with TVE_COLLAPSE: the children go

inline constexpr UINT TVGN_ROOT = 0;
inline constexpr UINT TVGN_NEXT = 1;
inline constexpr UINT TVGN_PREVIOUS = 2;
inline constexpr UINT TVGN_PARENT = 3;
inline constexpr UINT TVGN_CHILD = 4;
inline constexpr UINT TVGN_FIRSTVISIBLE = 5; // the topmost on show
inline constexpr UINT TVGN_NEXTVISIBLE = 6;  // not within a collapsed item
inline constexpr UINT TVGN_PREVIOUSVISIBLE = 7;
inline constexpr UINT TVGN_DROPHILITE = 8;
inline constexpr UINT TVGN_CARET = 9; // the selected one

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
inline constexpr UINT TVM_GETCOUNT = 0x1105;
inline constexpr UINT TVM_GETINDENT = 0x1106;
inline constexpr UINT TVM_SETINDENT = 0x1107;
inline constexpr UINT TVM_GETIMAGELIST = 0x1108;
inline constexpr UINT TVM_SETIMAGELIST = 0x1109; // wParam: TVSIL_; lParam: HIMAGELIST; answers the one before
inline constexpr UINT TVM_GETNEXTITEM = 0x110A;  // wParam: TVGN_; lParam: item
inline constexpr UINT TVM_SELECTITEM =
    0x110B; // wParam: TVGN_CARET, FIRSTVISIBLE or DROPHILITE; lParam: item or null
inline constexpr UINT TVM_GETITEMA = 0x110C;
inline constexpr UINT TVM_SETITEMA = 0x110D;
inline constexpr UINT TVM_EDITLABELA = 0x110E; // lParam: item; answers the edit control
inline constexpr UINT TVM_GETEDITCONTROL = 0x110F;
inline constexpr UINT TVM_GETVISIBLECOUNT = 0x1110;
inline constexpr UINT TVM_HITTEST = 0x1111; // lParam: TVHITTESTINFO*; answers the item
inline constexpr UINT TVM_SORTCHILDREN = 0x1113;
inline constexpr UINT TVM_ENSUREVISIBLE = 0x1114;
inline constexpr UINT TVM_SORTCHILDRENCB = 0x1115;  // lParam: const TVSORTCB*
inline constexpr UINT TVM_ENDEDITLABELNOW = 0x1116; // wParam: drop the text
inline constexpr UINT TVM_SETITEMHEIGHT = 0x111B;   // wParam: pixels, -1 the theme's; answers the one before
inline constexpr UINT TVM_GETITEMHEIGHT = 0x111C;
inline constexpr UINT TVM_GETITEMSTATE = 0x1127; // wParam: item; lParam: mask
inline constexpr UINT TVM_INSERTITEMW = 0x1132;
inline constexpr UINT TVM_GETITEMW = 0x113E;
inline constexpr UINT TVM_SETITEMW = 0x113F;
inline constexpr UINT TVM_INSERTITEM = TVM_INSERTITEMA;
inline constexpr UINT TVM_GETITEM = TVM_GETITEMA;
inline constexpr UINT TVM_SETITEM = TVM_SETITEMA;
inline constexpr WPARAM TVSIL_NORMAL = 0;
inline constexpr WPARAM TVSIL_STATE = 2;

struct NMTREEVIEWA {
    NMHDR hdr;
    UINT action; // TVC_ for a selection, TVE_ for expanding
    TVITEMA itemOld;
    TVITEMA itemNew;
    POINT ptDrag;
};
using NMTREEVIEW = NMTREEVIEWA;
struct NMTVDISPINFOA {
    NMHDR hdr;
    TVITEMA item;
};
using NMTVDISPINFO = NMTVDISPINFOA;
struct NMTVKEYDOWN {
    NMHDR hdr;
    WORD wVKey;
    UINT flags;
};
inline constexpr UINT TVC_UNKNOWN = 0; // by a message
inline constexpr UINT TVC_BYMOUSE = 1;
inline constexpr UINT TVC_BYKEYBOARD = 2;

// WM_NOTIFY. Those that end in ING can be refused by an answer other than 0.
inline constexpr UINT TVN_SELCHANGING = 0u - 401;   // NMTREEVIEW
inline constexpr UINT TVN_SELCHANGED = 0u - 402;    // NMTREEVIEW
inline constexpr UINT TVN_GETDISPINFO = 0u - 403;   // NMTVDISPINFO, whose mask says what is asked for
inline constexpr UINT TVN_ITEMEXPANDING = 0u - 405; // NMTREEVIEW
inline constexpr UINT TVN_ITEMEXPANDED = 0u - 406;
inline constexpr UINT TVN_BEGINDRAG = 0u - 407;      // NMTREEVIEW: itemNew and ptDrag
inline constexpr UINT TVN_DELETEITEM = 0u - 409;     // NMTREEVIEW: itemOld
inline constexpr UINT TVN_BEGINLABELEDIT = 0u - 410; // NMTVDISPINFO; an answer other than 0 refuses
inline constexpr UINT TVN_ENDLABELEDIT =
    0u - 411;                                 // pszText is null when dropped; an answer other than 0 takes it
inline constexpr UINT TVN_KEYDOWN = 0u - 412; // NMTVKEYDOWN
