#include "corekit/logging/ui/ProgressDialogBase.h"

#include "corekit/framework/ui/DialogWindow.h"

#include <utility>

namespace corekit::detail {

ProgressDialogBase::~ProgressDialogBase()
{
    if (m_hWnd) ProgressDialogBase::DestroyWindow();
}

int ProgressDialogBase::CreateOver(UINT templateId, CWnd* parent)
{
    if (m_hWnd) return 0;
    const CWnd* const owner = AfxGetSafeOwner(parent);
    if (owner && ::IsWindowEnabled(owner->GetSafeHwnd())) {
        m_disabledOwner = owner->GetSafeHwnd();
        ::EnableWindow(m_disabledOwner, FALSE);
    }
    if (CDialog::Create(templateId, parent)) return 1;
    if (const HWND disabled = std::exchange(m_disabledOwner, nullptr)) ::EnableWindow(disabled, TRUE);
    return 0;
}

BOOL ProgressDialogBase::DestroyWindow()
{
    if (const HWND disabled = std::exchange(m_disabledOwner, nullptr); IsWindow(disabled))
        ::EnableWindow(disabled, TRUE);
    return CDialog::DestroyWindow();
}

BOOL ProgressDialogBase::OnInitDialog()
{
    CDialog::OnInitDialog();
    SetWindowText(m_title);
    return TRUE;
}

void ProgressDialogBase::PumpAll()
{
    MSG message;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) return PostQuitMessage(static_cast<int>(message.wParam));
        if (m_hWnd && IsDialogMessageA(m_hWnd, &message)) continue;
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
}

} // namespace corekit::detail
