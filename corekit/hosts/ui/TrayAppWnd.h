// CTrayAppWnd: the hidden window of a tray program, to which the tray, timers and commands speak. It keeps
// the timers' numbers and passes the rest on to the class derived from it, which CTrayIconApp makes; it
// deletes itself when it is destroyed.
#pragma once

#include "corekit/framework/ui/Wnd.h"

#include <vector>

class COREKIT_API CTrayAppWnd : public CWnd {
    DECLARE_DYNAMIC(CTrayAppWnd)
public:
    // 0 if the window cannot be made; the caller then deletes the object.
    int CreateTrayWindow();

    // Starts a timer and gives its number, the lowest that no timer has; 0 if there is none to be had. It
    // tells the icons every so many milliseconds.
    int SetTimer(UINT milliseconds);
    // Its number may be given to the next timer.
    void KillTimer(int timerId);

protected:
    virtual void OnIcon(UINT_PTR, long /*mouseMessage*/) {}
    virtual void OnTick(int /*timerId*/) {}
    // A registered message of others; nonzero if it was handled.
    virtual int OnRegistered(UINT, WPARAM, LPARAM, long& /*result*/) { return 0; }

    // Registered messages, other than that of the icons, are offered to the icons first.
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

    void PostNcDestroy() override;                           // deletes the object
    LRESULT OnTrayMessage(WPARAM icon, LPARAM mouseMessage); // what the mouse does to an icon in the tray
    void OnTimer(UINT_PTR timerId);                          // asks the icons whose it is
    DECLARE_MESSAGE_MAP()

private:
    std::vector<DWORD> m_timers; // numbers in use
};

namespace corekit::detail {
// What the icons of every tray program tell their window by.
COREKIT_API extern const UINT trayIconMessage;
} // namespace corekit::detail
