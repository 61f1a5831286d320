// A menu as an object.
//
// It owns the handle it holds: what Attach or a Create call brought is destroyed by DestroyMenu or the
// destructor, unless Detach takes it away first. User-interface thread only, as the handle itself.
#pragma once

#include "corekit/framework/Object.h"
#include "corekit/platform/Menus.h"

class COREKIT_API CMenu : public CObject {
    DECLARE_DYNAMIC(CMenu)

    CMenu() = default;
    ~CMenu() override;

    // Takes a menu over. False, and nothing changes, for a null handle or while another one is held.
    BOOL Attach(HMENU menu);
    // Gives the menu away; null if there was none.
    HMENU Detach();
    // An empty menu, attached. False as Attach.
    BOOL CreateMenu();
    BOOL CreatePopupMenu();
    BOOL DestroyMenu();

    HMENU GetSafeHmenu() const { return m_hMenu; }
    operator HMENU() const { return m_hMenu; }

    BOOL AppendMenu(UINT flags, UINT_PTR item = 0, const char* text = nullptr)
    {
        return ::AppendMenuA(m_hMenu, flags, item, text);
    }
    BOOL InsertMenu(UINT place, UINT flags, UINT_PTR item = 0, const char* text = nullptr)
    {
        return ::InsertMenuA(m_hMenu, place, flags, item, text);
    }
    BOOL ModifyMenu(UINT place, UINT flags, UINT_PTR item = 0, const char* text = nullptr)
    {
        return ::ModifyMenuA(m_hMenu, place, flags, item, text);
    }
    BOOL DeleteMenu(UINT place, UINT flags) { return ::DeleteMenu(m_hMenu, place, flags); }

    // Counted as ::GetMenuItemCount does: -1 without a menu.
    UINT GetMenuItemCount() const { return static_cast<UINT>(::GetMenuItemCount(m_hMenu)); }
    UINT GetMenuItemID(int position) const { return ::GetMenuItemID(m_hMenu, position); }
    UINT GetMenuState(UINT place, UINT flags) const { return ::GetMenuState(m_hMenu, place, flags); }
    UINT EnableMenuItem(UINT place, UINT flags) { return ::EnableMenuItem(m_hMenu, place, flags); }
    UINT CheckMenuItem(UINT place, UINT flags) { return ::CheckMenuItem(m_hMenu, place, flags); }

    HMENU m_hMenu = nullptr;
};
