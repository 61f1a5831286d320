// A lock of whatever kind, and an object that hands one out.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

// A lock that threads enter and leave. Owned by whoever made it; a guard or an ILockInterface only lends
// it, so nobody deletes one through this class. CCritSection and CMutex are the two kinds.
class COREKIT_API ILockObject {
public:
    // True when the calling thread holds the lock now. timeout is in milliseconds, INFINITE for no end; a
    // kind that cannot give up waits for as long as it takes.
    virtual bool EnterLock(DWORD timeout) = 0;
    // For the thread that entered, as often as it did.
    virtual void LeaveLock() = 0;
    // As far as the kind can tell; see there.
    virtual bool IsOwnedByCurrentThread() = 0;

protected:
    ~ILockObject() = default;
};

// An object that others may hold for the time of several operations, without knowing by what kind of lock.
class COREKIT_API ILockInterface {
public:
    // The lock that guards this object; null if it has none. It lives as long as the object.
    virtual ILockObject* GetLockObject() = 0;

protected:
    ~ILockInterface() = default;
};
