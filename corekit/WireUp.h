// For programs that have module chains of their own.
#pragma once

#include "corekit/platform/Export.h"

// Puts this library on the chain once more, so that a further module finds its texts and classes through
// its own part of the chain. Without memory nothing happens. The entries go when the library is unloaded.
COREKIT_API void WireUp_CoreKit();
