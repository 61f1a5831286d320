// The header: titles of columns that can be clicked, moved and made wider. Alone, or at the top of a report.
//
// Columns count from 0 in the order in which they were made; the user may show them in another.
// User-interface thread.
#pragma once

#include "corekit/platform/Controls.h"
#include "corekit/platform/ImageLists.h"

inline constexpr DWORD HDS_HORZ = 0x0;      // every header is
inline constexpr DWORD HDS_BUTTONS = 0x2;   // columns can be clicked
inline constexpr DWORD HDS_HIDDEN = 0x8;    // accepted
inline constexpr DWORD HDS_DRAGDROP = 0x40; // columns can be moved

// Which members of an item count.
inline constexpr UINT HDI_WIDTH = 0x1;  // cxy
inline constexpr UINT HDI_TEXT = 0x2;   // pszText
inline constexpr UINT HDI_FORMAT = 0x4; // fmt
inline constexpr UINT HDI_LPARAM = 0x8; // lParam
inline constexpr UINT HDI_IMAGE = 0x20; // iImage
inline constexpr UINT HDI_ORDER = 0x80; // iOrder

// Format: where the text stands, and signs beside it.
inline constexpr int HDF_LEFT = 0x0;
inline constexpr int HDF_RIGHT = 0x1;
inline constexpr int HDF_CENTER = 0x2;
inline constexpr int HDF_JUSTIFYMASK = 0x3;
inline constexpr int HDF_SORTDOWN = 0x200; // an arrow for falling order
inline constexpr int HDF_SORTUP = 0x400;   // for rising order
inline constexpr int HDF_IMAGE = 0x800;    // accepted: a picture shows if there is one
inline constexpr int HDF_STRING = 0x4000;  // set in answers

template <typename Char>
struct HeaderItem {
    UINT mask; // HDI_
    int cxy;   // pixels
    Char* pszText;
    HBITMAP hbm;    // not used
    int cchTextMax; // room for text that is got
    int fmt;        // HDF_
    LPARAM lParam;  // the caller's own
    int iImage;     // in the image list
    int iOrder;     // place from the left
};
using HDITEMA = HeaderItem<char>;
using HDITEMW = HeaderItem<WCHAR>;
using HDITEM = HDITEMA;

// What lies at a point.
inline constexpr UINT HHT_NOWHERE = 0x1;
inline constexpr UINT HHT_ONHEADER = 0x2;
inline constexpr UINT HHT_ONDIVIDER = 0x4; // within three pixels of a right edge
struct HDHITTESTINFO {
    POINT pt;
    UINT flags; // out: HHT_
    int iItem;
};

inline constexpr UINT HDM_GETITEMCOUNT = 0x1200; // answers columns
inline constexpr UINT HDM_INSERTITEMA = 0x1201;  // wParam: before; lParam: const HDITEM*; answers the column
inline constexpr UINT HDM_DELETEITEM = 0x1202;   // wParam: column
inline constexpr UINT HDM_GETITEMA = 0x1203;     // wParam: column; lParam: HDITEM*
inline constexpr UINT HDM_SETITEMA = 0x1204;     // likewise
inline constexpr UINT HDM_HITTEST = 0x1206;      // lParam: HDHITTESTINFO*
inline constexpr UINT HDM_GETITEMRECT = 0x1207;  // lParam: RECT*
inline constexpr UINT HDM_SETIMAGELIST = 0x1208; // lParam: HIMAGELIST, not owned; answers the former
inline constexpr UINT HDM_GETIMAGELIST = 0x1209;
inline constexpr UINT HDM_INSERTITEMW = 0x120A;
inline constexpr UINT HDM_GETITEMW = 0x120B;
inline constexpr UINT HDM_SETITEMW = 0x120C;
inline constexpr UINT HDM_ORDERTOINDEX = 0x120F;  // wParam: place from the left; answers the column
inline constexpr UINT HDM_GETORDERARRAY = 0x1211; // wParam: count; lParam: int* columns from the left
inline constexpr UINT HDM_SETORDERARRAY = 0x1212; // each column once, else 0

struct NMHEADERA {
    NMHDR hdr;
    int iItem;      // column
    int iButton;    // 0 left, 1 right
    HDITEMA* pitem; // its width and place
};
using NMHEADER = NMHEADERA;

// WM_NOTIFY.
inline constexpr UINT HDN_ITEMCHANGED = 0u - 301; // a column has another width
inline constexpr UINT HDN_ITEMCLICK = 0u - 302;   // with HDS_BUTTONS
inline constexpr UINT HDN_ITEMDBLCLICK = 0u - 303;
inline constexpr UINT HDN_DIVIDERDBLCLICK = 0u - 305; // on the right edge
inline constexpr UINT HDN_ENDTRACK = 0u - 307;        // the user has given a column another width
inline constexpr UINT HDN_ENDDRAG = 0u - 311;         // a column has a new place
