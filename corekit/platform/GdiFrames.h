// Edges, control frames and the focus rectangle, in the system's colours.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

// An edge is an outer and an inner line; EDGE_ are the usual pairs.
inline constexpr UINT BDR_RAISEDOUTER = 0x1;
inline constexpr UINT BDR_SUNKENOUTER = 0x2;
inline constexpr UINT BDR_RAISEDINNER = 0x4;
inline constexpr UINT BDR_SUNKENINNER = 0x8;
inline constexpr UINT EDGE_RAISED = BDR_RAISEDOUTER | BDR_RAISEDINNER; // a button
inline constexpr UINT EDGE_SUNKEN = BDR_SUNKENOUTER | BDR_SUNKENINNER; // a field
inline constexpr UINT EDGE_ETCHED = BDR_SUNKENOUTER | BDR_RAISEDINNER; // a groove
inline constexpr UINT EDGE_BUMP = BDR_RAISEDOUTER | BDR_SUNKENINNER;   // a ridge

// Which sides, and how. What is drawn lies within the rectangle.
inline constexpr UINT BF_LEFT = 0x1;
inline constexpr UINT BF_TOP = 0x2;
inline constexpr UINT BF_RIGHT = 0x4;
inline constexpr UINT BF_BOTTOM = 0x8;
inline constexpr UINT BF_RECT = 0xF;
inline constexpr UINT BF_MIDDLE = 0x800;  // fills the inside
inline constexpr UINT BF_SOFT = 0x1000;   // as buttons have it
inline constexpr UINT BF_ADJUST = 0x2000; // the rectangle becomes what is left within the edge
inline constexpr UINT BF_FLAT = 0x4000;   // one line of shadow
inline constexpr UINT BF_MONO = 0x8000;   // in the colours of window and frame

// Each edge that is named, an outer and an inner line of one unit.
COREKIT_API BOOL DrawEdge(HDC dc, RECT* rect, UINT edge, UINT flags);

inline constexpr UINT DFC_CAPTION = 1; // DFCS_CAPTION values
inline constexpr UINT DFC_MENU = 2;    // DFCS_MENU values
inline constexpr UINT DFC_SCROLL = 3;  // DFCS_SCROLL values
inline constexpr UINT DFC_BUTTON = 4;  // DFCS_BUTTON values

// What is drawn, of its kind.
inline constexpr UINT DFCS_CAPTIONCLOSE = 0x0;
inline constexpr UINT DFCS_CAPTIONMIN = 0x1;
inline constexpr UINT DFCS_CAPTIONMAX = 0x2;
inline constexpr UINT DFCS_CAPTIONRESTORE = 0x3;
inline constexpr UINT DFCS_CAPTIONHELP = 0x4;
inline constexpr UINT DFCS_MENUARROW = 0x0; // to the right, of an item that opens a menu
inline constexpr UINT DFCS_MENUCHECK = 0x1;
inline constexpr UINT DFCS_MENUBULLET = 0x2;
inline constexpr UINT DFCS_MENUARROWRIGHT = 0x4; // to the left, where text runs from the right
inline constexpr UINT DFCS_SCROLLUP = 0x0;
inline constexpr UINT DFCS_SCROLLDOWN = 0x1;
inline constexpr UINT DFCS_SCROLLLEFT = 0x2;
inline constexpr UINT DFCS_SCROLLRIGHT = 0x3;
inline constexpr UINT DFCS_SCROLLCOMBOBOX = 0x5; // the arrow of a combo box
inline constexpr UINT DFCS_SCROLLSIZEGRIP = 0x8; // the corner to size a window by
inline constexpr UINT DFCS_BUTTONCHECK = 0x0;    // a box, in the middle of the rectangle
inline constexpr UINT DFCS_BUTTONRADIO = 0x4;    // a round one
inline constexpr UINT DFCS_BUTTON3STATE = 0x8;   // a box that is neither one nor the other
inline constexpr UINT DFCS_BUTTONPUSH = 0x10;    // fills the rectangle
// In what state, or-ed to it.
inline constexpr UINT DFCS_INACTIVE = 0x100;    // disabled
inline constexpr UINT DFCS_PUSHED = 0x200;      // held down
inline constexpr UINT DFCS_CHECKED = 0x400;     // with its mark; a push button stays down
inline constexpr UINT DFCS_ADJUSTRECT = 0x2000; // of a push button: the rectangle becomes what is left within
inline constexpr UINT DFCS_FLAT = 0x4000;       // as BF_FLAT
inline constexpr UINT DFCS_MONO = 0x8000;       // as BF_MONO

// A button, a scroll button, a caption button or a menu sign that fills the rectangle. False for another
// kind.
COREKIT_API BOOL DrawFrameControl(HDC dc, RECT* rect, UINT kind, UINT state);

// A dotted frame that a second call at the same place takes away again.
COREKIT_API BOOL DrawFocusRect(HDC dc, const RECT* rect);
