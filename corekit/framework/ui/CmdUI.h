// A user interface item whose state a command-update handler sets.
//
// Whoever shows items fills the members in and calls the handler of the item's command, which calls the
// operations here. This class knows menu items and controls; bars and other places derive their own.
//
// User-interface thread. The object lives on the stack of whoever shows the items and is used for one after
// the other.
//
//     void CPane::OnUpdateCut(CCmdUI* ui) { ui->Enable(HasSelection()); }
//     void CPane::OnUpdateLoop(CCmdUI* ui) { ui->SetCheck(m_loops); }
#pragma once

#include "corekit/framework/ui/Menu.h"

class CCmdTarget;
class CWnd;

class COREKIT_API CCmdUI {
public:
    CCmdUI() = default;
    virtual ~CCmdUI() = default;
    CCmdUI(const CCmdUI&) = delete;
    CCmdUI& operator=(const CCmdUI&) = delete;

    // An item that opens a menu is left alone by all three: its state follows no single command. Greys a
    // menu item, or disables a control; the focus goes to the parent if that control has it.
    virtual void Enable(BOOL on = TRUE);
    virtual void SetCheck(int check = 1); // 0: none; a control gets it as BM_SETCHECK, 1 or 2
    // The item's text, ampersand and tab included, or the control's window text.
    virtual void SetText(const char* text);

    // Asks the update handler of the item's command, by way of `target`; whether there is one. Without one,
    // a command that nobody handles is disabled where `disableIfNoHandler` says so. An id of 0 or 0xFFFF
    // stands for no command: nothing is asked, and the answer is TRUE.
    BOOL DoUpdate(CCmdTarget* target, BOOL disableIfNoHandler);

    // The next target on the command's way is asked as well, for the item in hand.
    void ContinueRouting() { m_bContinueRouting = TRUE; }

    UINT m_nID = 0;                  // the command; of an item that opens a menu the first command in there
    UINT m_nIndex = 0;               // position in the menu
    CMenu* m_pMenu = nullptr;        // null if the item is in no menu; not owned, like the next
    CMenu* m_pSubMenu = nullptr;     // the menu that the item opens
    CWnd* m_pOther = nullptr;        // the control that the item is, if it is in no menu
    BOOL m_bEnableChanged = FALSE;   // Enable has been called for the item in hand
    BOOL m_bContinueRouting = FALSE; // ContinueRouting has been called
};
