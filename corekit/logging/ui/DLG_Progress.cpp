// Compiled so that a null `this` is not taken to be impossible.
#include "corekit/logging/ui/DLG_Progress.h"

#include "corekit/foundation/ChainedException.h"
#include "corekit/framework/Module.h"
#include "corekit/framework/WinApp.h"
#include "corekit/logging/ui/ProgressParts.h"
#include "corekit/resources/dialogs/Progress.h"

IMPLEMENT_DYNAMIC(DLG_Progress, CDialog)

BEGIN_MESSAGE_MAP(DLG_Progress, CDialog)
ON_WM_SETCURSOR()
END_MESSAGE_MAP()

using namespace corekit::detail;

namespace {

template <class Work>
void unless(const DLG_Progress* dialog, Work work)
{
    if (dialog) work();
}

} // namespace

DLG_Progress::DLG_Progress(unsigned int titleId) : DLG_Progress(LoadResourceString(titleId)) {}
DLG_Progress::DLG_Progress(const char* title) : ProgressDialogBase(title) {}

int DLG_Progress::Create(CWnd* parent)
{
    int result = 0;
    unless(this, [&] { result = CreateOver(dialogs::progress.id, parent); });
    return result;
}

BOOL DLG_Progress::OnInitDialog()
{
    ProgressDialogBase::OnInitDialog();
    ProgressParts(*this).begin(m_lower, m_upper, m_step);
    return TRUE;
}

BOOL DLG_Progress::OnSetCursor(CWnd*, UINT, UINT)
{
    if (CWinApp* const app = AfxGetApp()) app->DoWaitCursor(0);
    return TRUE;
}

void DLG_Progress::PumpMessages()
{
    if (!m_pumps) return;
    CWinThread* const thread = AfxGetThread();
    MSG message;
    while (thread && PeekMessageA(&message, nullptr, 0, 0, PM_NOREMOVE) && message.message != WM_QUIT)
        thread->PumpMessage();
}

void DLG_Progress::SetStatus(const char* text)
{
    unless(this, [&] {
        PumpMessages();
        ProgressParts(*this).setStatus(text);
    });
}

void DLG_Progress::SetStatus(unsigned int textId)
{
    unless(this, [&] { SetStatus(LoadResourceString(textId)); });
}

void DLG_Progress::SetStatus1(unsigned int textId, const char* arg1)
{
    unless(this, [&] {
        CString text;
        AfxFormatString1(text, textId, arg1);
        SetStatus(text);
    });
}

void DLG_Progress::SetStatus2(unsigned int textId, const char* arg1, const char* arg2)
{
    unless(this, [&] {
        CString text;
        AfxFormatString2(text, textId, arg1, arg2);
        SetStatus(text);
    });
}

void DLG_Progress::SetRange(int lower, int upper)
{
    unless(this, [&] {
        m_lower = lower;
        m_upper = upperBound(lower, upper);
        ProgressParts(*this).setRange(m_lower, m_upper);
    });
}

void DLG_Progress::SetStep(int step)
{
    unless(this, [&] {
        m_step = step;
        ProgressParts(*this).setStep(step);
    });
}

void DLG_Progress::SetPos(int position)
{
    unless(this, [&] {
        PumpMessages();
        ProgressParts(*this).moveTo(position, m_lower, m_upper);
    });
}

void DLG_Progress::OffsetPos(int delta)
{
    unless(this, [&] {
        PumpMessages();
        ProgressParts(*this).moveBy(delta, m_lower, m_upper);
    });
}

void DLG_Progress::StepIt()
{
    unless(this, [&] {
        PumpMessages();
        ProgressParts(*this).step(m_step, m_lower, m_upper);
    });
}

void DLG_Progress::EnablePumpMessages(int enable)
{
    unless(this, [&] { m_pumps = enable; });
}

CProgressSink* DLG_Progress::GetProgressSink()
{
    CProgressSink* sink = nullptr;
    unless(this, [&] { sink = &m_sink; });
    return sink;
}

int DLG_Progress::Sink::DoMessageBox(const char* text, unsigned int flags)
{
    return StockMessageBox(m_dialog, text, flags);
}
