// Messages and their delivery to windows.
//
// A window belongs to the thread that made it, which alone may send it messages.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

#include <functional>

inline constexpr UINT WM_KEYDOWN = 0x100;
inline constexpr UINT WM_CHAR = 0x102;
inline constexpr UINT WM_IME_CHAR = 0x286;

struct tagMSG {
    HWND hwnd;
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
    DWORD time; // milliseconds
    POINT pt;   // the pointer, in screen pixels
};
using MSG = tagMSG;

// Gives a message to its window at once and returns the window's answer; 0 for a null message, and for a
// window that is null, closed or not of this thread.
COREKIT_API LRESULT DispatchMessageA(const MSG* message);

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
