// The services of the machine, under the service manager's control.
//
// The manager is systemd; it is spoken to over the bus. A service is a unit: "Script Upload" is
// Script\x20Upload.service, with the signs that no unit's name has written as their numbers. Handles are
// closed with CloseServiceHandle. Any thread may use any of them; calls on one manager take turns.
//
// All functions give 0 or null with the last error: 5 without the right to do it, 123 for a name that no
// service can have, 1056 it runs already, 1058 it is disabled, 1060 there is no such service, 1062 it does
// not run, 1073 it exists already, 1460 the manager did not answer in time, 1722 the manager cannot be
// reached or has gone. No call waits longer than the time limit of the bus.
#pragma once

#include "corekit/platform/Export.h"
#include "corekit/platform/Services.h"
#include "corekit/platform/Types.h"

#include <functional>
#include <string>

using SC_HANDLE = struct SC_HANDLE__*;

inline constexpr DWORD SC_MANAGER_CONNECT = 1, SC_MANAGER_CREATE_SERVICE = 2, SC_MANAGER_ALL_ACCESS = 0xF003F;
inline constexpr DWORD SERVICE_QUERY_STATUS = 4, SERVICE_ALL_ACCESS = 0xF01FF;
inline constexpr DWORD SERVICE_AUTO_START = 2, SERVICE_DEMAND_START = 3, SERVICE_DISABLED = 4;
inline constexpr DWORD SERVICE_ERROR_IGNORE = 0, SERVICE_ERROR_NORMAL = 1;
inline constexpr DWORD SERVICE_NO_CHANGE = 0xFFFFFFFF;

inline constexpr DWORD ERROR_INVALID_SERVICE_CONTROL = 1052, ERROR_SERVICE_ALREADY_RUNNING = 1056,
                       ERROR_INVALID_SERVICE_ACCOUNT = 1057, ERROR_SERVICE_DISABLED = 1058,
                       ERROR_SERVICE_NOT_ACTIVE = 1062, ERROR_SERVICE_SPECIFIC_ERROR = 1066,
                       RPC_S_SERVER_UNAVAILABLE = 1722;

// The machine's own manager: the first two are not used. The connection is made here.
COREKIT_API SC_HANDLE OpenSCManagerA(const char* machine, const char* database, DWORD access);
// `access` is checked by the manager when something is done.
COREKIT_API SC_HANDLE OpenServiceA(SC_HANDLE manager, const char* name, DWORD access);
COREKIT_API BOOL CloseServiceHandle(SC_HANDLE handle);

// The state as the manager has it; the check point is what the service has last told of its progress. A
// service that failed is stopped, with error 1066 and its own exit code.
COREKIT_API BOOL QueryServiceStatus(SC_HANDLE service, SERVICE_STATUS* status);
// Both return once the manager has begun with it. Arguments are not used.
COREKIT_API BOOL StartServiceA(SC_HANDLE service, DWORD count, const char** arguments);
// SERVICE_CONTROL_STOP alone; any other fails with 1052. The status after it.
COREKIT_API BOOL ControlService(SC_HANDLE service, DWORD control, SERVICE_STATUS* status);

// Writes the service's unit file and makes the manager read it. `binaryPath` is the program's full path, in
// quotes if blanks in it could be taken for its end, and its arguments; `dependencies` is names of services,
// each with its terminator, and a terminator at the end. Started with the machine (2), by hand (3), or not at
// all (4). The service runs as `startName`, without the domain in front, or as the superuser; a password is
// not needed. Load order and error control are the manager's own; *tagId gets 0. The program must tell the
// manager that it runs, as StartServiceCtrlDispatcherA does.
COREKIT_API SC_HANDLE CreateServiceA(SC_HANDLE manager, const char* name, const char* displayName,
                                     DWORD access, DWORD serviceType, DWORD startType, DWORD errorControl,
                                     const char* binaryPath, const char* loadOrderGroup, DWORD* tagId,
                                     const char* dependencies, const char* startName, const char* password);
// The same for one that has a unit file of its own in the folder; 5 for another. Nulls and SERVICE_NO_CHANGE
// leave what is there, and so do lines that somebody has added to the file. Holds from the next start on.
COREKIT_API BOOL ChangeServiceConfigA(SC_HANDLE service, DWORD serviceType, DWORD startType,
                                      DWORD errorControl, const char* binaryPath, const char* loadOrderGroup,
                                      DWORD* tagId, const char* dependencies, const char* startName,
                                      const char* password, const char* displayName);
// Takes the unit file away; a service that runs goes on until it ends.
COREKIT_API BOOL DeleteService(SC_HANDLE service);

// Where unit files are, and how the manager is reached. For managers that are opened from now on.
struct ServicePlaces {
    std::string unitFolder = "/etc/systemd/system";
    // A connected stream socket on which the manager speaks the bus's protocol, owned by whoever called, or a
    // number below 0. Empty: the system's bus.
    std::function<int()> connect;
    DWORD timeLimit = 25000; // milliseconds that a call may take
};
COREKIT_API void SetServicePlaces(const ServicePlaces& places);
COREKIT_API ServicePlaces GetServicePlaces();
