// Files.
//
// Names are bytes; `\` and `/` both separate. A handle keeps a position of its own and may be used by several
// threads, one operation at a time. Positions are 64 bits wide, split in two halves. Failures
// leave the platform's number as last error: 2 no such file, 3 no such folder, 5 no access or a folder,
// 32 not shared, 80 exists.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Handles.h"
#include "corekit/platform/Types.h"

inline constexpr DWORD GENERIC_READ = 0x80000000;
inline constexpr DWORD GENERIC_WRITE = 0x40000000;

inline constexpr DWORD FILE_SHARE_READ = 1;
inline constexpr DWORD FILE_SHARE_WRITE = 2;
inline constexpr DWORD FILE_SHARE_DELETE = 4;

inline constexpr DWORD CREATE_NEW = 1;        // fails with 80 when the file exists
inline constexpr DWORD CREATE_ALWAYS = 2;     // empties one that exists, last error is then 183
inline constexpr DWORD OPEN_EXISTING = 3;     // fails with 2 when it does not exist
inline constexpr DWORD OPEN_ALWAYS = 4;       // makes what is missing; last error is 183 if nothing was
inline constexpr DWORD TRUNCATE_EXISTING = 5; // empties; needs GENERIC_WRITE

inline constexpr DWORD FILE_ATTRIBUTE_READONLY =
    0x00000001; // for a file that is made: no one may write it later
inline constexpr DWORD FILE_ATTRIBUTE_NORMAL = 0x00000080;
inline constexpr DWORD FILE_FLAG_DELETE_ON_CLOSE = 0x04000000;
inline constexpr DWORD FILE_FLAG_SEQUENTIAL_SCAN = 0x08000000; // the next two: hints for reading ahead
inline constexpr DWORD FILE_FLAG_RANDOM_ACCESS = 0x10000000;
inline constexpr DWORD FILE_FLAG_OVERLAPPED = 0x40000000;
inline constexpr DWORD FILE_FLAG_WRITE_THROUGH = 0x80000000;

inline constexpr DWORD FILE_BEGIN = 0;
inline constexpr DWORD FILE_CURRENT = 1;
inline constexpr DWORD FILE_END = 2;
inline constexpr DWORD INVALID_SET_FILE_POINTER = 0xFFFFFFFF;
inline constexpr DWORD INVALID_FILE_SIZE = 0xFFFFFFFF;

inline constexpr DWORD FILE_TYPE_UNKNOWN = 0;
inline constexpr DWORD FILE_TYPE_DISK = 1;
inline constexpr DWORD FILE_TYPE_CHAR = 2;
inline constexpr DWORD FILE_TYPE_PIPE = 3;

struct _SECURITY_ATTRIBUTES;

// A transfer at a place of its own instead of the handle's position.
struct _OVERLAPPED {
    UINT_PTR Internal = 0;     // set: the error number, 0 for none
    UINT_PTR InternalHigh = 0; // set: the bytes moved
    DWORD Offset = 0;
    DWORD OffsetHigh = 0;
    HANDLE hEvent = nullptr; // signalled when the transfer is done, if not null
};
using OVERLAPPED = _OVERLAPPED;

// Opens or makes a file. access is 0 (existence and size only) or GENERIC_READ and GENERIC_WRITE; share tells
// what others may do meanwhile and must also allow what they already do. Within the process this holds to the
// bit; towards other programs that use this library, a file opened without any sharing keeps all of them out.
// Security and template are not used. Returns INVALID_HANDLE_VALUE on failure, and then changed nothing.
COREKIT_API HANDLE CreateFileA(const char* name, DWORD access, DWORD share, _SECURITY_ATTRIBUTES* security,
                               DWORD disposition, DWORD flags, HANDLE templateFile);
// Removes a file, or a link as such. Fails with 5 for a folder and for a file that nobody may write, with 32
// while a handle of this process is open that does not share deletion.
COREKIT_API BOOL DeleteFileA(const char* name);

// Moves count bytes between buffer and file at the position and advances it. *moved (may be null when
// overlapped is not) gets the bytes moved; reading past the end is no failure and moves fewer or none. With
// overlapped the place is the one given there, and a read at or behind the end fails with 38.
COREKIT_API BOOL ReadFile(HANDLE file, void* buffer, DWORD count, DWORD* moved, OVERLAPPED* overlapped);
COREKIT_API BOOL WriteFile(HANDLE file, const void* buffer, DWORD count, DWORD* moved,
                           OVERLAPPED* overlapped);

// Sets the position relative to FILE_BEGIN, FILE_CURRENT or FILE_END. With high, distance and *high together
// are a signed 64-bit distance and *high gets the upper half of the new position. Without, distance is
// signed, but counts as unsigned from FILE_BEGIN, and a result beyond 32 bits is refused with 87. A result
// below 0 is refused with 131. Returns the lower half; when that is 0xFFFFFFFF, the last error tells: 0 is
// success.
COREKIT_API DWORD SetFilePointer(HANDLE file, LONG distance, LONG* high, DWORD method);
// Cuts or extends the file to the position. What is new reads as zeros.
COREKIT_API BOOL SetEndOfFile(HANDLE file);
// Returns the lower half of the size and stores the upper one if asked; failures as for SetFilePointer.
COREKIT_API DWORD GetFileSize(HANDLE file, DWORD* high);
// Returns when all that was written is on the device.
COREKIT_API BOOL FlushFileBuffers(HANDLE file);
COREKIT_API DWORD GetFileType(HANDLE file);
