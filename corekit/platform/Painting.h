// Painting a window: the part that needs it, and the contexts to draw with.
//
// What is invalid collects until the toolkit paints; WM_PAINT then comes with the picture of the window as
// the target, clipped to what is needed. A window that does not care passes the message on. Drawing at other
// times goes through GetDC and shows at ReleaseDC. Units are pixels of the window, also where the screen has
// several of its own to one. User-interface thread.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

using HRGN = HGDIOBJ;

struct PAINTSTRUCT {
    HDC hdc;
    BOOL fErase;  // nobody has erased the background: WM_ERASEBKGND answered 0
    RECT rcPaint; // the bounds of what is to be painted, in the client area
};
// For WM_PAINT, on the window that got it: sends WM_ERASEBKGND where asked for, and takes the part out of
// what is invalid. At other times it gives a context that draws into nothing. A caret hides meanwhile.
// EndPaint gives the context back.
COREKIT_API HDC BeginPaint(HWND window, PAINTSTRUCT* paint);
COREKIT_API BOOL EndPaint(HWND window, const PAINTSTRUCT* paint);

// A context for the client area (GetDC) or the whole window (GetWindowDC), to be given back; null gives one
// for measuring, which draws into nothing. So does a window that is not on the screen yet. GetDCEx flags:
// DCX_WINDOW and DCX_INTERSECTRGN with a region in client coordinates, others have no effect.
COREKIT_API HDC GetDC(HWND window);
COREKIT_API HDC GetWindowDC(HWND window);
inline constexpr DWORD DCX_WINDOW = 0x1, DCX_CACHE = 0x2, DCX_CLIPCHILDREN = 0x8, DCX_CLIPSIBLINGS = 0x10,
                       DCX_INTERSECTRGN = 0x80, DCX_LOCKWINDOWUPDATE = 0x400;
COREKIT_API HDC GetDCEx(HWND window, HRGN clip, DWORD flags);
// 1 if the context was given out by one of these and not given back, else 0.
COREKIT_API int ReleaseDC(HWND window, HDC dc);

// Adds to what is invalid, or takes away; a null rectangle is the whole client area. `erase` asks for
// WM_ERASEBKGND at the next paint.
COREKIT_API BOOL InvalidateRect(HWND window, const RECT* rect, BOOL erase);
COREKIT_API BOOL ValidateRect(HWND window, const RECT* rect);
COREKIT_API BOOL InvalidateRgn(HWND window, HRGN region, BOOL erase);
// Paints now if anything is invalid.
COREKIT_API BOOL UpdateWindow(HWND window);
// The bounds of what is invalid, empty and 0 if nothing is.
COREKIT_API BOOL GetUpdateRect(HWND window, RECT* rect, BOOL erase);

inline constexpr UINT RDW_INVALIDATE = 0x1, RDW_ERASE = 0x4, RDW_VALIDATE = 0x8, RDW_NOERASE = 0x20,
                      RDW_NOCHILDREN = 0x40, RDW_ALLCHILDREN = 0x80, RDW_UPDATENOW = 0x100,
                      RDW_ERASENOW = 0x200, RDW_FRAME = 0x400;
COREKIT_API BOOL RedrawWindow(HWND window, const RECT* rect, HRGN region, UINT flags);

inline constexpr UINT SW_SCROLLCHILDREN = 0x1, SW_INVALIDATE = 0x2, SW_ERASE = 0x4;
// Moves the pixels of a part of the client area (null: all) and invalidates what comes into view, with
// SW_INVALIDATE; `clip` bounds both. The answer is a region code: 1 nothing, 2 a rectangle, 0 failure.
// `update` gets the bounds of what came into view; all three may be null.
COREKIT_API int ScrollWindowEx(HWND window, int dx, int dy, const RECT* part, const RECT* clip, HRGN region,
                               RECT* update, UINT flags);
COREKIT_API BOOL ScrollWindow(HWND window, int dx, int dy, const RECT* part, const RECT* clip);
