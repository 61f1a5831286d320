// The base of objects that guard themselves, and the guard that holds such an object for a scope.
#pragma once

#include "corekit/framework/Object.h"
#include "corekit/platform/CriticalSection.h"

// Holds one recursive lock for the members of the derived class. The holder may enter again and leaves as
// often as it entered; the wait has no end and no result.
//
// Copies of an object have locks of their own: the lock is a part of the object, never of its value. The
// object must not be destroyed while a thread is inside.
class COREKIT_API CCriticalObject : public CObject {
    DECLARE_DYNAMIC(CCriticalObject)
public:
    CCriticalObject() = default; // the lock is free at first
    ~CCriticalObject() override;

    // Blocks until the lock is free. Const, so that operations which only read may guard themselves as
    // well.
    void EnterLock() const { EnterCriticalSection(&m_section); }
    // On the thread that entered, once for each EnterLock.
    void LeaveLock() const { LeaveCriticalSection(&m_section); }

private:
    mutable CRITICAL_SECTION m_section; // recursive, private to the process
};

namespace corekit::detail {
// Holds an object's lock for a scope: entered at construction, left at the end of the scope, also when it
// ends with an exception. The object must outlive the guard. It is neither copied nor handed on.
class Hold {
public:
    explicit Hold(const CCriticalObject& object) : m_object(object) { m_object.EnterLock(); }
    ~Hold() { m_object.LeaveLock(); }
    Hold(const Hold&) = delete;
    Hold& operator=(const Hold&) = delete;

private:
    const CCriticalObject& m_object;
};
} // namespace corekit::detail
