// Messages with wide text, on their way by SendMessageW.
#pragma once

#include "corekit/platform/Types.h"

namespace corekit::detail {

// Whether the message that the window has in hand, with this lParam, carries wide text.
bool carriesWideText(HWND window, LPARAM text);

} // namespace corekit::detail
