// Names for those who cannot see where things stand.
#pragma once

#include "corekit/platform/qt/windows/Window.h"

namespace corekit::detail {

// A text that stands right before a control names it, and at once when it comes later.
void takeNameFrom(HWND before, QWidget& control);

} // namespace corekit::detail
