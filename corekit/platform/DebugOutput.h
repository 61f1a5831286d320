// Lines for whoever looks for a fault.
#pragma once

#include "corekit/platform/Export.h"

#include <functional>

using DebugListener = std::function<void(const char* text)>;
// From now on debug output goes to the listener, on the thread that writes it; returns the one before. An
// empty listener stands for the standard error stream, as at the start. Output under way may still reach the
// former.
COREKIT_API DebugListener SetDebugListener(DebugListener listener);

// Hands the text over as it is; null counts as empty. Any thread; the last error stays.
COREKIT_API void OutputDebugStringA(const char* text);
