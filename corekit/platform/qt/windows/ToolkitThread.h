// The thread that windows belong to, and how a call from elsewhere or for no window is refused.
#pragma once

#include "corekit/platform/Types.h"

namespace corekit::detail {

class Window;

// True on the thread of the application object, and where there is none yet. Otherwise sets error 5; a debug
// build stops.
bool onToolkitThread();
// The window, or null with error 1400, with error 5 on another thread.
Window* requireWindow(HWND window);

} // namespace corekit::detail
