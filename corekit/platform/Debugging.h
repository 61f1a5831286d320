// The debugger, if there is one.
#pragma once

#include "corekit/platform/Export.h"

// Stops in the debugger. Where none is attached, and the program does not handle SIGTRAP, nothing happens.
COREKIT_API void DebugBreak();
