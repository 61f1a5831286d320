#include "corekit/platform/posix/devices/SerialPort.h"

#include "corekit/platform/posix/devices/DeviceNames.h"
#include "corekit/platform/posix/devices/SerialLine.h"
#include "corekit/platform/posix/devices/SerialNames.h"
#include "corekit/platform/posix/Errno.h"

#include <cerrno>
#include <fcntl.h>
#include <new>
#include <sys/file.h>
#include <sys/ioctl.h>
#include <sys/stat.h>
#include <termios.h>

namespace corekit::detail {

class SerialPort::Channel final : public IoChannel {
public:
    explicit Channel(int line)
        : m_reads(makeLane(Direction::read, line)), m_writes(makeLane(Direction::write, line))
    {
    }

    DWORD start(const Request& request) override { return laneOf(request.direction).start(request); }
    void carryOut(const OVERLAPPED& overlapped) override
    {
        m_reads->carryOut(overlapped);
        m_writes->carryOut(overlapped);
    }
    bool cancel(const OVERLAPPED* which) override
    {
        const bool reads = m_reads->cancel(which);
        return m_writes->cancel(which) || reads;
    }
    void close() override
    {
        m_reads->close();
        m_writes->close();
    }
    bool bind(PortBinding binding) override { return m_reads->bind(binding) && m_writes->bind(binding); }

    SerialLane& laneOf(Direction direction) { return direction == Direction::read ? *m_reads : *m_writes; }

private:
    static std::shared_ptr<SerialLane> makeLane(Direction direction, int line)
    {
        return std::make_shared<SerialLane>(direction, Descriptor(::fcntl(line, F_DUPFD_CLOEXEC, 0)));
    }

    const std::shared_ptr<SerialLane> m_reads, m_writes;
};

SerialPort::SerialPort(Descriptor line, const FileId& id, DWORD access)
    : IoObject(objectKind, std::move(line), Flow::stream, access), m_id(id), m_use{access, 0},
      m_lanes(std::make_shared<Channel>(descriptor()))
{
    setChannel(m_lanes);
}

SerialPort::~SerialPort()
{
    // Whoever is still at it on another thread keeps nobody out any more.
    ::ioctl(descriptor(), TIOCNXCL);
    ::flock(descriptor(), LOCK_UN);
    releaseFile(m_id, m_use);
}

void SerialPort::setTimeouts(const COMMTIMEOUTS& timeouts)
{
    m_lanes->laneOf(Direction::read).setTimeouts(timeouts);
    m_lanes->laneOf(Direction::write).setTimeouts(timeouts);
}

void SerialPort::cancel(Direction direction) { m_lanes->laneOf(direction).cancel(nullptr); }

namespace {
using PortUser = HandleUser<SerialPort>;

// For this process alone, and for this handle in it.
DWORD claimLine(int fd, const FileId& id, DWORD access)
{
    if (!claimFile(id, {access, 0})) return ERROR_ACCESS_DENIED;
    const bool isOurs = ::flock(fd, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
    if (isOurs && ::ioctl(fd, TIOCEXCL) == 0) return NO_ERROR;
    const DWORD error = isOurs ? errorFromErrno(errno) : ERROR_ACCESS_DENIED;
    releaseFile(id, {access, 0});
    return error;
}

HANDLE openLine(const std::string& path, DWORD access)
{
    const bool reads = (access & GENERIC_READ) != 0, writes = (access & GENERIC_WRITE) != 0;
    const int mode = reads && writes ? O_RDWR : writes ? O_WRONLY : O_RDONLY;
    int fd;
    do fd = ::open(path.c_str(), mode | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    while (fd < 0 && errno == EINTR);
    if (fd < 0)
        return fail(errno == EBUSY ? ERROR_ACCESS_DENIED : errorFromErrno(errno), INVALID_HANDLE_VALUE);
    Descriptor line(fd);
    struct stat facts;
    if (::fstat(fd, &facts) != 0) return fail(errorFromErrno(errno), INVALID_HANDLE_VALUE);
    if (!::isatty(fd)) return fail(ERROR_INVALID_FUNCTION, INVALID_HANDLE_VALUE);
    const FileId id{facts.st_dev, facts.st_ino};
    if (const DWORD error = claimLine(fd, id, access); error != NO_ERROR)
        return fail(error, INVALID_HANDLE_VALUE);
    auto port = std::make_unique<SerialPort>(std::move(line), id, access);
    if (const DWORD error = makeBinary(fd); error != NO_ERROR) return fail(error, INVALID_HANDLE_VALUE);
    const HANDLE handle = openHandle(std::move(port));
    return handle != nullptr ? handle : INVALID_HANDLE_VALUE;
}

// An operation on the open line of a port.
template <class Operation>
BOOL onLine(HANDLE handle, Operation operation)
{
    const PortUser port(handle);
    if (!port) return fail(ERROR_INVALID_HANDLE, FALSE);
    const DWORD error = operation(*port, port->descriptor());
    return error == NO_ERROR ? TRUE : fail(error, FALSE);
}

DWORD errnoOr(int result) { return result == 0 ? NO_ERROR : errorFromErrno(errno); }

DWORD setSignal(int fd, DWORD function)
{
    int signal = function == SETRTS || function == CLRRTS ? TIOCM_RTS : TIOCM_DTR;
    return errnoOr(::ioctl(fd, function == SETRTS || function == SETDTR ? TIOCMBIS : TIOCMBIC, &signal));
}

DWORD escape(int fd, DWORD function)
{
    switch (function) {
    case SETXOFF:
        return errnoOr(::tcflow(fd, TCOOFF));
    case SETXON:
        return errnoOr(::tcflow(fd, TCOON));
    case SETBREAK:
        return errnoOr(::ioctl(fd, TIOCSBRK));
    case CLRBREAK:
        return errnoOr(::ioctl(fd, TIOCCBRK));
    case SETRTS:
    case CLRRTS:
    case SETDTR:
    case CLRDTR:
        return setSignal(fd, function);
    default:
        return ERROR_INVALID_PARAMETER;
    }
}

DWORD purge(SerialPort& port, int fd, DWORD flags)
{
    if (flags & PURGE_TXABORT) port.cancel(Direction::write);
    if (flags & PURGE_RXABORT) port.cancel(Direction::read);
    DWORD error = NO_ERROR;
    if (flags & PURGE_TXCLEAR) error = errnoOr(::tcflush(fd, TCOFLUSH));
    if (flags & PURGE_RXCLEAR && error == NO_ERROR) error = errnoOr(::tcflush(fd, TCIFLUSH));
    return error;
}

} // namespace

HANDLE openSerialPort(int number, const DeviceUse& use)
try {
    constexpr DWORD both = GENERIC_READ | GENERIC_WRITE;
    const bool isAllowed = use.share == 0 && use.disposition == OPEN_EXISTING && (use.access & both) != 0 &&
                           (use.access & ~both) == 0 && (use.flags & FILE_FLAG_OVERLAPPED) != 0;
    if (!isAllowed) return fail(ERROR_INVALID_PARAMETER, INVALID_HANDLE_VALUE);
    const std::string path = serialDeviceOf(number);
    if (path.empty()) return fail(ERROR_FILE_NOT_FOUND, INVALID_HANDLE_VALUE);
    return openLine(path, use.access);
} catch (const std::bad_alloc&) {
    return fail(ERROR_NOT_ENOUGH_MEMORY, INVALID_HANDLE_VALUE);
}

} // namespace corekit::detail

using namespace corekit::detail;

BOOL SetCommState(HANDLE handle, DCB* dcb)
{
    if (dcb == nullptr) return fail(ERROR_INVALID_PARAMETER, FALSE);
    return onLine(handle, [&](SerialPort&, int fd) { return setLine(fd, *dcb); });
}

BOOL GetCommState(HANDLE handle, DCB* dcb)
{
    if (dcb == nullptr) return fail(ERROR_INVALID_PARAMETER, FALSE);
    return onLine(handle, [&](SerialPort&, int fd) { return getLine(fd, *dcb); });
}

BOOL SetCommTimeouts(HANDLE handle, COMMTIMEOUTS* timeouts)
{
    if (timeouts == nullptr) return fail(ERROR_INVALID_PARAMETER, FALSE);
    return onLine(handle, [&](SerialPort& port, int) {
        port.setTimeouts(*timeouts);
        return NO_ERROR;
    });
}

BOOL GetCommModemStatus(HANDLE handle, DWORD* status)
{
    if (status == nullptr) return fail(ERROR_INVALID_PARAMETER, FALSE);
    return onLine(handle, [&](SerialPort&, int fd) {
        int signals = 0;
        if (::ioctl(fd, TIOCMGET, &signals) != 0) return errorFromErrno(errno);
        *status = (signals & TIOCM_CTS ? MS_CTS_ON : 0) | (signals & TIOCM_DSR ? MS_DSR_ON : 0) |
                  (signals & TIOCM_RI ? MS_RING_ON : 0) | (signals & TIOCM_CD ? MS_RLSD_ON : 0);
        return NO_ERROR;
    });
}

BOOL EscapeCommFunction(HANDLE handle, DWORD function)
{
    return onLine(handle, [&](SerialPort&, int fd) { return escape(fd, function); });
}

BOOL PurgeComm(HANDLE handle, DWORD flags)
{
    return onLine(handle, [&](SerialPort& port, int fd) { return purge(port, fd, flags); });
}
