#include "corekit/platform/Overlapped.h"

#include "corekit/platform/posix/Errno.h"
#include "corekit/platform/posix/ports/IoObject.h"

#include <atomic>

namespace {
using namespace corekit::detail;

// Not as a user of the handle, which may be closed meanwhile.
std::shared_ptr<IoChannel> channelOf(HANDLE handle)
{
    const HandleUser<IoObject> object(handle);
    return object ? object->sharedChannel() : nullptr;
}

thread_local int waitingAtOnce = 0;
} // namespace

WaitsAtOnce::WaitsAtOnce() { ++waitingAtOnce; }
WaitsAtOnce::~WaitsAtOnce() { --waitingAtOnce; }
bool WaitsAtOnce::Holds() { return waitingAtOnce > 0; }

BOOL GetOverlappedResult(HANDLE file, OVERLAPPED* overlapped, DWORD* moved, BOOL wait)
{
    if (!overlapped || !moved) return fail(ERROR_INVALID_PARAMETER, FALSE);
    const std::atomic_ref<UINT_PTR> state(overlapped->Internal);
    if (state.load(std::memory_order_acquire) == STATUS_PENDING) {
        if (!wait) return fail(ERROR_IO_INCOMPLETE, FALSE);
        if (const auto channel = channelOf(file)) channel->carryOut(*overlapped);
        if (!overlapped->hEvent)
            state.wait(STATUS_PENDING, std::memory_order_acquire);
        else if (WaitForSingleObject(overlapped->hEvent, INFINITE) == WAIT_FAILED)
            return FALSE;
    }
    *moved = static_cast<DWORD>(overlapped->InternalHigh);
    const UINT_PTR code = state.load(std::memory_order_acquire);
    if (code == STATUS_PENDING) return fail(ERROR_IO_INCOMPLETE, FALSE);
    return code == NO_ERROR ? TRUE : fail(static_cast<DWORD>(code), FALSE);
}
