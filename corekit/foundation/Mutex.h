// A mutex as a lock object: for waits that may end without the lock.
#pragma once

#include "corekit/foundation/LockObject.h"
#include "corekit/framework/Object.h"

// Recursive for its holder. If the mutex could not be made, every EnterLock is false.
class COREKIT_API CMutex : public CObject, public ILockObject {
    DECLARE_DYNAMIC(CMutex)
public:
    CMutex();
    ~CMutex() override;

    // False also when the last holder's thread ended without leaving, although the calling thread holds the
    // mutex from then on.
    bool EnterLock(DWORD timeout) override;
    void LeaveLock() override;
    // Always true: a mutex does not tell.
    bool IsOwnedByCurrentThread() override;

private:
    HANDLE m_mutex;
};
