// Messages that are worth a second try.
#pragma once

#include "corekit/platform/DebugOutput.h"
#include "corekit/platform/Messages.h"

#include <functional>

// Posts a message, and tries again a few times while the queue is full, giving way to other threads in
// between. Tries beyond the first are told to the debug output, and so is a message that is lost in the end.
COREKIT_API void SafePostMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

namespace corekit::detail {
// The tries and what is said of them; `post` tells whether it has worked.
COREKIT_API void postPatiently(const std::function<bool()>& post);
} // namespace corekit::detail
