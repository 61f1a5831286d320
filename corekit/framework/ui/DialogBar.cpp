#include "corekit/framework/ui/DialogBar.h"

#include "corekit/framework/Module.h"
#include "corekit/framework/ResourceTypes.h"
#include "corekit/framework/ui/DialogWindow.h"
#include "corekit/framework/ui/FrameWnd.h"

IMPLEMENT_DYNAMIC(CDialogBar, CControlBar)

CDialogBar::~CDialogBar()
{
    if (m_hWnd) DestroyWindow();
}

BOOL CDialogBar::Create(CWnd* parent, UINT templateId, DWORD style, UINT id)
{
    return Create(parent, MAKEINTRESOURCEA(static_cast<WORD>(templateId)), style, id);
}

BOOL CDialogBar::Create(CWnd* parent, const char* templateName, DWORD style, UINT id)
{
    m_dwStyle = style & CBRS_ALL;
    const auto found = AfxFindDialogTemplate(templateName);
    if (!found || !parent) return FALSE;
    DialogTemplate dialog = *found;
    dialog.style = WS_CHILD | WS_CLIPSIBLINGS | DS_CONTROL | (style & WS_VISIBLE);
    const auto noProcedure = [](HWND, UINT, WPARAM, LPARAM) -> INT_PTR { return FALSE; };
    if (!corekit::detail::createDialogFor(*this, dialog, parent->GetSafeHwnd(), noProcedure)) return FALSE;
    SetDlgCtrlID(static_cast<int>(id));
    SetOwner(parent);
    CRect place;
    GetWindowRect(&place);
    m_sizeDefault = place.Size();
    return TRUE;
}

BOOL CDialogBar::PreTranslateMessage(MSG* message)
{
    return CControlBar::PreTranslateMessage(message) || (m_hWnd && ::IsDialogMessageA(m_hWnd, message));
}

CSize CDialogBar::CalcFixedLayout(BOOL stretch, BOOL horizontal)
{
    return {stretch && horizontal ? longestBar : m_sizeDefault.cx,
            stretch && !horizontal ? longestBar : m_sizeDefault.cy};
}

void CDialogBar::OnUpdateCmdUI(CFrameWnd* target, BOOL disableIfNoHandler)
{
    UpdateDialogControls(target, disableIfNoHandler);
}
