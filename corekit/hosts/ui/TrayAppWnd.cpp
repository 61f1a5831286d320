#include "corekit/hosts/ui/TrayAppWnd.h"

#include "corekit/hosts/ui/TrayIconApp.h"

#include <algorithm>

IMPLEMENT_DYNAMIC(CTrayAppWnd, CWnd)

const UINT corekit::detail::trayIconMessage = RegisterWindowMessageA("Tray.Icon.App.Message");
using corekit::detail::trayIconMessage;

BEGIN_MESSAGE_MAP(CTrayAppWnd, CWnd)
ON_WM_TIMER()
ON_REGISTERED_MESSAGE(trayIconMessage, &CTrayAppWnd::OnTrayMessage)
END_MESSAGE_MAP()

namespace {

constexpr UINT firstRegistered = 0xC000, lastRegistered = 0xFFFF;

CTrayIconApp* TrayApp()
{
    CWinApp* const app = AfxGetApp();
    return app && app->IsKindOf(RUNTIME_CLASS(CTrayIconApp)) ? static_cast<CTrayIconApp*>(app) : nullptr;
}

} // namespace

int CTrayAppWnd::CreateTrayWindow()
{
    static const CString className = AfxRegisterWndClass(0);
    return CreateEx(0, className, "Tray Icon Notification Window", 0, 0, 0, 0, 0, nullptr, nullptr);
}

void CTrayAppWnd::PostNcDestroy() { delete this; }

int CTrayAppWnd::SetTimer(UINT milliseconds)
{
    DWORD id = 1;
    while (std::ranges::find(m_timers, id) != m_timers.end()) ++id;
    const auto made = static_cast<DWORD>(CWnd::SetTimer(id, milliseconds));
    if (made != 0) m_timers.push_back(made);
    return static_cast<int>(made);
}

void CTrayAppWnd::KillTimer(int timerId)
{
    CWnd::KillTimer(static_cast<UINT_PTR>(timerId));
    std::erase(m_timers, static_cast<DWORD>(timerId));
}

LRESULT CTrayAppWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    CTrayIconApp* const app = TrayApp();
    const bool isOthers =
        message >= firstRegistered && message <= lastRegistered && message != trayIconMessage;
    long result = 0;
    if (app && isOthers &&
        app->DispatchRegisteredMessage(message, static_cast<unsigned int>(wParam), lParam, result))
        return result;
    return CWnd::WindowProc(message, wParam, lParam);
}

LRESULT CTrayAppWnd::OnTrayMessage(WPARAM icon, LPARAM mouseMessage)
{
    if (CTrayIconApp* const app = TrayApp()) app->OnIconMessage(icon, static_cast<long>(mouseMessage));
    return 0;
}

void CTrayAppWnd::OnTimer(UINT_PTR timerId)
{
    if (CTrayIconApp* const app = TrayApp()) app->FireTimer(static_cast<int>(timerId));
}

BOOL CTrayAppWnd::OnCmdMsg(UINT id, int code, void* extra, AFX_CMDHANDLERINFO* info)
{
    if (CCmdTarget::OnCmdMsg(id, code, extra, info)) return TRUE;
    CTrayIconApp* const app = TrayApp();
    return app && app->OnCmdMsg(id, code, extra, info);
}
