// The names of events and mutexes, which share one set of them. Case counts, and they hold within the
// process.
#pragma once

#include "corekit/platform/posix/handles/Dispatcher.h"

namespace corekit::detail {

// Gives a new object its name and returns the handle, with last error 0. Where an object has the name
// already, the new one goes and the result is another handle of that, with last error 183; null with error 6
// if it is of another kind.
HANDLE publishName(HANDLE made, const char* name);

} // namespace corekit::detail
