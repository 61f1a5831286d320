#include "corekit/logging/ui/ProgressParts.h"

#include "corekit/framework/ui/Wnd.h"
#include "corekit/platform/ProgressBars.h"

namespace corekit::detail {

namespace {
constexpr int statusControl = 1005, percentControl = 1004, barControl = 1003;
} // namespace

int percentage(long long position, int lower, int upper)
{
    const long long done = position - lower, whole = static_cast<long long>(upper) - lower;
    if (whole <= 0) return 100;
    const long long share = done * 100 / whole;
    return static_cast<int>(share == 100 ? share : share % 100);
}

void ProgressParts::begin(int lower, int upper, int step)
{
    setRange(lower, upper);
    setStep(step);
    m_dialog.SendDlgItemMessage(barControl, PBM_SETPOS, static_cast<WPARAM>(lower));
}

void ProgressParts::setStatus(const char* text)
{
    if (const HWND control = ::GetDlgItem(m_dialog.m_hWnd, statusControl)) ::SetWindowTextA(control, text);
}

void ProgressParts::setRange(int lower, int upper)
{
    m_dialog.SendDlgItemMessage(barControl, PBM_SETRANGE32, static_cast<WPARAM>(lower), upper);
}

void ProgressParts::setStep(int step)
{
    m_dialog.SendDlgItemMessage(barControl, PBM_SETSTEP, static_cast<WPARAM>(step));
}

int ProgressParts::moveTo(int position, int lower, int upper)
{
    const LRESULT before = m_dialog.SendDlgItemMessage(barControl, PBM_SETPOS, static_cast<WPARAM>(position));
    showPercentage(position, lower, upper);
    return static_cast<int>(before);
}

int ProgressParts::moveBy(int delta, int lower, int upper)
{
    const int before =
        static_cast<int>(m_dialog.SendDlgItemMessage(barControl, PBM_DELTAPOS, static_cast<WPARAM>(delta)));
    showPercentage(static_cast<long long>(before) + delta, lower, upper);
    return before;
}

int ProgressParts::step(int step, int lower, int upper)
{
    const int before = static_cast<int>(m_dialog.SendDlgItemMessage(barControl, PBM_STEPIT));
    showPercentage(static_cast<long long>(before) + step, lower, upper);
    return before;
}

// A text that stands there already is left alone, or it would flicker.
void ProgressParts::showPercentage(long long position, int lower, int upper)
{
    const HWND control = ::GetDlgItem(m_dialog.m_hWnd, percentControl);
    if (!control) return;
    CString text, shown;
    text.Format("%d%c", percentage(position, lower, upper), '%');
    CWnd::FromHandle(control)->GetWindowText(shown);
    if (text != shown) ::SetWindowTextA(control, text);
}

} // namespace corekit::detail
