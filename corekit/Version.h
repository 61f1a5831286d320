// The library's own version.
#pragma once

#include "corekit/platform/Export.h"

// "major.minor.patch" of the library that is loaded, which may be newer than the one compiled against.
COREKIT_API const char* CoreKitVersion();
// The same for a reader: "Version major.minor.patch (build)".
COREKIT_API const char* CoreKitVersionText();
