#include "corekit/platform/Handles.h"

#include "corekit/platform/Errors.h"
#include "corekit/platform/posix/handles/Dispatcher.h"
#include "corekit/platform/Threads.h"

using corekit::detail::HandleSlot;

BOOL DuplicateHandle(HANDLE sourceProcess, HANDLE source, HANDLE targetProcess, HANDLE* target, DWORD access,
                     BOOL, DWORD options)
{
    const bool isHere = sourceProcess == GetCurrentProcess() && targetProcess == GetCurrentProcess();
    if (!isHere || target == nullptr || access != 0 || options != DUPLICATE_SAME_ACCESS) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    if (source == GetCurrentThread()) {
        *target = corekit::detail::openCurrentThread();
        return *target != nullptr;
    }
    HandleSlot* const slot = corekit::detail::slotOf(source);
    if (slot == nullptr || !slot->enter()) {
        SetLastError(ERROR_INVALID_HANDLE);
        return FALSE;
    }
    *target = corekit::detail::openAnother(*slot->object);
    slot->leave();
    return *target != nullptr;
}

BOOL CloseHandle(HANDLE handle)
{
    if (handle == GetCurrentThread()) return TRUE; // stands for no object of its own
    HandleSlot* const slot = corekit::detail::slotOf(handle);
    if (slot == nullptr || !slot->enter()) {
        SetLastError(ERROR_INVALID_HANDLE);
        return FALSE;
    }
    std::uint32_t before;
    if (std::mutex* const mutex = slot->object->closingLock()) {
        const std::lock_guard lock(*mutex);
        before = slot->state.fetch_and(~HandleSlot::openBit, std::memory_order_acq_rel);
    } else {
        before = slot->state.fetch_and(~HandleSlot::openBit, std::memory_order_acq_rel);
    }
    slot->leave();
    if ((before & HandleSlot::openBit) != 0) return TRUE;
    SetLastError(ERROR_INVALID_HANDLE);
    return FALSE;
}
