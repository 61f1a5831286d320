// A pointer to a counted object that holds one reference.
#pragma once

#include "corekit/platform/Com.h"

#include <utility>

template <class T>
class TCOMPointer {
public:
    TCOMPointer() = default;
    explicit TCOMPointer(T* object) : m_p(object) // takes a reference of its own
    {
        if (m_p) m_p->AddRef();
    }
    TCOMPointer(const TCOMPointer& other) : TCOMPointer(other.m_p) {}
    TCOMPointer(TCOMPointer&& other) noexcept : m_p(std::exchange(other.m_p, nullptr)) {}
    TCOMPointer& operator=(TCOMPointer other) noexcept
    {
        std::swap(m_p, other.m_p);
        return *this;
    }
    ~TCOMPointer() { Release(); }

    void Release()
    {
        if (T* const object = std::exchange(m_p, nullptr)) object->Release();
    }
    // Where a call puts a pointer with its reference; what was held is released first.
    T** Receive()
    {
        Release();
        return &m_p;
    }
    T* operator->() const { return m_p; }
    operator T*() const { return m_p; }

    T* m_p = nullptr;
};
