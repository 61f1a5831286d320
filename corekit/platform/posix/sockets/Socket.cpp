#include "corekit/platform/posix/sockets/Socket.h"

#include "corekit/platform/posix/Errno.h"
#include "corekit/platform/posix/sockets/NetworkEvents.h"

#include <cerrno>
#include <new>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <sys/time.h>

namespace corekit::detail {

Socket::Socket(Descriptor descriptor)
    : IoObject(objectKind, std::move(descriptor), Flow::socket, GENERIC_READ | GENERIC_WRITE),
      receiveLimit(SO_RCVTIMEO), sendLimit(SO_SNDTIMEO)
{
}

Socket::~Socket() { setEvents(nullptr); }

int Socket::setNeverWaits(bool neverWaits)
{
    int on = neverWaits;
    if (::ioctl(descriptor(), FIONBIO, &on) != 0) return errno;
    m_neverWaits = neverWaits;
    return 0;
}

int Socket::Limit::set(int descriptor, DWORD milliseconds)
{
    if (m_inForce.load(std::memory_order_relaxed) == milliseconds) return 0;
    const timeval time{milliseconds / 1000, static_cast<suseconds_t>(milliseconds % 1000) * 1000};
    if (::setsockopt(descriptor, SOL_SOCKET, m_option, &time, sizeof time) != 0) return errno;
    m_inForce.store(milliseconds, std::memory_order_relaxed);
    return 0;
}

std::shared_ptr<NetworkEvents> Socket::events() const
{
    if (!m_hasEvents) return nullptr;
    const std::lock_guard lock(m_eventsLock);
    return m_events;
}

void Socket::setEvents(std::shared_ptr<NetworkEvents> events)
{
    {
        const std::lock_guard lock(m_eventsLock);
        m_events.swap(events);
        m_hasEvents = m_events != nullptr;
    }
    if (events) events->end();
}

SOCKET openSocket(Descriptor descriptor)
try {
    const HANDLE handle = openHandle(std::make_unique<Socket>(std::move(descriptor)));
    return handle ? slotNumber(handle) : fail(WSAEMFILE, INVALID_SOCKET);
} catch (const std::bad_alloc&) {
    return fail(WSAENOBUFS, INVALID_SOCKET);
}

} // namespace corekit::detail
