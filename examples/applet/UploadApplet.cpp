// The library of applets for the upload service.
#include "UploadItems.h"

#include <corekit/hosts/ui/ControlPanelApp.h>

namespace {

class CUploadApplet : public CControlPanelApp {
public:
    CUploadApplet() : CControlPanelApp("Script Upload") {}

    void OnLoad() override {}
    int OnAppletInit() override
    {
        AddCplItem(new CSettingsItem);
        AddCplItem(new CStatusItem);
        return 1;
    }
    void OnAppletExit() override {}
};

CUploadApplet theApplet;

} // namespace

IMPLEMENT_CONTROL_PANEL(theApplet)
