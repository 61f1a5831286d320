#include "corekit/platform/FileTimes.h"

#include "corekit/platform/Files.h"
#include "corekit/platform/posix/Errno.h"
#include "corekit/platform/posix/files/File.h"
#include "corekit/platform/posix/files/FileTime.h"

#include <fcntl.h>
#include <sys/stat.h>

namespace {
using namespace corekit::detail;

bool exists(WORD date, WORD time)
{
    const int month = date >> 5 & 15, day = date & 31;
    if (month < 1 || month > 12 || day < 1) return false;
    const int year = 1980 + (date >> 9);
    const bool leap = year % 4 == 0 && year != 2100;
    const int longest = month == 2 ? 28 + leap : 30 + ((month + (month > 7)) & 1);
    return day <= longest && time >> 11 < 24 && (time >> 5 & 63) < 60 && (time & 31) < 30;
}
} // namespace

BOOL GetFileTime(HANDLE handle, FILETIME* creation, FILETIME* access, FILETIME* write)
{
    const HandleUser<File> file(handle);
    if (!file) return fail(ERROR_INVALID_HANDLE, FALSE);
    struct statx facts;
    if (::statx(file->descriptor(), "", AT_EMPTY_PATH, STATX_BASIC_STATS | STATX_BTIME, &facts) != 0)
        return setLastErrorFromErrno(), FALSE;
    const auto tell = [](FILETIME* to, const statx_timestamp& t) {
        if (to) *to = fileTimeOf(t.tv_sec, t.tv_nsec);
    };
    tell(creation, facts.stx_mask & STATX_BTIME ? facts.stx_btime : facts.stx_mtime);
    tell(access, facts.stx_atime);
    tell(write, facts.stx_mtime);
    return TRUE;
}

BOOL SetFileTime(HANDLE handle, const FILETIME*, const FILETIME* access, const FILETIME* write)
{
    const HandleUser<File> file(handle);
    if (!file) return fail(ERROR_INVALID_HANDLE, FALSE);
    if (!file->allows(GENERIC_WRITE)) return fail(ERROR_ACCESS_DENIED, FALSE);
    const timespec same{0, UTIME_OMIT};
    const timespec times[2] = {access ? timespecOf(*access) : same, write ? timespecOf(*write) : same};
    if (::futimens(file->descriptor(), times) != 0) return setLastErrorFromErrno(), FALSE;
    return TRUE;
}

BOOL DosDateTimeToFileTime(WORD date, WORD time, FILETIME* result)
{
    if (!result || !exists(date, time)) return fail(ERROR_INVALID_PARAMETER, FALSE);
    std::tm parts{};
    parts.tm_year = 80 + (date >> 9);
    parts.tm_mon = (date >> 5 & 15) - 1;
    parts.tm_mday = date & 31;
    parts.tm_hour = time >> 11;
    parts.tm_min = time >> 5 & 63;
    parts.tm_sec = (time & 31) * 2;
    *result = fileTimeOf(::timegm(&parts), 0);
    return TRUE;
}

BOOL LocalFileTimeToFileTime(const FILETIME* local, FILETIME* utc)
{
    if (!local || !utc) return fail(ERROR_INVALID_PARAMETER, FALSE);
    const timespec asUtc = timespecOf(*local);
    std::tm parts{};
    if (!::gmtime_r(&asUtc.tv_sec, &parts)) return fail(ERROR_INVALID_PARAMETER, FALSE);
    parts.tm_isdst = -1;
    *utc = fileTimeOf(std::mktime(&parts), asUtc.tv_nsec);
    return TRUE;
}

void GetSystemTimeAsFileTime(FILETIME* now)
{
    timespec time{};
    ::clock_gettime(CLOCK_REALTIME, &time);
    *now = fileTimeOf(time.tv_sec, time.tv_nsec);
}
