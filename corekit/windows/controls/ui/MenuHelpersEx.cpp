#include "corekit/windows/controls/ui/MenuHelpersEx.h"

#include "corekit/framework/ui/CmdUI.h"
#include "corekit/platform/PopupMenus.h"

int menuFind(const CMenu& menu, UINT command)
{
    const int count = ::GetMenuItemCount(menu.GetSafeHmenu());
    for (int i = 0; i < count; ++i)
        if (menu.GetMenuItemID(i) == command) return i;
    return -1;
}

void menuTidySeparators(CMenu& menu)
{
    const auto separates = [&menu](int position) {
        return (menu.GetMenuState(static_cast<UINT>(position), MF_BYPOSITION) & MF_SEPARATOR) != 0;
    };
    bool mayGo = true; // what follows is the end, or a separator that stays
    for (int i = ::GetMenuItemCount(menu.GetSafeHmenu()); i-- > 0;) {
        const bool isSeparator = separates(i);
        if (isSeparator && (mayGo || i == 0)) menu.DeleteMenu(static_cast<UINT>(i), MF_BYPOSITION);
        mayGo = isSeparator;
    }
    if (::GetMenuItemCount(menu.GetSafeHmenu()) > 0 && separates(0)) menu.DeleteMenu(0, MF_BYPOSITION);
}

void menuUpdate(CMenu& menu, CCmdTarget& target)
{
    CCmdUI state;
    state.m_pMenu = &menu;
    for (int i = 0; i < ::GetMenuItemCount(menu.GetSafeHmenu()); ++i) {
        const UINT command = menu.GetMenuItemID(i);
        if (command == 0 || command == 0xFFFFFFFF) continue;
        state.m_nIndex = static_cast<UINT>(i);
        state.m_nID = command;
        state.DoUpdate(&target, TRUE);
    }
}

UINT CRightButtonMenu::Show(CWnd& owner, CPoint screen)
{
    const HWND window = owner.GetSafeHwnd();
    menuUpdate(m_menu, owner);
    menuTidySeparators(m_menu);
    const int chosen =
        ::TrackPopupMenu(m_menu, TPM_RETURNCMD | TPM_RIGHTBUTTON, screen.x, screen.y, 0, window, nullptr);
    if (chosen <= 0 || !::IsWindow(window)) return 0;
    ::SendMessageA(window, WM_COMMAND, static_cast<WPARAM>(chosen), 0);
    return static_cast<UINT>(chosen);
}
