// Windows: classes, creation, the tree, place, words and texts.
//
// A window is a handle that stands for one widget of the toolkit. It belongs to the thread that runs the
// toolkit: whatever stands here is for that thread; on another the calls fail with error 5, and a debug
// build stops. IsWindow and PostMessageA may be asked anywhere.
//
// A handle that is null, closed or foreign fails with error 1400 and does no harm. Any message may destroy
// any window: who sends one asks IsWindow before going on.
//
// Coordinates are logical pixels of the toolkit. The frame of a top window (caption, resizing border) is the
// window manager's; a border or scroll bar of a style is part of the window, not of its client area. Narrow
// text is in the active code page.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Keyboard.h"
#include "corekit/platform/Messages.h"
#include "corekit/platform/Types.h"
#include "corekit/platform/WindowMessages.h"
#include "corekit/platform/WindowStyles.h"

using HMENU = struct HMENU__*;

// ---- Classes ------------------------------------------------------------------------------------

struct WNDCLASSA {
    UINT style; // CS_
    WNDPROC lpfnWndProc;
    int cbClsExtra; // not used
    int cbWndExtra; // bytes at each window, for SetWindowLongPtrA
    HINSTANCE hInstance;
    HICON hIcon;          // kept and given back; not shown
    HCURSOR hCursor;      // shown over the client area; null: the window sets it at WM_SETCURSOR
    HBRUSH hbrBackground; // what WM_ERASEBKGND fills with: a brush, or 1 + a system colour; null: nothing
    const char* lpszMenuName;
    const char* lpszClassName; // compared without case
};
// 0 with error 1410 if there is such a class already. Classes stay for good; the controls' are there from the
// beginning.
COREKIT_API ATOM RegisterClassA(const WNDCLASSA* windowClass);
// False if there is no such class; the name is that of the registration.
COREKIT_API BOOL GetClassInfoA(HINSTANCE instance, const char* className, WNDCLASSA* windowClass);
COREKIT_API int GetClassNameA(HWND window, char* buffer, int size);

// ---- Life ---------------------------------------------------------------------------------------

// Makes a window and sends WM_NCCREATE, WM_CREATE and, for a child, WM_SIZE and WM_MOVE; a top window gets
// these two when it is first shown. With WS_CHILD the parent is needed and `menu` is the id; otherwise the
// parent is the owner, above which the window stays and with which it goes, and `menu` its menu bar.
// CW_USEDEFAULT for x or width leaves place or size to the toolkit. Null: no such class (error 1407), no
// toolkit, or the window refused to be made.
COREKIT_API HWND CreateWindowExA(DWORD exStyle, const char* className, const char* name, DWORD style, int x,
                                 int y, int width, int height, HWND parent, HMENU menu, HINSTANCE instance,
                                 void* parameter);
// Hides the window, sends WM_DESTROY to it and then to its children, then WM_NCDESTROY, and closes the
// handles. Windows that it owns go first. May be called from any message of that very window.
COREKIT_API BOOL DestroyWindow(HWND window);
COREKIT_API BOOL IsWindow(HWND window);

// ---- Procedures ---------------------------------------------------------------------------------

// What happens to a message that the window does not want: closing, erasing, texts, the control's own work.
COREKIT_API LRESULT DefWindowProcA(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
COREKIT_API LRESULT CallWindowProcA(WNDPROC procedure, HWND window, UINT message, WPARAM wParam,
                                    LPARAM lParam);
// index: GWLP_, GWL_, or a byte offset into the extra bytes (8 bytes are read and written). Set returns the
// former value. GWL_STYLE changes what a changed style shows: borders, scroll bars, visibility not.
COREKIT_API LONG_PTR GetWindowLongPtrA(HWND window, int index);
COREKIT_API LONG_PTR SetWindowLongPtrA(HWND window, int index, LONG_PTR value);
COREKIT_API LONG GetWindowLongA(HWND window, int index);
COREKIT_API LONG SetWindowLongA(HWND window, int index, LONG value);

// ---- The tree -----------------------------------------------------------------------------------

// The parent of a child, the owner of a top window.
COREKIT_API HWND GetParent(HWND window);
// Returns the former parent. A null parent makes a top window of a child whose style says so (WS_POPUP).
COREKIT_API HWND SetParent(HWND window, HWND parent);
COREKIT_API HWND GetAncestor(HWND window, UINT which); // GA_
COREKIT_API BOOL IsChild(HWND parent, HWND window);    // at any depth
// which: GW_. Siblings stand from the topmost to the lowest.
COREKIT_API HWND GetWindow(HWND window, UINT which);
inline HWND GetTopWindow(HWND window) { return GetWindow(window, GW_CHILD); }
// The first child with that id, at one depth.
COREKIT_API HWND GetDlgItem(HWND parent, int id);
COREKIT_API int GetDlgCtrlID(HWND window);
// A handle that stands for the screen: GetWindowRect answers the primary screen's, and nothing can be sent.
COREKIT_API HWND GetDesktopWindow();
COREKIT_API HWND WindowFromPoint(POINT point); // of this program; null if there is none
COREKIT_API HWND ChildWindowFromPoint(HWND parent, POINT point);
// The owned top window that was active last, or the window itself.
COREKIT_API HWND GetLastActivePopup(HWND window);

// ---- Show, place and state ----------------------------------------------------------------------

// how: SW_. Returns whether it was visible.
COREKIT_API BOOL ShowWindow(HWND window, int how);
COREKIT_API BOOL IsWindowVisible(HWND window); // it and all its parents
COREKIT_API BOOL IsIconic(HWND window);
COREKIT_API BOOL IsZoomed(HWND window);
COREKIT_API BOOL SetWindowPos(HWND window, HWND insertAfter, int x, int y, int width, int height, UINT flags);
COREKIT_API BOOL MoveWindow(HWND window, int x, int y, int width, int height, BOOL repaint);
COREKIT_API BOOL BringWindowToTop(HWND window);
COREKIT_API BOOL GetWindowRect(HWND window, RECT* rect); // in screen coordinates
COREKIT_API BOOL GetClientRect(HWND window, RECT* rect); // left and top are 0
COREKIT_API BOOL ClientToScreen(HWND window, POINT* point);
COREKIT_API BOOL ScreenToClient(HWND window, POINT* point);
// Null stands for the screen. Returns the shift, packed as in messages.
COREKIT_API int MapWindowPoints(HWND from, HWND to, POINT* points, UINT count);
// The window rectangle that has this client rectangle: what a style's border and scroll bars add.
COREKIT_API BOOL AdjustWindowRectEx(RECT* rect, DWORD style, BOOL menu, DWORD exStyle);
// Several windows at once; they move when EndDeferWindowPos is called. Null on failure.
using HDWP = struct HDWP__*;
COREKIT_API HDWP BeginDeferWindowPos(int count);
COREKIT_API HDWP DeferWindowPos(HDWP positions, HWND window, HWND insertAfter, int x, int y, int width,
                                int height, UINT flags);
COREKIT_API BOOL EndDeferWindowPos(HDWP positions);

// A disabled window gets neither mouse nor keys, and its children neither. Returns whether it was disabled.
COREKIT_API BOOL EnableWindow(HWND window, BOOL enable);
COREKIT_API BOOL IsWindowEnabled(HWND window);

// ---- Text ---------------------------------------------------------------------------------------

// The caption or the control's text; sends WM_SETTEXT, WM_GETTEXT, WM_GETTEXTLENGTH. The W-forms carry what
// the active code page lacks. Get copies at most size - 1 units and a terminator, and returns their number.
COREKIT_API BOOL SetWindowTextA(HWND window, const char* text);
COREKIT_API BOOL SetWindowTextW(HWND window, const WCHAR* text);
COREKIT_API int GetWindowTextA(HWND window, char* buffer, int size);
COREKIT_API int GetWindowTextW(HWND window, WCHAR* buffer, int size);
COREKIT_API int GetWindowTextLengthA(HWND window);
COREKIT_API int GetWindowTextLengthW(HWND window);
// As SendMessageA, for messages that carry text without a W in their name: WM_SETTEXT and its like, EM_, LB_
// and CB_ messages. Their text is wide here, and lengths count its units. What has no text goes as it is.
COREKIT_API LRESULT SendMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

namespace corekit::detail {
// Called with each new handle before its first message; null for nobody. Returns the one before. The class
// framework attaches its objects here.
using CreationHook = void (*)(HWND window);
COREKIT_API CreationHook setCreationHook(CreationHook hook);
// Offers each message of the queued kind before its window sees it, also within the toolkit's own loops;
// true: it is consumed. Returns the one before.
using PreTranslate = bool (*)(MSG* message);
COREKIT_API PreTranslate setPreTranslate(PreTranslate offer);
// Hears of a layout that comes into force, before WM_INPUTLANGCHANGE tells the window with the focus: at the
// user's next key, or within ActivateKeyboardLayout. Returns the one before.
using LayoutListener = void (*)(UINT charSet, HKL layout);
COREKIT_API LayoutListener setLayoutListener(LayoutListener listener);
} // namespace corekit::detail
