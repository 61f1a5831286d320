// A lock of whatever kind, and an object that hands one out.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

// Owned by whoever made it; a guard or an ILockInterface only lends it.
class COREKIT_API ILockObject {
public:
    // True when the calling thread holds the lock now. timeout is in milliseconds, INFINITE for no end; a
    // kind that cannot give up waits for as long as it takes.
    virtual bool EnterLock(DWORD timeout) = 0;
    virtual void LeaveLock() = 0;
    // As far as the kind can tell; see there.
    virtual bool IsOwnedByCurrentThread() = 0;

protected:
    ~ILockObject() = default;
};

class COREKIT_API ILockInterface {
public:
    // The lock that guards this object; null if it has none.
    virtual ILockObject* GetLockObject() = 0;

protected:
    ~ILockInterface() = default;
};
