#include "corekit/hosts/ui/TrayIcon.h"

#include "corekit/hosts/ui/TrayAppWnd.h"

IMPLEMENT_DYNAMIC(CTrayIcon, CCmdTarget)

namespace {
// The window of the program that runs on this thread; null for another program.
CTrayAppWnd* trayWindow()
{
    CWnd* const window = AfxGetMainWnd();
    return window && window->IsKindOf(RUNTIME_CLASS(CTrayAppWnd)) ? static_cast<CTrayAppWnd*>(window)
                                                                  : nullptr;
}
} // namespace

void CTrayIcon::OnMouseMessage(long message)
{
    switch (message) {
    case WM_LBUTTONDOWN:
        return OnLeftButtonDown();
    case WM_LBUTTONDBLCLK:
        return OnLeftButtonDblClk();
    case WM_RBUTTONDOWN:
        return OnRightButtonDown();
    case WM_RBUTTONDBLCLK:
        return OnRightButtonDblClk();
    default:
        return;
    }
}

void CTrayIcon::Delete()
{
    if (m_autoDelete) delete this;
}

int CTrayIcon::SetTimer(unsigned int milliseconds)
{
    CTrayAppWnd* const window = trayWindow();
    return window ? window->SetTimer(milliseconds) : 0;
}

void CTrayIcon::KillTimer(int timerId)
{
    if (CTrayAppWnd* const window = trayWindow()) window->KillTimer(timerId);
}
