#include "corekit/platform/Waits.h"

#include "corekit/platform/posix/Errno.h"
#include "corekit/platform/posix/handles/ObjectNames.h"

#include <algorithm>
#include <chrono>
#include <new>
#include <sched.h>
#include <thread>

namespace {

using namespace corekit::detail;

// The slot of an open handle; the dispatcher lock is held and keeps it open if it is waitable.
HandleSlot* openSlot(HANDLE handle)
{
    HandleSlot* const slot = slotOf(handle);
    return slot != nullptr && slot->isOpen(handle) ? slot : nullptr;
}

bool isWaitable(const HandleSlot& slot)
{
    const ObjectKind kind = slot.kind.load(std::memory_order_acquire);
    return kind == ObjectKind::event || kind == ObjectKind::mutex || kind == ObjectKind::thread;
}

template <typename T>
T* openObject(HANDLE handle)
{
    HandleSlot* const slot = openSlot(handle);
    if (slot == nullptr || slot->kind.load(std::memory_order_acquire) != T::objectKind) return nullptr;
    return static_cast<T*>(slot->object);
}

// Waits with the lock held; a blocked wait leaves its marks as a user on the slots.
DWORD waitFor(std::span<HandleSlot* const> slots, Waiter::For what, DWORD milliseconds)
{
    std::unique_lock lock(dispatcherLock, std::adopt_lock);
    Waiter waiter(slots, what, currentOwner);
    const bool blocks = !waiter.tryServe() && milliseconds != 0;
    if (blocks) waiter.block(lock, milliseconds);
    const bool owns = currentOwner.firstOwned != nullptr;
    lock.unlock();
    if (blocks)
        for (HandleSlot* slot : slots) slot->leave();
    if (owns) abandonOwnedAtThreadEnd();
    return waiter.isServed() ? waiter.result() : WAIT_TIMEOUT;
}

} // namespace

HANDLE CreateEventA(_SECURITY_ATTRIBUTES*, BOOL manualReset, BOOL signalled, const char* name)
try {
    return publishName(openHandle(std::make_unique<Event>(manualReset != 0, signalled != 0)), name);
} catch (const std::bad_alloc&) {
    return fail<HANDLE>(ERROR_NOT_ENOUGH_MEMORY, nullptr);
}

HANDLE CreateMutexA(_SECURITY_ATTRIBUTES*, BOOL owned, const char* name)
try {
    const HANDLE mutex = openHandle(std::make_unique<Mutex>());
    if (mutex != nullptr && owned != 0) WaitForSingleObject(mutex, 0);
    return publishName(mutex, name);
} catch (const std::bad_alloc&) {
    return fail<HANDLE>(ERROR_NOT_ENOUGH_MEMORY, nullptr);
}

BOOL SetEvent(HANDLE handle)
{
    const std::lock_guard lock(dispatcherLock);
    Event* const event = openObject<Event>(handle);
    if (event == nullptr) return fail(ERROR_INVALID_HANDLE, FALSE);
    event->set();
    return TRUE;
}

BOOL ResetEvent(HANDLE handle)
{
    const std::lock_guard lock(dispatcherLock);
    Event* const event = openObject<Event>(handle);
    if (event == nullptr) return fail(ERROR_INVALID_HANDLE, FALSE);
    event->reset();
    return TRUE;
}

BOOL ReleaseMutex(HANDLE handle)
{
    const std::lock_guard lock(dispatcherLock);
    Mutex* const mutex = openObject<Mutex>(handle);
    if (mutex == nullptr) return fail(ERROR_INVALID_HANDLE, FALSE);
    return mutex->release(currentOwner) ? TRUE : fail(ERROR_NOT_OWNER, FALSE);
}

DWORD WaitForSingleObject(HANDLE handle, DWORD milliseconds)
{
    dispatcherLock.lock();
    HandleSlot* const slot = openSlot(handle);
    if (slot == nullptr || !isWaitable(*slot)) {
        dispatcherLock.unlock();
        return fail(ERROR_INVALID_HANDLE, WAIT_FAILED);
    }
    return waitFor({&slot, 1}, Waiter::For::one, milliseconds);
}

DWORD WaitForMultipleObjects(DWORD count, const HANDLE* handles, BOOL all, DWORD milliseconds)
{
    if (count == 0 || count > MAXIMUM_WAIT_OBJECTS || handles == nullptr)
        return fail(ERROR_INVALID_PARAMETER, WAIT_FAILED);
    std::array<HandleSlot*, MAXIMUM_WAIT_OBJECTS> slots;
    std::unique_lock lock(dispatcherLock);
    for (DWORD i = 0; i < count; ++i) {
        slots[i] = openSlot(handles[i]);
        if (slots[i] == nullptr || !isWaitable(*slots[i])) return fail(ERROR_INVALID_HANDLE, WAIT_FAILED);
        const auto earlier = slots.begin() + i;
        if (all != 0 && std::find(slots.begin(), earlier, slots[i]) != earlier)
            return fail(ERROR_INVALID_PARAMETER, WAIT_FAILED);
    }
    lock.release();
    return waitFor({slots.data(), count}, all != 0 ? Waiter::For::all : Waiter::For::one, milliseconds);
}

void Sleep(DWORD milliseconds)
{
    if (milliseconds == 0)
        ::sched_yield();
    else if (milliseconds == INFINITE)
        for (;;) std::this_thread::sleep_for(std::chrono::hours(24));
    else
        std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}
