// The base of objects that guard themselves.
#pragma once

#include "corekit/framework/Object.h"
#include "corekit/platform/CriticalSection.h"

// Holds one recursive lock for the members of the derived class. The holder may enter again and leaves as
// often as it entered; the wait has no end and no result.
class COREKIT_API CCriticalObject : public CObject {
    DECLARE_DYNAMIC(CCriticalObject)
public:
    CCriticalObject() = default;
    ~CCriticalObject() override;

    void EnterLock() const { EnterCriticalSection(&m_section); }
    void LeaveLock() const { LeaveCriticalSection(&m_section); }

private:
    mutable CRITICAL_SECTION m_section;
};

namespace corekit::detail {
// Holds an object's lock for a scope.
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
