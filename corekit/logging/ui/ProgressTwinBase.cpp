#include "corekit/logging/ui/ProgressTwinBase.h"

#include "corekit/logging/ui/ProgressParts.h"
#include "corekit/platform/ProgressBars.h"

namespace corekit::detail {

BOOL ProgressTwinBase::OnInitDialog()
{
    ProgressDialogBase::OnInitDialog();
    SetDlgItemText(1000, "");
    SetDlgItemText(1006, "");
    return TRUE;
}

void ProgressTwinBase::PumpMessages()
{
    if (m_pumps) PumpAll();
}

void ProgressTwinBase::Sink::TellBar(UINT message, int wParam, int lParam)
{
    m_dialog->PumpMessages();
    m_dialog->SendDlgItemMessage(m_barId, message, static_cast<WPARAM>(wParam), lParam);
}

void ProgressTwinBase::Sink::DoSetStatus(const char* text)
{
    m_dialog->PumpMessages();
    if (m_dialog->GetSafeHwnd()) m_dialog->SetDlgItemText(m_statusId, text);
}

void ProgressTwinBase::Sink::DoSetRange(int lower, int upper)
{
    TellBar(PBM_SETRANGE32, lower, upperBound(lower, upper));
}
void ProgressTwinBase::Sink::DoSetPos(int position) { TellBar(PBM_SETPOS, position); }
void ProgressTwinBase::Sink::DoSetStep(int step) { TellBar(PBM_SETSTEP, step); }
void ProgressTwinBase::Sink::DoStepIt() { TellBar(PBM_STEPIT); }

int ProgressTwinBase::Sink::DoMessageBox(const char* text, unsigned int flags)
{
    return StockMessageBox(m_dialog, text, flags);
}

} // namespace corekit::detail
