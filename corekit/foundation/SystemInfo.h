// CSystemInfo: what a program asks about the system it runs on, gathered once.
//
// SysInfo() is the one instance, made at its first use and not changed after. Any thread. Versions are those
// of the kernel; the system answers as one of platform 2.
#pragma once

#include "corekit/framework/Geometry.h"
#include "corekit/framework/String.h"
#include "corekit/platform/SystemInfo.h"

class COREKIT_API CSystemInfo {
public:
    CSystemInfo();

    bool IsPlatformWindows95() const { return m_version.dwPlatformId == VER_PLATFORM_WIN32_WINDOWS; }
    bool IsPlatformWindowsNT() const { return m_version.dwPlatformId == VER_PLATFORM_WIN32_NT; }
    bool IsPlatformUnicode() const { return IsPlatformWindowsNT(); }
    bool IsPlatformWin32s() const { return m_version.dwPlatformId == VER_PLATFORM_WIN32s; }
    bool IsNewWindowsUI() const { return m_version.dwMajorVersion >= 4; }
    bool IsOldWindowsUI() const { return m_version.dwMajorVersion < 4; }
    WORD GetOSVersion() const; // major * 256 + minor

    const char* GetWindowsDirectoryA() const { return m_windows; }
    const char* GetSystemDirectoryA() const { return m_system; }
    const char* GetSystem16BitDirectory() const { return m_system16; }
    const char* GetTempDirectory() const { return m_temp; } // without a separator at the end
    const char* GetUserNameA() const { return m_user; }
    // With "_" and the number of the session behind it, where IsTerminalServer.
    CString GetComputerNameA() const;
    int GetProcessorCount() const { return static_cast<int>(m_info.dwNumberOfProcessors); }

    int HaveLocalAdminAccess() const;
    // The figure behind "Service Pack " in the system's text: 0 without a text, -1 for another text.
    int GetNTServicePackLevel() const;
    int GetNTServicePackLevelWithData(CString& text) const; // delivers that text as well
    static int ServicePackLevelOf(const char* text);

    // The free part of the main screen; 640 by 480 while no window library can tell.
    CSize GetWorkAreaSize() const;
    // Whether this process runs in a session of a remote desktop server.
    bool IsTerminalServer() const { return TerminalSession() != 0; }
    bool IsPNPSupported() const;
    bool IsHIDSupported() const { return false; }

private:
    void ReadVersion();
    void ReadNames();
    DWORD TerminalSession() const;

    SYSTEM_INFO m_info{};
    OSVERSIONINFOEX m_version{};
    char m_windows[MAX_PATH] = "";
    char m_system[MAX_PATH] = "";
    char m_system16[MAX_PATH] = "";
    char m_temp[MAX_PATH] = "";
    char m_user[MAX_PATH] = "";
    char m_computer[16] = "";
};

COREKIT_API CSystemInfo& SysInfo();
