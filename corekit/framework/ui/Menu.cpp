#include "corekit/framework/ui/Menu.h"

#include <utility>

IMPLEMENT_DYNAMIC(CMenu, CObject)

CMenu::~CMenu() { DestroyMenu(); }

BOOL CMenu::Attach(HMENU menu)
{
    if (!menu || m_hMenu) return FALSE;
    m_hMenu = menu;
    return TRUE;
}

HMENU CMenu::Detach() { return std::exchange(m_hMenu, nullptr); }

BOOL CMenu::CreateMenu() { return m_hMenu ? FALSE : Attach(::CreateMenu()); }
BOOL CMenu::CreatePopupMenu() { return m_hMenu ? FALSE : Attach(::CreatePopupMenu()); }

BOOL CMenu::DestroyMenu()
{
    const HMENU menu = Detach();
    return menu ? ::DestroyMenu(menu) : FALSE;
}
