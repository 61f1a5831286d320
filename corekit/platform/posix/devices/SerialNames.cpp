#include "corekit/platform/posix/devices/SerialNames.h"

#include "corekit/platform/DeviceFolders.h"
#include "corekit/platform/posix/devices/DeviceNames.h"
#include "corekit/platform/Registry.h"
#include "corekit/platform/SerialPorts.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <set>
#include <unistd.h>

namespace corekit::detail {
namespace {
namespace fs = std::filesystem;

// Fixed places, so that a port keeps its number whatever else is plugged in.
struct NameRow {
    std::string_view kind;
    int first;
};
constexpr NameRow names[] = {{"ttyS", 1}, {"ttyUSB", 33}, {"ttyACM", 65}, {"ttyAMA", 97}};
constexpr int numbersPerKind = 32;

// A line that the kernel tells; empty for one that is not there (any more).
std::string lineOf(const fs::path& file)
{
    std::string line;
    std::ifstream stream(file);
    std::getline(stream, line);
    return line;
}

// A port that the driver provides for and has not found: its kind of chip is unknown.
bool isAbsent(const fs::path& entry) { return lineOf(entry / "type") == "0"; }

// The device of an entry and those above it, until visit gives true.
template <class Visit>
void eachAbove(const fs::path& entry, Visit visit)
{
    std::error_code gone;
    fs::path place = fs::canonical(entry / "device", gone);
    for (int level = 0; !gone && level < 5 && place.has_relative_path() && !visit(place); ++level)
        place = place.parent_path();
}

// Between a port and its driver there may be steps of the kernel's own.
std::string driverOf(const fs::path& entry)
{
    std::string driver;
    eachAbove(entry, [&](const fs::path& place) {
        std::error_code gone;
        driver = fs::read_symlink(place / "driver", gone).filename().string();
        return !driver.empty() && driver != "port" && driver != "ctrl";
    });
    return driver;
}

// What the nearest device that has a name for itself says.
std::string descriptionOf(const fs::path& entry)
{
    std::string description;
    eachAbove(entry, [&](const fs::path& place) {
        const std::string product = lineOf(place / "product"), maker = lineOf(place / "manufacturer");
        description = maker.empty() || product.empty() ? product : maker + " " + product;
        return !description.empty();
    });
    return description;
}

// Entries that go meanwhile are passed over.
template <class Visit>
void eachIn(const fs::path& folder, Visit visit)
{
    std::error_code failure;
    for (fs::directory_iterator entry(folder, failure), end; !failure && entry != end;
         entry.increment(failure))
        visit(entry->path());
}

std::map<int, SerialPortFacts> portsByNumber()
{
    const DeviceFolders folders = GetDeviceFolders();
    std::map<int, SerialPortFacts> ports;
    eachIn(fs::path(folders.system) / "class/tty", [&](const fs::path& entry) {
        const std::string name = entry.filename().string();
        std::error_code gone;
        const int number = serialNumberOf(name);
        if (number == 0 || !fs::exists(entry / "device", gone) || isAbsent(entry)) return;
        ports[number] = {number, folders.devices + "/" + name, driverOf(entry), descriptionOf(entry)};
    });
    eachIn(folders.devices, [&](const fs::path& entry) {
        const int number = numberIn(entry.filename().string(), "COM");
        std::error_code gone;
        if (number <= 0 || !fs::is_character_file(entry, gone)) return;
        const std::string target = fs::read_symlink(entry, gone).string();
        ports[number] = {number, entry.string(), {}, target.empty() ? "" : "link to " + target};
    });
    return ports;
}

constexpr char mapKey[] = "Hardware\\DeviceMap\\SerialComm";

std::map<std::string, std::string> mapInRegistry(HKEY key)
{
    std::map<std::string, std::string> values;
    for (DWORD index = 0;; ++index) {
        char name[512], text[512];
        DWORD nameSize = sizeof name, size = sizeof text, type = 0;
        const LONG code =
            RegEnumValueA(key, index, name, &nameSize, nullptr, &type, reinterpret_cast<BYTE*>(text), &size);
        if (code == ERROR_MORE_DATA) continue;
        if (code != NO_ERROR) return values;
        values[std::string(name, nameSize)] = std::string(text, size > 0 ? size - 1 : 0);
    }
}

} // namespace

int serialNumberOf(std::string_view deviceName)
{
    if (const int own = numberIn(deviceName, "COM"); own > 0) return own;
    for (const auto& [kind, first] : names)
        if (const int index = numberIn(deviceName, kind); index >= 0 && index < numbersPerKind)
            return first + index;
    return 0;
}

std::string serialDeviceOf(int number)
{
    const std::string folder = GetDeviceFolders().devices + "/";
    std::string own = folder + "COM" + std::to_string(number);
    if (::access(own.c_str(), F_OK) == 0) return own;
    for (const auto& [kind, first] : names)
        if (number >= first && number < first + numbersPerKind)
            return folder + std::string(kind) + std::to_string(number - first);
    return {};
}

} // namespace corekit::detail

std::vector<SerialPortFacts> ListSerialPorts()
{
    std::vector<SerialPortFacts> ports;
    for (const auto& [number, facts] : corekit::detail::portsByNumber()) ports.push_back(facts);
    return ports;
}

void UpdateSerialDeviceMap()
{
    using namespace corekit::detail;
    std::map<std::string, std::string> wanted;
    for (const SerialPortFacts& port : ListSerialPorts())
        wanted[port.device] = "COM" + std::to_string(port.number);
    HKEY key = nullptr;
    std::map<std::string, std::string> present;
    if (RegOpenKeyExA(HKEY_LOCAL_MACHINE, mapKey, 0, KEY_READ, &key) == NO_ERROR) {
        present = mapInRegistry(key);
        RegCloseKey(key);
    }
    const std::string ours = GetDeviceFolders().devices + "/";
    std::erase_if(present, [&](const auto& value) { return !value.first.starts_with(ours); });
    if (present == wanted) return;
    if (RegCreateKeyExA(HKEY_LOCAL_MACHINE, mapKey, 0, nullptr, REG_OPTION_VOLATILE, KEY_READ | KEY_WRITE,
                        nullptr, &key, nullptr) != NO_ERROR)
        return; // who may not write reads what there is
    for (const auto& [device, name] : present)
        if (!wanted.contains(device)) RegDeleteValueA(key, device.c_str());
    for (const auto& [device, name] : wanted)
        if (const auto it = present.find(device); it == present.end() || it->second != name)
            RegSetValueExA(key, device.c_str(), 0, REG_SZ, reinterpret_cast<const BYTE*>(name.c_str()),
                           static_cast<DWORD>(name.size() + 1));
    RegCloseKey(key);
}
