// Icons and cursors: small pictures with transparent parts; a cursor has a hot spot.
//
// User-interface thread, and only while the toolkit runs: null or false with ERROR_DEV_NOT_EXIST otherwise.
// Handles are checked like those of drawing objects.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Resources.h"
#include "corekit/platform/Types.h"

inline const char* const IDC_ARROW = MAKEINTRESOURCEA(32512);       // the usual one
inline const char* const IDC_IBEAM = MAKEINTRESOURCEA(32513);       // over text
inline const char* const IDC_WAIT = MAKEINTRESOURCEA(32514);        // the program is busy
inline const char* const IDC_CROSS = MAKEINTRESOURCEA(32515);       // cross hairs
inline const char* const IDC_UPARROW = MAKEINTRESOURCEA(32516);     // an arrow upwards
inline const char* const IDC_SIZENWSE = MAKEINTRESOURCEA(32642);    // sizing, along a diagonal
inline const char* const IDC_SIZENESW = MAKEINTRESOURCEA(32643);    // the other diagonal
inline const char* const IDC_SIZEWE = MAKEINTRESOURCEA(32644);      // across
inline const char* const IDC_SIZENS = MAKEINTRESOURCEA(32645);      // up and down
inline const char* const IDC_SIZEALL = MAKEINTRESOURCEA(32646);     // moving
inline const char* const IDC_NO = MAKEINTRESOURCEA(32648);          // not here
inline const char* const IDC_HAND = MAKEINTRESOURCEA(32649);        // over a link
inline const char* const IDC_APPSTARTING = MAKEINTRESOURCEA(32650); // busy, and can be used
inline const char* const IDC_HELP = MAKEINTRESOURCEA(32651);        // asks what something is

inline const char* const IDI_APPLICATION = MAKEINTRESOURCEA(32512);
inline const char* const IDI_ERROR = MAKEINTRESOURCEA(32513);
inline const char* const IDI_QUESTION = MAKEINTRESOURCEA(32514);
inline const char* const IDI_WARNING = MAKEINTRESOURCEA(32515);
inline const char* const IDI_INFORMATION = MAKEINTRESOURCEA(32516);

// A number of the system gives the desktop's own, any other number or name the resource of a module, whatever
// the instance: a cursor in XPM form, an icon in that or as PNG. What is loaded twice is the same; nobody has
// to free it. Null if there is none.
//
// A picture in XPM form has a transparent colour "None", and the hot spot behind the four numbers of its
// first line. At most 256 pixels wide and high, 256 colours; anything else is as if it were not there.
COREKIT_API HCURSOR LoadCursorA(HINSTANCE instance, const char* name);
COREKIT_API HICON LoadIconA(HINSTANCE instance, const char* name);

inline constexpr UINT DI_MASK = 1;
inline constexpr UINT DI_IMAGE = 2;
inline constexpr UINT DI_NORMAL = 3;      // both; drawn in any case
inline constexpr UINT DI_DEFAULTSIZE = 8; // where width or height is 0, that of the system's icons

// Draws an icon or cursor; a width or height of 0 is its own. `step` and `behind` are not used.
COREKIT_API BOOL DrawIconEx(HDC dc, int x, int y, HICON icon, int width, int height, UINT step, HBRUSH behind,
                            UINT flags);
// In the size of the system's icons, 32 by 32.
COREKIT_API BOOL DrawIcon(HDC dc, int x, int y, HICON icon);

// Shows that cursor over the window below the mouse, or the one that has captured it, until the next call or
// the window's own answer to a movement; null shows none. Returns the former one.
COREKIT_API HCURSOR SetCursor(HCURSOR cursor);
COREKIT_API HCURSOR GetCursor();
// Counts: the cursor is shown while the count is not below 0. Returns the new count.
COREKIT_API int ShowCursor(BOOL show);
