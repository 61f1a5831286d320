// Times of files, and the forms in which other systems write them.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

// Of an open file. Results may be null. A volume without creation times tells the last change instead.
COREKIT_API BOOL GetFileTime(HANDLE file, FILETIME* creation, FILETIME* access, FILETIME* write);
// Null leaves a time as it is. The machine does not let anyone set a creation time: that one is ignored.
COREKIT_API BOOL SetFileTime(HANDLE file, const FILETIME* creation, const FILETIME* access,
                             const FILETIME* write);

// The two words of a DOS date and time, local, in steps of two seconds. 0 with error 87 for a day or hour
// that does not exist.
COREKIT_API BOOL DosDateTimeToFileTime(WORD date, WORD time, FILETIME* result);
// From local time to UTC by the season in force at that time.
COREKIT_API BOOL LocalFileTimeToFileTime(const FILETIME* local, FILETIME* utc);
COREKIT_API void GetSystemTimeAsFileTime(FILETIME* now);
