// Whether the process has one thread, so that counts and locks can do without steps that others would see.
#pragma once

#include <ext/atomicity.h>

namespace corekit::detail {

// Answers for now: to start a thread makes all that was written before visible to it.
inline bool onlyThread() { return __gnu_cxx::__is_single_threaded(); }

} // namespace corekit::detail
