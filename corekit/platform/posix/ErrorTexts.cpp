// Short texts for the error numbers that this platform layer reports. Numbers that merely stand for an
// errno value are left to the machine's own text.
#include "corekit/platform/Accelerators.h"
#include "corekit/platform/CompletionPort.h"
#include "corekit/platform/Errors.h"
#include "corekit/platform/Menus.h"
#include "corekit/platform/Messages.h"
#include "corekit/platform/posix/Errno.h"
#include "corekit/platform/Sockets.h"

#include <algorithm>

namespace {

struct TextRow {
    DWORD code;
    const char* text;
};

constexpr TextRow kTexts[] = {
    {ERROR_SUCCESS, "No error."},
    {ERROR_INVALID_FUNCTION, "This function does not apply here."},
    {ERROR_FILE_NOT_FOUND, "The file was not found."},
    {ERROR_PATH_NOT_FOUND, "The folder was not found."},
    {ERROR_TOO_MANY_OPEN_FILES, "Too many files are open."},
    {ERROR_ACCESS_DENIED, "Access was denied."},
    {ERROR_INVALID_HANDLE, "The handle does not stand for an open object of the right kind."},
    {ERROR_NOT_ENOUGH_MEMORY, "There is not enough memory."},
    {ERROR_NOT_SAME_DEVICE, "The two names lie on different volumes."},
    {ERROR_WRITE_PROTECT, "The volume is write-protected."},
    {ERROR_WRITE_FAULT, "The device did not take all of the data."},
    {ERROR_GEN_FAILURE, "The device or the system reported a failure."},
    {ERROR_SHARING_VIOLATION, "The file is in use and its user does not share it."},
    {ERROR_HANDLE_EOF, "The end of the file was reached."},
    {ERROR_NOT_SUPPORTED, "The request is not supported."},
    {ERROR_DEV_NOT_EXIST, "The device is not there."},
    {ERROR_FILE_EXISTS, "The file exists already."},
    {ERROR_INVALID_PARAMETER, "A parameter is wrong."},
    {ERROR_BROKEN_PIPE, "The other end of the pipe was closed."},
    {ERROR_DISK_FULL, "There is no space left on the volume."},
    {ERROR_CALL_NOT_IMPLEMENTED, "The system does not offer this call."},
    {ERROR_INSUFFICIENT_BUFFER, "The buffer is too small for the result."},
    {ERROR_INVALID_NAME, "The name is not a valid file name."},
    {ERROR_NEGATIVE_SEEK, "A position before the start of the file was asked for."},
    {ERROR_SEEK_ON_DEVICE, "A position cannot be set on this kind of file."},
    {ERROR_DIR_NOT_EMPTY, "The folder is not empty."},
    {ERROR_NOT_LOCKED, "The block is not locked."},
    {ERROR_BUSY, "The resource is busy."},
    {ERROR_ALREADY_EXISTS, "The object exists already."},
    {ERROR_FILENAME_EXCED_RANGE, "The file name is too long."},
    {ERROR_FILE_TOO_LARGE, "The file is larger than allowed."},
    {WAIT_TIMEOUT, "The wait ran out of time."},
    {ERROR_NO_MORE_ITEMS, "There are no more items."},
    {ERROR_NOT_OWNER, "The calling thread does not own the mutex."},
    {ERROR_INVALID_ADDRESS, "The address is not that of a mapped view."},
    {ERROR_ABANDONED_WAIT_0, "What was waited for was closed."},
    {ERROR_OPERATION_ABORTED, "The operation was broken off."},
    {ERROR_IO_PENDING, "The operation is still under way."},
    {ERROR_NOACCESS, "The memory cannot be accessed."},
    {ERROR_INVALID_FLAGS, "The flags are not valid here."},
    {ERROR_FILE_INVALID, "A file without content cannot be mapped."},
    {ERROR_SERVICE_DOES_NOT_EXIST, "No service of this name is installed."},
    {ERROR_SERVICE_EXISTS, "A service of this name is installed already."},
    {ERROR_NO_UNICODE_TRANSLATION, "The text holds a sequence that stands for no character."},
    {ERROR_IO_DEVICE, "The device reported an input or output error."},
    {ERROR_POSSIBLE_DEADLOCK, "The request would wait for itself."},
    {ERROR_MAPPED_ALIGNMENT, "The offset is not a multiple of the mapping granularity."},
    {ERROR_NOT_FOUND, "There is no such operation under way."},
    {ERROR_INVALID_WINDOW_HANDLE, "The window does not exist."},
    {ERROR_INVALID_MENU_HANDLE, "The menu does not exist."},
    {ERROR_INVALID_ACCEL_HANDLE, "The table of accelerator keys does not exist."},
    {ERROR_MENU_ITEM_NOT_FOUND, "The menu has no such item."},
    {ERROR_TIMEOUT, "The time allowed for the operation ran out."},
    {ERROR_NOT_ENOUGH_QUOTA, "The queue holds as much as it may."},
    {ERROR_CANT_RESOLVE_FILENAME, "The name leads through too many links."},
    {WSAEINTR, "The call on the socket was broken off."},
    {WSAEACCES, "The socket may not be used in this way."},
    {WSAEFAULT, "The memory handed to a call on sockets is missing or too small."},
    {WSAEINVAL, "The socket is not in a state for this call."},
    {WSAEMFILE, "Too many sockets are open."},
    {WSAEOPNOTSUPP, "The socket or the name space does not do this."},
    {WSAVERNOTSUPPORTED, "This version of sockets is not offered."},
    {WSANOTINITIALISED, "The sockets have not been initialised."},
    {WSASERVICE_NOT_FOUND, "Names of this kind cannot be looked up."},
    {WSA_E_NO_MORE, "There are no more records."},
    {WSAHOST_NOT_FOUND, "No host has this name."},
};
static_assert(std::ranges::is_sorted(kTexts, {}, &TextRow::code));

} // namespace

const char* corekit::detail::systemTextOf(DWORD code)
{
    const auto* row = std::ranges::lower_bound(kTexts, code, {}, &TextRow::code);
    return row != std::end(kTexts) && row->code == code ? row->text : nullptr;
}
