#include "corekit/platform/posix/services/SystemBus.h"

#include "corekit/platform/posix/Errno.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <systemd/sd-bus.h>
#include <unistd.h>

namespace corekit::detail {
namespace {

constexpr char destination[] = "org.freedesktop.systemd1";
constexpr char managerPath[] = "/org/freedesktop/systemd1";
constexpr char managerInterface[] = "org.freedesktop.systemd1.Manager";

struct NameRow {
    std::string_view name;
    DWORD code;
};
constexpr NameRow namedErrors[] = {
    {"org.freedesktop.systemd1.NoSuchUnit", ERROR_SERVICE_DOES_NOT_EXIST},
    {"org.freedesktop.systemd1.UnitMasked", ERROR_SERVICE_DISABLED},
    {"org.freedesktop.systemd1.OnlyByDependency", ERROR_SERVICE_DISABLED},
    {"org.freedesktop.DBus.Error.UnknownObject", ERROR_SERVICE_DOES_NOT_EXIST},
    {"org.freedesktop.DBus.Error.FileNotFound", ERROR_SERVICE_DOES_NOT_EXIST},
    {"org.freedesktop.DBus.Error.AccessDenied", ERROR_ACCESS_DENIED},
    {"org.freedesktop.DBus.Error.InteractiveAuthorizationRequired", ERROR_ACCESS_DENIED},
    {"org.freedesktop.DBus.Error.NoReply", ERROR_TIMEOUT},
    {"org.freedesktop.DBus.Error.Timeout", ERROR_TIMEOUT},
    {"org.freedesktop.DBus.Error.ServiceUnknown", RPC_S_SERVER_UNAVAILABLE},
    {"org.freedesktop.DBus.Error.NameHasNoOwner", RPC_S_SERVER_UNAVAILABLE},
};

DWORD errorOf(int result)
{
    switch (-result) {
    case ETIMEDOUT:
        return ERROR_TIMEOUT;
    case ECONNRESET:
    case ECONNREFUSED:
    case ENOTCONN:
    case ENOENT:
    case EPIPE:
    case ESHUTDOWN:
        return RPC_S_SERVER_UNAVAILABLE;
    case ENXIO:
    case EBADMSG:
        return ERROR_INVALID_DATA; // an answer of another type
    default:
        return errorFromErrno(-result);
    }
}

// Keeps what the manager said of a failure.
class BusError {
public:
    BusError() = default;
    BusError(const BusError&) = delete;
    BusError& operator=(const BusError&) = delete;
    ~BusError() { sd_bus_error_free(&m_error); }

    sd_bus_error* get() { return &m_error; }
    DWORD codeOf(int result) const
    {
        if (result >= 0) return NO_ERROR;
        const std::string_view name = m_error.name ? m_error.name : "";
        const auto* const row = std::ranges::find(namedErrors, name, &NameRow::name);
        return row != std::end(namedErrors) ? row->code : errorOf(result);
    }

private:
    sd_bus_error m_error{}; // holds none
};

std::string pathOf(const std::string& unit)
{
    char* encoded = nullptr;
    if (sd_bus_path_encode("/org/freedesktop/systemd1/unit", unit.c_str(), &encoded) < 0) return "/";
    const std::unique_ptr<char, decltype(&std::free)> path(encoded, &std::free);
    return path.get();
}

// A bus on an open socket, which becomes the bus's own.
int openOn(int socket, sd_bus*& bus)
{
    if (socket < 0) return -ENOTCONN;
    int result = sd_bus_new(&bus);
    if (result >= 0) result = sd_bus_set_fd(bus, socket, socket);
    if (result < 0) {
        ::close(socket);
        return result;
    }
    return sd_bus_start(bus);
}

} // namespace

DWORD SystemBus::connect(const ServicePlaces& places, std::shared_ptr<SystemBus>& bus)
{
    sd_bus* opened = nullptr;
    const int result = places.connect ? openOn(places.connect(), opened) : sd_bus_open_system(&opened);
    bus.reset(new SystemBus(opened)); // owns what was opened, also where that failed half-way
    if (result < 0) return errorOf(result);
    sd_bus_set_method_call_timeout(opened, std::uint64_t{places.timeLimit} * 1000);
    return bus->waitUntilReady(places.timeLimit);
}

SystemBus::~SystemBus()
{
    if (m_bus) sd_bus_close(m_bus);
    sd_bus_unref(m_bus);
}

DWORD SystemBus::waitUntilReady(DWORD milliseconds)
{
    using Clock = std::chrono::steady_clock;
    const auto deadline = Clock::now() + std::chrono::milliseconds(milliseconds);
    for (;;) {
        const int ready = sd_bus_is_ready(m_bus);
        if (ready != 0) return ready > 0 ? NO_ERROR : errorOf(ready);
        const int done = sd_bus_process(m_bus, nullptr);
        if (done < 0) return errorOf(done);
        if (done > 0) continue;
        const auto left = std::chrono::duration_cast<std::chrono::microseconds>(deadline - Clock::now());
        if (left.count() <= 0) return ERROR_TIMEOUT;
        sd_bus_wait(m_bus, static_cast<std::uint64_t>(left.count()));
    }
}

template <class Read>
DWORD SystemBus::property(const std::string& unit, const char* interface, const char* name, const char* type,
                          Read read)
{
    const std::lock_guard lock(m_lock);
    BusError error;
    sd_bus_message* reply = nullptr;
    const std::string whole = std::string("org.freedesktop.systemd1.") + interface;
    const int result = sd_bus_get_property(m_bus, destination, pathOf(unit).c_str(), whole.c_str(), name,
                                           error.get(), &reply, type);
    const Message owned(reply, &sd_bus_message_unref);
    if (result < 0) return error.codeOf(result);
    const int got = read(reply);
    return got < 0 ? errorOf(got) : NO_ERROR;
}

DWORD SystemBus::text(const std::string& unit, const char* interface, const char* name, std::string& value)
{
    return property(unit, interface, name, "s", [&](sd_bus_message* reply) {
        const char* text = nullptr;
        const int result = sd_bus_message_read(reply, "s", &text);
        if (result > 0) value = text;
        return result;
    });
}

DWORD SystemBus::number(const std::string& unit, const char* interface, const char* name, int& value)
{
    return property(unit, interface, name, "i",
                    [&](sd_bus_message* reply) { return sd_bus_message_read(reply, "i", &value); });
}

DWORD SystemBus::hasJob(const std::string& unit, bool& value)
{
    return property(unit, "Unit", "Job", "(uo)", [&](sd_bus_message* reply) {
        std::uint32_t id = 0;
        const char* path = nullptr;
        const int result = sd_bus_message_read(reply, "(uo)", &id, &path);
        value = id != 0;
        return result;
    });
}

template <class... Arguments>
DWORD SystemBus::call(const char* method, const char* types, Arguments... arguments)
{
    const std::lock_guard lock(m_lock);
    BusError error;
    sd_bus_message* reply = nullptr;
    const int result = sd_bus_call_method(m_bus, destination, managerPath, managerInterface, method,
                                          error.get(), &reply, types, arguments...);
    sd_bus_message_unref(reply);
    return error.codeOf(result);
}

DWORD SystemBus::callOnUnit(const char* method, const std::string& unit)
{
    return call(method, "ss", unit.c_str(), "replace");
}

DWORD SystemBus::enable(const std::string& unit)
{
    constexpr int untilRestartOnly = 0, overOthers = 1;
    return call("EnableUnitFiles", "asbb", 1, unit.c_str(), untilRestartOnly, overOthers);
}

DWORD SystemBus::disable(const std::string& unit)
{
    constexpr int untilRestartOnly = 0;
    return call("DisableUnitFiles", "asb", 1, unit.c_str(), untilRestartOnly);
}

DWORD SystemBus::reload() { return call("Reload", ""); }

} // namespace corekit::detail
