// Focus, activation, the mouse and accelerators of this program's windows. User-interface thread.
#pragma once

#include "corekit/platform/Accelerators.h"
#include "corekit/platform/Export.h"
#include "corekit/platform/Keyboard.h"
#include "corekit/platform/Messages.h"
#include "corekit/platform/Types.h"

// Whether the message is the press of a key. The characters of a press come by themselves, right behind it:
// the toolkit's loop sends both to the window, and GetMessageA never brings a key.
COREKIT_API BOOL TranslateMessage(const MSG* message);

// Gives a window the keys, and its top window the activation: WM_KILLFOCUS and WM_SETFOCUS are sent at once.
// Null takes the keys away. Returns the window that had them. A disabled window is refused with null.
COREKIT_API HWND SetFocus(HWND window);
COREKIT_API HWND GetFocus();
COREKIT_API HWND SetActiveWindow(HWND window); // returns the one before
COREKIT_API HWND GetActiveWindow();
COREKIT_API BOOL SetForegroundWindow(HWND window);

// The window with the capture gets all mouse messages of this program; pressed buttons bring those from
// outside, too. It ends with ReleaseCapture, and where another window takes it, or the holder is hidden,
// disabled or destroyed; the holder gets WM_CAPTURECHANGED.
COREKIT_API HWND SetCapture(HWND window); // returns the one before
COREKIT_API BOOL ReleaseCapture();
COREKIT_API HWND GetCapture();
// Pointer in screen coordinates.
COREKIT_API BOOL GetCursorPos(POINT* point);
COREKIT_API UINT GetDoubleClickTime(); // milliseconds

inline constexpr DWORD TME_HOVER = 0x1, TME_LEAVE = 0x2, TME_CANCEL = 0x80000000;
struct TRACKMOUSEEVENT {
    DWORD cbSize, dwFlags;
    HWND hwndTrack;
    DWORD dwHoverTime;
};
// Asks for one WM_MOUSELEAVE when the pointer leaves the window. Hovering is not reported.
COREKIT_API BOOL TrackMouseEvent(TRACKMOUSEEVENT* track);

// If the message is a key of the table, sends WM_COMMAND to the window (HIWORD(wParam) is 1) and answers 1.
// Rows with FVIRTKEY match WM_KEYDOWN and WM_SYSKEYDOWN with exactly the keys held that they ask for; the
// others match characters.
COREKIT_API int TranslateAcceleratorA(HWND window, HACCEL table, MSG* message);
