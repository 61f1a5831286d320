#include "tests/devices/ScriptedScsi.h"

#include <cerrno>
#include <cstdarg>
#include <map>
#include <mutex>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {
std::mutex lock;
std::map<ino_t, ScriptedDevice> devices;

ScriptedDevice DeviceOf(int descriptor)
{
    struct stat facts;
    if (fstat(descriptor, &facts) != 0) return {};
    const std::lock_guard guard(lock);
    const auto it = devices.find(facts.st_ino);
    return it != devices.end() ? it->second : ScriptedDevice();
}
} // namespace

// In the place of the C library's, for this whole process.
extern "C" __attribute__((visibility("default"))) int ioctl(int descriptor, unsigned long request,
                                                            ...) noexcept
{
    va_list arguments;
    va_start(arguments, request);
    void* const argument = va_arg(arguments, void*);
    va_end(arguments);
    if (request == SG_IO)
        if (const ScriptedDevice device = DeviceOf(descriptor)) {
            errno = device(*static_cast<sg_io_hdr*>(argument));
            return errno == 0 ? 0 : -1;
        }
    return static_cast<int>(syscall(SYS_ioctl, descriptor, request, argument));
}

ScriptedScsi::ScriptedScsi()
{
    std::filesystem::create_directories(folder / "dev");
    std::filesystem::create_directories(folder / "sys/class/scsi_host");
    SetDeviceFolders({folder / "dev", folder / "sys"});
}

ScriptedScsi::~ScriptedScsi()
{
    SetDeviceFolders({});
    const std::lock_guard guard(lock);
    devices.clear();
}

void ScriptedScsi::AddUnit(const std::string& place, int type, const std::string& vendor,
                           const std::string& model, bool isClaimed)
{
    const std::string host = folder / ("sys/class/scsi_host/host" + place.substr(0, place.find(':')));
    std::filesystem::create_directories(host);
    WriteWhole(host + "/sg_tablesize", "2\n");
    const std::string unit = folder / ("sys/bus/scsi/devices/" + place);
    std::filesystem::create_directories(unit);
    WriteWhole(unit + "/type", std::to_string(type) + "\n");
    WriteWhole(unit + "/vendor", vendor + "\n");
    WriteWhole(unit + "/model", model + "\n");
    WriteWhole(unit + "/rev", "1.02\n");
    if (isClaimed) std::filesystem::create_directories(unit + "/driver");
}

std::string ScriptedScsi::AddFile(const std::string& place, const std::string& name, ScriptedDevice device)
{
    std::filesystem::create_directories(folder / ("sys/bus/scsi/devices/" + place + "/scsi_generic/" + name));
    const std::string path = folder / ("dev/" + name);
    WriteWhole(path, "");
    struct stat facts;
    stat(path.c_str(), &facts);
    const std::lock_guard guard(lock);
    devices[facts.st_ino] = std::move(device);
    return path;
}
