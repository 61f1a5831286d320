// CControlPanelApp: a library of control-panel applets.
//
//     class CSettings : public CControlPanelApp {
//         void OnLoad() override {}
//         int OnAppletInit() override { AddCplItem(new CUploadItem); return 1; }
//         void OnAppletExit() override {}
//     };
//     static CSettings settings;
//     IMPLEMENT_CONTROL_PANEL(settings)
//
// "corekit applet LIBRARY" lists and opens what is in it; examples/applet is a complete one. User-interface
// thread.
#pragma once

#include "corekit/framework/ui/Wnd.h"
#include "corekit/framework/WinApp.h"
#include "corekit/platform/ControlPanel.h"

#include <memory>
#include <vector>

// One applet. Made with new; the application owns it.
class COREKIT_API CControlPanelItem : public CObject {
    DECLARE_DYNAMIC(CControlPanelItem)
public:
    // The user opens it; `parent` is the shell's window or null.
    virtual void OnDoubleClick(CWnd* parent) = 0;
    // Numbers of its icon, its name and a line about it in the library's resources.
    virtual int GetIconId() = 0;
    virtual int GetNameId() = 0;
    virtual int GetInfoId() = 0;
};

class COREKIT_API CControlPanelApp : public CWinApp {
    DECLARE_DYNAMIC(CControlPanelApp)
public:
    // The name may be null; it must outlive the object.
    explicit CControlPanelApp(const char* appName = nullptr) : CWinApp(appName) {}

    virtual void OnLoad() = 0;      // once, when the library gets its first message
    virtual int OnAppletInit() = 0; // adds the items; nonzero for success
    // The shell is done with the applets, or OnAppletInit gave 0; the items are gone already.
    virtual void OnAppletExit() = 0;

    // Calls OnLoad. The library's entry calls this and ExitInstance; nobody runs a loop.
    BOOL InitInstance() override;
    // The library goes.
    int ExitInstance() override;

    // What the library's entry does with a message of the shell (CPL_). An item that is not there is
    // ignored. 1 for a CPL_INIT that succeeded, the number of items for CPL_GETCOUNT, else 0.
    long CplApplet(HWND parent, unsigned int message, long lParam1, long lParam2);

protected:
    // The item belongs to the library until CPL_EXIT.
    void AddCplItem(CControlPanelItem* item) { m_items.emplace_back(item); }

private:
    CControlPanelItem* ItemAt(long index) const; // null if there is none

    std::vector<std::unique_ptr<CControlPanelItem>> m_items; // in the order of AddCplItem
};

namespace corekit::detail {
// The time from a library's first message until it goes.
class COREKIT_API ControlPanelLife {
public:
    explicit ControlPanelLife(CControlPanelApp& app) : m_app(app) { app.InitInstance(); }
    ControlPanelLife(const ControlPanelLife&) = delete;
    ControlPanelLife& operator=(const ControlPanelLife&) = delete;
    ~ControlPanelLife() { m_app.ExitInstance(); }

private:
    CControlPanelApp& m_app;
};
} // namespace corekit::detail

// The library's entry, in one of its sources; `app` is its application object.
#define IMPLEMENT_CONTROL_PANEL(app)                                                                         \
    extern "C" COREKIT_API LONG CPlApplet(HWND parent, UINT message, LPARAM lParam1, LPARAM lParam2)         \
    {                                                                                                        \
        static const corekit::detail::ControlPanelLife life(app);                                            \
        return static_cast<LONG>((app).CplApplet(parent, message, lParam1, lParam2));                        \
    }
