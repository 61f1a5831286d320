// The static control: a text, a picture, or a line that divides.
#pragma once

#include "corekit/platform/Controls.h"

// What it shows, one of these. Text beyond the edge is cut; SS_LEFT, SS_CENTER and SS_RIGHT wrap it between
// words first.
inline constexpr DWORD SS_LEFT = 0x0;       // text, wrapped
inline constexpr DWORD SS_CENTER = 0x1;     // each line in the middle
inline constexpr DWORD SS_RIGHT = 0x2;      // each line at the right
inline constexpr DWORD SS_ICON = 0x3;       // a picture (HICON)
inline constexpr DWORD SS_BLACKRECT = 0x4;  // filled with the colour of text
inline constexpr DWORD SS_GRAYRECT = 0x5;   // of shadows
inline constexpr DWORD SS_WHITERECT = 0x6;  // of the window
inline constexpr DWORD SS_BLACKFRAME = 0x7; // one pixel wide, as the next two
inline constexpr DWORD SS_GRAYFRAME = 0x8;
inline constexpr DWORD SS_WHITEFRAME = 0x9;
inline constexpr DWORD SS_SIMPLE = 0xB;         // one line
inline constexpr DWORD SS_LEFTNOWORDWRAP = 0xC; // lines as they come
inline constexpr DWORD SS_OWNERDRAW = 0xD;      // the parent draws, at WM_DRAWITEM
inline constexpr DWORD SS_BITMAP = 0xE;         // a picture (HBITMAP)
inline constexpr DWORD SS_ETCHEDHORZ = 0x10;    // a dividing line
inline constexpr DWORD SS_ETCHEDVERT = 0x11;    // an upright one
inline constexpr DWORD SS_ETCHEDFRAME = 0x12;   // a frame
inline constexpr DWORD SS_TYPEMASK = 0x1F;
// How.
inline constexpr DWORD SS_REALSIZECONTROL = 0x40; // the picture is stretched to the control
inline constexpr DWORD SS_NOPREFIX = 0x80;        // & is a character as any other
inline constexpr DWORD SS_NOTIFY = 0x100;         // takes clicks and tells them
inline constexpr DWORD SS_CENTERIMAGE = 0x200;    // picture or line of text stands in the middle
inline constexpr DWORD SS_SUNKEN = 0x1000;        // a sunken edge
inline constexpr DWORD SS_ENDELLIPSIS = 0x4000;   // one line that ends with "..." where it is cut
inline constexpr DWORD SS_PATHELLIPSIS = 0x8000;  // cut in the middle
inline constexpr DWORD SS_WORDELLIPSIS = 0xC000;  // as SS_ENDELLIPSIS
inline constexpr DWORD SS_ELLIPSISMASK = 0xC000;

inline constexpr UINT IMAGE_BITMAP = 0;
inline constexpr UINT IMAGE_ICON = 1;

// The four answer the picture, or the one before. The control does not own it, and grows or shrinks to the
// picture's size unless SS_CENTERIMAGE or SS_REALSIZECONTROL is set.
inline constexpr UINT STM_SETICON = 0x170;  // wParam: HICON, may be null
inline constexpr UINT STM_GETICON = 0x171;  // null without one
inline constexpr UINT STM_SETIMAGE = 0x172; // wParam: IMAGE_BITMAP or IMAGE_ICON; lParam: the handle
inline constexpr UINT STM_GETIMAGE = 0x173; // wParam as above

// WM_COMMAND, with SS_NOTIFY.
inline constexpr UINT STN_CLICKED = 0;
inline constexpr UINT STN_DBLCLK = 1;
inline constexpr UINT STN_ENABLE = 2;
inline constexpr UINT STN_DISABLE = 3;
