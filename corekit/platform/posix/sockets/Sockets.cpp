// Making, binding, connecting and closing sockets, and their options and events.
#include "corekit/platform/Sockets.h"

#include "corekit/platform/posix/Errno.h"
#include "corekit/platform/posix/sockets/NetworkEvents.h"
#include "corekit/platform/posix/sockets/Socket.h"
#include "corekit/platform/posix/sockets/SocketErrors.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <iterator>
#include <new>
#include <sys/ioctl.h>
#include <sys/socket.h>

namespace {
using namespace corekit::detail;

// A user of the socket; the reason is stored when there is none.
class User : public HandleUser<Socket> {
public:
    explicit User(SOCKET socket) : HandleUser(handleOf(socket))
    {
        if (!*this) SetLastError(WSAENOTSOCK);
    }
};

int told(int result) { return result == 0 ? 0 : failSocket(errno); }

struct OptionRow {
    int documented, machine;
};

// Of level 0xFFFF.
constexpr OptionRow optionRows[] = {
    {0x0004, SO_REUSEADDR}, {0x0008, SO_KEEPALIVE}, {0x0020, SO_BROADCAST}, {0x0080, SO_LINGER},
    {0x1001, SO_SNDBUF},    {0x1002, SO_RCVBUF},    {0x1005, SO_SNDTIMEO},  {0x1006, SO_RCVTIMEO},
};

int setSocketOption(Socket& socket, int option, const char* value, int length)
{
    int number = 0;
    std::memcpy(&number, value, std::min<std::size_t>(sizeof number, static_cast<std::size_t>(length)));
    const auto* row = std::ranges::find(optionRows, option, &OptionRow::documented);
    if (row == std::end(optionRows)) return fail(WSAENOPROTOOPT, SOCKET_ERROR);
    if (row->machine == SO_RCVTIMEO || row->machine == SO_SNDTIMEO) {
        auto& limit = row->machine == SO_RCVTIMEO ? socket.receiveLimit : socket.sendLimit;
        limit.own = static_cast<DWORD>(number);
        return 0;
    }
    if (row->machine == SO_LINGER && length >= 4) { // two numbers of 16 bits
        WORD parts[2];
        std::memcpy(parts, value, sizeof parts);
        const linger how{parts[0], parts[1]};
        return told(::setsockopt(socket.descriptor(), SOL_SOCKET, SO_LINGER, &how, sizeof how));
    }
    return told(::setsockopt(socket.descriptor(), SOL_SOCKET, row->machine, &number, sizeof number));
}

template <int (*call)(int, sockaddr*, socklen_t*)>
int addressOf(SOCKET number, sockaddr* address, int* length)
{
    const User socket(number);
    if (!socket) return SOCKET_ERROR;
    if (!address || !length || *length < 0) return fail(WSAEFAULT, SOCKET_ERROR);
    auto size = static_cast<socklen_t>(*length);
    const int result = call(socket->descriptor(), address, &size);
    *length = static_cast<int>(size);
    return told(result);
}

int peerName(int s, sockaddr* address, socklen_t* length) { return ::getpeername(s, address, length); }
int ownName(int s, sockaddr* address, socklen_t* length) { return ::getsockname(s, address, length); }
} // namespace

SOCKET sockets::socket(int family, int type, int protocol)
{
    Descriptor descriptor(::socket(family, type | SOCK_CLOEXEC, protocol));
    if (!descriptor) return fail(socketErrorFromErrno(errno), INVALID_SOCKET);
    return openSocket(std::move(descriptor));
}

SOCKET WSASocketA(int family, int type, int protocol, WSAPROTOCOL_INFOA*, UINT, DWORD)
{
    return sockets::socket(family, type, protocol);
}

SOCKET sockets::accept(SOCKET listener, sockaddr* address, int* length)
{
    const User socket(listener);
    if (!socket) return INVALID_SOCKET;
    socklen_t size = length ? static_cast<socklen_t>(*length) : 0;
    Descriptor descriptor;
    do
        descriptor =
            Descriptor(::accept4(socket->descriptor(), address, length ? &size : nullptr, SOCK_CLOEXEC));
    while (!descriptor && (errno == EINTR || errno == ECONNABORTED));
    const int error = errno;
    const bool isFull = !descriptor && error != EAGAIN; // asking again at once would not help
    if (const auto events = socket->events(); events && !isFull) events->wake(FD_ACCEPT);
    if (!descriptor) return fail(socketErrorFromErrno(error), INVALID_SOCKET);
    if (length) *length = static_cast<int>(size);
    return openSocket(std::move(descriptor));
}

int sockets::bind(SOCKET number, const sockaddr* address, int length)
{
    const User socket(number);
    if (!socket) return SOCKET_ERROR;
    // Old connections of the address are no hindrance; another listener still is one.
    const int on = 1;
    ::setsockopt(socket->descriptor(), SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
    return told(::bind(socket->descriptor(), address, static_cast<socklen_t>(length)));
}

int sockets::listen(SOCKET number, int backlog)
{
    const User socket(number);
    if (!socket) return SOCKET_ERROR;
    const int result = told(::listen(socket->descriptor(), backlog));
    if (const auto events = socket->events()) events->wake(FD_ACCEPT);
    return result;
}

int sockets::closesocket(SOCKET number)
{
    const User socket(number);
    if (!socket) return SOCKET_ERROR;
    CloseHandle(handleOf(number));
    socket->setEvents(nullptr);
    // Whoever still waits for the socket keeps it open; this ends the wait.
    if (slotOf(handleOf(number))->hasSeveralUsers()) ::shutdown(socket->descriptor(), SHUT_RDWR);
    return 0;
}

int sockets::getpeername(SOCKET socket, sockaddr* address, int* length)
{
    return addressOf<peerName>(socket, address, length);
}

int sockets::getsockname(SOCKET socket, sockaddr* address, int* length)
{
    return addressOf<ownName>(socket, address, length);
}

int sockets::setsockopt(SOCKET number, int level, int option, const char* value, int length)
{
    const User socket(number);
    if (!socket) return SOCKET_ERROR;
    if (!value || length < 0) return fail(WSAEFAULT, SOCKET_ERROR);
    if (level == 0xFFFF) return setSocketOption(*socket, option, value, length);
    return told(::setsockopt(socket->descriptor(), level, option, value, static_cast<socklen_t>(length)));
}

int WSAIoctl(SOCKET number, DWORD code, void* in, DWORD inSize, void* out, DWORD outSize, DWORD* returned,
             OVERLAPPED*, LPWSAOVERLAPPED_COMPLETION_ROUTINE)
{
    const User socket(number);
    if (!socket) return SOCKET_ERROR;
    if (returned) *returned = 0;
    if (code == FIONBIO_CODE) {
        if (!in || inSize < sizeof(DWORD)) return fail(WSAEFAULT, SOCKET_ERROR);
        DWORD value;
        std::memcpy(&value, in, sizeof value);
        if (value == 0 && socket->events()) return fail(WSAEINVAL, SOCKET_ERROR);
        const int error = socket->setNeverWaits(value != 0);
        return error == 0 ? 0 : failSocket(error);
    }
    if (code == FIONREAD_CODE) {
        if (!out || outSize < sizeof(DWORD)) return fail(WSAEFAULT, SOCKET_ERROR);
        int count = 0;
        if (::ioctl(socket->descriptor(), FIONREAD, &count) != 0) return failSocket(errno);
        std::memcpy(out, &count, sizeof count);
        if (returned) *returned = sizeof count;
        return 0;
    }
    return fail(WSAEOPNOTSUPP, SOCKET_ERROR);
}

int WSAEventSelect(SOCKET number, HANDLE event, long selected)
try {
    const User socket(number);
    if (!socket) return SOCKET_ERROR;
    socket->setEvents(nullptr);
    if (!event || selected == 0) return 0;
    HANDLE own = nullptr;
    if (!DuplicateHandle(GetCurrentProcess(), event, GetCurrentProcess(), &own, 0, FALSE,
                         DUPLICATE_SAME_ACCESS))
        return fail(WSAEINVAL, SOCKET_ERROR);
    const auto events = std::make_shared<NetworkEvents>(own, selected);
    int error = socket->setNeverWaits(true);
    if (error == 0) error = events->start(socket->descriptor());
    if (error != 0) return failSocket(error);
    socket->setEvents(events);
    return 0;
} catch (const std::bad_alloc&) {
    return fail(WSAENOBUFS, SOCKET_ERROR);
}

int WSAEnumNetworkEvents(SOCKET number, HANDLE event, WSANETWORKEVENTS* happened)
{
    const User socket(number);
    if (!socket) return SOCKET_ERROR;
    if (!happened) return fail(WSAEFAULT, SOCKET_ERROR);
    *happened = {};
    if (event) ResetEvent(event);
    if (const auto events = socket->events()) events->take(*happened);
    return 0;
}

HANDLE WSACreateEvent() { return CreateEventA(nullptr, TRUE, FALSE, nullptr); }
BOOL WSACloseEvent(HANDLE event) { return CloseHandle(event); }

DWORD WSAWaitForMultipleEvents(DWORD count, const HANDLE* events, BOOL all, DWORD milliseconds, BOOL)
{
    return WaitForMultipleObjects(count, events, all, milliseconds);
}

int WSAStartup(WORD version, WSADATA* data)
{
    if (!data) return static_cast<int>(WSAEFAULT);
    if (LOBYTE(version) == 0) return static_cast<int>(WSAVERNOTSUPPORTED);
    constexpr WORD highest = MAKEWORD(2, 2);
    const bool isNewer = MAKEWORD(HIBYTE(version), LOBYTE(version)) > highest;
    *data = {.wVersion = isNewer ? highest : version, .wHighVersion = highest};
    return 0;
}

int WSACleanup() { return 0; }
int WSAGetLastError() { return static_cast<int>(GetLastError()); }
