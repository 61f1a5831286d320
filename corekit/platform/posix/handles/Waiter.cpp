#include "corekit/platform/posix/handles/Waiter.h"

#include "corekit/platform/Waits.h"

#include <algorithm>
#include <chrono>

namespace corekit::detail {

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

} // namespace corekit::detail
