#include "corekit/platform/SystemTime.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <string>

TEST(SystemTime, TheZoneHasItsSeasonAndBothBiases)
{
    const char* before = std::getenv("TZ");
    const std::string old = before ? before : "";
    struct {
        const char* zone;
        DWORD season;
        LONG bias, daylightBias;
    } const cases[] = {
        {"UTC0", TIME_ZONE_ID_UNKNOWN, 0, 0},
        {"AAA-5:30", TIME_ZONE_ID_UNKNOWN, -330, 0},
        {"AAA-2BBB,0/0,J365/25", TIME_ZONE_ID_DAYLIGHT, -120, -60}, // summer all year
        {"AAA-10:30BBB-11,0/0,J365/25", TIME_ZONE_ID_DAYLIGHT, -630, -30},
        {"Asia/Tokyo", TIME_ZONE_ID_UNKNOWN, -540, 0}, // summers long ago
    };
    for (const auto& c : cases) {
        const std::string zones = "/usr/share/zoneinfo/", name = c.zone;
        if (name.find('/') == 4 && !std::filesystem::exists(zones + name)) continue;
        setenv("TZ", c.zone, 1);
        TIME_ZONE_INFORMATION zone{};
        EXPECT_EQ(GetTimeZoneInformation(&zone), c.season) << c.zone;
        EXPECT_EQ(zone.Bias, c.bias);
        EXPECT_EQ(zone.DaylightBias, c.daylightBias);
    }
    if (before)
        setenv("TZ", old.c_str(), 1);
    else
        unsetenv("TZ");
}

TEST(SystemTime, IsTheClockInUtc)
{
    SYSTEMTIME time;
    const std::time_t before = std::time(nullptr);
    GetSystemTime(&time);
    std::tm parts{};
    parts.tm_year = time.wYear - 1900;
    parts.tm_mon = time.wMonth - 1;
    parts.tm_mday = time.wDay;
    parts.tm_hour = time.wHour;
    parts.tm_min = time.wMinute;
    parts.tm_sec = time.wSecond;
    const std::time_t now = timegm(&parts);
    EXPECT_GE(now, before);
    EXPECT_LE(now, std::time(nullptr));
    EXPECT_EQ(parts.tm_wday, time.wDayOfWeek);
}
