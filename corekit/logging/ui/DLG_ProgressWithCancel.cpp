#include "corekit/logging/ui/DLG_ProgressWithCancel.h"

#include "corekit/foundation/ChainedException.h"
#include "corekit/framework/Module.h"
#include "corekit/framework/WinApp.h"
#include "corekit/logging/ui/ProgressParts.h"
#include "corekit/resources/dialogs/Progress.h"

#include <utility>

IMPLEMENT_DYNAMIC(DLG_ProgressWithCancel, CDialog)

BEGIN_MESSAGE_MAP(DLG_ProgressWithCancel, CDialog)
ON_WM_SETCURSOR()
END_MESSAGE_MAP()

using namespace corekit::detail;

DLG_ProgressWithCancel::DLG_ProgressWithCancel(unsigned int titleId)
    : DLG_ProgressWithCancel(LoadResourceString(titleId))
{
}
DLG_ProgressWithCancel::DLG_ProgressWithCancel(const char* title) : ProgressDialogBase(title) {}

int DLG_ProgressWithCancel::Create(CWnd* parent)
{
    return CreateOver(dialogs::progressWithCancel.id, parent);
}

BOOL DLG_ProgressWithCancel::OnInitDialog()
{
    ProgressDialogBase::OnInitDialog();
    ProgressParts(*this).begin(m_lower, m_upper, m_step);
    return TRUE;
}

BOOL DLG_ProgressWithCancel::OnSetCursor(CWnd*, UINT, UINT)
{
    if (CWinApp* const app = AfxGetApp()) app->DoWaitCursor(0);
    return TRUE;
}

void DLG_ProgressWithCancel::SetStatus(const char* text) { ProgressParts(*this).setStatus(text); }

void DLG_ProgressWithCancel::SetStatus(unsigned int textId)
{
    PumpAll();
    SetStatus(LoadResourceString(textId));
}

void DLG_ProgressWithCancel::SetStatus1(unsigned int textId, const char* arg1)
{
    CString text;
    AfxFormatString1(text, textId, arg1);
    SetStatus(text);
}

void DLG_ProgressWithCancel::SetStatus2(unsigned int textId, const char* arg1, const char* arg2)
{
    CString text;
    AfxFormatString2(text, textId, arg1, arg2);
    SetStatus(text);
}

void DLG_ProgressWithCancel::SetRange(int lower, int upper)
{
    m_lower = lower;
    m_upper = upperBound(lower, upper);
    ProgressParts(*this).setRange(m_lower, m_upper);
}

int DLG_ProgressWithCancel::SetStep(int step)
{
    ProgressParts(*this).setStep(step);
    return std::exchange(m_step, step);
}

int DLG_ProgressWithCancel::SetPos(int position)
{
    PumpAll();
    return ProgressParts(*this).moveTo(position, m_lower, m_upper);
}

int DLG_ProgressWithCancel::OffsetPos(int delta)
{
    PumpAll();
    return ProgressParts(*this).moveBy(delta, m_lower, m_upper);
}

int DLG_ProgressWithCancel::StepIt()
{
    PumpAll();
    return ProgressParts(*this).step(m_step, m_lower, m_upper);
}

int DLG_ProgressWithCancel::CheckCancelButton()
{
    PumpAll();
    return std::exchange(m_cancelled, 0);
}

int DLG_ProgressWithCancel::Sink::DoMessageBox(const char* text, unsigned int flags)
{
    return StockMessageBox(m_dialog, text, flags);
}
