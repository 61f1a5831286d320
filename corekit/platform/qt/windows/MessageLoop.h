// How posted messages travel in the toolkit's queue.
#pragma once

#include "corekit/platform/MessageLoop.h"

namespace corekit::detail {

// From now on messages that are posted to this thread arrive by the toolkit's loop. Once.
void joinMessageLoops();

} // namespace corekit::detail
