#include "corekit/foundation/SystemInfo.h"

#include "corekit/platform/SystemNames.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {
constexpr int noVersion = 1000; // the exit code of a process whose system has none
constexpr DWORD plainSize = 148;
} // namespace

CSystemInfo::CSystemInfo()
{
    GetSystemInfo(&m_info);
    ReadVersion();
    ReadNames();
}

void CSystemInfo::ReadVersion()
{
    m_version.dwOSVersionInfoSize = sizeof m_version;
    if (GetVersionExA(&m_version)) return;
    m_version = {};
    m_version.dwOSVersionInfoSize = plainSize;
    if (!GetVersionExA(&m_version)) std::_Exit(noVersion);
}

void CSystemInfo::ReadNames()
{
    ::GetWindowsDirectoryA(m_windows, sizeof m_windows);
    ::GetSystemDirectoryA(m_system, sizeof m_system);
    std::snprintf(m_system16, sizeof m_system16, "%.250s%s", IsPlatformWindowsNT() ? m_windows : m_system,
                  IsPlatformWindowsNT() ? "\\System" : "");
    if (GetTempPathA(sizeof m_temp, m_temp) >= sizeof m_temp) std::strcpy(m_temp, "/tmp");
    const std::size_t length = std::strlen(m_temp);
    if (length > 1 && (m_temp[length - 1] == '\\' || m_temp[length - 1] == '/')) m_temp[length - 1] = 0;
    DWORD size = sizeof m_user;
    if (!::GetUserNameA(m_user, &size)) m_user[0] = 0;
    char computer[MAX_PATH] = "";
    size = sizeof computer;
    if (::GetComputerNameA(computer, &size)) std::snprintf(m_computer, sizeof m_computer, "%.15s", computer);
}

WORD CSystemInfo::GetOSVersion() const
{
    return static_cast<WORD>(m_version.dwMajorVersion * 256 + m_version.dwMinorVersion);
}

// 0 where there is none.
DWORD CSystemInfo::TerminalSession() const
{
    DWORD session = 0;
    const bool isServer = (m_version.wSuiteMask & VER_SUITE_TERMINAL) != 0;
    return isServer && ProcessIdToSessionId(GetCurrentProcessId(), &session) ? session : 0;
}

CString CSystemInfo::GetComputerNameA() const
{
    CString name = m_computer;
    if (const DWORD session = TerminalSession()) name.Format("%s_%d", m_computer, static_cast<int>(session));
    return name;
}

int CSystemInfo::HaveLocalAdminAccess() const { return !IsPlatformWindowsNT() || IsUserAnAdmin(); }

int CSystemInfo::GetNTServicePackLevel() const
{
    return IsPlatformWindowsNT() ? ServicePackLevelOf(m_version.szCSDVersion) : 0;
}

int CSystemInfo::GetNTServicePackLevelWithData(CString& text) const
{
    text = m_version.szCSDVersion;
    return GetNTServicePackLevel();
}

int CSystemInfo::ServicePackLevelOf(const char* text)
{
    static constexpr char mark[] = "Service Pack ";
    if (!*text) return 0;
    const char* found = std::strstr(text, mark);
    if (!found) return -1;
    const char digit = found[sizeof mark - 1];
    return digit >= '0' && digit <= '9' ? digit - '0' : 0;
}

CSize CSystemInfo::GetWorkAreaSize() const
{
    RECT area;
    if (!SystemParametersInfoA(SPI_GETWORKAREA, 0, &area, 0)) return CSize(640, 480);
    return CSize(area.right - area.left, area.bottom - area.top);
}

bool CSystemInfo::IsPNPSupported() const
{
    return GetOSVersion() >= (IsPlatformWindowsNT() ? 0x0500 : 0x040A);
}

CSystemInfo& SysInfo()
{
    static CSystemInfo info;
    return info;
}
