// The base of objects with shared ownership.
#pragma once

#include "corekit/framework/Object.h"

// Made with new and one reference; whoever holds a reference gives it back with Release, the last one deletes
// the object. Any thread.
class COREKIT_API CRefCountObject : public CObject {
    DECLARE_DYNAMIC(CRefCountObject)
public:
    // Takes one more reference. Only who holds one may ask for another.
    void AddRef();
    // Gives one reference back. With the last one OnFinalRelease runs on this thread, then the object is
    // gone; the caller must not touch it again.
    void Release();

protected:
    // Protected, since the object deletes itself: neither a local variable nor a member is of such a class.
    CRefCountObject() = default;
    ~CRefCountObject() override = default;

    // Called when the last reference is gone. An AddRef in here keeps the object alive, until its last
    // reference is gone again.
    virtual void OnFinalRelease() = 0;

private:
    LONG m_references = 1; // starts with the maker's
};
