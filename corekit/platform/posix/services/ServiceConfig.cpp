// Installing, changing and removing services: their unit files.
#include "corekit/platform/posix/Errno.h"
#include "corekit/platform/posix/files/Descriptor.h"
#include "corekit/platform/posix/services/ServiceHandles.h"
#include "corekit/platform/posix/services/UnitText.h"
#include "corekit/platform/ServiceManager.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <fstream>
#include <iterator>
#include <new>
#include <unistd.h>

namespace {
using namespace corekit::detail;

// What is to hold; nulls and SERVICE_NO_CHANGE leave what is there.
struct Settings {
    DWORD serviceType, startType;
    const char* binaryPath;
    const char* dependencies;
    const char* startName;
    const char* displayName;
};

DWORD applyCommand(UnitText& unit, const char* binaryPath)
{
    const std::vector<std::string> words = splitCommandLine(binaryPath);
    if (words.empty() || !words.front().starts_with('/')) return ERROR_INVALID_PARAMETER;
    unit.set("Service", "ExecStart", escapeCommand(words));
    return NO_ERROR;
}

// Groups, which begin with a plus, are not the manager's.
DWORD applyDependencies(UnitText& unit, const char* names)
{
    std::string units;
    for (; *names != 0; names += std::strlen(names) + 1) {
        if (*names == '+') continue;
        const std::string one = unitNameOf(names);
        if (one.empty()) return ERROR_INVALID_PARAMETER;
        units.append(units.empty() ? "" : " ").append(one);
    }
    unit.set("Unit", "Requires", units);
    unit.set("Unit", "After", units);
    return NO_ERROR;
}

// "LocalSystem" is the superuser, which needs no line.
DWORD applyAccount(UnitText& unit, const char* startName)
{
    std::string_view user = startName;
    user.remove_prefix(std::min(user.find_last_of('\\') + 1, user.size()));
    if (user == "LocalSystem") user = {};
    const bool isName = std::ranges::all_of(user, [](char c) {
        return static_cast<unsigned char>(c) < 0x80 &&
               (std::isalnum(static_cast<unsigned char>(c)) || c == '_' || c == '-' || c == '.');
    });
    if (!isName || user.starts_with('-')) return ERROR_INVALID_SERVICE_ACCOUNT;
    unit.set("Service", "User", user);
    return NO_ERROR;
}

// With the machine: enabled. By hand: static, there is nothing to enable. Not at all: disabled, and refused.
DWORD applyStart(UnitText& unit, DWORD startType)
{
    if (startType < SERVICE_AUTO_START || startType > SERVICE_DISABLED) return ERROR_INVALID_PARAMETER;
    unit.set("Unit", "RefuseManualStart", startType == SERVICE_DISABLED ? "yes" : "");
    if (startType == SERVICE_DEMAND_START)
        unit.removeSection("Install");
    else
        unit.set("Install", "WantedBy", "multi-user.target");
    return NO_ERROR;
}

DWORD apply(UnitText& unit, const Settings& settings)
{
    constexpr DWORD sharedProcess = 32, interactive = 0x100;
    const DWORD type = settings.serviceType & ~interactive;
    if (settings.serviceType != SERVICE_NO_CHANGE && type != SERVICE_WIN32_OWN_PROCESS &&
        type != sharedProcess)
        return ERROR_INVALID_PARAMETER;
    DWORD error = NO_ERROR;
    if (settings.displayName) unit.set("Unit", "Description", escapeText(settings.displayName));
    if (settings.binaryPath) error = applyCommand(unit, settings.binaryPath);
    if (settings.dependencies && error == NO_ERROR) error = applyDependencies(unit, settings.dependencies);
    if (settings.startName && error == NO_ERROR) error = applyAccount(unit, settings.startName);
    if (settings.startType != SERVICE_NO_CHANGE && error == NO_ERROR)
        error = applyStart(unit, settings.startType);
    return error;
}

bool writeAll(int fd, std::string_view bytes)
{
    while (!bytes.empty()) {
        const ssize_t count = ::write(fd, bytes.data(), bytes.size());
        if (count < 0 && errno != EINTR) return false;
        if (count > 0) bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return ::fsync(fd) == 0;
}

// Whole or not at all, by a file beside it that the manager does not take for a unit. In a unit's name a
// backslash is a sign like any other.
DWORD save(const std::string& path, const UnitText& unit)
{
    const std::string made = path + ".new";
    ::unlink(made.c_str()); // one that a killed process left
    const Descriptor file(::open(made.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0644));
    if (file && writeAll(file.get(), unit.text()) && ::rename(made.c_str(), path.c_str()) == 0)
        return NO_ERROR;
    const DWORD error = errorFromErrno(errno);
    if (file) ::unlink(made.c_str());
    return error;
}

// Makes the manager see a changed unit file.
DWORD announce(SystemBus& bus, const std::string& unit, DWORD startType)
{
    DWORD error = NO_ERROR;
    if (startType == SERVICE_AUTO_START)
        error = bus.enable(unit);
    else if (startType != SERVICE_NO_CHANGE)
        error = bus.disable(unit);
    return error == NO_ERROR ? bus.reload() : error;
}

// Where the manager cannot be told, the file goes again.
DWORD install(const Service& service, const char* name, Settings settings)
{
    if (!settings.binaryPath) return ERROR_INVALID_PARAMETER;
    if (!settings.displayName || *settings.displayName == 0) settings.displayName = name;
    UnitText unit("# Written by the program that installed the service.\n");
    unit.set("Unit", "Description", escapeText(settings.displayName));
    unit.set("Service", "Type", "notify");
    DWORD error = apply(unit, settings);
    if (error == NO_ERROR) error = save(service.file, unit);
    if (error != NO_ERROR) return error;
    error = announce(*service.bus, service.unit, settings.startType);
    if (error != NO_ERROR) ::unlink(service.file.c_str());
    return error;
}

// Units that came with the system are not for programs to change. A change that the manager does not hear of
// is taken back.
DWORD change(const Service& service, const Settings& settings)
{
    std::ifstream stream(service.file, std::ios::binary);
    if (!stream) return ERROR_ACCESS_DENIED;
    const std::string before{std::istreambuf_iterator<char>(stream), {}};
    UnitText unit(before);
    DWORD error = apply(unit, settings);
    if (error == NO_ERROR) error = save(service.file, unit);
    if (error != NO_ERROR) return error;
    error = announce(*service.bus, service.unit, settings.startType);
    if (error != NO_ERROR) save(service.file, UnitText(before));
    return error;
}

DWORD remove(const Service& service)
{
    if (::access(service.file.c_str(), F_OK) != 0) return ERROR_ACCESS_DENIED;
    if (const DWORD error = service.bus->disable(service.unit); error != NO_ERROR) return error;
    if (::unlink(service.file.c_str()) != 0) return errorFromErrno(errno);
    return service.bus->reload();
}

} // namespace

SC_HANDLE CreateServiceA(SC_HANDLE handle, const char* name, const char* displayName, DWORD,
                         DWORD serviceType, DWORD startType, DWORD, const char* binaryPath, const char*,
                         DWORD* tagId, const char* dependencies, const char* startName, const char*)
try {
    const auto manager = userOf<ServiceManager>(handle);
    if (!manager) return fail(ERROR_INVALID_HANDLE, SC_HANDLE{});
    const std::string unit = unitNameOf(name ? name : "");
    if (unit.empty()) return fail(ERROR_INVALID_NAME, SC_HANDLE{});
    bool exists = false;
    DWORD error = findUnit(*manager->bus, unit, exists);
    if (error == NO_ERROR && exists) error = ERROR_SERVICE_EXISTS;
    if (error != NO_ERROR) return fail(error, SC_HANDLE{});
    auto service = std::make_unique<Service>(*manager, unit);
    error =
        install(*service, name, {serviceType, startType, binaryPath, dependencies, startName, displayName});
    if (error != NO_ERROR) return fail(error, SC_HANDLE{});
    if (tagId) *tagId = 0;
    return openServiceHandle(std::move(service));
} catch (const std::bad_alloc&) {
    return fail(ERROR_NOT_ENOUGH_MEMORY, SC_HANDLE{});
}

BOOL ChangeServiceConfigA(SC_HANDLE handle, DWORD serviceType, DWORD startType, DWORD, const char* binaryPath,
                          const char*, DWORD* tagId, const char* dependencies, const char* startName,
                          const char*, const char* displayName)
try {
    const auto service = userOf<Service>(handle);
    if (!service) return fail(ERROR_INVALID_HANDLE, FALSE);
    const DWORD error =
        change(*service, {serviceType, startType, binaryPath, dependencies, startName, displayName});
    if (error != NO_ERROR) return fail(error, FALSE);
    if (tagId) *tagId = 0;
    return TRUE;
} catch (const std::bad_alloc&) {
    return fail(ERROR_NOT_ENOUGH_MEMORY, FALSE);
}

BOOL DeleteService(SC_HANDLE handle)
try {
    const auto service = userOf<Service>(handle);
    const DWORD error = service ? remove(*service) : ERROR_INVALID_HANDLE;
    return error == NO_ERROR ? TRUE : fail(error, FALSE);
} catch (const std::bad_alloc&) {
    return fail(ERROR_NOT_ENOUGH_MEMORY, FALSE);
}
