#include "corekit/framework/ui/CmdUI.h"

#include "corekit/framework/ui/Wnd.h"
#include "corekit/framework/UpdateDispatch.h"

#include <bit>

namespace {
constexpr UINT BM_SETCHECK = 0xF1;
}

void CCmdUI::Enable(BOOL on)
{
    if (m_pMenu) {
        if (m_pSubMenu) return;
        m_pMenu->EnableMenuItem(m_nIndex, MF_BYPOSITION | (on ? MF_ENABLED : MF_DISABLED | MF_GRAYED));
    } else if (m_pOther) {
        // The focus does not stay behind on a control that is disabled.
        if (!on && CWnd::GetFocus() == m_pOther)
            if (CWnd* const parent = m_pOther->GetParent()) parent->SetFocus();
        m_pOther->EnableWindow(on);
    }
    m_bEnableChanged = TRUE;
}

void CCmdUI::SetCheck(int check)
{
    if (m_pOther && !m_pMenu) m_pOther->SendMessage(BM_SETCHECK, static_cast<WPARAM>(check));
    if (!m_pMenu || m_pSubMenu) return;
    m_pMenu->CheckMenuItem(m_nIndex, MF_BYPOSITION | (check ? MF_CHECKED : MF_UNCHECKED));
}

void CCmdUI::SetText(const char* text)
{
    if (m_pOther && !m_pMenu) m_pOther->SetWindowText(text);
    if (!m_pMenu || m_pSubMenu) return;
    // An item that was a separator becomes one with text.
    const UINT state = m_pMenu->GetMenuState(m_nIndex, MF_BYPOSITION) & ~MF_SEPARATOR;
    m_pMenu->ModifyMenu(m_nIndex, MF_BYPOSITION | MF_STRING | state, m_nID, text);
}

BOOL CCmdUI::DoUpdate(CCmdTarget* target, BOOL disableIfNoHandler)
{
    if (m_nID == 0 || LOWORD(m_nID) == 0xFFFF) return TRUE; // stands for no command
    m_bEnableChanged = FALSE;
    const BOOL isHandled = target->OnCmdMsg(m_nID, static_cast<int>(CN_UPDATE_COMMAND_UI), this, nullptr);
    if (disableIfNoHandler && !m_bEnableChanged) {
        AFX_CMDHANDLERINFO info{};
        Enable(target->OnCmdMsg(m_nID, static_cast<int>(CN_COMMAND), nullptr, &info));
    }
    return isHandled;
}

namespace {

BOOL callUpdateHandler(CCmdTarget* target, AFX_PMSG handler, CCmdUI* item)
{
    item->m_bContinueRouting = FALSE;
    (target->*std::bit_cast<void (CCmdTarget::*)(CCmdUI*)>(handler))(item);
    return !item->m_bContinueRouting;
}

[[gnu::constructor]] void installUpdates() { corekit::setUpdateDispatch(&callUpdateHandler); }
[[gnu::destructor]] void takeUpdatesAway() { corekit::setUpdateDispatch(nullptr); }

} // namespace
