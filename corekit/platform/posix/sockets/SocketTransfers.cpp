// Moving bytes and making connections, with limits of time.
//
// The kernel keeps the limits (SO_RCVTIMEO, SO_SNDTIMEO), so that a call with a limit is one call of the
// system whether it has to wait or not. Where a signal cuts a wait short, and for sockets that never wait,
// the rest of the time is spent in poll.
#include "corekit/platform/Sockets.h"

#include "corekit/platform/posix/Errno.h"
#include "corekit/platform/posix/sockets/NetworkEvents.h"
#include "corekit/platform/posix/sockets/Socket.h"
#include "corekit/platform/posix/sockets/SocketErrors.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <climits>
#include <fcntl.h>
#include <linux/sockios.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/socket.h>

namespace {
using namespace corekit::detail;
using Clock = std::chrono::steady_clock;

constexpr DWORD longest = 1u << 30; // what the kernel is asked to keep; twelve days

class Deadline {
public:
    explicit Deadline(DWORD limit) : m_limit(limit), m_start(Clock::now()) {}
    // Milliseconds for poll: -1 without a limit, 0 when it is over.
    int rest() const
    {
        if (m_limit == INFINITE) return -1;
        const auto gone =
            std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - m_start).count();
        const auto left = std::int64_t{m_limit} - gone;
        return static_cast<int>(std::clamp<std::int64_t>(left, 0, INT_MAX));
    }

private:
    DWORD m_limit;
    Clock::time_point m_start;
};

// 0 when the descriptor is ready, EAGAIN when the time is over, or another errno.
int await(int descriptor, short events, const Deadline& deadline)
{
    for (;;) {
        pollfd state{descriptor, events, 0};
        const int rest = deadline.rest();
        const int count = ::poll(&state, 1, rest);
        if (count > 0) return 0;
        if (count == 0 && rest >= 0 && deadline.rest() == 0) return EAGAIN;
        if (count < 0 && errno != EINTR) return errno;
    }
}

struct Moved {
    ssize_t count;
    int error;
};

// call(flags) moves a part or fails with errno. Runs it until it moves something or the time is over.
template <class Call>
Moved moveWithin(const Socket& socket, Socket::Limit& limit, DWORD milliseconds, short events, Call call)
{
    const Deadline deadline(milliseconds);
    const bool kernelWaits = milliseconds != 0 && !socket.neverWaits();
    if (kernelWaits)
        if (const int error = limit.set(socket.descriptor(), milliseconds > longest ? 0 : milliseconds))
            return {-1, error};
    ssize_t count = call(kernelWaits ? 0 : MSG_DONTWAIT);
    while (count < 0 && (errno == EAGAIN || errno == EINTR)) {
        if (const int error = await(socket.descriptor(), events, deadline)) return {-1, error};
        count = call(MSG_DONTWAIT);
    }
    return {count, count < 0 ? errno : 0};
}

// Stores the reason; a limit that is over has the number of one.
BOOL finish(const Moved& moved, DWORD* count)
{
    *count = moved.count > 0 ? static_cast<DWORD>(moved.count) : 0;
    if (moved.error == 0) return TRUE;
    return fail(moved.error == EAGAIN ? ERROR_TIMEOUT : socketErrorFromErrno(moved.error), FALSE);
}

// A transfer of Sockets.h: waits as long as setsockopt said, or not at all.
template <class Call>
int moveAsSet(Socket& socket, Socket::Limit& limit, short events, long event, Call call)
{
    Moved moved;
    if (socket.neverWaits()) {
        do moved.count = call(MSG_DONTWAIT);
        while (moved.count < 0 && errno == EINTR);
        moved.error = moved.count < 0 ? errno : 0;
    } else {
        const DWORD own = limit.own;
        moved = moveWithin(socket, limit, own == 0 ? INFINITE : own, events, call);
        if (moved.error == EAGAIN) moved.error = ETIMEDOUT;
    }
    // Reading asks for more; writing asks for room only when there was none.
    if (event == FD_READ || moved.error == EAGAIN)
        if (const auto selected = socket.events()) selected->wake(event);
    return moved.error == 0 ? static_cast<int>(moved.count) : failSocket(moved.error);
}

auto receiver(const Socket& socket, void* buffer, std::size_t size, int flags)
{
    return [=, descriptor = socket.descriptor()](int more) {
        return ::recv(descriptor, buffer, size, flags | more);
    };
}

auto sender(const Socket& socket, const void* data, std::size_t size, int flags)
{
    return [=, descriptor = socket.descriptor()](int more) {
        return ::send(descriptor, data, size, flags | more | MSG_NOSIGNAL);
    };
}

int connectNow(int descriptor, const sockaddr* address, int length)
{
    return ::connect(descriptor, address, static_cast<socklen_t>(length)) == 0 ? 0 : errno;
}

// Starts to connect without waiting, then waits for the outcome. Whatever that is, the next attempt begins
// anew: the system forgets one that failed when it is asked again, one that takes too long when it is told.
int connectWithin(Socket& socket, const sockaddr* address, int length, DWORD limit)
{
    const Deadline deadline(limit);
    const int descriptor = socket.descriptor();
    const bool neverWaits = socket.neverWaits();
    if (!neverWaits)
        if (const int error = socket.setNeverWaits(true)) return error;
    int error = connectNow(descriptor, address, length);
    if (error == EINPROGRESS || error == EINTR) {
        error = await(descriptor, POLLOUT, deadline);
        if (error == 0) {
            error = connectNow(descriptor, address, length);
        } else {
            constexpr sockaddr nobody{AF_UNSPEC, {}};
            connectNow(descriptor, &nobody, sizeof nobody);
        }
    }
    if (!neverWaits) socket.setNeverWaits(false);
    return error;
}
} // namespace

int sockets::recv(SOCKET number, char* buffer, int size, int flags)
{
    const HandleUser<Socket> socket(handleOf(number));
    if (!socket) return fail(WSAENOTSOCK, SOCKET_ERROR);
    if (size < 0 || (!buffer && size > 0)) return fail(WSAEFAULT, SOCKET_ERROR);
    return moveAsSet(*socket, socket->receiveLimit, POLLIN, FD_READ,
                     receiver(*socket, buffer, static_cast<std::size_t>(size), flags));
}

int sockets::send(SOCKET number, const char* data, int size, int flags)
{
    const HandleUser<Socket> socket(handleOf(number));
    if (!socket) return fail(WSAENOTSOCK, SOCKET_ERROR);
    if (size < 0 || (!data && size > 0)) return fail(WSAEFAULT, SOCKET_ERROR);
    return moveAsSet(*socket, socket->sendLimit, POLLOUT, FD_WRITE,
                     sender(*socket, data, static_cast<std::size_t>(size), flags));
}

BOOL sockets::ReceiveWithin(SOCKET number, void* buffer, DWORD size, DWORD* received, DWORD limit)
{
    const HandleUser<Socket> socket(handleOf(number));
    if (!socket) return fail(WSAENOTSOCK, FALSE);
    return finish(
        moveWithin(*socket, socket->receiveLimit, limit, POLLIN, receiver(*socket, buffer, size, 0)),
        received);
}

BOOL sockets::SendWithin(SOCKET number, const void* data, DWORD size, DWORD* sent, DWORD limit)
{
    const HandleUser<Socket> socket(handleOf(number));
    if (!socket) return fail(WSAENOTSOCK, FALSE);
    return finish(moveWithin(*socket, socket->sendLimit, limit, POLLOUT, sender(*socket, data, size, 0)),
                  sent);
}

BOOL sockets::ConnectWithin(SOCKET number, const sockaddr* address, int length, DWORD limit)
{
    const HandleUser<Socket> socket(handleOf(number));
    if (!socket) return fail(WSAENOTSOCK, FALSE);
    const int error = connectWithin(*socket, address, length, limit);
    if (error == 0) return TRUE;
    return fail(error == EAGAIN ? ERROR_TIMEOUT : socketErrorFromErrno(error), FALSE);
}

int sockets::connect(SOCKET number, const sockaddr* address, int length)
{
    const HandleUser<Socket> socket(handleOf(number));
    if (!socket) return fail(WSAENOTSOCK, SOCKET_ERROR);
    if (!address || length < 0) return fail(WSAEFAULT, SOCKET_ERROR);
    if (!socket->neverWaits()) {
        const int error = connectWithin(*socket, address, length, INFINITE);
        return error == 0 ? 0 : failSocket(error);
    }
    const bool isDone = ::connect(socket->descriptor(), address, static_cast<socklen_t>(length)) == 0;
    const int error = isDone ? 0 : errno;
    if (error == 0 || error == EINPROGRESS)
        if (const auto events = socket->events()) events->connecting();
    return isDone ? 0 : failSocket(error == EINPROGRESS ? EWOULDBLOCK : error);
}

int WSAConnect(SOCKET socket, const sockaddr* address, int length, WSABUF*, WSABUF*, QOS*, QOS*)
{
    return sockets::connect(socket, address, length);
}

BOOL sockets::AwaitTaken(SOCKET number, SOCKET other, DWORD limit, DWORD most)
{
    const HandleUser<Socket> socket(handleOf(number)), watched(handleOf(other));
    if (!socket || !watched) return fail(WSAENOTSOCK, FALSE);
    const Deadline end(most);
    Deadline idle(limit);
    for (int before = INT_MAX, pause = 1;; pause = std::min(2 * pause, 50)) {
        int left = 0;
        if (::ioctl(socket->descriptor(), SIOCOUTQ, &left) != 0)
            return fail(socketErrorFromErrno(errno), FALSE);
        if (left == 0) return TRUE;
        if (left < before) idle = Deadline(limit), pause = 1;
        before = left;
        if (idle.rest() == 0 || end.rest() == 0) return fail(ERROR_TIMEOUT, FALSE);
        pollfd states[] = {{socket->descriptor(), 0, 0}, {watched->descriptor(), POLLIN, 0}};
        ::poll(states, 2, pause); // of the first, only that it broke
        if (states[1].revents != 0) return TRUE;
        if (states[0].revents != 0) return fail(WSAECONNRESET, FALSE);
    }
}
