// CTrayAppWnd: the hidden window of a tray program, to which the tray, timers and commands speak. Made by
// CTrayIconApp; it deletes itself when it is destroyed.
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

    BOOL OnCmdMsg(UINT id, int code, void* extra, AFX_CMDHANDLERINFO* info) override;

protected:
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
