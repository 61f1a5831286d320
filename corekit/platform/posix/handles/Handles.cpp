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
    if (slot == nullptr || !slot->enter(source)) {
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
    if (slot == nullptr || !slot->enter(handle)) {
        SetLastError(ERROR_INVALID_HANDLE);
        return FALSE;
    }
    bool closed;
    if (std::mutex* const mutex = slot->object->closingLock()) {
        const std::lock_guard lock(*mutex);
        closed = slot->close();
    } else {
        closed = slot->close();
    }
    slot->leave();
    if (closed) return TRUE;
    SetLastError(ERROR_INVALID_HANDLE);
    return FALSE;
}
