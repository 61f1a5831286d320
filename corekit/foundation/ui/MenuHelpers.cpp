#include "corekit/foundation/ui/MenuHelpers.h"

#include "corekit/framework/ui/CmdUI.h"

namespace {

bool isSeparator(const CMenu& menu, int position)
{
    // Where an item opens a menu, the bits of the separator count that menu's items.
    const UINT state = menu.GetMenuState(static_cast<UINT>(position), MF_BYPOSITION);
    return state != 0xFFFFFFFF && (state & (MF_SEPARATOR | MF_POPUP)) == MF_SEPARATOR;
}

int positionOf(const CMenu& menu, UINT command)
{
    const int count = GetMenuItemCount(menu);
    for (int i = 0; i < count; ++i)
        if (menu.GetMenuItemID(i) == command) return i;
    return -1;
}

// After the item at `position` has gone.
void tidySeparators(CMenu& menu, int position)
{
    if (position == 0 || !isSeparator(menu, position - 1)) return;
    if (position == GetMenuItemCount(menu) || isSeparator(menu, position))
        menu.DeleteMenu(static_cast<UINT>(position - 1), MF_BYPOSITION);
}

} // namespace

void HideCommand(CCmdUI* item)
{
    if (!item->m_pMenu) {
        item->Enable(FALSE);
        item->SetCheck(0);
        return;
    }
    if (item->m_pSubMenu) return;
    const int position = positionOf(*item->m_pMenu, item->m_nID);
    if (position < 0) return;
    item->m_pMenu->DeleteMenu(item->m_nID, MF_BYCOMMAND);
    tidySeparators(*item->m_pMenu, position);
}

void HideSubMenu(CCmdUI* item)
{
    if (!item->m_pMenu || !item->m_pSubMenu) return;
    if (item->m_pMenu->DeleteMenu(item->m_nIndex, MF_BYPOSITION))
        tidySeparators(*item->m_pMenu, static_cast<int>(item->m_nIndex));
}
