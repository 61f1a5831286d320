#include "corekit/logging/ui/DLG_Status.h"

#include "corekit/foundation/ChainedException.h"
#include "corekit/platform/Waits.h"
#include "corekit/resources/dialogs/Progress.h"

IMPLEMENT_DYNAMIC(DLG_Status, CDialog)

namespace {
constexpr UINT hostTitle = 57344;
constexpr int statusControl = 1002;
constexpr DWORD appearing = 100, reading = 250; // milliseconds
} // namespace

DLG_Status::DLG_Status(unsigned int titleId, unsigned int statusId)
    : ProgressDialogBase(LoadResourceString(titleId ? titleId : hostTitle)),
      m_status(statusId ? LoadResourceString(statusId) : CString())
{
}
DLG_Status::DLG_Status(unsigned int statusId) : DLG_Status(0, statusId) {}

int DLG_Status::Create(CWnd* parent)
{
    if (!CreateOver(corekit::detail::dialogs::status.id, parent)) return 0;
    UpdateWindow();
    Sleep(appearing);
    return 1;
}

BOOL DLG_Status::OnInitDialog()
{
    ProgressDialogBase::OnInitDialog();
    SetDlgItemText(statusControl, m_status);
    return TRUE;
}

void DLG_Status::SetStatus(const char* text)
{
    PumpAll();
    if (!m_hWnd) return;
    SetDlgItemText(statusControl, text);
    UpdateWindow();
    Sleep(reading);
}

void DLG_Status::SetStatus(unsigned int textId) { SetStatus(LoadResourceString(textId)); }
