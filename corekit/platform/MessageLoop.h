// The toolkit's loop, run from here: the program's own, and those of modal windows. Toolkit's thread.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

#include <functional>
#include <optional>

namespace corekit::detail {

// Runs the toolkit's loop for as long as `goesOn` answers true, which it is asked whenever the queue is
// empty. `idle` is called then, too, with a count from 0 that starts anew with each event, for as long as it
// answers true. The result is the exit code of a WM_QUIT that ended the loop; a modal loop posts it again for
// the loop outside.
COREKIT_API std::optional<int> runMessageLoop(const std::function<bool()>& goesOn,
                                              const std::function<bool(LONG)>& idle = {});
// Deals with what waits, without waiting for more.
COREKIT_API void runWaitingMessages();

// Over all windows: 1 begins, -1 ends, 0 shows it again; counts.
COREKIT_API void changeWaitCursor(int change);

} // namespace corekit::detail
