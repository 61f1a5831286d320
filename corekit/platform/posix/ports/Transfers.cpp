#include "corekit/platform/posix/ports/Transfers.h"

#include "corekit/platform/Errors.h"
#include "corekit/platform/posix/Errno.h"
#include "corekit/platform/posix/sockets/SocketErrors.h"

#include <cerrno>
#include <csignal>
#include <ctime>
#include <limits>
#include <poll.h>
#include <pthread.h>
#include <sys/socket.h>
#include <unistd.h>

namespace corekit::detail {
namespace {

// Keeps the signal that a broken pipe brings from reaching the calling thread.
class NoPipeSignal {
public:
    NoPipeSignal()
    {
        ::sigemptyset(&m_pipe);
        ::sigaddset(&m_pipe, SIGPIPE);
        ::pthread_sigmask(SIG_BLOCK, &m_pipe, &m_before);
    }
    NoPipeSignal(const NoPipeSignal&) = delete;
    NoPipeSignal& operator=(const NoPipeSignal&) = delete;
    ~NoPipeSignal()
    {
        const int reason = errno;
        constexpr timespec noTime{};
        if (reason == EPIPE && ::sigismember(&m_before, SIGPIPE) == 0)
            ::sigtimedwait(&m_pipe, nullptr, &noTime);
        ::pthread_sigmask(SIG_SETMASK, &m_before, nullptr);
        errno = reason;
    }

private:
    sigset_t m_pipe;
    sigset_t m_before;
};

// One call; -1 with errno on failure.
ssize_t move(int fd, Flow flow, Direction direction, Buffer buffer, int socketFlags)
{
    if (flow == Flow::socket)
        return direction == Direction::read
                   ? ::recv(fd, buffer.bytes, buffer.count, socketFlags)
                   : ::send(fd, buffer.bytes, buffer.count, socketFlags | MSG_NOSIGNAL);
    if (direction == Direction::read) return ::read(fd, buffer.bytes, buffer.count);
    if (flow == Flow::line) return ::write(fd, buffer.bytes, buffer.count);
    const NoPipeSignal quiet;
    return ::write(fd, buffer.bytes, buffer.count);
}

// What errno says of a failed call.
DWORD failureOf(Flow flow)
{
    return flow == Flow::socket ? socketErrorFromErrno(errno) : errorFromErrno(errno);
}

bool isReady(int fd, Direction direction, int milliseconds)
{
    pollfd wanted{fd, static_cast<short>(direction == Direction::read ? POLLIN : POLLOUT), 0};
    return ::poll(&wanted, 1, milliseconds) != 0;
}

} // namespace

Transfer moveAt(int fd, Direction direction, Buffer buffer, std::int64_t place)
{
    Transfer transfer;
    while (transfer.moved < buffer.count) {
        char* const bytes = buffer.bytes + transfer.moved;
        const DWORD rest = buffer.count - transfer.moved;
        const ssize_t part = direction == Direction::read ? ::pread(fd, bytes, rest, place + transfer.moved)
                                                          : ::pwrite(fd, bytes, rest, place + transfer.moved);
        if (part < 0 && errno == EINTR) continue;
        if (part < 0) transfer.error = errorFromErrno(errno);
        if (part == 0 && direction == Direction::write) transfer.error = ERROR_WRITE_FAULT;
        if (part <= 0) break;
        transfer.moved += static_cast<DWORD>(part);
    }
    return transfer;
}

Transfer moveOverlapped(int fd, Direction direction, Buffer buffer, std::int64_t place)
{
    Transfer transfer = moveAt(fd, direction, buffer, place);
    if (direction == Direction::read && buffer.count > 0 && transfer == Transfer{})
        transfer.error = ERROR_HANDLE_EOF;
    return transfer;
}

bool isPlace(std::int64_t place, DWORD count)
{
    return place >= 0 && place <= std::numeric_limits<std::int64_t>::max() - count;
}

Transfer moveNext(int fd, Flow flow, Direction direction, Buffer buffer)
{
    Transfer transfer;
    while (transfer.moved < buffer.count) {
        const ssize_t part =
            move(fd, flow, direction, {buffer.bytes + transfer.moved, buffer.count - transfer.moved}, 0);
        if (part < 0 && errno == EINTR) continue;
        if (part < 0 && errno == EAGAIN) {
            isReady(fd, direction, -1);
            continue;
        }
        if (part < 0) transfer.error = failureOf(flow);
        if (part <= 0) break;
        transfer.moved += static_cast<DWORD>(part);
        if (direction == Direction::read) break;
    }
    return transfer;
}

bool moveNow(int fd, Flow flow, Direction direction, Buffer buffer, Transfer& transfer)
{
    transfer = {};
    if (direction == Direction::read && buffer.count == 0) return isReady(fd, direction, 0);
    ssize_t part;
    do part = move(fd, flow, direction, buffer, MSG_DONTWAIT);
    while (part < 0 && errno == EINTR);
    if (part < 0 && errno == EAGAIN) return false;
    if (part < 0)
        transfer.error = failureOf(flow);
    else
        transfer.moved = static_cast<DWORD>(part);
    return true;
}

} // namespace corekit::detail
