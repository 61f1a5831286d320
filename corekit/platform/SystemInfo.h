// What machine and system this process runs on.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

inline constexpr WORD PROCESSOR_ARCHITECTURE_INTEL = 0, PROCESSOR_ARCHITECTURE_AMD64 = 9,
                      PROCESSOR_ARCHITECTURE_ARM64 = 12, PROCESSOR_ARCHITECTURE_UNKNOWN = 0xFFFF;

struct SYSTEM_INFO {
    WORD wProcessorArchitecture;
    WORD wReserved;
    DWORD dwPageSize;                  // bytes
    void* lpMinimumApplicationAddress; // null, as the next one
    void* lpMaximumApplicationAddress;
    DWORD_PTR dwActiveProcessorMask; // of the first 64
    DWORD dwNumberOfProcessors;      // those that this process may use
    DWORD dwProcessorType;           // 0
    DWORD dwAllocationGranularity;   // 65,536: of offsets of views
    WORD wProcessorLevel;            // 0, as the next one
    WORD wProcessorRevision;
};

COREKIT_API void GetSystemInfo(SYSTEM_INFO* info);

inline constexpr DWORD VER_PLATFORM_WIN32s = 0, VER_PLATFORM_WIN32_WINDOWS = 1, VER_PLATFORM_WIN32_NT = 2;
inline constexpr WORD VER_SUITE_TERMINAL = 0x10;

// The first 148 bytes are the plain form, which stops before wServicePackMajor.
struct OSVERSIONINFOEX {
    DWORD dwOSVersionInfoSize; // 148 or 156, set by the caller
    DWORD dwMajorVersion;
    DWORD dwMinorVersion;
    DWORD dwBuildNumber;    // third number of the kernel's release
    DWORD dwPlatformId;     // VER_PLATFORM_WIN32_NT
    char szCSDVersion[128]; // empty
    WORD wServicePackMajor;
    WORD wServicePackMinor;
    WORD wSuiteMask;   // VER_SUITE_
    BYTE wProductType; // 0
    BYTE wReserved;
};
static_assert(sizeof(OSVERSIONINFOEX) == 156);

// Platform 2; major, minor and build are the three numbers of the kernel's release, there are no service
// packs. The suite mask has VER_SUITE_TERMINAL in a session of a remote desktop server (XRDP_SESSION or
// X2GO_SESSION in the environment). 0 with error 122 for any other size.
COREKIT_API BOOL GetVersionExA(OSVERSIONINFOEX* info);

// /etc, where the machine's settings lie, and /usr/lib. Both return the length without the terminator, or the
// size that the buffer needs.
COREKIT_API UINT GetWindowsDirectoryA(char* buffer, UINT size);
COREKIT_API UINT GetSystemDirectoryA(char* buffer, UINT size);
// $TMPDIR, or /tmp, with a separator at the end; reported as above.
COREKIT_API DWORD GetTempPathA(DWORD size, char* buffer);

COREKIT_API DWORD GetCurrentProcessId(); // the kernel's number

// The number of the login session that the process runs in; 0 outside of any, as services do. 0 with error 87
// for a process that is not there.
COREKIT_API BOOL ProcessIdToSessionId(DWORD processId, DWORD* sessionId);

// Whether the process runs as the superuser, or with the rights of a group that looks after the machine.
COREKIT_API BOOL IsUserAnAdmin();

inline constexpr UINT SPI_SETDRAGFULLWINDOWS =
    0x25; // parameter: whether windows show what they hold while they move
inline constexpr UINT SPI_GETDRAGFULLWINDOWS =
    0x26; // a BOOL: as it was set in this program, else as the desktop has it
inline constexpr UINT SPI_GETWORKAREA = 0x30; // a RECT: the part of the main screen that bars leave free
// 0 for any other action, for null data, and for SPI_GETWORKAREA while no window library with an application
// is there to ask. Nothing is written to the desktop's own settings.
COREKIT_API BOOL SystemParametersInfoA(UINT action, UINT parameter, void* data, UINT notify);
