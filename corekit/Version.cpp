#include "corekit/Version.h"

const char* CoreKitVersion() { return COREKIT_VERSION; }
