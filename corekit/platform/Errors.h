// The calling thread's last error, and the text of an error number.
//
// A platform operation that fails stores its reason here; one that succeeds mostly leaves the value as it
// was, so read it right after the failure and on the same thread.
//
// The numbers below are those of the platform; what the machine calls otherwise (errno) is translated on the
// way. Groups of their own stand with their calls: sockets in Sockets.h, the registry in Registry.h,
// services in ServiceManager.h, windows in WindowStyles.h.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

#include <cstdarg>

inline constexpr DWORD NO_ERROR = 0;                        // success
inline constexpr DWORD ERROR_SUCCESS = 0;                   // the same
inline constexpr DWORD ERROR_INVALID_FUNCTION = 1;          // the call does not apply to this kind of object
inline constexpr DWORD ERROR_FILE_NOT_FOUND = 2;            // no such file or name
inline constexpr DWORD ERROR_PATH_NOT_FOUND = 3;            // no such folder above it
inline constexpr DWORD ERROR_TOO_MANY_OPEN_FILES = 4;       // of the process or the machine
inline constexpr DWORD ERROR_ACCESS_DENIED = 5;             // no right to, or the wrong thread of a window
inline constexpr DWORD ERROR_INVALID_HANDLE = 6;            // closed, null or of another kind
inline constexpr DWORD ERROR_NOT_ENOUGH_MEMORY = 8;         // or more than a call allows
inline constexpr DWORD ERROR_INVALID_DATA = 13;             // of another form than expected
inline constexpr DWORD ERROR_NOT_SAME_DEVICE = 17;          // two names on different volumes
inline constexpr DWORD ERROR_WRITE_PROTECT = 19;            // the volume can only be read
inline constexpr DWORD ERROR_WRITE_FAULT = 29;              // the device did not take all
inline constexpr DWORD ERROR_GEN_FAILURE = 31;              // any other failure of the system
inline constexpr DWORD ERROR_SHARING_VIOLATION = 32;        // open elsewhere and not shared
inline constexpr DWORD ERROR_HANDLE_EOF = 38;               // a read at a place behind the end
inline constexpr DWORD ERROR_NOT_SUPPORTED = 50;            // the system cannot do this
inline constexpr DWORD ERROR_DEV_NOT_EXIST = 55;            // no such device; no toolkit
inline constexpr DWORD ERROR_FILE_EXISTS = 80;              // one was to be made anew
inline constexpr DWORD ERROR_INVALID_PARAMETER = 87;        // an argument makes no sense
inline constexpr DWORD ERROR_BROKEN_PIPE = 109;             // the other end has gone
inline constexpr DWORD ERROR_DISK_FULL = 112;               // no room left on the volume
inline constexpr DWORD ERROR_CALL_NOT_IMPLEMENTED = 120;    // this form of the call is not offered
inline constexpr DWORD ERROR_INSUFFICIENT_BUFFER = 122;     // the result needs more room
inline constexpr DWORD ERROR_INVALID_NAME = 123;            // cannot be a name
inline constexpr DWORD ERROR_NEGATIVE_SEEK = 131;           // before the start of the file
inline constexpr DWORD ERROR_SEEK_ON_DEVICE = 132;          // a pipe or device has no places
inline constexpr DWORD ERROR_DIR_NOT_EMPTY = 145;           // folder to be removed
inline constexpr DWORD ERROR_NOT_LOCKED = 158;              // unlocked once too often
inline constexpr DWORD ERROR_BUSY = 170;                    // in use by another
inline constexpr DWORD ERROR_ALREADY_EXISTS = 183;          // also after success, where it was there before
inline constexpr DWORD ERROR_FILENAME_EXCED_RANGE = 206;    // name too long
inline constexpr DWORD ERROR_FILE_TOO_LARGE = 223;          // beyond what volume or user may have
inline constexpr DWORD WAIT_TIMEOUT = 258;                  // also a wait's result
inline constexpr DWORD ERROR_NO_MORE_ITEMS = 259;           // the end of an enumeration
inline constexpr DWORD ERROR_NOT_OWNER = 288;               // mutex of another thread
inline constexpr DWORD ERROR_INVALID_ADDRESS = 487;         // not that of a mapped view
inline constexpr DWORD ERROR_OPERATION_ABORTED = 995;       // cancelled, or its handle was closed
inline constexpr DWORD ERROR_IO_PENDING = 997;              // under way in the background; no failure
inline constexpr DWORD ERROR_NOACCESS = 998;                // memory that cannot be used
inline constexpr DWORD ERROR_INVALID_FLAGS = 1004;          // unknown bits
inline constexpr DWORD ERROR_FILE_INVALID = 1006;           // nothing in it to map
inline constexpr DWORD ERROR_SERVICE_DOES_NOT_EXIST = 1060; // none of that name
inline constexpr DWORD ERROR_SERVICE_EXISTS = 1073;         // one of that name
inline constexpr DWORD ERROR_NO_UNICODE_TRANSLATION = 1113; // stands for no character
inline constexpr DWORD ERROR_IO_DEVICE = 1117;              // the device or the way to it failed
inline constexpr DWORD ERROR_POSSIBLE_DEADLOCK = 1131;      // would wait for itself
inline constexpr DWORD ERROR_MAPPED_ALIGNMENT = 1132;       // offset of a view
inline constexpr DWORD ERROR_TOO_MANY_LINKS = 1142;         // to one file
inline constexpr DWORD ERROR_USER_MAPPED_FILE = 1224;       // a view shows what would be cut off
inline constexpr DWORD ERROR_TIMEOUT = 1460;                // the limit of time is over
inline constexpr DWORD ERROR_CANT_RESOLVE_FILENAME = 1921;  // links that lead in a circle

// Of the calling thread alone; 0 on a new thread.
COREKIT_API DWORD GetLastError();
COREKIT_API void SetLastError(DWORD code);

inline constexpr DWORD FORMAT_MESSAGE_IGNORE_INSERTS = 0x200;
inline constexpr DWORD FORMAT_MESSAGE_FROM_SYSTEM = 0x1000;

// The system's text for an error number, ending with "\r\n", zero-terminated, in English whatever language
// is asked for. Every number has some text. Flags must hold FORMAT_MESSAGE_FROM_SYSTEM and at most
// FORMAT_MESSAGE_IGNORE_INSERTS beside it; source and args are not used.
// Returns the length without the terminator; 0 with error 122 when size bytes are too few, with 87 for
// other flags or a null buffer.
COREKIT_API DWORD FormatMessageA(DWORD flags, const void* source, DWORD messageId, DWORD languageId,
                                 char* buffer, DWORD size, std::va_list* args);
