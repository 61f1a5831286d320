// The title of the program, which stands over its boxes.
#pragma once

#include "corekit/foundation/ChainedException.h"

// String 57344 of the host; empty where it has none.
inline CString HostTitle() { return LoadResourceString(57344); }
