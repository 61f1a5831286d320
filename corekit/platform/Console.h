// Whether a person is looking at a standard stream.
#pragma once

#include "corekit/platform/Export.h"

enum class StandardStream { Output = 1, Error = 2 };

// The width in characters of the terminal that the stream is shown on; 0 when it goes to a file or a pipe.
COREKIT_API int TerminalColumns(StandardStream stream);
