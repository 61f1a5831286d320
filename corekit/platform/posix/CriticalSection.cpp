#include "corekit/platform/CriticalSection.h"

#include "corekit/platform/posix/ThreadId.h"

using corekit::detail::currentThreadId;

namespace {

// Only the owner finds its own number in there, so a relaxed look answers for the caller.
bool isInside(const CRITICAL_SECTION& section, DWORD thread)
{
    return section.OwningThread.load(std::memory_order_relaxed) == thread;
}

void enterAgain(CRITICAL_SECTION& section)
{
    ++section.RecursionCount;
    ++section.LockCount;
}

void takeOver(CRITICAL_SECTION& section, DWORD thread)
{
    section.OwningThread.store(thread, std::memory_order_relaxed);
    section.RecursionCount = 1;
    section.LockCount = 0;
}

} // namespace

void InitializeCriticalSection(CRITICAL_SECTION* section)
{
    section->LockCount = -1;
    section->RecursionCount = 0;
    section->OwningThread = 0;
}

void DeleteCriticalSection(CRITICAL_SECTION*) {}

void EnterCriticalSection(CRITICAL_SECTION* section)
{
    const DWORD thread = currentThreadId();
    if (isInside(*section, thread)) return enterAgain(*section);
    section->mutex.lock();
    takeOver(*section, thread);
}

BOOL TryEnterCriticalSection(CRITICAL_SECTION* section)
{
    const DWORD thread = currentThreadId();
    if (isInside(*section, thread)) {
        enterAgain(*section);
        return TRUE;
    }
    if (!section->mutex.try_lock()) return FALSE;
    takeOver(*section, thread);
    return TRUE;
}

void LeaveCriticalSection(CRITICAL_SECTION* section)
{
    if (!isInside(*section, currentThreadId())) return;
    --section->LockCount;
    if (--section->RecursionCount > 0) return;
    section->OwningThread.store(0, std::memory_order_relaxed);
    section->mutex.unlock();
}
