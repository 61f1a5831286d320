// CTrayIconApp: a program without a visible window that lives in the desktop's tray.
//
//     class CWatcher : public CTrayIconApp {
//         int OnTrayStart() override { return AddIcon(new CServiceIcon, 1); }
//         void OnTrayExit() override {}
//     };
//     int main() { CWatcher app; return StartToolkit() && app.InitInstance() ? app.Run() : 1; }
//
// It owns one hidden window and a list of icons, and passes clicks, timers, commands and registered messages
// on to them. Icons are deleted with the program if they were made so. User-interface thread.
#pragma once

#include "corekit/framework/WinApp.h"
#include "corekit/hosts/ui/TrayIcon.h"

#include <vector>

class COREKIT_API CTrayIconApp : public CWinApp {
    DECLARE_DYNAMIC(CTrayIconApp)
public:
    explicit CTrayIconApp(const char* appName = nullptr) : CWinApp(appName) {}

    // Makes the window; 0 where that fails or OnTrayStart gives 0.
    BOOL InitInstance() override;
    int ExitInstance() override; // calls OnTrayExit

    // Enters the icon in the list; with `show` nonzero it also appears, and the result is whether it did.
    int AddIcon(CTrayIcon* icon, int show);
    // 0 for an icon that is not in the list, and where the desktop has no tray.
    int AddIconToTaskbar(CTrayIcon* icon);
    int ChangeIconOnTaskbar(CTrayIcon* icon);
    int RemoveIconFromTaskbar(CTrayIcon* icon); // it stays in the list
    // Counted from 0 in the order of AddIcon; null outside the list.
    CTrayIcon* GetIcon(int index);

    // Takes all icons away and destroys the window, which ends the program's loop.
    void Shutdown();
    // Asks each icon in turn whether the timer is its own, until one says so.
    void FireTimer(int timerId);
    // 0 if no icon handled it.
    int DispatchRegisteredMessage(unsigned int message, unsigned int wParam, long lParam, long& result);
    // Asks the icons, in order, for what the program itself does not handle.
    BOOL OnCmdMsg(UINT id, int code, void* extra, AFX_CMDHANDLERINFO* info) override;

    virtual int OnTrayStart() = 0; // nonzero for success
    virtual void OnTrayExit() = 0; // when the loop has ended

private:
    class Window;

    void OnIconMessage(UINT_PTR icon, long mouseMessage);
    bool IsInList(const CTrayIcon* icon) const;
    // Gives each icon a chance until one answers nonzero. They may come and go meanwhile.
    template <class Ask>
    int AskIcons(Ask ask);

    std::vector<CTrayIcon*> m_icons; // in the order of AddIcon
};

namespace corekit::detail {
// A tip as it is shown: of more than 63 characters the first 60 and three dots.
COREKIT_API CString shownTip(const CString& text);
} // namespace corekit::detail
