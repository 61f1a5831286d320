#include "corekit/platform/SystemInfo.h"

#include "corekit/platform/posix/Errno.h"
#include "corekit/platform/posix/files/FileViews.h"
#include "corekit/platform/posix/processor/DesktopSource.h"
#include "corekit/platform/posix/services/Administrators.h"

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <sched.h>
#include <string>
#include <sys/utsname.h>
#include <unistd.h>

namespace {
using namespace corekit::detail;

constinit std::atomic<const corekit::DesktopSource*> desktop = nullptr;
constinit std::atomic<int> dragsFullWindows = -1; // not set

DWORD processorsOfProcess()
{
    cpu_set_t set;
    if (::sched_getaffinity(0, sizeof set, &set) == 0) return static_cast<DWORD>(CPU_COUNT(&set));
    const long online = ::sysconf(_SC_NPROCESSORS_ONLN);
    return online > 0 ? static_cast<DWORD>(online) : 1;
}

constexpr WORD architecture()
{
#if defined(__x86_64__)
    return PROCESSOR_ARCHITECTURE_AMD64;
#elif defined(__aarch64__)
    return PROCESSOR_ARCHITECTURE_ARM64;
#elif defined(__i386__)
    return PROCESSOR_ARCHITECTURE_INTEL;
#else
    return PROCESSOR_ARCHITECTURE_UNKNOWN;
#endif
}

UINT copy(const char* text, char* buffer, UINT size)
{
    const std::size_t length = std::strlen(text);
    if (!buffer || length >= size) return static_cast<UINT>(length + 1);
    std::memcpy(buffer, text, length + 1);
    return static_cast<UINT>(length);
}
} // namespace

void GetSystemInfo(SYSTEM_INFO* info)
{
    *info = {};
    info->wProcessorArchitecture = architecture();
    info->dwPageSize = static_cast<DWORD>(::sysconf(_SC_PAGESIZE));
    info->dwAllocationGranularity = corekit::detail::allocationGranularity;
    info->dwNumberOfProcessors = processorsOfProcess();
    info->dwActiveProcessorMask =
        info->dwNumberOfProcessors >= 64 ? ~DWORD_PTR{0} : (DWORD_PTR{1} << info->dwNumberOfProcessors) - 1;
}

BOOL GetVersionExA(OSVERSIONINFOEX* info)
{
    constexpr DWORD plain = 148;
    const DWORD size = info ? info->dwOSVersionInfoSize : 0;
    if (size != plain && size != sizeof *info) return fail(ERROR_INSUFFICIENT_BUFFER, FALSE);
    utsname system;
    if (::uname(&system) != 0) return setLastErrorFromErrno(), FALSE;
    OSVERSIONINFOEX result{};
    result.dwOSVersionInfoSize = size;
    result.dwPlatformId = VER_PLATFORM_WIN32_NT;
    if (std::getenv("XRDP_SESSION") || std::getenv("X2GO_SESSION")) result.wSuiteMask = VER_SUITE_TERMINAL;
    static_cast<void>(std::sscanf(system.release, "%9u.%9u.%9u", &result.dwMajorVersion,
                                  &result.dwMinorVersion, &result.dwBuildNumber));
    std::memcpy(info, &result, size);
    return TRUE;
}

UINT GetWindowsDirectoryA(char* buffer, UINT size) { return copy("/etc", buffer, size); }
UINT GetSystemDirectoryA(char* buffer, UINT size) { return copy("/usr/lib", buffer, size); }

DWORD GetTempPathA(DWORD size, char* buffer)
{
    const char* set = std::getenv("TMPDIR");
    std::string path = set && *set == '/' ? set : "/tmp";
    if (path.back() != '/') path += '/';
    return copy(path.c_str(), buffer, size);
}

DWORD GetCurrentProcessId() { return static_cast<DWORD>(::getpid()); }

BOOL ProcessIdToSessionId(DWORD processId, DWORD* sessionId)
{
    constexpr DWORD none = 0xFFFFFFFF; // as the kernel writes it
    const std::string folder = "/proc/" + std::to_string(processId);
    if (!sessionId || ::access(folder.c_str(), F_OK) != 0) return fail(ERROR_INVALID_PARAMETER, FALSE);
    DWORD number = none; // a kernel without audit has no such file
    std::ifstream(folder + "/sessionid") >> number;
    *sessionId = number == none ? 0 : number;
    return TRUE;
}

BOOL IsUserAnAdmin()
{
    using namespace corekit::detail;
    return administratorState() == Administrator::effective;
}

BOOL SystemParametersInfoA(UINT action, UINT parameter, void* data, UINT)
{
    const auto* const source = desktop.load();
    if (action == SPI_SETDRAGFULLWINDOWS) {
        dragsFullWindows = parameter != 0;
        return TRUE;
    }
    if (!data || (action != SPI_GETWORKAREA && action != SPI_GETDRAGFULLWINDOWS))
        return fail(ERROR_INVALID_PARAMETER, FALSE);
    if (action == SPI_GETWORKAREA)
        return source && source->workArea(*static_cast<RECT*>(data)) ? TRUE
                                                                     : fail(ERROR_NOT_SUPPORTED, FALSE);
    const int isSet = dragsFullWindows.load();
    *static_cast<BOOL*>(data) = isSet >= 0 ? isSet : !source || source->animates();
    return TRUE;
}

void corekit::setDesktopSource(const DesktopSource* source) { desktop = source; }
