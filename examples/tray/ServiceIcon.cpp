#include "ServiceIcon.h"

#include "TrayResources.h"

#include <corekit/foundation/ChainedException.h>
#include <corekit/framework/MessageBox.h>
#include <corekit/framework/ui/Menu.h>
#include <corekit/framework/ui/Wnd.h>
#include <corekit/hosts/ui/DLG_SCMStatus.h>
#include <corekit/platform/PopupMenus.h>

namespace {
constexpr UINT commandStart = 1001, commandStop = 1002, commandQuit = 1003;
constexpr unsigned int betweenLooks = 2000;

const char* WordFor(DWORD state)
{
    switch (state) {
    case SERVICE_STOPPED:
        return "stopped";
    case SERVICE_RUNNING:
        return "running";
    case SERVICE_PAUSED:
        return "paused";
    case SERVICE_START_PENDING:
        return "starting";
    case SERVICE_STOP_PENDING:
        return "stopping";
    default:
        return "changing";
    }
}
} // namespace

BEGIN_MESSAGE_MAP(CServiceIcon, CTrayIcon)
ON_COMMAND(commandStart, &CServiceIcon::OnStart)
ON_COMMAND(commandStop, &CServiceIcon::OnStop)
ON_COMMAND(commandQuit, &CServiceIcon::OnQuit)
END_MESSAGE_MAP()

CServiceIcon::CServiceIcon(CTrayIconApp& app, const char* service)
    : CTrayIcon(1), m_app(app), m_service(service)
{
    m_state = State();
}

void CServiceIcon::Watch() { m_timer = SetTimer(betweenLooks); }

void CServiceIcon::OnShutdown() { KillTimer(m_timer); }

// A manager that has gone is looked for again.
DWORD CServiceIcon::State()
{
    SERVICE_STATUS status{};
    if (m_manager.QueryServiceStatus(m_service, status)) return status.dwCurrentState;
    m_manager.Close();
    if (m_manager.OpenLocal(SC_MANAGER_CONNECT) && m_manager.QueryServiceStatus(m_service, status))
        return status.dwCurrentState;
    m_reason = GetLastErrorString();
    m_reason.TrimRight();
    return 0;
}

void CServiceIcon::Look()
{
    const DWORD before = m_state;
    m_state = State();
    if (m_state != before) m_app.ChangeIconOnTaskbar(this);
}

int CServiceIcon::OnTimer(int timerId)
{
    if (timerId != m_timer) return 0;
    if (!m_isBusy) Look();
    return 1;
}

int CServiceIcon::GetIconId()
{
    if (m_state == SERVICE_RUNNING) return pictureRunning;
    return m_state == 0 || m_state == SERVICE_STOPPED ? pictureStopped : pictureChanging;
}

void CServiceIcon::GetTipText(CString& text)
{
    text = m_service + ": " + (m_state != 0 ? CString(WordFor(m_state)) : m_reason);
}

void CServiceIcon::OnLeftButtonDblClk() { m_state == SERVICE_RUNNING ? OnStop() : OnStart(); }

void CServiceIcon::OnRightButtonDown()
{
    CMenu menu;
    menu.CreatePopupMenu();
    const bool runs = m_state == SERVICE_RUNNING;
    menu.AppendMenu(runs ? MF_GRAYED : MF_STRING, commandStart, "&Start");
    menu.AppendMenu(runs ? MF_STRING : MF_GRAYED, commandStop, "S&top");
    menu.AppendMenu(MF_SEPARATOR);
    menu.AppendMenu(MF_STRING, commandQuit, "&Quit");
    POINT place{};
    GetCursorPos(&place);
    TrackPopupMenu(menu, TPM_RIGHTBUTTON, place.x, place.y, 0, AfxGetMainWnd()->GetSafeHwnd());
}

// Why it could not be done; empty if it could.
CString CServiceIcon::Try(unsigned int textId, Operation operation)
{
    Look();
    if (m_state == 0) return m_reason;
    DLG_SCMStatus status(textId);
    status.Create(AfxGetMainWnd());
    const int isDone = (m_manager.*operation)(m_service, status.GetProgressSink());
    const CString reason = isDone ? CString() : GetLastErrorString();
    status.DestroyWindow();
    Look();
    return reason;
}

// Clicks and the menu come in while the windows of this are up.
void CServiceIcon::Change(unsigned int textId, Operation operation)
{
    if (m_isBusy) return;
    m_isBusy = true;
    const CString reason = Try(textId, operation);
    if (!reason.IsEmpty()) AfxMessageBox(m_service + ": " + reason, MB_ICONEXCLAMATION);
    m_isBusy = false;
    if (m_quits) OnQuit();
}

void CServiceIcon::OnStart() { Change(textStarting, &CNTServiceControlMgr::StartServiceA); }
void CServiceIcon::OnStop() { Change(textStopping, &CNTServiceControlMgr::StopService); }

// This object goes with the program.
void CServiceIcon::OnQuit()
{
    m_quits = m_isBusy;
    if (!m_quits) m_app.Shutdown();
}
