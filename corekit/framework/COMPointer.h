// A pointer to a counted object that holds one reference.
//
// Any pointer of the interface type may be held, null too. The object counts its own users: copies of this
// pointer take a reference each, and the last Release destroys it. One thread at a time, unless the object
// itself allows more.
//
//     TCOMPointer<IThing> thing;
//     void** const out = reinterpret_cast<void**>(thing.Receive());
//     if (SUCCEEDED(CoCreateInstance(classId, nullptr, CLSCTX_ALL, thingId, out))) thing->Work();
#pragma once

#include "corekit/platform/Com.h"

#include <utility>

// T has AddRef and Release, as IUnknown has them; QueryInterface is not needed.
template <class T>
class TCOMPointer {
public:
    // Holds nothing; operator-> is not for it.
    TCOMPointer() = default;
    // Null is held like any other.
    explicit TCOMPointer(T* object) : m_p(object) // takes a reference of its own
    {
        if (m_p) m_p->AddRef();
    }
    // Takes one reference more.
    TCOMPointer(const TCOMPointer& other) : TCOMPointer(other.m_p) {}
    // Takes the reference over and leaves `other` null.
    TCOMPointer(TCOMPointer&& other) noexcept : m_p(std::exchange(other.m_p, nullptr)) {}
    // What was held is released at the end of the statement.
    TCOMPointer& operator=(TCOMPointer other) noexcept
    {
        std::swap(m_p, other.m_p);
        return *this;
    }
    // Gives its reference back.
    ~TCOMPointer() { Release(); }

    // Gives the reference back; null afterwards. May destroy the object.
    void Release()
    {
        if (T* const object = std::exchange(m_p, nullptr)) object->Release();
    }
    // Where a call puts a pointer with its reference; what was held is released first. For calls that give a
    // pointer with its reference: the caller of those gives none back. The address is good until this
    // pointer goes, for one such call.
    T** Receive()
    {
        Release();
        return &m_p;
    }
    // Null is not checked.
    T* operator->() const { return m_p; }
    // For calls that take the plain pointer; gives no reference away.
    operator T*() const { return m_p; }

    T* m_p = nullptr; // whoever changes it sees to the references
};
