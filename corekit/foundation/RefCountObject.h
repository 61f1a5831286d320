// The base of objects with shared ownership.
#pragma once

#include "corekit/framework/Object.h"

// Made with new and one reference; whoever holds a reference gives it back with Release, the last one deletes
// the object. Any thread.
class COREKIT_API CRefCountObject : public CObject {
    DECLARE_DYNAMIC(CRefCountObject)
public:
    void AddRef();
    void Release();

protected:
    CRefCountObject() = default;
    ~CRefCountObject() override = default;

    // Called when the last reference is gone. An AddRef in here keeps the object alive, until its last
    // reference is gone again.
    virtual void OnFinalRelease() = 0;

private:
    LONG m_references = 1;
};
