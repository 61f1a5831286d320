// The caret: a blinking block that marks where text goes. There is one, of the window that made it.
//
// It is shown as often as ShowCaret outnumbers HideCaret; a new one is hidden once. The place is in the
// window's client area. Where a window has the caret and the focus, input methods are on for it, and their
// windows open beside it. User-interface thread; a window that is not the owner fails with error 5.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

// A block of that size (0: one pixel), in place of any other caret. A bitmap is not used.
COREKIT_API BOOL CreateCaret(HWND window, HBITMAP bitmap, int width, int height);
COREKIT_API BOOL DestroyCaret();
COREKIT_API BOOL SetCaretPos(int x, int y);
COREKIT_API BOOL GetCaretPos(POINT* point); // the upper left corner; (0, 0) without a caret
COREKIT_API BOOL ShowCaret(HWND window);    // null: whichever has it
COREKIT_API BOOL HideCaret(HWND window);
// Milliseconds between dark and light; 0xFFFFFFFF: it does not blink.
COREKIT_API UINT GetCaretBlinkTime();
COREKIT_API BOOL SetCaretBlinkTime(UINT milliseconds);
