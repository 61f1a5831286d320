// service-tray [SERVICE]: an icon in the desktop's tray that shows whether a service runs, and starts and
// stops it. Without a name it watches the upload service of examples/service.
#include "ServiceIcon.h"
#include "TrayResources.h"

#include <corekit/hosts/ui/TrayIconApp.h>
#include <corekit/platform/Toolkit.h>

#include <cstdio>

namespace {

class CServiceTray : public CTrayIconApp {
public:
    explicit CServiceTray(const char* service) : CTrayIconApp("Service Tray"), m_service(service) {}

    int OnTrayStart() override
    {
        auto* const icon = new CServiceIcon(*this, m_service);
        const int isShown = AddIcon(icon, 1);
        if (isShown)
            icon->Watch();
        else
            std::fputs("service-tray: this desktop has no tray\n", stderr);
        return isShown;
    }
    void OnTrayExit() override {}

private:
    const char* m_service;
};

} // namespace

int main(int argc, char** argv)
{
    if (!StartToolkit()) return 1;
    UseTrayResources();
    CServiceTray app(argc > 1 ? argv[1] : "Script Upload");
    if (!app.InitInstance()) {
        app.Shutdown();
        return 1;
    }
    return app.Run();
}
