#include "corekit/platform/Overlapped.h"

#include "corekit/platform/posix/Errno.h"

#include <atomic>

BOOL GetOverlappedResult(HANDLE file, OVERLAPPED* overlapped, DWORD* moved, BOOL wait)
{
    using namespace corekit::detail;
    if (!overlapped || !moved) return fail(ERROR_INVALID_PARAMETER, FALSE);
    const std::atomic_ref<UINT_PTR> state(overlapped->Internal);
    if (state.load(std::memory_order_acquire) == STATUS_PENDING) {
        if (!wait) return fail(ERROR_IO_INCOMPLETE, FALSE);
        const HANDLE event = overlapped->hEvent ? overlapped->hEvent : file;
        if (WaitForSingleObject(event, INFINITE) == WAIT_FAILED) return FALSE;
    }
    *moved = static_cast<DWORD>(overlapped->InternalHigh);
    const UINT_PTR code = state.load(std::memory_order_acquire);
    if (code == STATUS_PENDING) return fail(ERROR_IO_INCOMPLETE, FALSE);
    return code == NO_ERROR ? TRUE : fail(static_cast<DWORD>(code), FALSE);
}
