// A menu as an object.
//
// It owns the handle it holds: what Attach or a Create call brought is destroyed by DestroyMenu or the
// destructor, unless Detach takes it away first. User-interface thread only, as the handle itself.
//
//     CMenu menu;
//     menu.CreatePopupMenu();
//     menu.AppendMenu(MF_STRING, idCut, "Cu&t\tCtrl+X");
//     menu.AppendMenu(MF_SEPARATOR);
//     menu.AppendMenu(MF_STRING | MF_GRAYED, idPaste, "&Paste");
//     TrackPopupMenu(menu, TPM_RIGHTBUTTON, point.x, point.y, 0, m_hWnd);
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
    // An empty menu, attached. False as Attach. For a menu bar; CreatePopupMenu's is for a menu that opens.
    BOOL CreateMenu();
    BOOL CreatePopupMenu();
    // With the menus that stand in it. False without a menu.
    BOOL DestroyMenu();

    // Null without a menu.
    HMENU GetSafeHmenu() const { return m_hMenu; }
    operator HMENU() const { return m_hMenu; }

    // `flags`: MF_; `item` is the command, or with MF_POPUP the HMENU that it opens and owns from then on. 0
    // with the last error on failure.
    BOOL AppendMenu(UINT flags, UINT_PTR item = 0, const char* text = nullptr)
    {
        return ::AppendMenuA(m_hMenu, flags, item, text);
    }
    // In front of the item that `place` names: a command, or with MF_BYPOSITION a place from 0. At the end
    // if there is none such.
    BOOL InsertMenu(UINT place, UINT flags, UINT_PTR item = 0, const char* text = nullptr)
    {
        return ::InsertMenuA(m_hMenu, place, flags, item, text);
    }
    // Puts another item in an item's place; a menu that it opened goes.
    BOOL ModifyMenu(UINT place, UINT flags, UINT_PTR item = 0, const char* text = nullptr)
    {
        return ::ModifyMenuA(m_hMenu, place, flags, item, text);
    }
    // With the menu that the item opens.
    BOOL DeleteMenu(UINT place, UINT flags) { return ::DeleteMenu(m_hMenu, place, flags); }

    // Counted as ::GetMenuItemCount does: -1 without a menu.
    UINT GetMenuItemCount() const { return static_cast<UINT>(::GetMenuItemCount(m_hMenu)); }
    // 0 for a separator, 0xFFFFFFFF for one that opens a menu and for no item.
    UINT GetMenuItemID(int position) const { return ::GetMenuItemID(m_hMenu, position); }
    // MF_ flags; 0xFFFFFFFF for no item.
    UINT GetMenuState(UINT place, UINT flags) const { return ::GetMenuState(m_hMenu, place, flags); }
    // MF_ENABLED, or MF_GRAYED; answers the former state, 0xFFFFFFFF for no item.
    UINT EnableMenuItem(UINT place, UINT flags) { return ::EnableMenuItem(m_hMenu, place, flags); }
    // MF_CHECKED or MF_UNCHECKED; likewise.
    UINT CheckMenuItem(UINT place, UINT flags) { return ::CheckMenuItem(m_hMenu, place, flags); }

    HMENU m_hMenu = nullptr; // owned
};
