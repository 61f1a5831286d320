// The guard that holds any lock object for a scope.
//
//     CLockV2 lock;
//     if (lock.Claim(&mutex, 200)) ... // left at the end of the scope
#pragma once

#include "corekit/foundation/LockObject.h"
#include "corekit/framework/Object.h"

// Belongs to one thread. Holds at most one lock, which must outlive it.
class COREKIT_API CLockV2 : public CObject {
    DECLARE_DYNAMIC(CLockV2)
public:
    CLockV2() = default;
    // Both wait without end, and hold nothing if there is no lock. What EnterLock answers is not looked at:
    // the lock counts as held and is left in the end.
    explicit CLockV2(ILockObject* lock);
    explicit CLockV2(ILockInterface* source);
    // Releases what is held.
    ~CLockV2() override;

    // True when the lock is held now. False leaves the guard as it was; so does the lack of a lock. A lock
    // that the guard held before is forgotten, not left: call Release first.
    bool Claim(ILockObject* lock, DWORD timeout);
    bool Claim(ILockInterface* source, DWORD timeout); // the lock of that object
    // Leaves the lock that is held, once, however often its thread has entered it; the guard may claim
    // again. Does nothing if none is held.
    void Release();

private:
    ILockObject* m_held = nullptr; // null while nothing is held
};
