// What all kinds of kernel objects share.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

// Gives a handle back; the object goes when nothing uses it any more. Returns 0 with error 6 for null,
// INVALID_HANDLE_VALUE and every value that is no open handle.
COREKIT_API BOOL CloseHandle(HANDLE handle);
