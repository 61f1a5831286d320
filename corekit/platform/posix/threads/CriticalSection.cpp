#include "corekit/platform/CriticalSection.h"

#include "corekit/platform/OnlyThread.h"
#include "corekit/platform/posix/threads/ThreadId.h"

using corekit::detail::currentThreadId;
using corekit::detail::onlyThread;

namespace {

// Only the owner finds its own number in there, so a relaxed look answers for the caller.
bool isInside(const CRITICAL_SECTION& section, DWORD thread)
{
    return section.OwningThread.load(std::memory_order_relaxed) == thread;
}

bool tryLock(std::atomic<int>& state)
{
    int expected = 0;
    if (onlyThread() && state.load(std::memory_order_relaxed) == expected) {
        state.store(1, std::memory_order_relaxed);
        return true;
    }
    return state.compare_exchange_strong(expected, 1, std::memory_order_acquire, std::memory_order_relaxed);
}

// Whoever had to wait leaves the mark for those who may wait behind it. Kept apart: the short road needs no
// saved registers.
[[gnu::noinline]] void lockWaiting(std::atomic<int>& state)
{
    while (state.exchange(2, std::memory_order_acquire) != 0) state.wait(2, std::memory_order_relaxed);
}

[[gnu::noinline]] void wakeOne(std::atomic<int>& state) { state.notify_one(); }

void unlock(std::atomic<int>& state)
{
    if (onlyThread()) return state.store(0, std::memory_order_relaxed);
    if (state.exchange(0, std::memory_order_release) == 2) wakeOne(state);
}

// Only the owner writes these.
void setEntries(CRITICAL_SECTION& section, LONG entries)
{
    section.RecursionCount = entries;
    section.LockCount = entries - 1;
}

void enterAgain(CRITICAL_SECTION& section) { setEntries(section, section.RecursionCount + 1); }

void takeOver(CRITICAL_SECTION& section, DWORD thread)
{
    section.OwningThread.store(thread, std::memory_order_relaxed);
    setEntries(section, 1);
}

} // namespace

void InitializeCriticalSection(CRITICAL_SECTION* section)
{
    section->LockCount = -1;
    section->RecursionCount = 0;
    section->OwningThread.store(0, std::memory_order_relaxed);
    section->LockState.store(0, std::memory_order_relaxed);
}

void DeleteCriticalSection(CRITICAL_SECTION*) {}

void EnterCriticalSection(CRITICAL_SECTION* section)
{
    const DWORD thread = currentThreadId();
    if (isInside(*section, thread)) return enterAgain(*section);
    if (!tryLock(section->LockState)) lockWaiting(section->LockState);
    takeOver(*section, thread);
}

BOOL TryEnterCriticalSection(CRITICAL_SECTION* section)
{
    const DWORD thread = currentThreadId();
    if (isInside(*section, thread)) {
        enterAgain(*section);
        return TRUE;
    }
    if (!tryLock(section->LockState)) return FALSE;
    takeOver(*section, thread);
    return TRUE;
}

void LeaveCriticalSection(CRITICAL_SECTION* section)
{
    if (!isInside(*section, currentThreadId())) return;
    const LONG left = section->RecursionCount - 1;
    setEntries(*section, left);
    if (left > 0) return;
    section->OwningThread.store(0, std::memory_order_relaxed);
    unlock(section->LockState);
}
