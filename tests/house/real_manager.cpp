// A service from its installation to its removal under a service manager that is not ours: real_manager
// RUNTIME UNITS, where the manager's socket and its folder of units are. With -service it is that service.
#include "tests/support/Positions.h"

#include "corekit/hosts/NTServiceControlMgr.h"
#include "corekit/hosts/ServiceApp.h"
#include "corekit/platform/Handles.h"
#include "corekit/platform/Waits.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>
#include <vector>

namespace {

constexpr char name[] = "Slow \"Start\" 100%";

// Takes its time to start and says so.
class SlowService final : public CServiceApp {
public:
    SlowService() : CServiceApp(name) {}

protected:
    int OnServiceStart() override
    {
        for (int step = 0; step < 4; ++step, Sleep(400)) Checkpoint();
        return 1;
    }
    void OnServiceStop() override {}
    CString GetRegistryKeyName() override { return "Software\\Corvane\\Slow"; }
    void OnControlStop() override { ExitService(0); }
    void OnControlPause() override {}
    void OnControlContinue() override {}
    void OnControlShutdown() override { ExitService(0); }
    void OnControlUserDefined(unsigned long) override {}
    int CanPauseContinue() override { return 0; }
    void ShowAbout() override {}
    int ParseArgument(int* argc, char*** argv) override
    {
        const bool isMine = std::strcmp(**argv, "-service") == 0;
        *argc -= isMine;
        *argv += isMine;
        return isMine;
    }
};

int connectTo(const std::string& path)
{
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    path.copy(address.sun_path, sizeof address.sun_path - 1);
    const int fd = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (::connect(fd, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0) return fd;
    ::close(fd);
    return -1;
}

void want(bool isSo, const char* what)
{
    if (isSo) return;
    std::fprintf(stderr, "real_manager: %s (error %u)\n", what, static_cast<unsigned>(GetLastError()));
    std::exit(1);
}

int install(CNTServiceControlMgr& manager, unsigned long startType)
{
    const std::string program = std::filesystem::read_symlink("/proc/self/exe");
    return manager.CreateServiceA(name, name, SERVICE_WIN32_OWN_PROCESS, startType, SERVICE_ERROR_NORMAL,
                                  ("\"" + program + "\" -service").c_str(), nullptr, nullptr, CStringArray(),
                                  nullptr, nullptr);
}

void startAndStop(CNTServiceControlMgr& manager)
{
    SERVICE_STATUS status{};
    Positions positions;
    want(manager.StartServiceA(name, &positions), "the service does not start");
    want(std::ranges::is_sorted(positions.seen) && positions.seen.back() >= 2, "the start shows no progress");
    want(manager.QueryServiceStatus(name, status) && status.dwCurrentState == SERVICE_RUNNING,
         "it does not run");
    want(!manager.StartServiceA(name, nullptr) && GetLastError() == ERROR_SERVICE_ALREADY_RUNNING,
         "it runs twice");
    want(manager.StopService(name, nullptr), "the service does not stop");
    want(!manager.StopService(name, nullptr) && GetLastError() == ERROR_SERVICE_NOT_ACTIVE, "it stops twice");
}

} // namespace

int main(int argc, char** argv)
{
    if (argc == 2) return SlowService().StartConsoleApp(name, argc - 1, argv + 1);
    const std::string runtime = argv[1], units = argv[2];
    SetServicePlaces({units, [&] { return connectTo(runtime + "/systemd/private"); }});
    CNTServiceControlMgr manager;
    want(manager.OpenLocal(SC_MANAGER_ALL_ACCESS), "the manager cannot be reached");
    want(!manager.ServiceExists(name) && GetLastError() == ERROR_SERVICE_DOES_NOT_EXIST,
         "it is there before");
    want(install(manager, SERVICE_AUTO_START), "the service cannot be installed");
    const std::string link = units + "/multi-user.target.wants/Slow\\x20\\x22Start\\x22\\x20100\\x25.service";
    want(std::filesystem::is_symlink(link), "it is not enabled");
    std::ofstream(link, std::ios::app) << "[Service]\nEnvironment=COREKIT_HOME=" << runtime << "\n";
    want(install(manager, SERVICE_DEMAND_START), "it cannot be installed over");
    want(!std::filesystem::exists(link), "it is still enabled");
    startAndStop(manager);
    want(manager.DisableService(name), "it cannot be disabled");
    want(!manager.StartServiceA(name, nullptr) && GetLastError() == ERROR_SERVICE_DISABLED,
         "disabled, it starts");
    want(manager.DeleteService(name), "it cannot be removed");
    want(!manager.ServiceExists(name) && GetLastError() == ERROR_SERVICE_DOES_NOT_EXIST, "it is there after");
    std::puts("The real manager and the library understand each other.");
}
