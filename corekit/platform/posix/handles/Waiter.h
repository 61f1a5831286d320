// One thread's wait for one or all of some objects, from looking to waking.
#pragma once

#include "corekit/platform/posix/handles/Dispatcher.h"

#include <array>
#include <span>

namespace corekit::detail {

class Waiter {
public:
    enum class For { one, all };

    // The slots hold waitable objects; the dispatcher lock is held for the life of the waiter, except while
    // it blocks.
    Waiter(std::span<HandleSlot* const> slots, For what, Owner& owner)
        : m_slots(slots), m_for(what), m_owner(owner)
    {
    }

    Owner& owner() const { return m_owner; }
    bool isServed() const { return m_served; }
    // Consumes what the wait is for, if that is ready.
    bool tryServe();
    // The served wait's result, as WaitForMultipleObjects tells it.
    DWORD result() const { return m_result; }

    // Blocks until served; false when the time in milliseconds is over first.
    bool block(std::unique_lock<std::mutex>& lock, DWORD milliseconds);
    void wake() { m_woken.notify_one(); }

private:
    bool serveOne();
    bool serveAll();

    std::span<HandleSlot* const> m_slots;
    const For m_for;
    Owner& m_owner;
    bool m_served = false;
    DWORD m_result = 0;
    std::condition_variable m_woken;
};

inline Waitable& waitableIn(const HandleSlot& slot) { return static_cast<Waitable&>(*slot.object); }

} // namespace corekit::detail
