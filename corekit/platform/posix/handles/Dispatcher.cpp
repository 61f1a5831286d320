#include "corekit/platform/posix/handles/Dispatcher.h"

#include "corekit/platform/Waits.h"

#include <algorithm>
#include <chrono>

namespace corekit::detail {

constinit std::mutex dispatcherLock;
[[gnu::tls_model("initial-exec")]] constinit thread_local Owner currentOwner{};

Waitable::~Waitable()
{
    if (m_forgetName != nullptr) m_forgetName(*this);
}

void Waitable::addLink(WaitLink& link)
{
    link.previous = m_last;
    (m_last != nullptr ? m_last->next : m_first) = &link;
    m_last = &link;
}

void Waitable::removeLink(WaitLink& link)
{
    (link.previous != nullptr ? link.previous->next : m_first) = link.next;
    (link.next != nullptr ? link.next->previous : m_last) = link.previous;
}

void Waitable::serveWaiters()
{
    for (WaitLink* link = m_first; link != nullptr; link = link->next) {
        Waiter& waiter = *link->waiter;
        if (!waiter.isServed() && isReadyFor(waiter.owner()) && waiter.tryServe()) waiter.wake();
    }
}

bool Waiter::tryServe() { return m_served = m_for == For::one ? serveOne() : serveAll(); }

bool Waiter::serveOne()
{
    for (std::size_t i = 0; i < m_slots.size(); ++i) {
        Waitable& object = waitableIn(*m_slots[i]);
        if (!object.isReadyFor(m_owner)) continue;
        m_result = (object.take(m_owner) ? WAIT_ABANDONED_0 : WAIT_OBJECT_0) + static_cast<DWORD>(i);
        return true;
    }
    return false;
}

bool Waiter::serveAll()
{
    const auto ready = [&](const HandleSlot* slot) { return waitableIn(*slot).isReadyFor(m_owner); };
    if (!std::ranges::all_of(m_slots, ready)) return false;
    bool abandoned = false;
    for (HandleSlot* slot : m_slots) abandoned |= waitableIn(*slot).take(m_owner);
    m_result = abandoned ? WAIT_ABANDONED_0 : WAIT_OBJECT_0;
    return true;
}

bool Waiter::block(std::unique_lock<std::mutex>& lock, DWORD milliseconds)
{
    std::array<WaitLink, MAXIMUM_WAIT_OBJECTS> links;
    for (std::size_t i = 0; i < m_slots.size(); ++i) {
        links[i].waiter = this;
        m_slots[i]->addUser(); // a handle may be closed meanwhile
        waitableIn(*m_slots[i]).addLink(links[i]);
    }
    const auto served = [this] { return m_served; };
    if (milliseconds == INFINITE)
        m_woken.wait(lock, served);
    else
        m_woken.wait_until(lock, std::chrono::steady_clock::now() + std::chrono::milliseconds(milliseconds),
                           served);
    for (std::size_t i = 0; i < m_slots.size(); ++i) waitableIn(*m_slots[i]).removeLink(links[i]);
    return m_served;
}

Mutex::~Mutex()
{
    const std::lock_guard lock(dispatcherLock);
    if (m_owner != nullptr) unlinkFromOwner();
}

bool Mutex::take(Owner& owner)
{
    ++m_depth;
    if (m_owner != nullptr) return false;
    m_owner = &owner;
    m_nextOwned = owner.firstOwned;
    m_previousOwned = nullptr;
    if (m_nextOwned != nullptr) m_nextOwned->m_previousOwned = this;
    owner.firstOwned = this;
    return std::exchange(m_abandoned, false);
}

void Mutex::unlinkFromOwner()
{
    (m_previousOwned != nullptr ? m_previousOwned->m_nextOwned : m_owner->firstOwned) = m_nextOwned;
    if (m_nextOwned != nullptr) m_nextOwned->m_previousOwned = m_previousOwned;
    m_owner = nullptr;
    m_depth = 0;
}

bool Mutex::release(const Owner& owner)
{
    if (m_owner != &owner) return false;
    if (--m_depth > 0) return true;
    unlinkFromOwner();
    serveWaiters();
    return true;
}

void Mutex::abandon()
{
    unlinkFromOwner();
    m_abandoned = true;
    serveWaiters();
}

void abandonOwned()
{
    while (currentOwner.firstOwned != nullptr) currentOwner.firstOwned->abandon();
}

void abandonOwnedAtThreadEnd()
{
    struct AtEnd {
        ~AtEnd()
        {
            const std::lock_guard lock(dispatcherLock);
            abandonOwned();
        }
    };
    static thread_local const AtEnd atEnd;
    static_cast<void>(atEnd);
}

} // namespace corekit::detail
