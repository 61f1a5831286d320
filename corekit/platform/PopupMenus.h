// Menus on the screen: the bar of a window, and menus that pop up.
//
// A menu is asked for by WM_INITMENUPOPUP before it opens, each time; what is chosen arrives as WM_COMMAND
// with HIWORD(wParam) 0. A text may hold an ampersand before its letter, and a tab before the name of its
// key. User-interface thread.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Menus.h"

// The menu bar of a top window; null takes it away. The menu then belongs to the window, and goes with it.
// The former menu is the caller's again.
COREKIT_API BOOL SetMenu(HWND window, HMENU menu);
COREKIT_API HMENU GetMenu(HWND window);

inline constexpr UINT TPM_LEFTALIGN = 0, TPM_CENTERALIGN = 0x4, TPM_RIGHTALIGN = 0x8, TPM_LEFTBUTTON = 0,
                      TPM_RIGHTBUTTON = 0x2, TPM_BOTTOMALIGN = 0x20, TPM_NONOTIFY = 0x80,
                      TPM_RETURNCMD = 0x100;
// Opens the menu at a point of the screen and returns when it closes; the window gets the messages. With
// TPM_RETURNCMD the answer is the command, 0 if none was chosen, and nothing is sent; otherwise whether the
// menu could be shown.
COREKIT_API int TrackPopupMenu(HMENU menu, UINT flags, int x, int y, int reserved, HWND window,
                               const RECT* unused = nullptr);
