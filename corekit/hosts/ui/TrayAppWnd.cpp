#include "corekit/hosts/ui/TrayAppWnd.h"

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
    const bool isOthers =
        message >= firstRegistered && message <= lastRegistered && message != trayIconMessage;
    long result = 0;
    if (isOthers && OnRegistered(message, wParam, lParam, result)) return result;
    return CWnd::WindowProc(message, wParam, lParam);
}

LRESULT CTrayAppWnd::OnTrayMessage(WPARAM icon, LPARAM mouseMessage)
{
    OnIcon(icon, static_cast<long>(mouseMessage));
    return 0;
}

void CTrayAppWnd::OnTimer(UINT_PTR timerId) { OnTick(static_cast<int>(timerId)); }
