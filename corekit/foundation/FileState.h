// What the system knows of a file. Nothing here throws. Links are told as themselves but for their size.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/FileAttributes.h"

// The facts of the first file that the path, or pattern, names. Always 1: of a file that is missing, the data
// are zeros.
COREKIT_API int GetFileInformation(const char* path, _WIN32_FILE_ATTRIBUTE_DATA& data);
// Always 1, as above.
COREKIT_API int File_GetLastModifyTime(const char* path, _FILETIME& time);
// The low 32 bits of the size in bytes, 0 for what is no plain file; behind a link that of its target.
// 0xFFFFFFFF on failure.
COREKIT_API DWORD File_GetSize(const char* path);
// Bytes that the user may still fill on the volume of the path; with a drive "X:\" in front, of that drive
// alone. At most 4,294,967,295 clusters are counted. 0 on failure.
COREKIT_API DWORDLONG GetFreeBytesOnDisk(const char* path);
