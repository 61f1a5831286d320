// Short texts for the error numbers that this platform layer reports. Numbers that merely stand for an
// errno value are left to the machine's own text.
#include "corekit/platform/Accelerators.h"
#include "corekit/platform/CompletionPort.h"
#include "corekit/platform/Errors.h"
#include "corekit/platform/FindFile.h"
#include "corekit/platform/KeyboardLayouts.h"
#include "corekit/platform/Libraries.h"
#include "corekit/platform/Menus.h"
#include "corekit/platform/Messages.h"
#include "corekit/platform/Overlapped.h"
#include "corekit/platform/posix/Errno.h"
#include "corekit/platform/Registry.h"
#include "corekit/platform/Resources.h"
#include "corekit/platform/ServiceManager.h"
#include "corekit/platform/Services.h"
#include "corekit/platform/Sockets.h"
#include "corekit/platform/Storage.h"
#include "corekit/platform/SystemNames.h"
#include "corekit/platform/VersionInfo.h"
#include "corekit/platform/WindowStyles.h"

#include <algorithm>

namespace {

struct TextRow {
    DWORD code;
    const char* text;
};

constexpr DWORD codeOf(HRESULT result) { return static_cast<DWORD>(result); }

constexpr TextRow textRows[] = {
    {ERROR_SUCCESS, "No error."},
    {ERROR_INVALID_FUNCTION, "This function does not apply here."},
    {ERROR_FILE_NOT_FOUND, "The file was not found."},
    {ERROR_PATH_NOT_FOUND, "The folder was not found."},
    {ERROR_TOO_MANY_OPEN_FILES, "Too many files are open."},
    {ERROR_ACCESS_DENIED, "Access was denied."},
    {ERROR_INVALID_HANDLE, "The handle does not stand for an open object of the right kind."},
    {ERROR_NOT_ENOUGH_MEMORY, "There is not enough memory."},
    {ERROR_INVALID_DATA, "The data are of another form than expected."},
    {ERROR_NOT_SAME_DEVICE, "The two names lie on different volumes."},
    {ERROR_NO_MORE_FILES, "There are no more files."},
    {ERROR_WRITE_PROTECT, "The volume is write-protected."},
    {ERROR_WRITE_FAULT, "The device did not take all of the data."},
    {ERROR_GEN_FAILURE, "The device or the system reported a failure."},
    {ERROR_SHARING_VIOLATION, "The file is in use and its user does not share it."},
    {ERROR_HANDLE_EOF, "The end of the file was reached."},
    {ERROR_NOT_SUPPORTED, "The request is not supported."},
    {ERROR_BAD_NETPATH, "There is no such machine to connect to."},
    {ERROR_DEV_NOT_EXIST, "The device is not there."},
    {ERROR_FILE_EXISTS, "The file exists already."},
    {ERROR_INVALID_PARAMETER, "A parameter is wrong."},
    {ERROR_BROKEN_PIPE, "The other end of the pipe was closed."},
    {ERROR_DISK_FULL, "There is no space left on the volume."},
    {ERROR_CALL_NOT_IMPLEMENTED, "The system does not offer this call."},
    {ERROR_INSUFFICIENT_BUFFER, "The buffer is too small for the result."},
    {ERROR_INVALID_NAME, "The name is not a valid file name."},
    {ERROR_MOD_NOT_FOUND, "The library was not found."},
    {ERROR_PROC_NOT_FOUND, "The library has no such function."},
    {ERROR_NEGATIVE_SEEK, "A position before the start of the file was asked for."},
    {ERROR_SEEK_ON_DEVICE, "A position cannot be set on this kind of file."},
    {ERROR_DIR_NOT_EMPTY, "The folder is not empty."},
    {ERROR_NOT_LOCKED, "The block is not locked."},
    {ERROR_BAD_PATHNAME, "The path is not valid."},
    {ERROR_BUSY, "The resource is busy."},
    {ERROR_ALREADY_EXISTS, "The object exists already."},
    {ERROR_ENVVAR_NOT_FOUND, "There is no environment variable of this name."},
    {ERROR_FILENAME_EXCED_RANGE, "The file name is too long."},
    {ERROR_FILE_TOO_LARGE, "The file is larger than allowed."},
    {ERROR_MORE_DATA, "There is more data than the buffer takes."},
    {WAIT_TIMEOUT, "The wait ran out of time."},
    {ERROR_NO_MORE_ITEMS, "There are no more items."},
    {ERROR_NOT_OWNER, "The calling thread does not own the mutex."},
    {ERROR_INVALID_ADDRESS, "The address is not that of a mapped view."},
    {ERROR_ABANDONED_WAIT_0, "What was waited for was closed."},
    {ERROR_OPERATION_ABORTED, "The operation was broken off."},
    {ERROR_IO_INCOMPLETE, "The operation has not ended yet."},
    {ERROR_IO_PENDING, "The operation is still under way."},
    {ERROR_NOACCESS, "The memory cannot be accessed."},
    {ERROR_INVALID_FLAGS, "The flags are not valid here."},
    {ERROR_FILE_INVALID, "A file without content cannot be mapped."},
    {ERROR_REGISTRY_CORRUPT, "The registry is damaged."},
    {ERROR_REGISTRY_IO_FAILED, "The registry could not be read or written."},
    {ERROR_KEY_DELETED, "The registry key has been deleted."},
    {ERROR_INVALID_SERVICE_CONTROL, "The service does not know this control."},
    {ERROR_SERVICE_ALREADY_RUNNING, "The service is running already."},
    {ERROR_INVALID_SERVICE_ACCOUNT, "This is no name of a user that a service could run as."},
    {ERROR_SERVICE_DISABLED, "The service is disabled."},
    {ERROR_SERVICE_DOES_NOT_EXIST, "No service of this name is installed."},
    {ERROR_SERVICE_NOT_ACTIVE, "The service is not running."},
    {ERROR_FAILED_SERVICE_CONTROLLER_CONNECT, "No service manager started this process."},
    {ERROR_SERVICE_SPECIFIC_ERROR, "The service ended with an error of its own."},
    {ERROR_SERVICE_EXISTS, "A service of this name is installed already."},
    {ERROR_NO_UNICODE_TRANSLATION, "The text holds a sequence that stands for no character."},
    {ERROR_IO_DEVICE, "The device reported an input or output error."},
    {ERROR_POSSIBLE_DEADLOCK, "The request would wait for itself."},
    {ERROR_MAPPED_ALIGNMENT, "The offset is not a multiple of the mapping granularity."},
    {ERROR_NOT_FOUND, "There is no such operation under way."},
    {ERROR_USER_MAPPED_FILE, "A view of the file is open."},
    {ERROR_INVALID_WINDOW_HANDLE, "The window does not exist."},
    {ERROR_INVALID_MENU_HANDLE, "The menu does not exist."},
    {ERROR_INVALID_ACCEL_HANDLE, "The table of accelerator keys does not exist."},
    {ERROR_CANNOT_FIND_WND_CLASS, "No window class has this name."},
    {ERROR_CLASS_ALREADY_EXISTS, "A window class of this name exists already."},
    {ERROR_CLASS_DOES_NOT_EXIST, "The window class does not exist."},
    {ERROR_MENU_ITEM_NOT_FOUND, "The menu has no such item."},
    {ERROR_INVALID_KEYBOARD_HANDLE, "The keyboard layout does not exist."},
    {ERROR_TIMEOUT, "The time allowed for the operation ran out."},
    {RPC_S_SERVER_UNAVAILABLE, "The service manager cannot be reached."},
    {ERROR_RESOURCE_DATA_NOT_FOUND, "The file holds no such resource."},
    {ERROR_RESOURCE_NAME_NOT_FOUND, "The module has no resource of this name."},
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
    {codeOf(STG_E_FILENOTFOUND), "The compound file, or the element in it, was not found."},
    {codeOf(STG_E_PATHNOTFOUND), "The folder of the compound file was not found."},
    {codeOf(STG_E_ACCESSDENIED), "Access to the compound file or its element was denied."},
    {codeOf(STG_E_INSUFFICIENTMEMORY), "There is not enough memory for the compound file."},
    {codeOf(STG_E_INVALIDPOINTER), "A call on a compound file lacks a name or a place for its result."},
    {codeOf(STG_E_SEEKERROR), "The position in the compound file cannot be reached."},
    {codeOf(STG_E_WRITEFAULT), "The compound file did not take all of the data."},
    {codeOf(STG_E_READFAULT), "The compound file did not give all of the data."},
    {codeOf(STG_E_SHAREVIOLATION), "The compound file is in use and its user does not share it."},
    {codeOf(STG_E_FILEALREADYEXISTS), "The compound file, or the element in it, exists already."},
    {codeOf(STG_E_MEDIUMFULL), "There is no space left for the compound file."},
    {codeOf(STG_E_INVALIDHEADER), "The file is not a compound file."},
    {codeOf(STG_E_INVALIDNAME), "The name cannot be that of an element of a compound file."},
    {codeOf(STG_E_DOCFILECORRUPT), "The compound file is damaged."},
};
static_assert(std::ranges::is_sorted(textRows, {}, &TextRow::code));

} // namespace

const char* corekit::detail::systemTextOf(DWORD code)
{
    const auto* row = std::ranges::lower_bound(textRows, code, {}, &TextRow::code);
    return row != std::end(textRows) && row->code == code ? row->text : nullptr;
}
