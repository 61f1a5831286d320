#include "corekit/foundation/TimeFunctions.h"

#include "corekit/foundation/TestClock.h"
#include "corekit/framework/CodePageText.h"
#include "corekit/framework/MessageBox.h"
#include "corekit/platform/SystemTime.h"
#include "corekit/resources/Messages.h"

#include <algorithm>
#include <atomic>
#include <climits>
#include <cwchar>
#include <optional>
#include <string>
#include <string_view>

using namespace corekit::detail;

namespace {
constexpr long secondsPerDay = 86400;
constexpr LONGLONG fileTimeOfEpoch = 116444736000000000;
constexpr int room = 4096;

constexpr long noTestClock = -1;
constinit std::atomic<long> testTime = noTestClock;

long askBias()
{
    TIME_ZONE_INFORMATION zone{};
    switch (GetTimeZoneInformation(&zone)) {
    case TIME_ZONE_ID_UNKNOWN:
        return zone.Bias * 60L;
    case TIME_ZONE_ID_STANDARD:
        return (zone.Bias + zone.StandardBias) * 60L;
    case TIME_ZONE_ID_DAYLIGHT:
        return (zone.Bias + zone.DaylightBias) * 60L;
    default:
        AfxMessageBox(message::noTimeZone);
        AfxAbort();
    }
}

long biasNow()
{
    static const long bias = askBias();
    return bias;
}

long shifted(long t, long by)
{
    long result;
    if (__builtin_add_overflow(t, by, &result)) result = by < 0 ? LONG_MIN : LONG_MAX;
    return result < 0 ? result + secondsPerDay : result;
}

CTimecode shifted(const CTimecode& t, long by)
{
    long seconds = (t.GetHours() * 60L + t.GetMinutes()) * 60 + t.GetSeconds() + by;
    if (seconds < 0) seconds += secondsPerDay;
    return {static_cast<int>(seconds / 3600 % 24), static_cast<int>(seconds / 60 % 60),
            static_cast<int>(seconds % 60), t.GetFrames()};
}

bool breakDown(long t, std::tm& out) { return t >= 0 && gmtime_r(&t, &out) != nullptr; }

// Adds and multiplies as long as the values fit 32 bits.
std::optional<LONG> carry(std::optional<LONG> value, LONG factor, int more)
{
    LONG result;
    if (!value || __builtin_mul_overflow(*value, factor, &result) ||
        __builtin_add_overflow(result, more, &result))
        return std::nullopt;
    return result;
}

std::optional<LONG> secondsOf(const std::tm& t)
{
    static constexpr int daysBefore[12] = {-1, 30, 58, 89, 119, 150, 180, 211, 242, 272, 303, 333};
    const bool leapDay = t.tm_year % 4 == 0 && t.tm_mon > 1;
    const LONG days =
        t.tm_year * 365 + (t.tm_year - 1) / 4 - 25567 + daysBefore[t.tm_mon] + (leapDay ? 1 : 0);
    return carry(carry(carry(carry(days, 1, t.tm_mday), 24, t.tm_hour), 60, t.tm_min), 60, t.tm_sec);
}

bool yearFits(const std::tm& t) { return t.tm_year >= 69 && t.tm_year <= 139; }

// The runtime's wide characters have 32 bits.
std::u16string formatted(std::u16string_view format, const std::tm& t)
{
    wchar_t text[room];
    const std::wstring pattern(format.begin(), format.end());
    const std::size_t length = std::wcsftime(text, room, pattern.c_str(), &t);
    std::u16string units;
    for (const wchar_t c : std::wstring_view(text, length)) {
        if (c < 0x10000)
            units += static_cast<WCHAR>(c);
        else
            units += {static_cast<WCHAR>(0xD7C0 + (c >> 10)), static_cast<WCHAR>(0xDC00 | (c & 0x3FF))};
    }
    return units;
}

std::ptrdiff_t countBeyondAscii(std::string_view text)
{
    return std::ranges::count_if(text, [](char c) { return (c & 0x80) != 0; });
}

template <class Text>
void formatNarrow(Text& out, const char* format, const std::tm& t)
{
    const std::string pattern = format ? format : ""; // it may be out's own text
    char* buffer = out.GetBuffer(room);
    const std::size_t length = std::strftime(buffer, room, pattern.c_str(), &t);
    buffer[length] = 0;
    if (countBeyondAscii({buffer, length}) == countBeyondAscii(pattern)) return out.ReleaseBuffer(-1);
    // Names of the user's language, which are not in the active code page.
    const std::string names = narrowText(formatted(wideText(pattern), t));
    out = Text(names.data(), static_cast<int>(names.size()));
}

template <class Text, class Char>
void formatTime(Text& out, const Char* format, long t, int bToLocal)
{
    std::tm parts{};
    time_GetTimeStructure(parts, t, bToLocal);
    time_FormatString(out, format, parts);
}
} // namespace

long time_GetCurrentTime(int bLocal)
{
    const long test = testTime.load(std::memory_order_relaxed);
    const long now = test == noTestClock ? std::time(nullptr) : test;
    return bLocal ? time_UTCToLocal(now) : now;
}

long time_LocalToUTC(long t) { return shifted(t, biasNow()); }
long time_UTCToLocal(long t) { return shifted(t, -biasNow()); }
CTimecode time_LocalToUTC(const CTimecode& t) { return shifted(t, biasNow()); }
CTimecode time_UTCToLocal(const CTimecode& t) { return shifted(t, -biasNow()); }

int time_GetTimeStructure(std::tm& out, long t, int bToLocal)
{
    std::tm parts{};
    if (!breakDown(bToLocal ? time_UTCToLocal(t) : t, parts)) return 0;
    out = parts;
    return 1;
}

long time_GetTimeValue(std::tm& t, int bFromLocal)
{
    if (!yearFits(t)) return -1;
    if (t.tm_mon < 0 || t.tm_mon > 11) {
        t.tm_year += t.tm_mon / 12 - (t.tm_mon % 12 < 0 ? 1 : 0);
        t.tm_mon = (t.tm_mon % 12 + 12) % 12;
        if (!yearFits(t)) return -1;
    }
    const std::optional<LONG> seconds = secondsOf(t);
    if (!seconds || !breakDown(*seconds, t)) return -1;
    return bFromLocal ? time_LocalToUTC(*seconds) : *seconds;
}

void time_FormatString(CString& out, const char* format, const std::tm& t) { formatNarrow(out, format, t); }
void time_FormatString(StringA& out, const char* format, const std::tm& t) { formatNarrow(out, format, t); }
void time_FormatString(StringW& out, const WCHAR* format, const std::tm& t)
{
    const std::u16string text = formatted(format ? format : u"", t);
    out = StringW(text.data(), static_cast<int>(text.size()));
}

void time_FormatString(CString& out, const char* format, long t, int bToLocal)
{
    formatTime(out, format, t, bToLocal);
}
void time_FormatString(StringA& out, const char* format, long t, int bToLocal)
{
    formatTime(out, format, t, bToLocal);
}
void time_FormatString(StringW& out, const WCHAR* format, long t, int bToLocal)
{
    formatTime(out, format, t, bToLocal);
}

void time_FormatCurrentTime(CString& out, const char* format, int bToLocal)
{
    formatTime(out, format, time_GetCurrentTime(0), bToLocal);
}
void time_FormatCurrentTime(StringA& out, const char* format, int bToLocal)
{
    formatTime(out, format, time_GetCurrentTime(0), bToLocal);
}
void time_FormatCurrentTime(StringW& out, const WCHAR* format, int bToLocal)
{
    formatTime(out, format, time_GetCurrentTime(0), bToLocal);
}

CTestClock::CTestClock(int year, int month, int day, int hour, int minute, int second)
{
    std::tm parts{};
    parts.tm_year = year - 1900;
    parts.tm_mon = month - 1;
    parts.tm_mday = day;
    parts.tm_hour = hour;
    parts.tm_min = minute;
    parts.tm_sec = second;
    testTime = time_GetTimeValue(parts, 1);
}

CTestClock::~CTestClock() { testTime = noTestClock; }
void CTestClock::Advance(long seconds) { testTime += seconds; }

_FILETIME FileTimeFromUnixTime(const long& t)
{
    const DWORDLONG ticks = static_cast<DWORDLONG>(t) * 10000000 + fileTimeOfEpoch;
    return {static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)};
}

long UnixTimeFromFileTime(const _FILETIME& t)
{
    const DWORDLONG ticks = static_cast<DWORDLONG>(t.dwHighDateTime) << 32 | t.dwLowDateTime;
    return static_cast<long>(static_cast<LONGLONG>(ticks - fileTimeOfEpoch) / 10000000);
}

CTimecode CTimecode::LocalToUTC() const { return time_LocalToUTC(*this); }
CTimecode CTimecode::UTCToLocal() const { return time_UTCToLocal(*this); }
