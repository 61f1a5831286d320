// What the system knows about a name: attributes, folders, free space.
//
// Names are bytes; `\` and `/` both separate. A link is described as itself and never followed: it carries
// FILE_ATTRIBUTE_REPARSE_POINT and nothing of what it points to. A file that nobody may write is read-only.
// Failures leave the last error: 2 no such name, 3 no such folder, 5 no access, 183 exists.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Files.h"
#include "corekit/platform/Types.h"

inline constexpr DWORD INVALID_FILE_ATTRIBUTES = 0xFFFFFFFF; // a failure
inline constexpr DWORD FILE_ATTRIBUTE_HIDDEN = 0x00000002;   // the name begins with a dot
inline constexpr DWORD FILE_ATTRIBUTE_DIRECTORY = 0x00000010;
inline constexpr DWORD FILE_ATTRIBUTE_DEVICE = 0x00000040;        // no plain file: a pipe, a socket, a device
inline constexpr DWORD FILE_ATTRIBUTE_REPARSE_POINT = 0x00000400; // a link

// The creation time is that of the volume, or the last change where the volume keeps none. Times are in UTC;
// the size is 0 of anything but a plain file.
struct _WIN32_FILE_ATTRIBUTE_DATA {
    DWORD dwFileAttributes;
    FILETIME ftCreationTime;
    FILETIME ftLastAccessTime;
    FILETIME ftLastWriteTime;
    DWORD nFileSizeHigh;
    DWORD nFileSizeLow;
};
using WIN32_FILE_ATTRIBUTE_DATA = _WIN32_FILE_ATTRIBUTE_DATA;
static_assert(sizeof(WIN32_FILE_ATTRIBUTE_DATA) == 36);

// FILE_ATTRIBUTE_ values or-ed, FILE_ATTRIBUTE_NORMAL if there is nothing to say. INVALID_FILE_ATTRIBUTES on
// failure.
COREKIT_API DWORD GetFileAttributesA(const char* name);

inline constexpr int _S_IREAD = 0x100; // for _chmod: may be read
inline constexpr int _S_IWRITE = 0x80; // and written
// Lets the owner read and write, or read alone; 0 on success, else -1 with the last error. A link is refused.
COREKIT_API int _chmod(const char* name, int mode);

// One folder whose parent exists. Security is not used. Everybody may use it as far as the process's mask
// allows.
COREKIT_API BOOL CreateDirectoryA(const char* name, _SECURITY_ATTRIBUTES* security);
// An empty folder, or a link to a folder; fails with 145 when it is not empty.
COREKIT_API BOOL RemoveDirectoryA(const char* name);

// The volume that holds the name. Clusters above 32 bits are given as 0xFFFFFFFF. Results may be null. Null
// for `root` is the current folder. Free clusters are those that this user may still take.
COREKIT_API BOOL GetDiskFreeSpaceA(const char* root, DWORD* sectorsPerCluster, DWORD* bytesPerSector,
                                   DWORD* freeClusters, DWORD* clusters);
