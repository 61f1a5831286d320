// The two applets.
#pragma once

#include "AppletResources.h"

#include <corekit/hosts/ui/ControlPanelApp.h>

// Changes the service's settings, which it reads when it starts.
class CSettingsItem : public CControlPanelItem {
public:
    void OnDoubleClick(CWnd* parent) override;
    int GetIconId() override { return applet::picture; }
    int GetNameId() override { return applet::settingsName; }
    int GetInfoId() override { return applet::settingsInfo; }
};

// Tells whether the service runs.
class CStatusItem : public CControlPanelItem {
public:
    void OnDoubleClick(CWnd* parent) override;
    int GetIconId() override { return applet::picture; }
    int GetNameId() override { return applet::statusName; }
    int GetInfoId() override { return applet::statusInfo; }
};
