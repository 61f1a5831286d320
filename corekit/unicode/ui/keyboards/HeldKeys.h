// Which keys are held, for keyboards.
#pragma once

#include "corekit/platform/Keyboard.h"

namespace corekit::detail {

inline bool isKeyDown(int virtualKey) { return GetKeyState(virtualKey) < 0; }

} // namespace corekit::detail
