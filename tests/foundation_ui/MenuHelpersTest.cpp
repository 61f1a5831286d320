#include "corekit/foundation/ui/MenuHelpers.h"

#include "corekit/framework/ui/CmdUI.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace {

// Letters are commands, - is a separator, and * opens a menu of eight commands.
void Fill(CMenu& menu, std::string_view items)
{
    menu.CreatePopupMenu();
    for (const char item : items) {
        if (item == '-') {
            menu.AppendMenu(MF_SEPARATOR);
        } else if (item == '*') {
            const HMENU inner = CreatePopupMenu();
            for (UINT i = 0; i < 8; ++i) AppendMenuA(inner, MF_STRING, 1000 + i, "inner");
            menu.AppendMenu(MF_POPUP, reinterpret_cast<UINT_PTR>(inner), "more");
        } else {
            menu.AppendMenu(MF_STRING, static_cast<UINT_PTR>(item), "item");
        }
    }
}

std::string Shown(const CMenu& menu)
{
    std::string items;
    for (int i = 0; i < GetMenuItemCount(menu); ++i) {
        const UINT id = menu.GetMenuItemID(i);
        items += GetSubMenu(menu, i) ? '*' : id == 0 ? '-' : static_cast<char>(id);
    }
    return items;
}

TEST(MenuHelpers, AHiddenCommandLeavesTidySeparators)
{
    const struct {
        const char *before, *after;
    } cases[] = {
        // b goes
        {"a-b-c", "a-c"}, {"a-b", "a"},   {"ab-c", "a-c"},    {"a-bc", "a-c"}, {"b-a", "-a"},
        {"-b-a", "-a"},   {"a--b", "a-"}, {"a-b--c", "a--c"}, {"b", ""},       {"a-c", "a-c"},
        {"*b", "*"},      {"*b-", "*-"},  {"-b*", "-*"},      {"*b*", "**"},
    };
    for (const auto& c : cases) {
        CMenu menu;
        Fill(menu, c.before);
        CCmdUI item;
        item.m_pMenu = &menu;
        item.m_nID = 'b';
        HideCommand(&item);
        EXPECT_EQ(Shown(menu), c.after) << c.before;
    }
}

TEST(MenuHelpers, AHiddenSubMenuLeavesTidySeparators)
{
    const struct {
        const char* before;
        UINT position;
        const char* after;
    } cases[] = {
        {"a-*-b", 2, "a-b"}, {"a-*", 2, "a"}, {"*-a", 0, "-a"},  {"**-a", 1, "*-a"},
        {"***", 1, "**"},    {"*-*", 2, "*"}, {"a-b", 9, "a-b"},
    };
    for (const auto& c : cases) {
        CMenu menu, inner;
        Fill(menu, c.before);
        const HMENU opened = GetSubMenu(menu, static_cast<int>(c.position));
        CCmdUI item;
        item.m_pMenu = &menu;
        item.m_pSubMenu = &inner;
        item.m_nID = 1000;
        item.m_nIndex = c.position;
        HideCommand(&item);
        EXPECT_EQ(Shown(menu), c.before) << "not by its command";
        HideSubMenu(&item);
        EXPECT_EQ(Shown(menu), c.after) << c.before;
        EXPECT_EQ(GetMenuItemCount(opened), -1);
        item.m_pSubMenu = nullptr;
        item.m_nIndex = 0;
        HideSubMenu(&item);
        EXPECT_EQ(Shown(menu), c.after) << "an item that opens nothing stays";
    }
}

TEST(MenuHelpers, WhatIsInNoMenuIsDisabledAndUnchecked)
{
    struct Button : CCmdUI {
        BOOL enabled = TRUE;
        int check = 1;
        void Enable(BOOL on) override { enabled = on; }
        void SetCheck(int now) override { check = now; }
    } button;
    HideSubMenu(&button);
    EXPECT_TRUE(button.enabled && button.check);
    HideCommand(&button);
    EXPECT_FALSE(button.enabled || button.check);
}

TEST(CommandItem, SetsTheStateOfItsMenuItem)
{
    CMenu menu;
    Fill(menu, "a*c");
    CCmdUI item;
    item.m_pMenu = &menu;
    item.m_nID = 'c';
    item.m_nIndex = 2;
    const auto state = [&menu](UINT position) { return menu.GetMenuState(position, MF_BYPOSITION); };
    item.Enable(FALSE);
    EXPECT_TRUE(item.m_bEnableChanged);
    item.SetCheck();
    EXPECT_EQ(state(2), MF_DISABLED | MF_GRAYED | MF_CHECKED);
    item.SetText("new");
    char text[8];
    EXPECT_EQ(GetMenuStringA(menu, 'c', text, sizeof text, MF_BYCOMMAND), 3);
    EXPECT_STREQ(text, "new");
    EXPECT_EQ(state(2), MF_DISABLED | MF_GRAYED | MF_CHECKED) << "text leaves the rest";
    item.Enable();
    item.SetCheck(0);
    EXPECT_EQ(state(2), MF_ENABLED);

    CMenu inner;
    item.m_pSubMenu = &inner;
    item.m_nIndex = 1;
    item.Enable(FALSE);
    item.SetCheck();
    item.SetText("other");
    EXPECT_EQ(state(1), MF_POPUP | 8u << 8);
    EXPECT_EQ(Shown(menu), "a*c");
}

TEST(MenuObject, OwnsWhatItHolds)
{
    HMENU handle = nullptr;
    {
        CMenu menu;
        EXPECT_FALSE(menu.Attach(nullptr));
        EXPECT_FALSE(menu.DestroyMenu());
        ASSERT_TRUE(menu.CreateMenu());
        EXPECT_FALSE(menu.CreatePopupMenu()) << "one at a time";
        handle = menu;
    }
    EXPECT_FALSE(DestroyMenu(handle)) << "the destructor destroys";
    CMenu menu;
    menu.CreatePopupMenu();
    handle = menu.Detach();
    EXPECT_EQ(menu.GetSafeHmenu(), nullptr);
    EXPECT_TRUE(DestroyMenu(handle));
}

} // namespace
