// Edges, control frames and the focus rectangle, in the system's colours.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

inline constexpr UINT BDR_RAISEDOUTER = 0x1;
inline constexpr UINT BDR_SUNKENOUTER = 0x2;
inline constexpr UINT BDR_RAISEDINNER = 0x4;
inline constexpr UINT BDR_SUNKENINNER = 0x8;
inline constexpr UINT EDGE_RAISED = BDR_RAISEDOUTER | BDR_RAISEDINNER;
inline constexpr UINT EDGE_SUNKEN = BDR_SUNKENOUTER | BDR_SUNKENINNER;
inline constexpr UINT EDGE_ETCHED = BDR_SUNKENOUTER | BDR_RAISEDINNER;
inline constexpr UINT EDGE_BUMP = BDR_RAISEDOUTER | BDR_SUNKENINNER;

inline constexpr UINT BF_LEFT = 0x1;
inline constexpr UINT BF_TOP = 0x2;
inline constexpr UINT BF_RIGHT = 0x4;
inline constexpr UINT BF_BOTTOM = 0x8;
inline constexpr UINT BF_RECT = 0xF;
inline constexpr UINT BF_MIDDLE = 0x800;  // fills the inside
inline constexpr UINT BF_SOFT = 0x1000;   // as buttons have it
inline constexpr UINT BF_ADJUST = 0x2000; // the rectangle becomes what is left within the edge
inline constexpr UINT BF_FLAT = 0x4000;
inline constexpr UINT BF_MONO = 0x8000;

// Each edge that is named, an outer and an inner line of one unit.
COREKIT_API BOOL DrawEdge(HDC dc, RECT* rect, UINT edge, UINT flags);

inline constexpr UINT DFC_CAPTION = 1;
inline constexpr UINT DFC_MENU = 2;
inline constexpr UINT DFC_SCROLL = 3;
inline constexpr UINT DFC_BUTTON = 4;

inline constexpr UINT DFCS_CAPTIONCLOSE = 0x0;
inline constexpr UINT DFCS_CAPTIONMIN = 0x1;
inline constexpr UINT DFCS_CAPTIONMAX = 0x2;
inline constexpr UINT DFCS_CAPTIONRESTORE = 0x3;
inline constexpr UINT DFCS_CAPTIONHELP = 0x4;
inline constexpr UINT DFCS_MENUARROW = 0x0;
inline constexpr UINT DFCS_MENUCHECK = 0x1;
inline constexpr UINT DFCS_MENUBULLET = 0x2;
inline constexpr UINT DFCS_MENUARROWRIGHT = 0x4;
inline constexpr UINT DFCS_SCROLLUP = 0x0;
inline constexpr UINT DFCS_SCROLLDOWN = 0x1;
inline constexpr UINT DFCS_SCROLLLEFT = 0x2;
inline constexpr UINT DFCS_SCROLLRIGHT = 0x3;
inline constexpr UINT DFCS_SCROLLCOMBOBOX = 0x5;
inline constexpr UINT DFCS_SCROLLSIZEGRIP = 0x8;
inline constexpr UINT DFCS_BUTTONCHECK = 0x0;
inline constexpr UINT DFCS_BUTTONRADIO = 0x4;
inline constexpr UINT DFCS_BUTTON3STATE = 0x8;
inline constexpr UINT DFCS_BUTTONPUSH = 0x10;
inline constexpr UINT DFCS_INACTIVE = 0x100;
inline constexpr UINT DFCS_PUSHED = 0x200;
inline constexpr UINT DFCS_CHECKED = 0x400;
inline constexpr UINT DFCS_ADJUSTRECT = 0x2000; // of a push button: the rectangle becomes what is left within
inline constexpr UINT DFCS_FLAT = 0x4000;
inline constexpr UINT DFCS_MONO = 0x8000;

// A button, a scroll button, a caption button or a menu sign that fills the rectangle. False for another
// kind.
COREKIT_API BOOL DrawFrameControl(HDC dc, RECT* rect, UINT kind, UINT state);

// A dotted frame that a second call at the same place takes away again.
COREKIT_API BOOL DrawFocusRect(HDC dc, const RECT* rect);
