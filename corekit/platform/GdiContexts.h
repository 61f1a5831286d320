// Device contexts: making them, what is selected into them, their attributes and their place.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

inline constexpr COLORREF CLR_INVALID = 0xFFFFFFFF; // no colour: a failure
inline constexpr UINT GDI_ERROR = 0xFFFFFFFF;       // of SetTextAlign and GetTextAlign

// A memory context, which draws into the bitmap selected into it; until then into nothing. `like` may
// be null. It starts with a font of the default face, a black pen of width 1, a white brush, black text,
// white opaque background, TA_LEFT | TA_TOP.
COREKIT_API HDC CreateCompatibleDC(HDC like);
// Lets go of what is selected; the objects themselves stay.
COREKIT_API BOOL DeleteDC(HDC dc);

// Selects an object and returns the one of its kind that was selected before, null on failure. A bitmap that
// another context holds is refused, and every bitmap by the context of a window. A region becomes the clip,
// as SelectClipRgn does it, and the answer is the complexity.
COREKIT_API HGDIOBJ SelectObject(HDC dc, HGDIOBJ object);
// Frees an object. A selected bitmap is refused; a selected font, pen or brush stays in force in its context
// until another is selected, and its handle ends here.
COREKIT_API BOOL DeleteObject(HGDIOBJ object);
// The object of that kind (OBJ_) that is selected; it stays the context's.
COREKIT_API HGDIOBJ GetCurrentObject(HDC dc, UINT kind);

// Kinds of objects that a context has one of each.
inline constexpr UINT OBJ_PEN = 1;
inline constexpr UINT OBJ_BRUSH = 2;
inline constexpr UINT OBJ_FONT = 6;
inline constexpr UINT OBJ_BITMAP = 7;

// Stock objects.
inline constexpr int WHITE_BRUSH = 0;
inline constexpr int LTGRAY_BRUSH = 1; // 0xC0C0C0
inline constexpr int GRAY_BRUSH = 2;   // 0x808080
inline constexpr int DKGRAY_BRUSH = 3; // 0x404040
inline constexpr int BLACK_BRUSH = 4;
inline constexpr int NULL_BRUSH = 5; // fills nothing
inline constexpr int HOLLOW_BRUSH = NULL_BRUSH;
inline constexpr int WHITE_PEN = 6; // solid, one unit wide, as the next one
inline constexpr int BLACK_PEN = 7;
inline constexpr int NULL_PEN = 8; // draws nothing
inline constexpr int ANSI_VAR_FONT = 12;
inline constexpr int SYSTEM_FONT = 13;
inline constexpr int DEFAULT_GUI_FONT = 17;

// An object that is always there; deleting it does nothing. The fonts are all that of the desktop's controls.
// Null for another number.
COREKIT_API HGDIOBJ GetStockObject(int which);

// Describes an object: BITMAP, LOGFONTA, LOGPEN or LOGBRUSH. Returns the bytes written, the structure's size,
// which is also the answer for a null `out`; 0 if `size` is smaller.
COREKIT_API int GetObjectA(HGDIOBJ object, int size, void* out);

// Modes of the background.
inline constexpr int TRANSPARENT = 1;
inline constexpr int OPAQUE = 2;

// Which point of a text lies at the coordinates: a horizontal one, a vertical one.
inline constexpr UINT TA_LEFT = 0;
inline constexpr UINT TA_RIGHT = 2;
inline constexpr UINT TA_CENTER = 6;
inline constexpr UINT TA_TOP = 0;
inline constexpr UINT TA_BOTTOM = 8;
inline constexpr UINT TA_BASELINE = 24;    // the line on which letters stand
inline constexpr UINT TA_RTLREADING = 256; // the base direction is right to left

// The colour calls answer CLR_INVALID for a bad handle.
COREKIT_API COLORREF SetTextColor(HDC dc, COLORREF colour);
COREKIT_API COLORREF GetTextColor(HDC dc);
COREKIT_API COLORREF SetBkColor(HDC dc, COLORREF colour);
COREKIT_API COLORREF GetBkColor(HDC dc);
// OPAQUE fills the cell of a text (its extent), the gaps of dotted lines and of hatches before they are
// drawn. Returns the former mode, 0 on failure.
COREKIT_API int SetBkMode(HDC dc, int mode);
COREKIT_API int GetBkMode(HDC dc);
// One horizontal, one vertical value and TA_RTLREADING, or-ed. Returns the former, GDI_ERROR on failure.
COREKIT_API UINT SetTextAlign(HDC dc, UINT align);
COREKIT_API UINT GetTextAlign(HDC dc);

// ---- Place ------------------------------------------------------------------------------------

// Moves the origin of coordinates to that place of the context's surface; clips stay where they are. The
// former origin goes to `before`, unless that is null.
COREKIT_API BOOL SetViewportOrgEx(HDC dc, int x, int y, POINT* before);
COREKIT_API BOOL OffsetViewportOrgEx(HDC dc, int dx, int dy, POINT* before);
COREKIT_API BOOL GetViewportOrgEx(HDC dc, POINT* origin);

// Keeps everything but the selected bitmap: objects, colours, modes, origin, position and clip. Returns the
// number of what is kept, from 1; 0 on failure and above 1,000 of them.
COREKIT_API int SaveDC(HDC dc);
// Goes back to that number, or by -number steps, and forgets what was kept since. False for one that is not
// there.
COREKIT_API BOOL RestoreDC(HDC dc, int number);

inline constexpr int HORZRES = 8; // units of the surface
inline constexpr int VERTRES = 10;
inline constexpr int BITSPIXEL = 12;  // 32
inline constexpr int PLANES = 14;     // 1
inline constexpr int NUMCOLORS = 24;  // -1: more than can be counted
inline constexpr int LOGPIXELSX = 88; // 96: units, not pixels
inline constexpr int LOGPIXELSY = 90; // the same

// 0 for another index.
COREKIT_API int GetDeviceCaps(HDC dc, int index);
