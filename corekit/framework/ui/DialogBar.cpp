#include "corekit/framework/ui/DialogBar.h"

#include "corekit/framework/Module.h"
#include "corekit/framework/ResourceTypes.h"
#include "corekit/framework/ui/DialogWindow.h"

IMPLEMENT_DYNAMIC(CDialogBar, CWnd)

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
    return CWnd::PreTranslateMessage(message) || (m_hWnd && ::IsDialogMessageA(m_hWnd, message));
}

LRESULT CDialogBar::WindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    const bool isFromControl = message == WM_COMMAND || message == WM_NOTIFY || message == WM_DRAWITEM ||
                               message == WM_MEASUREITEM || message == WM_DELETEITEM ||
                               message == WM_COMPAREITEM;
    if (!isFromControl) return CWnd::WindowProc(message, wParam, lParam);
    LRESULT result = 0;
    if (OnWndMsg(message, wParam, lParam, &result)) return result;
    const CWnd* const owner = GetOwner();
    return owner && owner->GetSafeHwnd() ? owner->SendMessage(message, wParam, lParam) : 0;
}
