#include "corekit/platform/posix/sockets/SocketErrors.h"

#include "corekit/platform/posix/Errno.h"
#include "corekit/platform/Sockets.h"

#include <algorithm>
#include <cerrno>
#include <iterator>

namespace corekit::detail {
namespace {
struct Row {
    int value;
    DWORD code;
};

// Where a socket's reason has another number than a file's.
constexpr Row socketErrors[] = {
    {EINTR, WSAEINTR},      {EBADF, WSAENOTSOCK},        {EACCES, WSAEACCES},  {EPERM, WSAEACCES},
    {EFAULT, WSAEFAULT},    {EINVAL, WSAEINVAL},         {EMFILE, WSAEMFILE},  {ENFILE, WSAEMFILE},
    {EPIPE, WSAECONNRESET}, {EOPNOTSUPP, WSAEOPNOTSUPP}, {ENOMEM, WSAENOBUFS},
};
} // namespace

DWORD socketErrorFromErrno(int value)
{
    const auto* row = std::ranges::find(socketErrors, value, &Row::value);
    return row != std::end(socketErrors) ? row->code : errorFromErrno(value);
}

int failSocket(int value) { return fail(socketErrorFromErrno(value), SOCKET_ERROR); }

} // namespace corekit::detail
