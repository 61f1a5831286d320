// Messages and their delivery to windows.
//
// A window belongs to the thread that made it, which alone may send it messages. Any thread may post one: it
// waits in the queue of the window's thread until that thread takes it and gives it to DispatchMessageA.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"
#include "corekit/platform/WindowMessages.h"

#include <functional>

inline constexpr DWORD ERROR_INVALID_WINDOW_HANDLE = 1400;
inline constexpr DWORD ERROR_NOT_ENOUGH_QUOTA = 1816;

struct tagMSG {
    HWND hwnd;
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
    DWORD time; // milliseconds
    POINT pt;   // the pointer, in screen pixels
};
using MSG = tagMSG;

// Gives a message to its window at once and returns the window's answer; 0 with error 1400 for a window that
// is null or closed, with error 5 for one of another thread.
COREKIT_API LRESULT SendMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

// Gives a message to its window at once and returns the window's answer; 0 for a null message, and for a
// window that is null, closed or not of this thread.
COREKIT_API LRESULT DispatchMessageA(const MSG* message);

inline constexpr int maximumPostedMessages = 10000; // in one thread's queue

// Puts a message at the end of the queue of the window's thread, for a null window of this thread; pt stays
// (0, 0). 0 with error 1400 if the window is closed, with 1816 if the queue is full.
COREKIT_API BOOL PostMessageA(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

inline constexpr UINT PM_NOREMOVE = 0;
inline constexpr UINT PM_REMOVE = 1;
// The first message of this thread's queue that is for the window (null: for any or none) and whose number
// lies from first to last (both 0: any number); WM_QUIT is let through in any case. PeekMessageA returns 0
// at once if there is none. GetMessageA waits, takes it out, and returns 0 for WM_QUIT, else 1. Both have
// error 1400, and -1 for GetMessageA, if the window is closed or another thread's; closing a window takes
// its messages along.
COREKIT_API BOOL PeekMessageA(MSG* message, HWND window, UINT first, UINT last, UINT remove);
//
// On the thread that runs the window toolkit both let it work while they find nothing: keys, mouse, paints
// and timers then reach their windows, by way of pre-translation, within the call. So a loop of PeekMessageA
// and DispatchMessageA keeps windows alive.
COREKIT_API BOOL GetMessageA(MSG* message, HWND window, UINT first, UINT last);
// Ends this thread's innermost message loop, and so on outwards, by a WM_QUIT.
COREKIT_API void PostQuitMessage(int exitCode);
// One number for one name in the whole program, without regard to case: 0xC000 to 0xFFFF, 0 when all are
// taken.
COREKIT_API UINT RegisterWindowMessageA(const char* name);

// A window that shows nothing: an HWND whose messages arrive at a function. Not copied, and closed by the
// destructor on the thread that made it, even while it answers a message.
class COREKIT_API MessageWindow {
public:
    using Procedure = std::function<LRESULT(const MSG&)>;

    explicit MessageWindow(Procedure procedure);
    ~MessageWindow();
    MessageWindow(const MessageWindow&) = delete;
    MessageWindow& operator=(const MessageWindow&) = delete;

    HWND GetSafeHwnd() const { return m_window; }

private:
    HWND m_window;
};
