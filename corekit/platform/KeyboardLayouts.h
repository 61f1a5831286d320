// The keyboard layouts that the user has set up, and which of them is in force.
//
// On an X display they are the groups of its keyboard, at most four, which all its windows share. Where the
// program's windows are on no X display there is one, that of the process's language. The low word of a
// handle is its language, the high word tells layouts of one language apart. User-interface thread.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Keyboard.h"
#include "corekit/platform/Types.h"

inline constexpr DWORD ERROR_INVALID_KEYBOARD_HANDLE = 1457;

// Stores at most `size` layouts, in the user's order, and returns how many; with size 0, how many there are.
COREKIT_API int GetKeyboardLayoutList(int size, HKL* list);
// The layout in force. All threads have the same.
COREKIT_API HKL GetKeyboardLayout(DWORD thread);
// Puts a layout of the list in force and returns the one before; the window with the focus gets
// WM_INPUTLANGCHANGE if it is another. Null names no layout: all stays as it is. Null with last error 1457
// for any other handle. `flags` change nothing.
COREKIT_API HKL ActivateKeyboardLayout(HKL layout, UINT flags);
