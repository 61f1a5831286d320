// Icons in the desktop's tray, where programs without a window show themselves.
//
// The desktop shows them by its status notifier or, where it has none, in the tray of X11. What the user does
// with one arrives at its window as its message: wParam is the icon's number, lParam the mouse message
// (WM_LBUTTONDOWN and WM_LBUTTONUP, WM_LBUTTONDBLCLK, the same for the right button). User-interface thread.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

inline constexpr DWORD NIM_ADD = 0, NIM_MODIFY = 1, NIM_DELETE = 2;
inline constexpr UINT NIF_MESSAGE = 1, NIF_ICON = 2, NIF_TIP = 4;

// Of the documented size. Handles and numbers have the machine's width in it.
struct _NOTIFYICONDATAA {
    DWORD cbSize; // 488
    UINT uFlags;  // which of the following hold
    HWND hWnd;    // with the next one, names the icon
    UINT_PTR uID;
    UINT uCallbackMessage;
    HICON hIcon;
    char szTip[128];
    BYTE reserved[320];
};
using NOTIFYICONDATAA = _NOTIFYICONDATAA;
using NOTIFYICONDATA = NOTIFYICONDATAA;
static_assert(sizeof(NOTIFYICONDATAA) == 488);

// Adds an icon, changes what the flags name, or takes it away. 0 where the desktop has no tray, for a record
// of another size, for an icon that is there already, and for one to change or delete that is not.
COREKIT_API BOOL Shell_NotifyIconA(DWORD action, NOTIFYICONDATAA* data);
