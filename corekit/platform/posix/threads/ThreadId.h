// The calling thread's number, as GetCurrentThreadId tells it, in one load.
#pragma once

#include "corekit/platform/Types.h"

namespace corekit::detail {

[[gnu::tls_model("initial-exec")]] extern constinit thread_local DWORD threadId; // 0 until first asked for

// Gives the calling thread its number; the starter of a thread names it beforehand.
DWORD assignThreadId(DWORD id = 0);
// A number that no other thread of this process has or had.
DWORD nextThreadId();

inline DWORD currentThreadId()
{
    const DWORD id = threadId;
    return id != 0 ? id : assignThreadId();
}

} // namespace corekit::detail
