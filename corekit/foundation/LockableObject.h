// Bases for objects of a program that can be locked from outside, in whatever way that program does it.
#pragma once

#include "corekit/framework/CmdTarget.h"

class COREKIT_API CLockableObject : public CObject {
    DECLARE_DYNAMIC(CLockableObject)
public:
    CLockableObject();
    ~CLockableObject() override;

    virtual void EnterLock() = 0;
    virtual void LeaveLock() = 0;
};

// The same for one that takes commands.
class COREKIT_API CLockableCmdTarget : public CCmdTarget {
    DECLARE_DYNAMIC(CLockableCmdTarget)
public:
    CLockableCmdTarget();
    ~CLockableCmdTarget() override;

    virtual void EnterLock() = 0;
    virtual void LeaveLock() = 0;
};
