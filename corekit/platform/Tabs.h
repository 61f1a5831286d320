// The tab control: a row of tabs over the frame in which pages lie. The pages are windows of the caller's.
#pragma once

#include "corekit/platform/Controls.h"
#include "corekit/platform/ImageLists.h"

inline constexpr DWORD TCS_BOTTOM = 0x2;    // tabs below the pages
inline constexpr DWORD TCS_VERTICAL = 0x80; // tabs at the left
inline constexpr DWORD TCS_MULTILINE =
    0x200; // all tabs in sight, their texts cut if need be; else they scroll
inline constexpr DWORD TCS_FOCUSNEVER = 0x8000; // a click does not give it the keys

// Which members of an item count.
inline constexpr UINT TCIF_TEXT = 0x1;  // pszText
inline constexpr UINT TCIF_IMAGE = 0x2; // iImage
inline constexpr UINT TCIF_PARAM = 0x8; // lParam

template <typename Char>
struct TabItem {
    UINT mask;     // TCIF_
    DWORD dwState; // not used, as the next one
    DWORD dwStateMask;
    Char* pszText;
    int cchTextMax; // room for text that is got
    int iImage;     // in the image list, -1 none
    LPARAM lParam;  // the caller's own
};
using TCITEMA = TabItem<char>;
using TCITEMW = TabItem<WCHAR>;
using TCITEM = TCITEMA;

inline constexpr UINT TCHT_NOWHERE = 0x1;
inline constexpr UINT TCHT_ONITEM = 0x6; // on a tab
struct TCHITTESTINFO {
    POINT pt;
    UINT flags; // out: TCHT_
};

inline constexpr UINT TCM_GETIMAGELIST = 0x1302;
inline constexpr UINT TCM_SETIMAGELIST = 0x1303; // lParam: HIMAGELIST; answers the one before
inline constexpr UINT TCM_GETITEMCOUNT = 0x1304; // answers tabs
inline constexpr UINT TCM_GETITEMA = 0x1305;     // wParam: index; lParam: TCITEM*
inline constexpr UINT TCM_SETITEMA = 0x1306;     // likewise
inline constexpr UINT TCM_INSERTITEMA = 0x1307;  // answers the index; the first tab is selected by itself
inline constexpr UINT TCM_DELETEITEM = 0x1308;   // wParam: index
inline constexpr UINT TCM_DELETEALLITEMS = 0x1309;
inline constexpr UINT TCM_GETITEMRECT = 0x130A; // lParam: RECT*
inline constexpr UINT TCM_GETCURSEL = 0x130B;   // answers the index, -1 without tabs
inline constexpr UINT TCM_SETCURSEL = 0x130C;   // wParam: index; answers the one before; tells nobody
inline constexpr UINT TCM_HITTEST = 0x130D;     // lParam: TCHITTESTINFO*; answers the index
inline constexpr UINT TCM_ADJUSTRECT = 0x1328;  // wParam: from page to control, or back; lParam: RECT*
inline constexpr UINT TCM_GETROWCOUNT = 0x132C; // 1, or 0 without tabs
inline constexpr UINT TCM_GETCURFOCUS = 0x132F; // as TCM_GETCURSEL
inline constexpr UINT TCM_SETCURFOCUS = 0x1330; // as a click: the parent is asked and told
inline constexpr UINT TCM_GETITEMW = 0x133C;
inline constexpr UINT TCM_SETITEMW = 0x133D;
inline constexpr UINT TCM_INSERTITEMW = 0x133E;
inline constexpr UINT TCM_GETITEM = TCM_GETITEMA;
inline constexpr UINT TCM_SETITEM = TCM_SETITEMA;
inline constexpr UINT TCM_INSERTITEM = TCM_INSERTITEMA;

struct NMTCKEYDOWN {
    NMHDR hdr;
    WORD wVKey; // virtual key
    UINT flags;
};

// WM_NOTIFY, by what the user does.
inline constexpr UINT TCN_KEYDOWN = 0u - 550;     // NMTCKEYDOWN
inline constexpr UINT TCN_SELCHANGE = 0u - 551;   // the tab is another
inline constexpr UINT TCN_SELCHANGING = 0u - 552; // an answer other than 0 keeps the tab
