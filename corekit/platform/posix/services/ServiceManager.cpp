// Opening, watching, starting and stopping services.
#include "corekit/platform/ServiceManager.h"

#include "corekit/platform/Handles.h"
#include "corekit/platform/posix/Errno.h"
#include "corekit/platform/posix/services/ServiceHandles.h"
#include "corekit/platform/posix/services/StatusText.h"
#include "corekit/platform/posix/services/UnitText.h"

#include <algorithm>
#include <iterator>
#include <new>

namespace {
using namespace corekit::detail;

std::mutex placesLock;

ServicePlaces& currentPlaces()
{
    static ServicePlaces places;
    return places;
}

// How the manager's states are told.
struct StateRow {
    std::string_view active;
    DWORD state;
};
constexpr StateRow states[] = {
    {"active", SERVICE_RUNNING},
    {"reloading", SERVICE_RUNNING},
    {"refreshing", SERVICE_RUNNING},
    {"activating", SERVICE_START_PENDING},
    {"deactivating", SERVICE_STOP_PENDING},
    {"inactive", SERVICE_STOPPED},
    {"failed", SERVICE_STOPPED},
    {"maintenance", SERVICE_STOPPED},
};

// The service's own word counts where the manager has none: for a pause.
DWORD refine(DWORD state, const ToldStatus& told)
{
    const bool isPause = told.state == SERVICE_PAUSED || told.state == SERVICE_PAUSE_PENDING ||
                         told.state == SERVICE_CONTINUE_PENDING;
    return state == SERVICE_RUNNING && isPause ? told.state : state;
}

DWORD readStopped(const Service& service, bool hasFailed, SERVICE_STATUS& status)
{
    bool hasJob = false;
    if (const DWORD error = service.bus->hasJob(service.unit, hasJob); error != NO_ERROR) return error;
    if (hasJob) status.dwCurrentState = SERVICE_START_PENDING;
    if (hasJob || !hasFailed) return NO_ERROR;
    int code = 0;
    if (const DWORD error = service.bus->number(service.unit, "Service", "ExecMainStatus", code);
        error != NO_ERROR)
        return error;
    status.dwWin32ExitCode = ERROR_SERVICE_SPECIFIC_ERROR;
    status.dwServiceSpecificExitCode = static_cast<DWORD>(code);
    return NO_ERROR;
}

DWORD readStatus(const Service& service, SERVICE_STATUS& status)
{
    std::string active, told;
    if (const DWORD error = service.bus->text(service.unit, "Unit", "ActiveState", active); error != NO_ERROR)
        return error;
    const auto* const row = std::ranges::find(states, active, &StateRow::active);
    if (row == std::end(states)) return ERROR_INVALID_DATA;
    status = {};
    status.dwServiceType = SERVICE_WIN32_OWN_PROCESS;
    status.dwCurrentState = row->state;
    if (row->state == SERVICE_STOPPED) return readStopped(service, active == "failed", status);
    if (const DWORD error = service.bus->text(service.unit, "Service", "StatusText", told); error != NO_ERROR)
        return error;
    const ToldStatus own = statusIn(told);
    status.dwCurrentState = refine(row->state, own);
    if (own.state == status.dwCurrentState) status.dwCheckPoint = own.checkPoint;
    if (row->state == SERVICE_RUNNING)
        status.dwControlsAccepted = SERVICE_ACCEPT_STOP | SERVICE_ACCEPT_SHUTDOWN;
    return NO_ERROR;
}

DWORD start(const Service& service)
{
    SERVICE_STATUS status;
    if (const DWORD error = readStatus(service, status); error != NO_ERROR) return error;
    if (status.dwCurrentState != SERVICE_STOPPED) return ERROR_SERVICE_ALREADY_RUNNING;
    return service.bus->startUnit(service.unit);
}

DWORD stop(const Service& service, SERVICE_STATUS& status)
{
    if (const DWORD error = readStatus(service, status); error != NO_ERROR) return error;
    if (status.dwCurrentState == SERVICE_STOPPED) return ERROR_SERVICE_NOT_ACTIVE;
    if (const DWORD error = service.bus->stopUnit(service.unit); error != NO_ERROR) return error;
    return readStatus(service, status);
}

// An operation on an open service.
template <class Operation>
BOOL onService(SC_HANDLE handle, Operation operation)
try {
    const auto service = userOf<Service>(handle);
    const DWORD error = service ? operation(*service) : ERROR_INVALID_HANDLE;
    return error == NO_ERROR ? TRUE : fail(error, FALSE);
} catch (const std::bad_alloc&) {
    return fail(ERROR_NOT_ENOUGH_MEMORY, FALSE);
}

} // namespace

DWORD corekit::detail::findUnit(SystemBus& bus, const std::string& unit, bool& exists)
{
    std::string state;
    DWORD error = bus.text(unit, "Unit", "LoadState", state);
    exists = error == NO_ERROR && state != "not-found";
    return error == ERROR_SERVICE_DOES_NOT_EXIST ? NO_ERROR : error;
}

void SetServicePlaces(const ServicePlaces& places)
{
    const std::lock_guard lock(placesLock);
    currentPlaces() = places;
}

ServicePlaces GetServicePlaces()
{
    const std::lock_guard lock(placesLock);
    return currentPlaces();
}

SC_HANDLE OpenSCManagerA(const char*, const char*, DWORD)
try {
    const ServicePlaces places = GetServicePlaces();
    std::shared_ptr<SystemBus> bus;
    if (const DWORD error = SystemBus::connect(places, bus); error != NO_ERROR)
        return fail(error, SC_HANDLE{});
    return openServiceHandle(std::make_unique<ServiceManager>(std::move(bus), places.unitFolder));
} catch (const std::bad_alloc&) {
    return fail(ERROR_NOT_ENOUGH_MEMORY, SC_HANDLE{});
}

SC_HANDLE OpenServiceA(SC_HANDLE handle, const char* name, DWORD)
try {
    const auto manager = userOf<ServiceManager>(handle);
    if (!manager) return fail(ERROR_INVALID_HANDLE, SC_HANDLE{});
    std::string unit = unitNameOf(name ? name : "");
    if (unit.empty()) return fail(ERROR_INVALID_NAME, SC_HANDLE{});
    bool exists = false;
    if (const DWORD error = findUnit(*manager->bus, unit, exists); error != NO_ERROR)
        return fail(error, SC_HANDLE{});
    if (!exists) return fail(ERROR_SERVICE_DOES_NOT_EXIST, SC_HANDLE{});
    return openServiceHandle(std::make_unique<Service>(*manager, std::move(unit)));
} catch (const std::bad_alloc&) {
    return fail(ERROR_NOT_ENOUGH_MEMORY, SC_HANDLE{});
}

BOOL CloseServiceHandle(SC_HANDLE handle)
{
    if (!userOf<Service>(handle) && !userOf<ServiceManager>(handle)) return fail(ERROR_INVALID_HANDLE, FALSE);
    return CloseHandle(reinterpret_cast<HANDLE>(handle));
}

BOOL QueryServiceStatus(SC_HANDLE handle, SERVICE_STATUS* status)
{
    if (status == nullptr) return fail(ERROR_INVALID_PARAMETER, FALSE);
    return onService(handle, [&](const Service& service) { return readStatus(service, *status); });
}

BOOL StartServiceA(SC_HANDLE handle, DWORD, const char**)
{
    return onService(handle, [](const Service& service) { return start(service); });
}

BOOL ControlService(SC_HANDLE handle, DWORD control, SERVICE_STATUS* status)
{
    if (control != SERVICE_CONTROL_STOP) return fail(ERROR_INVALID_SERVICE_CONTROL, FALSE);
    SERVICE_STATUS unwanted;
    return onService(handle,
                     [&](const Service& service) { return stop(service, status ? *status : unwanted); });
}
