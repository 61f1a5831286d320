// A mutex as a lock object: for waits that may end without the lock.
#pragma once

#include "corekit/foundation/LockObject.h"
#include "corekit/framework/Object.h"

// Recursive for its holder, private to the process, without a name. If the mutex could not be made, every
// EnterLock is false. Dearer than CCritSection; take it where a wait must be able to give up.
class COREKIT_API CMutex : public CObject, public ILockObject {
    DECLARE_DYNAMIC(CMutex)
public:
    CMutex(); // nobody holds it at first
    ~CMutex() override;

    // Waits for at most `timeout` milliseconds, INFINITE for no end, 0 to ask only. False when the time is
    // over. False also when the last holder's thread ended without leaving, although the calling thread
    // holds the mutex from then on.
    bool EnterLock(DWORD timeout) override;
    // Once for each EnterLock, on the holder's thread; on another thread it does nothing.
    void LeaveLock() override;
    // Always true: a mutex does not tell.
    bool IsOwnedByCurrentThread() override;

private:
    HANDLE m_mutex; // null if it could not be made
};
