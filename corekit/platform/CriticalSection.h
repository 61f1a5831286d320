// The recursive lock of one process.
//
// Any thread may enter; the one inside may enter again and must leave as often. The fields tell the state to
// whoever holds the section.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

#include <atomic>

struct CRITICAL_SECTION {
    LONG LockCount = -1;                 // -1 when free, 0 with one entry, one more for each entry on top
    LONG RecursionCount = 0;             // entries of the thread inside
    std::atomic<DWORD> OwningThread = 0; // its GetCurrentThreadId, 0 when free
    std::atomic<int> LockState = 0;      // 0 free, 1 held, 2 held and perhaps waited for
};

// Readies a new section, or resets one that nobody holds.
COREKIT_API void InitializeCriticalSection(CRITICAL_SECTION* section);
// Nobody may hold it or wait for it.
COREKIT_API void DeleteCriticalSection(CRITICAL_SECTION* section);

// Waits as long as it takes.
COREKIT_API void EnterCriticalSection(CRITICAL_SECTION* section);
// Returns 0 at once where EnterCriticalSection would wait.
COREKIT_API BOOL TryEnterCriticalSection(CRITICAL_SECTION* section);
// Does nothing for a thread that is not inside.
COREKIT_API void LeaveCriticalSection(CRITICAL_SECTION* section);
