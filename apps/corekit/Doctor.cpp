// corekit doctor: what this machine has of what the library uses, and how to get the rest.
#include "Doctor.h"

#include "Commands.h"
#include "Table.h"

#include "corekit/platform/DataFolder.h"
#include "corekit/platform/Errors.h"
#include "corekit/platform/Registry.h"
#include "corekit/platform/ServiceManager.h"

#include <CLI/CLI.hpp>

#include <filesystem>
#include <iterator>

namespace {

constexpr DWORD readAndWrite = 0x2001F;

Finding FindRegistry()
{
    HKEY key = nullptr;
    const bool opens = RegOpenKeyExA(HKEY_LOCAL_MACHINE, "", 0, readAndWrite, &key) == ERROR_SUCCESS;
    if (opens) RegCloseKey(key);
    const std::string folder = corekit::DataFolder();
    return {"registry", opens && corekit::MayWrite(folder + "/registry.db"), folder,
            "let this user write there, or set COREKIT_HOME to another folder"};
}

Finding FindServiceManager()
{
    const SC_HANDLE manager = OpenSCManagerA(nullptr, nullptr, SC_MANAGER_CONNECT);
    const bool answers = manager != nullptr;
    if (manager) CloseServiceHandle(manager);
    return {"service manager", answers, answers ? "on the system's bus" : "no answer on the system's bus",
            "systemd, dbus"};
}

// A link or file below a folder of the system, such as a serial port.
Finding FindDevices(const char* what, const char* folder, const char* remedy)
{
    std::error_code error;
    const auto count = std::distance(std::filesystem::directory_iterator(folder, error), {});
    return {what, !error && count > 0, std::to_string(error ? 0 : count) + " in " + folder, remedy};
}

void Examine(std::vector<Finding> findings)
{
    findings.push_back(FindRegistry());
    findings.push_back(FindServiceManager());
    findings.push_back(FindDevices("terminals", "/sys/class/tty", "mount /sys"));
    findings.push_back(FindDevices("SCSI devices", "/sys/class/scsi_device", ""));
    TableRows rows = {{"what", "state", "found", "remedy"}};
    for (const Finding& finding : findings)
        rows.push_back({finding.what, finding.isThere ? "ok" : "missing", finding.found,
                        finding.isThere ? "" : finding.remedy});
    PrintTable(rows);
}

} // namespace

void AddDoctorCommand(CLI::App& app, std::vector<Finding> (*findFaces)())
{
    CLI::App* const command = app.add_subcommand(
        "doctor", "Say what this machine has of what the library uses, and what is missing");
    OfferJson(*command);
    command->footer(
        "What is missing keeps nothing else from working. A remedy is a package of the system's, or what "
        "to do.");
    command->callback([findFaces] { Examine(findFaces ? findFaces() : std::vector<Finding>()); });
}
