// CTrayAppWnd: the hidden window of a tray program, to which the tray, timers and commands speak. It keeps
// the timers' numbers and passes the rest on to the class derived from it, which CTrayIconApp makes; it
// deletes itself when it is destroyed.
#pragma once

#include "corekit/framework/ui/Wnd.h"

#include <vector>

class COREKIT_API CTrayAppWnd : public CWnd {
    DECLARE_DYNAMIC(CTrayAppWnd)
public:
    // 0 if the window cannot be made.
    int CreateTrayWindow();

    // The lowest number that no timer has; 0 if there is none to be had.
    int SetTimer(UINT milliseconds);
    void KillTimer(int timerId);

protected:
    virtual void OnIcon(UINT_PTR, long /*mouseMessage*/) {}
    virtual void OnTick(int /*timerId*/) {}
    // A registered message of others; nonzero if it was handled.
    virtual int OnRegistered(UINT, WPARAM, LPARAM, long& /*result*/) { return 0; }

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    void PostNcDestroy() override;
    LRESULT OnTrayMessage(WPARAM icon, LPARAM mouseMessage);
    void OnTimer(UINT_PTR timerId);
    DECLARE_MESSAGE_MAP()

private:
    std::vector<DWORD> m_timers;
};

namespace corekit::detail {
// What the icons of every tray program tell their window by.
COREKIT_API extern const UINT trayIconMessage;
} // namespace corekit::detail
