// What a service says to the service manager, and what it hears from it.
//
// The manager is systemd, or whatever else speaks its notify protocol (man sd_notify). A service says over
// $NOTIFY_SOCKET that it is starting, ready or stopping; it hears signals, and controls of its own on a
// socket.
//
//     SERVICE_TABLE_ENTRYA table[] = {{name, ServiceMain}, {nullptr, nullptr}};
//     StartServiceCtrlDispatcherA(table); // from main; returns when ServiceMain has
//
// Without a manager the service runs all the same and nobody hears its states.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Types.h"

inline constexpr DWORD SERVICE_WIN32_OWN_PROCESS = 16;

inline constexpr DWORD SERVICE_STOPPED = 1, SERVICE_START_PENDING = 2, SERVICE_STOP_PENDING = 3,
                       SERVICE_RUNNING = 4, SERVICE_CONTINUE_PENDING = 5, SERVICE_PAUSE_PENDING = 6,
                       SERVICE_PAUSED = 7;
inline constexpr DWORD SERVICE_ACCEPT_STOP = 1, SERVICE_ACCEPT_PAUSE_CONTINUE = 2,
                       SERVICE_ACCEPT_SHUTDOWN = 4;

inline constexpr DWORD SERVICE_CONTROL_STOP = 1;     // SIGTERM, SIGINT
inline constexpr DWORD SERVICE_CONTROL_PAUSE = 2;    // SIGTSTP, where the service accepts it
inline constexpr DWORD SERVICE_CONTROL_CONTINUE = 3; // SIGCONT, likewise
inline constexpr DWORD SERVICE_CONTROL_INTERROGATE = 4, SERVICE_CONTROL_SHUTDOWN = 5;
inline constexpr DWORD SERVICE_CONTROL_USER_FIRST = 128, SERVICE_CONTROL_USER_LAST = 255;

inline constexpr DWORD ERROR_FAILED_SERVICE_CONTROLLER_CONNECT = 1063;

struct _SERVICE_STATUS {
    DWORD dwServiceType;
    DWORD dwCurrentState;
    DWORD dwControlsAccepted;
    DWORD dwWin32ExitCode;
    DWORD dwServiceSpecificExitCode;
    DWORD dwCheckPoint; // counts the steps of a long start or stop
    DWORD dwWaitHint;   // milliseconds that the next step may take
};
using SERVICE_STATUS = _SERVICE_STATUS;
static_assert(sizeof(SERVICE_STATUS) == 28);

using SERVICE_STATUS_HANDLE = struct SERVICE_STATUS_HANDLE__*;
using LPSERVICE_MAIN_FUNCTIONA = void (*)(DWORD argc, char** argv);
using LPHANDLER_FUNCTION = void (*)(DWORD control);

// A row of nulls ends the table.
struct SERVICE_TABLE_ENTRYA {
    char* lpServiceName;
    LPSERVICE_MAIN_FUNCTIONA lpServiceProc;
};

// Runs the first service of the table on a thread of its own, and meanwhile calls its handler, on the calling
// thread, for each control that comes. Returns when the service's function has. 0 with error 1063 if the
// manager's socket does not answer, or if a user has started the program at a terminal and there is none.
//
// While it runs, controls also come to the datagram socket $RUNTIME_DIRECTORY/control, for the service's own
// user alone; without that variable the folder is corekit/<name> in $XDG_RUNTIME_DIR or /run, with an
// underscore for everything in the name but ASCII letters, digits and hyphens.
COREKIT_API BOOL StartServiceCtrlDispatcherA(const SERVICE_TABLE_ENTRYA* table);

// Only on the service's thread and for its name; null otherwise. The handle is not closed.
COREKIT_API SERVICE_STATUS_HANDLE RegisterServiceCtrlHandlerA(const char* name, LPHANDLER_FUNCTION handler);

// Tells the manager the state. In a pending state a checkpoint above 0 also asks for the time of the wait
// hint. The controls accepted decide from now on which of them the handler hears. 0 with error 6 for another
// handle.
COREKIT_API BOOL SetServiceStatus(SERVICE_STATUS_HANDLE service, SERVICE_STATUS* status);

// How often in milliseconds PingServiceWatchdog is to be called while the service runs, half of what the
// manager allows; INFINITE if it does not ask for it.
COREKIT_API DWORD ServiceWatchdogInterval();
COREKIT_API void PingServiceWatchdog();

// Sends a control to the socket of a running service of that name. False with the last error if it cannot be
// reached.
COREKIT_API BOOL SendServiceControl(const char* name, DWORD control);
