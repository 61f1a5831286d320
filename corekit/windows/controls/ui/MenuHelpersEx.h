// Small work on menus, and the menu of the right mouse button.
#pragma once

#include "corekit/framework/ui/Menu.h"
#include "corekit/framework/ui/Wnd.h"

// The position of a command in the menu itself, -1 without it.
COREKIT_API int menuFind(const CMenu& menu, UINT command);
// Takes away separators that stand first, last or beside another one.
COREKIT_API void menuTidySeparators(CMenu& menu);
// Enables, checks and names the items by the update handlers of the target; those that nobody handles are
// disabled.
COREKIT_API void menuUpdate(CMenu& menu, CCmdTarget& target);

// The menu that a right click opens: its commands are those that the owner handles.
//
//     CRightButtonMenu menu;
//     menu.Add(idCopy, "&Copy");
//     menu.AddSeparator();
//     menu.Show(*this, screenPoint);
class COREKIT_API CRightButtonMenu {
public:
    CRightButtonMenu() { m_menu.CreatePopupMenu(); }
    void Add(UINT command, const char* text) { m_menu.AppendMenu(MF_STRING, command, text); }
    void AddSeparator() { m_menu.AppendMenu(MF_SEPARATOR); }
    CMenu& GetMenu() { return m_menu; }
    // Brings the items up to date, shows them at the point of the screen and sends the owner what was chosen.
    // 0 if nothing was, or the owner went meanwhile.
    UINT Show(CWnd& owner, CPoint screen);

private:
    CMenu m_menu;
};
