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
    // Asks the system for all of it. A process whose system has no version ends here with exit code 1000.
    CSystemInfo();

    // By the platform's number: 1, 2, 2 again and 0. This system answers 2.
    bool IsPlatformWindows95() const { return m_version.dwPlatformId == VER_PLATFORM_WIN32_WINDOWS; }
    bool IsPlatformWindowsNT() const { return m_version.dwPlatformId == VER_PLATFORM_WIN32_NT; }
    bool IsPlatformUnicode() const { return IsPlatformWindowsNT(); }
    bool IsPlatformWin32s() const { return m_version.dwPlatformId == VER_PLATFORM_WIN32s; }
    // By the major version, 4 and above being new.
    bool IsNewWindowsUI() const { return m_version.dwMajorVersion >= 4; }
    bool IsOldWindowsUI() const { return m_version.dwMajorVersion < 4; }

    WORD GetOSVersion() const; // major * 256 + minor

    // Paths in the system's own form, below 260 characters; a longer temporary directory counts as "/tmp".
    // The pointers live as long as the object.
    const char* GetWindowsDirectoryA() const { return m_windows; }
    const char* GetSystemDirectoryA() const { return m_system; }
    const char* GetSystem16BitDirectory() const { return m_system16; } // the first with "\System" behind it

    const char* GetTempDirectory() const { return m_temp; } // without a separator at the end
    const char* GetUserNameA() const { return m_user; }     // who runs the process; empty if nobody can tell
    // At most 15 characters, with "_" and the number of the session behind them where IsTerminalServer.
    CString GetComputerNameA() const;

    int GetProcessorCount() const { return static_cast<int>(m_info.dwNumberOfProcessors); } // logical ones

    // Not 0 if the user may administer the machine. Asked anew at each call.
    int HaveLocalAdminAccess() const;
    // The one digit behind "Service Pack " in the system's text: 0 without a text or a digit, -1 for
    // another text.
    int GetNTServicePackLevel() const;
    int GetNTServicePackLevelWithData(CString& text) const; // delivers that text as well
    static int ServicePackLevelOf(const char* text);        // the same for any text, not null

    // The free part of the main screen in pixels, as it is at the moment; 640 by 480 while no window
    // library can tell.
    CSize GetWorkAreaSize() const;
    // Whether this process runs in a session of a remote desktop server.
    bool IsTerminalServer() const { return TerminalSession() != 0; }
    bool IsPNPSupported() const;                  // by the version: 5.0 and above here
    bool IsHIDSupported() const { return false; } // there is no access to such devices

private:
    void ReadVersion();
    void ReadNames();
    DWORD TerminalSession() const;

    SYSTEM_INFO m_info{};        // of the processor
    OSVERSIONINFOEX m_version{}; // of the kernel
    char m_windows[MAX_PATH] = "";
    char m_system[MAX_PATH] = "";
    char m_system16[MAX_PATH] = "";
    char m_temp[MAX_PATH] = "";
    char m_user[MAX_PATH] = "";
    char m_computer[16] = ""; // without the session
};

// The one instance, which lives until the process ends. The first call may take a moment, later ones cost
// nothing.
COREKIT_API CSystemInfo& SysInfo();
