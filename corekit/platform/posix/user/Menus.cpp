#include "corekit/platform/Menus.h"

#include "corekit/platform/Errors.h"
#include "corekit/platform/posix/user/UserObjects.h"

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

using namespace corekit::detail;

namespace {

struct Item {
    UINT flags = 0;
    UINT id = 0;
    HMENU opens = nullptr;
    std::string text;
};

struct Menu {
    std::vector<Item> items;
};

using Menus = UserTable<HMENU, Menu, HandleKind::menu>;
using MenuUser = Menus::User;

constexpr UINT failure = 0xFFFFFFFF;
constexpr UINT enabledBits = MF_GRAYED | MF_DISABLED;
constexpr UINT knownFlags =
    enabledBits | MF_CHECKED | MF_POPUP | MF_MENUBARBREAK | MF_MENUBREAK | MF_SEPARATOR | MF_BYPOSITION;

template <class Result>
Result fail(DWORD error, Result result)
{
    SetLastError(error);
    return result;
}

MenuUser findMenu(HMENU handle)
{
    auto menu = Menus::Find(handle);
    if (!menu) SetLastError(ERROR_INVALID_MENU_HANDLE);
    return menu;
}

// An item and the menu that it stands in.
struct Place {
    MenuUser menu;
    std::size_t index = 0;

    explicit operator bool() const { return static_cast<bool>(menu); }
    Item& operator*() const { return menu->items[index]; }
    Item* operator->() const { return &menu->items[index]; }
};

Place findCommand(const MenuUser& menu, UINT command)
{
    for (std::size_t i = 0; i < menu->items.size(); ++i) {
        const Item& item = menu->items[i];
        if (!(item.flags & MF_POPUP)) {
            if (item.id == command) return {menu, i};
        } else if (const auto inner = Menus::Find(item.opens)) {
            if (Place found = findCommand(inner, command)) return found;
        }
    }
    return {};
}

// Empty, with no error set, if there is no such item.
Place look(const MenuUser& menu, UINT place, UINT flags)
{
    if (!(flags & MF_BYPOSITION)) return findCommand(menu, place);
    return place < menu->items.size() ? Place{menu, place} : Place{};
}

Place findItem(HMENU handle, UINT place, UINT flags)
{
    const auto menu = findMenu(handle);
    Place found = menu ? look(menu, place, flags) : Place{};
    if (menu && !found) SetLastError(ERROR_MENU_ITEM_NOT_FOUND);
    return found;
}

bool holds(const Menu& outer, const Menu& wanted)
{
    if (&outer == &wanted) return true;
    return std::ranges::any_of(outer.items, [&](const Item& item) {
        const auto inner = Menus::Find(item.opens);
        return inner && holds(*inner, wanted);
    });
}

// What the arguments describe, to stand in `menu`. False with a last error.
bool describe(Item& made, const Menu& menu, UINT flags, UINT_PTR item, const char* text)
{
    if (flags & ~knownFlags) return fail(ERROR_INVALID_PARAMETER, false);
    made.flags = flags & ~MF_BYPOSITION;
    if (text && !(flags & MF_SEPARATOR)) made.text = text;
    if (!(flags & MF_POPUP)) {
        made.id = static_cast<UINT>(item);
        return true;
    }
    made.opens = reinterpret_cast<HMENU>(item);
    const auto opened = findMenu(made.opens);
    return opened && (!holds(*opened, menu) || fail(ERROR_INVALID_PARAMETER, false));
}

DWORD changeState(HMENU handle, UINT place, UINT flags, UINT bits)
{
    const Place item = findItem(handle, place, flags);
    if (!item) return failure;
    const UINT former = item->flags & bits;
    item->flags = (item->flags & ~bits) | (flags & bits);
    return former;
}

} // namespace

HMENU CreateMenu() { return Menus::Open(std::make_unique<Menu>()); }
HMENU CreatePopupMenu() { return CreateMenu(); }

BOOL DestroyMenu(HMENU handle)
{
    const auto menu = Menus::Close(handle);
    if (!menu) return fail(ERROR_INVALID_MENU_HANDLE, FALSE);
    for (const Item& item : menu->items)
        if (item.opens) DestroyMenu(item.opens);
    return TRUE;
}

BOOL InsertMenuA(HMENU handle, UINT place, UINT flags, UINT_PTR item, const char* text)
{
    const auto menu = findMenu(handle);
    if (!menu) return FALSE;
    Place before = look(menu, place, flags);
    if (!before) before = {menu, menu->items.size()};
    Item made;
    if (!describe(made, *before.menu, flags, item, text)) return FALSE;
    before.menu->items.insert(before.menu->items.begin() + static_cast<std::ptrdiff_t>(before.index),
                              std::move(made));
    return TRUE;
}

BOOL AppendMenuA(HMENU menu, UINT flags, UINT_PTR item, const char* text)
{
    return InsertMenuA(menu, failure, flags | MF_BYPOSITION, item, text);
}

BOOL ModifyMenuA(HMENU handle, UINT place, UINT flags, UINT_PTR item, const char* text)
{
    const Place changed = findItem(handle, place, flags);
    Item made;
    if (!changed || !describe(made, *changed.menu, flags, item, text)) return FALSE;
    const HMENU former = changed->opens, now = made.opens;
    *changed = std::move(made);
    if (former && former != now) DestroyMenu(former);
    return TRUE;
}

BOOL DeleteMenu(HMENU handle, UINT place, UINT flags)
{
    const Place doomed = findItem(handle, place, flags);
    if (!doomed) return FALSE;
    const HMENU opened = doomed->opens;
    doomed.menu->items.erase(doomed.menu->items.begin() + static_cast<std::ptrdiff_t>(doomed.index));
    if (opened) DestroyMenu(opened);
    return TRUE;
}

int GetMenuItemCount(HMENU handle)
{
    const auto menu = findMenu(handle);
    return menu ? static_cast<int>(menu->items.size()) : -1;
}

UINT GetMenuItemID(HMENU handle, int position)
{
    const Place item = findItem(handle, static_cast<UINT>(position), MF_BYPOSITION);
    return item && !item->opens ? item->id : failure;
}

HMENU GetSubMenu(HMENU handle, int position)
{
    const Place item = findItem(handle, static_cast<UINT>(position), MF_BYPOSITION);
    return item ? item->opens : nullptr;
}

UINT GetMenuState(HMENU handle, UINT place, UINT flags)
{
    const Place item = findItem(handle, place, flags);
    if (!item) return failure;
    if (!item->opens) return item->flags;
    const auto opened = Menus::Find(item->opens);
    return MAKEWORD(LOBYTE(item->flags), LOBYTE(opened ? opened->items.size() : 0));
}

int GetMenuStringA(HMENU handle, UINT place, char* buffer, int size, UINT flags)
{
    if (buffer && size > 0) *buffer = 0;
    const Place item = findItem(handle, place, flags);
    if (!item || (buffer && size <= 0)) return 0;
    if (!buffer) return static_cast<int>(item->text.size());
    const std::size_t length = std::min(item->text.size(), static_cast<std::size_t>(size) - 1);
    std::memcpy(buffer, item->text.data(), length);
    buffer[length] = 0;
    return static_cast<int>(length);
}

DWORD EnableMenuItem(HMENU menu, UINT place, UINT flags)
{
    return changeState(menu, place, flags, enabledBits);
}
DWORD CheckMenuItem(HMENU menu, UINT place, UINT flags)
{
    return changeState(menu, place, flags, MF_CHECKED);
}
