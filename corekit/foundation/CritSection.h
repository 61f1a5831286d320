// A critical section as a lock object.
#pragma once

#include "corekit/foundation/LockObject.h"
#include "corekit/framework/Object.h"
#include "corekit/platform/CriticalSection.h"

// Recursive for its holder.
class COREKIT_API CCritSection : public CObject, public ILockObject {
    DECLARE_DYNAMIC(CCritSection)
public:
    // The section is free at first.
    CCritSection();
    // Nobody may be inside any more.
    ~CCritSection() override;

    // Always waits until it has the section, whatever the time-out, and returns true.
    bool EnterLock(DWORD timeout) override;
    // Once for each EnterLock, on the thread that entered. The outermost one lets a waiting thread in.
    void LeaveLock() override;
    // Whether the calling thread has entered and not left. Enters the section to find out, so it blocks
    // while another thread holds it.
    bool IsOwnedByCurrentThread() override;

private:
    CRITICAL_SECTION m_section; // recursive, private to the process
};
