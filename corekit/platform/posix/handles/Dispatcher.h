// The one place where threads wait for objects.
//
// A central lock guards the state of all waitable objects. Whoever makes an object ready serves its waiters
// under that lock: it consumes the object in the waiter's name and wakes just that thread, so that nobody
// wakes for nothing and waiting for all is one step.
#pragma once

#include "corekit/platform/posix/handles/HandleTable.h"

#include <array>
#include <condition_variable>
#include <span>

namespace corekit::detail {

extern constinit std::mutex dispatcherLock;

class Mutex;
class Waiter;

// A thread as an owner of mutexes.
struct Owner {
    Mutex* firstOwned = nullptr; // chained through the mutexes; guarded by the dispatcher lock
};

// The calling thread's; lives as long as the thread.
[[gnu::tls_model("initial-exec")]] extern constinit thread_local Owner currentOwner;

// Abandons what the calling thread still owns; the dispatcher lock is held.
void abandonOwned();
// A new handle of the calling thread; null with the last error set on failure.
HANDLE openCurrentThread();
// Sees to it that this also happens at the end of a thread that was not started here.
void abandonOwnedAtThreadEnd();

// Links a waiter with one of its objects.
struct WaitLink {
    WaitLink* previous = nullptr;
    WaitLink* next = nullptr;
    Waiter* waiter = nullptr;
};

// An object that can be waited for. All but construction happens under the dispatcher lock.
class Waitable : public Object {
public:
    using Object::Object;
    ~Waitable() override;
    std::mutex* closingLock() final { return &dispatcherLock; }

    virtual bool isReadyFor(const Owner& owner) const = 0;
    // Consumes the object for a thread that it is ready for; true if it was abandoned before.
    virtual bool take(Owner& owner) = 0;

    void addLink(WaitLink& link);
    void removeLink(WaitLink& link);
    // Gives the object to its waiters, oldest first, for as long as it is ready for them.
    void serveWaiters();
    // It has a name from now on, which `forget` takes back when it goes.
    void setNamed(void (*forget)(const Waitable&)) { m_forgetName = forget; }

private:
    void (*m_forgetName)(const Waitable&) = nullptr;
    WaitLink* m_first = nullptr;
    WaitLink* m_last = nullptr;
};

inline Waitable& waitableIn(const HandleSlot& slot) { return static_cast<Waitable&>(*slot.object); }

// One thread's wait for one or all of some objects, from looking to waking.
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

class Event final : public Waitable {
public:
    static constexpr ObjectKind objectKind = ObjectKind::event;
    Event(bool manualReset, bool signalled)
        : Waitable(objectKind), m_manualReset(manualReset), m_signalled(signalled)
    {
    }

    bool isReadyFor(const Owner&) const override { return m_signalled; }
    bool take(Owner&) override
    {
        if (!m_manualReset) m_signalled = false;
        return false;
    }
    void set()
    {
        m_signalled = true;
        serveWaiters();
    }
    void reset() { m_signalled = false; }

private:
    const bool m_manualReset;
    bool m_signalled;
};

class Mutex final : public Waitable {
public:
    static constexpr ObjectKind objectKind = ObjectKind::mutex;
    Mutex() : Waitable(objectKind) {}
    ~Mutex() override;

    bool isReadyFor(const Owner& owner) const override { return m_owner == nullptr || m_owner == &owner; }
    bool take(Owner& owner) override;
    bool release(const Owner& owner); // false for a thread that does not own it
    void abandon();                   // its owner ends without release

private:
    void unlinkFromOwner();

    Owner* m_owner = nullptr;
    DWORD m_depth = 0;
    bool m_abandoned = false;
    Mutex* m_previousOwned = nullptr;
    Mutex* m_nextOwned = nullptr;
};

} // namespace corekit::detail
