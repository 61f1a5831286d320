#include "corekit/platform/Overlapped.h"

#include "corekit/platform/posix/Errno.h"

#include <atomic>

BOOL GetOverlappedResult(HANDLE, OVERLAPPED* overlapped, DWORD* moved, BOOL wait)
{
    using namespace corekit::detail;
    if (!overlapped || !moved) return fail(ERROR_INVALID_PARAMETER, FALSE);
    const std::atomic_ref<UINT_PTR> state(overlapped->Internal);
    if (state.load(std::memory_order_acquire) == STATUS_PENDING) {
        if (!wait) return fail(ERROR_IO_INCOMPLETE, FALSE);
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
