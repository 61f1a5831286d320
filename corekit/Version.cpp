#include "corekit/Version.h"

const char* CoreKitVersion() { return COREKIT_VERSION; }
const char* CoreKitVersionText() { return "Version " COREKIT_VERSION " (" COREKIT_BUILD ")"; }
