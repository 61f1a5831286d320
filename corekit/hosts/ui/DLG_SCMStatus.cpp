#include "corekit/hosts/ui/DLG_SCMStatus.h"

#include "corekit/foundation/ChainedException.h"
#include "corekit/framework/WinApp.h"
#include "corekit/platform/Cursors.h"
#include "corekit/platform/Statics.h"
#include "corekit/platform/Waits.h"
#include "corekit/resources/dialogs/ServiceStatus.h"
#include "corekit/resources/icons/TurningDots.h"

IMPLEMENT_DYNAMIC(DLG_SCMStatus, CDialog)

namespace {
using namespace corekit::detail::dialogs;

constexpr DWORD timeToAppear = 100; // milliseconds
} // namespace

DLG_SCMStatus::DLG_SCMStatus(unsigned int textId)
    : ProgressDialogBase(AfxGetApp() ? AfxGetApp()->m_pszAppName : ""), m_text(LoadResourceString(textId))
{
    for (WORD number = corekit::detail::firstTurningIcon; HICON & icon : m_icons)
        icon = LoadIconA(nullptr, MAKEINTRESOURCEA(number++));
}

void DLG_SCMStatus::Create(CWnd* parent)
{
    if (!CreateOver(serviceStatus.id, parent)) return;
    UpdateWindow();
    Sleep(timeToAppear);
}

BOOL DLG_SCMStatus::OnInitDialog()
{
    ProgressDialogBase::OnInitDialog();
    SetDlgItemText(serviceStatusLine, m_text);
    Show(0);
    return TRUE;
}

void DLG_SCMStatus::SetStatus(const char* text)
{
    PumpAll();
    SetDlgItemText(serviceStatusLine, text);
}

void DLG_SCMStatus::SetStatus(unsigned int textId) { SetStatus(LoadResourceString(textId)); }

void DLG_SCMStatus::SetPos(int position)
{
    PumpAll();
    Show((position % steps + steps) % steps);
}

void DLG_SCMStatus::Show(int step)
{
    SendDlgItemMessage(serviceStatusIcon, STM_SETICON,
                       reinterpret_cast<WPARAM>(m_icons[static_cast<std::size_t>(step)]));
}

int DLG_SCMStatus::Sink::DoMessageBox(const char* text, unsigned int flags)
{
    return StockMessageBox(&m_dialog, text, flags);
}
