// The windows and the listener hear of a layout when it comes into force, once: from the user's next key, or
// at once from a program that activates it. User-interface thread.
#pragma once

#include "corekit/platform/Keyboard.h"
#include "corekit/platform/Types.h"

class QKeyEvent;

namespace corekit::detail {

// Another layout of the user's shows in the key's own state on X; `window` gets WM_INPUTLANGCHANGE.
void noticeLayout(const QKeyEvent& event, HWND window);
// The program has put `layout` in force in place of `before`; the window with the focus gets the message.
void noticeActivation(HKL before, HKL layout);

} // namespace corekit::detail
