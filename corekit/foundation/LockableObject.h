// Bases for objects of a program that can be locked from outside, in whatever way that program does it.
//
// They bring the two operations and nothing else: no lock, no guard and no rule about nesting. Where the
// object can do with one lock of its own, CCriticalObject has it ready.
#pragma once

#include "corekit/framework/CmdTarget.h"

// A data object whose users bracket several operations.
class COREKIT_API CLockableObject : public CObject {
    DECLARE_DYNAMIC(CLockableObject)
public:
    CLockableObject();
    ~CLockableObject() override;

    // Returns when the calling thread may use the object; whether it may enter again is for the derived
    // class.
    virtual void EnterLock() = 0;
    // Ends what EnterLock began, on the same thread.
    virtual void LeaveLock() = 0;
};

// The same for one that takes commands, which a document is for instance: the command routing runs on the
// thread of the windows, while another thread may work on the data.
class COREKIT_API CLockableCmdTarget : public CCmdTarget {
    DECLARE_DYNAMIC(CLockableCmdTarget)
public:
    CLockableCmdTarget(); // without a lock of its own
    ~CLockableCmdTarget() override;

    // Both as above.
    virtual void EnterLock() = 0;
    virtual void LeaveLock() = 0;
};
