// What is dragged over windows and dropped on them.
#pragma once

#include "corekit/platform/qt/windows/Window.h"

class QEvent;

namespace corekit::detail {

// Whether the event is done with.
bool dropEvent(Window& window, QWidget& receiver, QEvent* event);
void forgetDrops(HWND window);

} // namespace corekit::detail
