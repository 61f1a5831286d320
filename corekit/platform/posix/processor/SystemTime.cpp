#include "corekit/platform/SystemTime.h"

#include <ctime>
#include <time.h>

void GetSystemTime(SYSTEMTIME* time)
{
    timespec now{};
    std::tm parts{};
    clock_gettime(CLOCK_REALTIME, &now);
    gmtime_r(&now.tv_sec, &parts);
    *time = {static_cast<WORD>(parts.tm_year + 1900), static_cast<WORD>(parts.tm_mon + 1),
             static_cast<WORD>(parts.tm_wday),        static_cast<WORD>(parts.tm_mday),
             static_cast<WORD>(parts.tm_hour),        static_cast<WORD>(parts.tm_min),
             static_cast<WORD>(parts.tm_sec),         static_cast<WORD>(now.tv_nsec / 1000000)};
}

DWORD timeGetTime()
{
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return static_cast<DWORD>(static_cast<std::uint64_t>(now.tv_sec) * 1000 +
                              static_cast<std::uint64_t>(now.tv_nsec) / 1000000);
}

DWORD GetTimeZoneInformation(TIME_ZONE_INFORMATION* zone)
{
    constexpr LONG summer = -60;
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    tzset();
    if (!localtime_r(&now, &local)) return TIME_ZONE_ID_INVALID;
    const LONG total = static_cast<LONG>(-local.tm_gmtoff / 60);
    *zone = {local.tm_isdst > 0 ? total - summer : total, 0, daylight ? summer : 0};
    if (!daylight) return TIME_ZONE_ID_UNKNOWN;
    return local.tm_isdst > 0 ? TIME_ZONE_ID_DAYLIGHT : TIME_ZONE_ID_STANDARD;
}
