// A connection to the service manager over the bus.
#pragma once

#include "corekit/platform/ServiceManager.h"

#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

struct sd_bus;
struct sd_bus_message;

namespace corekit::detail {

// Any thread; calls take turns. All that can fail gives an error number, 0 for success.
class SystemBus {
public:
    // Ready to be spoken to when this returns.
    static DWORD connect(const ServicePlaces& places, std::shared_ptr<SystemBus>& bus);
    ~SystemBus();
    SystemBus(const SystemBus&) = delete;
    SystemBus& operator=(const SystemBus&) = delete;

    // Properties of a unit: `interface` is "Unit" or "Service".
    DWORD text(const std::string& unit, const char* interface, const char* name, std::string& value);
    DWORD number(const std::string& unit, const char* interface, const char* name, int& value);
    // Whether something is to be done with the unit that has not begun.
    DWORD hasJob(const std::string& unit, bool& value);

    // Operations of the manager.
    DWORD startUnit(const std::string& unit) { return callOnUnit("StartUnit", unit); }
    DWORD stopUnit(const std::string& unit) { return callOnUnit("StopUnit", unit); }
    DWORD enable(const std::string& unit);
    DWORD disable(const std::string& unit);
    DWORD reload();

private:
    explicit SystemBus(sd_bus* bus) : m_bus(bus) {}

    using Message = std::unique_ptr<sd_bus_message, sd_bus_message* (*)(sd_bus_message*)>;

    DWORD waitUntilReady(DWORD milliseconds);
    template <class... Arguments>
    DWORD call(const char* method, const char* types, Arguments... arguments);
    DWORD callOnUnit(const char* method, const std::string& unit);
    template <class Read>
    DWORD property(const std::string& unit, const char* interface, const char* name, const char* type,
                   Read read);

    std::mutex m_lock;
    sd_bus* const m_bus;
};

} // namespace corekit::detail
