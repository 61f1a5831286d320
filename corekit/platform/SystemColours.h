// The colours and measures of the desktop: the toolkit's palette and style, as they are at the moment of the
// call.
//
// User-interface thread. While no toolkit is running the colours are plain greys and the measures common
// ones.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

inline constexpr int COLOR_SCROLLBAR = 0;       // the ground of a scroll bar
inline constexpr int COLOR_BACKGROUND = 1;      // behind all windows
inline constexpr int COLOR_ACTIVECAPTION = 2;   // caption of the active window
inline constexpr int COLOR_INACTIVECAPTION = 3; // of the others
inline constexpr int COLOR_MENU = 4;            // ground of menus
inline constexpr int COLOR_WINDOW = 5;          // ground of text and lists
inline constexpr int COLOR_WINDOWFRAME = 6;     // thin frames
inline constexpr int COLOR_MENUTEXT = 7;        // text in menus
inline constexpr int COLOR_WINDOWTEXT = 8;      // text on COLOR_WINDOW
inline constexpr int COLOR_CAPTIONTEXT = 9;     // text in an active caption
inline constexpr int COLOR_ACTIVEBORDER = 10;   // border of the active window
inline constexpr int COLOR_INACTIVEBORDER = 11; // of the others
inline constexpr int COLOR_APPWORKSPACE = 12;   // ground behind several documents
inline constexpr int COLOR_HIGHLIGHT = 13;      // ground of what is selected
inline constexpr int COLOR_HIGHLIGHTTEXT = 14;  // text on that
inline constexpr int COLOR_BTNFACE = 15;        // buttons, bars, dialogs
inline constexpr int COLOR_3DFACE = COLOR_BTNFACE;
inline constexpr int COLOR_BTNSHADOW = 16; // shaded edge
inline constexpr int COLOR_3DSHADOW = COLOR_BTNSHADOW;
inline constexpr int COLOR_GRAYTEXT = 17;            // what is disabled
inline constexpr int COLOR_BTNTEXT = 18;             // text on COLOR_BTNFACE
inline constexpr int COLOR_INACTIVECAPTIONTEXT = 19; // text in other captions
inline constexpr int COLOR_BTNHIGHLIGHT = 20;        // lit edge
inline constexpr int COLOR_3DHIGHLIGHT = COLOR_BTNHIGHLIGHT;
inline constexpr int COLOR_3DDKSHADOW = 21;              // darkest edge
inline constexpr int COLOR_3DLIGHT = 22;                 // between face and lit edge
inline constexpr int COLOR_INFOTEXT = 23;                // text of tool tips
inline constexpr int COLOR_INFOBK = 24;                  // ground of tool tips
inline constexpr int COLOR_HOTLIGHT = 26;                // links
inline constexpr int COLOR_GRADIENTACTIVECAPTION = 27;   // as COLOR_ACTIVECAPTION
inline constexpr int COLOR_GRADIENTINACTIVECAPTION = 28; // as COLOR_INACTIVECAPTION
inline constexpr int COLOR_MENUHILIGHT = 29;             // the item below the mouse
inline constexpr int COLOR_MENUBAR = 30;                 // ground of menu bars
inline constexpr int COLOR_LAST = COLOR_MENUBAR;

// 0 for a number without a colour.
COREKIT_API DWORD GetSysColor(int index);
// A brush of that colour, which nobody has to delete; null for a number without one. It keeps its colour when
// the desktop's changes: ask again then.
COREKIT_API HBRUSH GetSysColorBrush(int index);

inline constexpr int SM_CXSCREEN = 0;  // of the primary screen
inline constexpr int SM_CYSCREEN = 1;  // all in units of the toolkit (logical pixels)
inline constexpr int SM_CXVSCROLL = 2; // width of a vertical scroll bar
inline constexpr int SM_CYHSCROLL = 3; // height of a horizontal one
inline constexpr int SM_CYCAPTION = 4; // height of a caption
inline constexpr int SM_CXBORDER = 5;  // thin border: 1
inline constexpr int SM_CYBORDER = 6;
inline constexpr int SM_CXDLGFRAME = 7; // frame of a dialog
inline constexpr int SM_CYDLGFRAME = 8;
inline constexpr int SM_CXICON = 11; // 32, as the next three
inline constexpr int SM_CYICON = 12;
inline constexpr int SM_CXCURSOR = 13;
inline constexpr int SM_CYCURSOR = 14;
inline constexpr int SM_CYMENU = 15;    // height of a menu bar of one line
inline constexpr int SM_CYVSCROLL = 20; // height of its arrow
inline constexpr int SM_CXHSCROLL = 21; // width of its arrow
inline constexpr int SM_CXFRAME = 32;   // frame that sizes a window
inline constexpr int SM_CYFRAME = 33;
inline constexpr int SM_CXDOUBLECLK = 36; // how far the second click may lie from the first
inline constexpr int SM_CYDOUBLECLK = 37;
inline constexpr int SM_CXEDGE = 45; // sunken edge: 2
inline constexpr int SM_CYEDGE = 46;
inline constexpr int SM_CXSMICON = 49; // 16
inline constexpr int SM_CYSMICON = 50;
inline constexpr int SM_CYSMCAPTION = 51; // of a small caption
inline constexpr int SM_CXDRAG = 68;      // how far a pressed mouse moves before that is a drag
inline constexpr int SM_CYDRAG = 69;
inline constexpr int SM_CXMENUCHECK = 71; // size of a check mark
inline constexpr int SM_CYMENUCHECK = 72;
inline constexpr int SM_XVIRTUALSCREEN = 76; // of all screens together
inline constexpr int SM_YVIRTUALSCREEN = 77;
inline constexpr int SM_CXVIRTUALSCREEN = 78;
inline constexpr int SM_CYVIRTUALSCREEN = 79;
inline constexpr int SM_CMONITORS = 80; // screens; 0 without a toolkit

// 0 for another number.
COREKIT_API int GetSystemMetrics(int index);
