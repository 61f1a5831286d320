#include "corekit/platform/posix/threads/ThreadId.h"

#include "corekit/platform/Threads.h"

#include <atomic>

namespace corekit::detail {

[[gnu::tls_model("initial-exec")]] constinit thread_local DWORD threadId = 0;

DWORD nextThreadId()
{
    static std::atomic<DWORD> last{0};
    return ++last;
}

DWORD assignThreadId(DWORD id) { return threadId = id != 0 ? id : nextThreadId(); }

} // namespace corekit::detail

DWORD GetCurrentThreadId() { return corekit::detail::currentThreadId(); }
