// A thin layer over the runtime's time functions, with one time zone offset for the life of the process.
//
// Times are seconds since 1970 in UTC, or the same shifted to local time. The offset is asked for at the
// first use and kept, so a change to or from daylight saving is not seen until the next start. If the system
// cannot tell it, message::noTimeZone is shown and the process ends. Any thread.
#pragma once

#include "corekit/foundation/StringA.h"
#include "corekit/foundation/StringW.h"
#include "corekit/foundation/Timecode.h"

#include <ctime>

// The time now in whole seconds, local if `bLocal` is not 0. A CTestClock, where there is one, is asked
// instead.
COREKIT_API long time_GetCurrentTime(int bLocal);

// Shift by the process's offset. A result below zero is moved a day up. The timecode forms stay within the
// day and keep the frames.
COREKIT_API long time_LocalToUTC(long t);
COREKIT_API long time_UTCToLocal(long t);
COREKIT_API CTimecode time_LocalToUTC(const CTimecode& t);
COREKIT_API CTimecode time_UTCToLocal(const CTimecode& t);

// Breaks a time down as it stands, after moving it to local time if asked. 0, with `out` untouched, for a
// time before 1970.
COREKIT_API int time_GetTimeStructure(std::tm& out, long t, int bToLocal);
// The inverse. Years 1969 to 2039; fields out of range are carried and come back normalised. -1 for what lies
// outside or passes 32 bits.
COREKIT_API long time_GetTimeValue(std::tm& t, int bFromLocal);

// strftime, or wcsftime, in the current locale, cut off at 4095 characters: a longer result is empty, and so
// is that of a null format. Narrow names of months and days are in the active code page.
COREKIT_API void time_FormatString(CString& out, const char* format, const std::tm& t);
COREKIT_API void time_FormatString(StringA& out, const char* format, const std::tm& t);
COREKIT_API void time_FormatString(StringW& out, const WCHAR* format, const std::tm& t);
// The same for a time in seconds, moved to local time if asked. A time before 1970 formats as a structure of
// zeros, 00/01/1900.
COREKIT_API void time_FormatString(CString& out, const char* format, long t, int bToLocal);
COREKIT_API void time_FormatString(StringA& out, const char* format, long t, int bToLocal);
COREKIT_API void time_FormatString(StringW& out, const WCHAR* format, long t, int bToLocal);
// The same for the time now, of which `bToLocal` makes the local one.
COREKIT_API void time_FormatCurrentTime(CString& out, const char* format, int bToLocal);
COREKIT_API void time_FormatCurrentTime(StringA& out, const char* format, int bToLocal);
COREKIT_API void time_FormatCurrentTime(StringW& out, const WCHAR* format, int bToLocal);

// File times count 100 nanoseconds since 1601 in UTC. Unix times are cut to whole seconds, towards 1970.
COREKIT_API _FILETIME FileTimeFromUnixTime(const long& t);
COREKIT_API long UnixTimeFromFileTime(const _FILETIME& t);
