#include "corekit/platform/Errors.h"

#include "corekit/platform/posix/Errno.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <string>

namespace {

// One load in place of a call: the library is never opened so late that static thread storage has run out.
[[gnu::tls_model("initial-exec")]] constinit thread_local DWORD lastError = 0;

struct ErrnoRow {
    int value;
    DWORD code;
};

// Where several values share a number, the first one supplies the machine's text for it.
constexpr ErrnoRow errnoTable[] = {
    {ENOENT, ERROR_FILE_NOT_FOUND},
    {ENOTDIR, ERROR_PATH_NOT_FOUND},
    {EMFILE, ERROR_TOO_MANY_OPEN_FILES},
    {ENFILE, ERROR_TOO_MANY_OPEN_FILES},
    {EACCES, ERROR_ACCESS_DENIED},
    {EPERM, ERROR_ACCESS_DENIED},
    {EISDIR, ERROR_ACCESS_DENIED},
    {EBADF, ERROR_INVALID_HANDLE},
    {ENOMEM, ERROR_NOT_ENOUGH_MEMORY},
    {EXDEV, ERROR_NOT_SAME_DEVICE},
    {EROFS, ERROR_WRITE_PROTECT},
    {ETXTBSY, ERROR_SHARING_VIOLATION},
    {EOPNOTSUPP, ERROR_NOT_SUPPORTED},
    {ENODEV, ERROR_DEV_NOT_EXIST},
    {ENXIO, ERROR_DEV_NOT_EXIST},
    {EEXIST, ERROR_FILE_EXISTS},
    {EINVAL, ERROR_INVALID_PARAMETER},
    {EPIPE, ERROR_BROKEN_PIPE},
    {ENOSPC, ERROR_DISK_FULL},
    {EDQUOT, ERROR_DISK_FULL},
    {ENOSYS, ERROR_CALL_NOT_IMPLEMENTED},
    {ENOTTY, ERROR_INVALID_FUNCTION},
    {ESPIPE, ERROR_SEEK_ON_DEVICE},
    {ENOTEMPTY, ERROR_DIR_NOT_EMPTY},
    {EBUSY, ERROR_BUSY},
    {ENAMETOOLONG, ERROR_FILENAME_EXCED_RANGE},
    {EFBIG, ERROR_FILE_TOO_LARGE},
    {EINTR, ERROR_OPERATION_ABORTED},
    {ECANCELED, ERROR_OPERATION_ABORTED},
    {EFAULT, ERROR_NOACCESS},
    {EILSEQ, ERROR_NO_UNICODE_TRANSLATION},
    {EIO, ERROR_IO_DEVICE},
    {EDEADLK, ERROR_POSSIBLE_DEADLOCK},
    {EMLINK, ERROR_TOO_MANY_LINKS},
    {ELOOP, ERROR_CANT_RESOLVE_FILENAME},
    {EWOULDBLOCK, 10035},
    {EINPROGRESS, 10036},
    {EALREADY, 10037},
    {ENOTSOCK, 10038},
    {EDESTADDRREQ, 10039},
    {EMSGSIZE, 10040},
    {EPROTOTYPE, 10041},
    {ENOPROTOOPT, 10042},
    {EPROTONOSUPPORT, 10043},
    {EAFNOSUPPORT, 10047},
    {EADDRINUSE, 10048},
    {EADDRNOTAVAIL, 10049},
    {ENETDOWN, 10050},
    {ENETUNREACH, 10051},
    {ECONNABORTED, 10053},
    {ECONNRESET, 10054},
    {ENOBUFS, 10055},
    {EISCONN, 10056},
    {ENOTCONN, 10057},
    {ETIMEDOUT, 10060},
    {ECONNREFUSED, 10061},
    {EHOSTUNREACH, 10065},
};

std::string textOf(DWORD code)
{
    if (const char* own = corekit::detail::systemTextOf(code)) return own;
    if (std::string machine = corekit::detail::machineTextOf(code); !machine.empty()) return machine;
    return "Unknown error " + std::to_string(code);
}

} // namespace

namespace corekit::detail {

DWORD errorFromErrno(int value)
{
    const auto* row = std::ranges::find(errnoTable, value, &ErrnoRow::value);
    return row != std::end(errnoTable) ? row->code : ERROR_GEN_FAILURE;
}

void setLastErrorFromErrno() { lastError = errorFromErrno(errno); }

// In English like all others, whatever language the process has set.
std::string machineTextOf(DWORD code)
{
    const auto* row = std::ranges::find(errnoTable, code, &ErrnoRow::code);
    const char* const text = row != std::end(errnoTable) ? ::strerrordesc_np(row->value) : nullptr;
    return text ? text : "";
}

} // namespace corekit::detail

DWORD GetLastError() { return lastError; }

void SetLastError(DWORD code) { lastError = code; }

DWORD FormatMessageA(DWORD flags, const void*, DWORD messageId, DWORD, char* buffer, DWORD size,
                     std::va_list*)
{
    if ((flags & ~FORMAT_MESSAGE_IGNORE_INSERTS) != FORMAT_MESSAGE_FROM_SYSTEM || buffer == nullptr) {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    const std::string text = textOf(messageId) + "\r\n";
    if (text.size() >= size) {
        SetLastError(ERROR_INSUFFICIENT_BUFFER);
        return 0;
    }
    std::memcpy(buffer, text.c_str(), text.size() + 1);
    return static_cast<DWORD>(text.size());
}
