#include "corekit/platform/posix/handles/Dispatcher.h"

#include "corekit/platform/posix/handles/ObjectNames.h"
#include "corekit/platform/posix/handles/Waiter.h"

namespace corekit::detail {

constinit std::mutex dispatcherLock;
[[gnu::tls_model("initial-exec")]] constinit thread_local Owner currentOwner{};

Waitable::~Waitable()
{
    if (m_isNamed) forgetName(*this);
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
