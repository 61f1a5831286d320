// Commands and notifications: from the window to whoever handles them, and back to the control first.
#include "corekit/framework/ui/CmdUI.h"
#include "corekit/framework/ui/WndMaps.h"

namespace {

// Whether a command is enabled, before it is carried out.
class CTestCmdUI final : public CCmdUI {
public:
    void Enable(BOOL on) override
    {
        m_isEnabled = on;
        m_bEnableChanged = TRUE;
    }
    void SetCheck(int) override {}
    void SetText(const char*) override {}

    BOOL m_isEnabled = TRUE;
};

// The control that a message to its parent came from; null for other messages.
HWND senderOf(HWND parent, UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_HSCROLL:
    case WM_VSCROLL:
        return reinterpret_cast<HWND>(lParam);
    case WM_DRAWITEM:
        return reinterpret_cast<const DRAWITEMSTRUCT*>(lParam)->hwndItem;
    case WM_DELETEITEM:
        return reinterpret_cast<const DELETEITEMSTRUCT*>(lParam)->hwndItem;
    case WM_COMPAREITEM:
        return reinterpret_cast<const COMPAREITEMSTRUCT*>(lParam)->hwndItem;
    case WM_MEASUREITEM:
        return wParam ? ::GetDlgItem(parent, static_cast<int>(wParam)) : nullptr;
    default:
        return message >= WM_CTLCOLORMSGBOX && message <= WM_CTLCOLORSTATIC ? reinterpret_cast<HWND>(lParam)
                                                                            : nullptr;
    }
}

} // namespace

LRESULT CWnd::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    const HWND sender = senderOf(m_hWnd, message, wParam, lParam);
    LRESULT result = 0;
    if (sender && sender != m_hWnd && ReflectLastMsg(sender, &result)) return result;
    // Only top windows are told; what stands in them draws with these colours, too.
    if (message == WM_SYSCOLORCHANGE && !(GetStyle() & WS_CHILD))
        SendMessageToDescendants(message, wParam, lParam);
    if (m_pfnSuper) return ::CallWindowProcA(m_pfnSuper, m_hWnd, message, wParam, lParam);
    return ::DefWindowProcA(m_hWnd, message, wParam, lParam);
}

BOOL CWnd::ReflectLastMsg(HWND child, LRESULT* result)
{
    CWnd* const object = FromHandlePermanent(child);
    return object && object->SendChildNotifyLastMsg(result);
}

BOOL CWnd::SendChildNotifyLastMsg(LRESULT* result)
{
    const MSG message = *GetCurrentMessage();
    return OnChildNotify(message.message, message.wParam, message.lParam, result);
}

BOOL CWnd::OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result)
{
    constexpr UINT command = WM_COMMAND + WM_REFLECT_BASE, notify = WM_NOTIFY + WM_REFLECT_BASE;
    LRESULT unused = 0;
    if (!result) result = &unused;
    switch (message) {
    case WM_COMMAND:
        return OnCmdMsg(0, static_cast<int>(MAKELONG(HIWORD(wParam), static_cast<WORD>(command))), nullptr,
                        nullptr);
    case WM_NOTIFY: {
        auto* const header = reinterpret_cast<NMHDR*>(lParam);
        AFX_NOTIFY told{result, header};
        const WORD code = static_cast<WORD>(header->code);
        return OnCmdMsg(0, static_cast<int>(MAKELONG(code, static_cast<WORD>(notify))), &told, nullptr);
    }
    case WM_HSCROLL:
    case WM_VSCROLL:
        return OnWndMsg(message + WM_REFLECT_BASE, wParam, lParam, result);
    default:
        break;
    }
    if (message < WM_CTLCOLORMSGBOX || message > WM_CTLCOLORSTATIC) return FALSE;
    return OnWndMsg(WM_CTLCOLORBASE + WM_REFLECT_BASE, wParam, lParam, result) && *result;
}

BOOL CWnd::OnCommand(WPARAM wParam, LPARAM lParam)
{
    UINT id = LOWORD(wParam);
    const HWND control = reinterpret_cast<HWND>(lParam);
    int code = static_cast<int>(HIWORD(wParam));
    if (control) {
        if (ReflectLastMsg(control)) return TRUE;
        if (!id) return FALSE;
    } else {
        if (!id) return FALSE;
        CTestCmdUI state;
        state.m_nID = id;
        OnCmdMsg(id, static_cast<int>(CN_UPDATE_COMMAND_UI), &state, nullptr);
        if (!state.m_isEnabled) return TRUE;
        code = static_cast<int>(CN_COMMAND);
    }
    return OnCmdMsg(id, code, nullptr, nullptr);
}

BOOL CWnd::OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result)
{
    auto* const header = reinterpret_cast<NMHDR*>(lParam);
    if (ReflectLastMsg(header->hwndFrom, result)) return TRUE;
    const UINT id = header->idFrom ? static_cast<UINT>(header->idFrom) : static_cast<UINT>(wParam);
    AFX_NOTIFY told{result, header};
    const WORD code = static_cast<WORD>(header->code);
    return OnCmdMsg(id, static_cast<int>(MAKELONG(code, static_cast<WORD>(WM_NOTIFY))), &told, nullptr);
}

BOOL CWnd::OnCmdMsg(UINT id, int code, void* extra, AFX_CMDHANDLERINFO* info)
{
    return CCmdTarget::OnCmdMsg(id, code, extra, info);
}

void CWnd::UpdateDialogControls(CCmdTarget* target, BOOL disableIfNoHandler)
{
    for (HWND child = ::GetWindow(m_hWnd, GW_CHILD); child; child = ::GetWindow(child, GW_HWNDNEXT)) {
        CWnd* const control = FromHandle(child);
        CCmdUI state;
        state.m_nID = static_cast<UINT>(control->GetDlgCtrlID());
        state.m_pOther = control;
        if (control->OnCmdMsg(0, static_cast<int>(MAKELONG(0xFFFF, WM_COMMAND + WM_REFLECT_BASE)), &state,
                              nullptr))
            continue;
        constexpr WORD buttonCode = 0x2000; // DLGC_BUTTON: only these are commands
        const bool isButton = control->SendMessage(WM_GETDLGCODE) & buttonCode;
        state.DoUpdate(target, disableIfNoHandler && isButton);
    }
}

BOOL CWnd::PreTranslateMessage(MSG*) { return FALSE; }

BOOL corekit::detail::preTranslateUpwards(MSG* message)
{
    for (HWND window = message->hwnd; window; window = ::GetParent(window)) {
        CWnd* const object = CWnd::FromHandlePermanent(window);
        if (object && object->PreTranslateMessage(message)) return TRUE;
        if (!IsWindow(window)) return TRUE;
        const HWND above = ::GetParent(window);
        if (above && !::IsWindowEnabled(above)) break; // a modal window keeps its keys from its owner
    }
    return FALSE;
}
