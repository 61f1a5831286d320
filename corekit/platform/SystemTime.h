// The clock and the time zone.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

// A date of the Gregorian calendar with a time of day.
struct SYSTEMTIME {
    WORD wYear, wMonth, wDayOfWeek, wDay; // month and day from 1, Sunday is 0
    WORD wHour, wMinute, wSecond, wMilliseconds;
};
static_assert(sizeof(SYSTEMTIME) == 16);

// In UTC. Of the machine's clock, which may be set meanwhile.
COREKIT_API void GetSystemTime(SYSTEMTIME* time);

// Milliseconds of a clock that only goes on, modulo 2^32: good for differences.
COREKIT_API DWORD timeGetTime();

// UTC is local time plus Bias plus the bias of the season, in minutes.
struct TIME_ZONE_INFORMATION {
    LONG Bias;
    LONG StandardBias;
    LONG DaylightBias;
};
// A zone without seasons; winter; summer; a failure, which leaves the record as it is.
inline constexpr DWORD TIME_ZONE_ID_UNKNOWN = 0, TIME_ZONE_ID_STANDARD = 1, TIME_ZONE_ID_DAYLIGHT = 2,
                       TIME_ZONE_ID_INVALID = 0xFFFFFFFF;

// The zone of the process (TZ) at this moment; says which season is in force. StandardBias is 0;
// DaylightBias is -60 for every zone that has ever had summer time, else 0.
COREKIT_API DWORD GetTimeZoneInformation(TIME_ZONE_INFORMATION* zone);
