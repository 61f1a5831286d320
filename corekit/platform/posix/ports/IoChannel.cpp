#include "corekit/platform/posix/ports/IoChannel.h"

#include "corekit/platform/Overlapped.h"

#include <atomic>

namespace corekit::detail {

void markPending(OVERLAPPED& overlapped)
{
    overlapped.InternalHigh = 0;
    std::atomic_ref(overlapped.Internal).store(STATUS_PENDING, std::memory_order_release);
    if (overlapped.hEvent != nullptr) ResetEvent(overlapped.hEvent);
}

void settle(OVERLAPPED& overlapped, const Transfer& result)
{
    const HANDLE event = overlapped.hEvent;
    overlapped.InternalHigh = result.moved;
    const std::atomic_ref state(overlapped.Internal);
    state.store(result.error, std::memory_order_release);
    if (event != nullptr)
        SetEvent(event);
    else
        state.notify_all(); // goes by the address alone
}

} // namespace corekit::detail
