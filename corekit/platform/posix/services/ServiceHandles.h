// Open service managers and services as objects behind handles.
#pragma once

#include "corekit/platform/posix/handles/HandleTable.h"
#include "corekit/platform/posix/services/SystemBus.h"

namespace corekit::detail {

class ServiceManager final : public Object {
public:
    static constexpr ObjectKind objectKind = ObjectKind::serviceManager;
    ServiceManager(std::shared_ptr<SystemBus> connection, std::string folder)
        : Object(objectKind), bus(std::move(connection)), unitFolder(std::move(folder))
    {
    }

    const std::shared_ptr<SystemBus> bus;
    const std::string unitFolder;
};

class Service final : public Object {
public:
    static constexpr ObjectKind objectKind = ObjectKind::service;
    Service(const ServiceManager& manager, std::string unitName)
        : Object(objectKind), bus(manager.bus), unit(std::move(unitName)),
          file(manager.unitFolder + "/" + unit)
    {
    }

    const std::shared_ptr<SystemBus> bus; // keeps the connection as long as the manager is needed
    const std::string unit;
    const std::string file; // where its unit file is, if it is one of the folder
};

template <class T>
HandleUser<T> userOf(SC_HANDLE handle)
{
    return HandleUser<T>(reinterpret_cast<HANDLE>(handle));
}
inline SC_HANDLE openServiceHandle(std::unique_ptr<Object> object)
{
    return reinterpret_cast<SC_HANDLE>(openHandle(std::move(object)));
}

// Whether the manager knows the unit; an error number.
DWORD findUnit(SystemBus& bus, const std::string& unit, bool& exists);

} // namespace corekit::detail
