// A critical section as a lock object.
#pragma once

#include "corekit/foundation/LockObject.h"
#include "corekit/framework/Object.h"
#include "corekit/platform/CriticalSection.h"

// Recursive for its holder.
class COREKIT_API CCritSection : public CObject, public ILockObject {
    DECLARE_DYNAMIC(CCritSection)
public:
    CCritSection();
    ~CCritSection() override;

    // Always waits until it has the section, whatever the time-out, and returns true.
    bool EnterLock(DWORD timeout) override;
    void LeaveLock() override;
    // Blocks while another thread holds the section.
    bool IsOwnedByCurrentThread() override;

private:
    CRITICAL_SECTION m_section;
};
