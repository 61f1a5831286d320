#include "Service.h"

#include "corekit/hosts/ServiceApp.h"
#include "corekit/logging/LogTarget.h"
#include "corekit/stores/RegistryKey.h"

namespace {

class Service : public CServiceApp {
public:
    Service() : CServiceApp("Startup") {}

protected:
    int OnServiceStart() override { return 1; }
    void OnServiceStop() override {}
    CString GetRegistryKeyName() override { return "Software\\Startup"; }
    void OnControlStop() override {}
    void OnControlPause() override {}
    void OnControlContinue() override {}
    void OnControlShutdown() override {}
    void OnControlUserDefined(unsigned long) override {}
    int CanPauseContinue() override { return 0; }
    void ShowAbout() override {}
    int ParseArgument(int*, char***) override { return 0; }
};

} // namespace

int main(int, char** argv)
{
    const Service service;
    CLogTarget log;
    if (!log.CreateLogFile("startup-corekit", argv[1], 0)) return 1;
    log.LogInfoMsg("started");
    CRegistryKey key;
    int interval = 0;
    if (key.Open(HKEY_CURRENT_USER, "Software\\Startup", 0x20019)) key.GetValue("Interval", interval);
    std::printf("%ld\n", residentKibibytes());
    return 0;
}
