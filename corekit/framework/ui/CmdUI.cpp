#include "corekit/framework/ui/CmdUI.h"

void CCmdUI::Enable(BOOL on)
{
    if (m_pMenu) {
        if (m_pSubMenu) return;
        m_pMenu->EnableMenuItem(m_nIndex, MF_BYPOSITION | (on ? MF_ENABLED : MF_DISABLED | MF_GRAYED));
    }
    m_bEnableChanged = TRUE;
}

void CCmdUI::SetCheck(int check)
{
    if (!m_pMenu || m_pSubMenu) return;
    m_pMenu->CheckMenuItem(m_nIndex, MF_BYPOSITION | (check ? MF_CHECKED : MF_UNCHECKED));
}

void CCmdUI::SetText(const char* text)
{
    if (!m_pMenu || m_pSubMenu) return;
    // An item that was a separator becomes one with text.
    const UINT state = m_pMenu->GetMenuState(m_nIndex, MF_BYPOSITION) & ~MF_SEPARATOR;
    m_pMenu->ModifyMenu(m_nIndex, MF_BYPOSITION | MF_STRING | state, m_nID, text);
}
