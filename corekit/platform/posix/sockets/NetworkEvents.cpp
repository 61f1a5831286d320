#include "corekit/platform/posix/sockets/NetworkEvents.h"

#include "corekit/platform/posix/sockets/SocketErrors.h"

#include <cerrno>
#include <fcntl.h>
#include <poll.h>
#include <sys/epoll.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>
#include <utility>

namespace corekit::detail {
namespace {
int optionOf(int descriptor, int option)
{
    int value = 0;
    socklen_t size = sizeof value;
    return ::getsockopt(descriptor, SOL_SOCKET, option, &value, &size) == 0 ? value : 0;
}

bool hasBytes(int descriptor)
{
    int count = 0;
    return ::ioctl(descriptor, FIONREAD, &count) == 0 && count > 0;
}
} // namespace

NetworkEvents::~NetworkEvents()
{
    if (m_event) CloseHandle(m_event);
}

int NetworkEvents::start(int descriptor)
{
    const std::lock_guard lock(m_lock);
    m_descriptor = Descriptor(::fcntl(descriptor, F_DUPFD_CLOEXEC, 0));
    if (!m_descriptor) return errno;
    m_state = stateOf(descriptor);
    const int error = poller::watch(m_descriptor.get(), EPOLLIN | EPOLLOUT | EPOLLPRI | EPOLLRDHUP | EPOLLET,
                                    shared_from_this());
    if (error != 0) m_descriptor = Descriptor();
    return error;
}

void NetworkEvents::end()
{
    const std::lock_guard lock(m_lock);
    poller::unwatch(m_descriptor.get());
    m_descriptor = Descriptor();
}

void NetworkEvents::onReady(std::uint32_t)
{
    const std::lock_guard lock(m_lock);
    look();
}

void NetworkEvents::wake(long events)
{
    if ((m_selected & events) == 0) return;
    const std::lock_guard lock(m_lock);
    m_awake |= events;
    if ((events & FD_ACCEPT) != 0) m_state = State::listening;
    look();
}

void NetworkEvents::connecting()
{
    const std::lock_guard lock(m_lock);
    m_awake |= FD_CONNECT;
    m_state = State::connecting;
    look();
}

void NetworkEvents::take(WSANETWORKEVENTS& events)
{
    const std::lock_guard lock(m_lock);
    events.lNetworkEvents = static_cast<LONG>(std::exchange(m_happened, 0));
    for (int bit = 0; bit < FD_MAX_EVENTS; ++bit) events.iErrorCode[bit] = std::exchange(m_errors[bit], 0);
}

NetworkEvents::State NetworkEvents::stateOf(int descriptor) const
{
    if (optionOf(descriptor, SO_ACCEPTCONN) != 0) return State::listening;
    sockaddr_storage peer;
    socklen_t size = sizeof peer;
    const bool isOpen = optionOf(descriptor, SO_TYPE) == SOCK_DGRAM ||
                        ::getpeername(descriptor, reinterpret_cast<sockaddr*>(&peer), &size) == 0;
    return isOpen ? State::open : State::idle;
}

void NetworkEvents::look()
{
    pollfd state{m_descriptor.get(), POLLIN | POLLOUT | POLLPRI | POLLRDHUP, 0};
    if (!m_descriptor || m_state == State::idle || ::poll(&state, 1, 0) <= 0) return;
    if (m_state == State::listening && (state.revents & POLLIN) != 0) tell(FD_ACCEPT, FD_ACCEPT_BIT, 0);
    if (m_state == State::connecting && !lookAtConnecting(state.revents)) return;
    if (m_state == State::open) lookAtOpen(state.revents);
}

// Whether the connection stands now.
bool NetworkEvents::lookAtConnecting(short ready)
{
    if ((ready & (POLLOUT | POLLERR | POLLHUP)) == 0) return false;
    const int error = optionOf(m_descriptor.get(), SO_ERROR);
    m_state = error == 0 ? State::open : State::idle;
    tell(FD_CONNECT, FD_CONNECT_BIT, error);
    return error == 0;
}

void NetworkEvents::lookAtOpen(short ready)
{
    const bool isOver = (ready & (POLLRDHUP | POLLHUP | POLLERR)) != 0;
    if ((ready & POLLIN) != 0 && (!isOver || hasBytes(m_descriptor.get())))
        tell(FD_READ, FD_READ_BIT, 0);
    else if (isOver)
        tell(FD_CLOSE, FD_CLOSE_BIT, optionOf(m_descriptor.get(), SO_ERROR));
    if ((ready & POLLOUT) != 0 && !isOver) tell(FD_WRITE, FD_WRITE_BIT, 0);
    if ((ready & POLLPRI) != 0) tell(FD_OOB, FD_OOB_BIT, 0);
}

void NetworkEvents::tell(long event, int bit, int error)
{
    if ((m_awake & event) == 0) return;
    m_awake &= ~event;
    if ((m_selected & event) == 0) return;
    m_happened |= event;
    m_errors[bit] = error == 0 ? 0 : static_cast<int>(socketErrorFromErrno(error));
    SetEvent(m_event);
}

} // namespace corekit::detail
