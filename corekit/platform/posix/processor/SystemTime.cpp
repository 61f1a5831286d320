#include "corekit/platform/SystemTime.h"

#include <ctime>
#include <optional>
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

namespace {

// Minutes to add to local time.
struct Biases {
    std::optional<LONG> standard, summer;
};

// Those in force first from now on; in a year, each comes round that there is.
Biases biasesFrom(std::time_t now)
{
    constexpr std::time_t week = 7 * 86400;
    Biases found;
    for (std::time_t at = now; at < now + 53 * week; at += week) {
        std::tm local{};
        if (!localtime_r(&at, &local)) break;
        std::optional<LONG>& bias = local.tm_isdst > 0 ? found.summer : found.standard;
        if (!bias) bias = static_cast<LONG>(-local.tm_gmtoff / 60);
    }
    return found;
}

} // namespace

DWORD GetTimeZoneInformation(TIME_ZONE_INFORMATION* zone)
{
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    tzset();
    if (!localtime_r(&now, &local)) return TIME_ZONE_ID_INVALID;
    const Biases biases = biasesFrom(now);
    const LONG standard = biases.standard.value_or(static_cast<LONG>(timezone / 60));
    *zone = {standard, 0, biases.summer.value_or(standard) - standard};
    if (!biases.summer) return TIME_ZONE_ID_UNKNOWN;
    return local.tm_isdst > 0 ? TIME_ZONE_ID_DAYLIGHT : TIME_ZONE_ID_STANDARD;
}
