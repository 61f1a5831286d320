#include "corekit/platform/Menus.h"

#include "corekit/platform/Accelerators.h"
#include "corekit/platform/Errors.h"
#include "corekit/platform/Handles.h"
#include "corekit/platform/Keyboard.h"

#include <gtest/gtest.h>

#include <string>

namespace {

constexpr UINT failure = 0xFFFFFFFF;

UINT_PTR NumberOf(HMENU menu) { return reinterpret_cast<UINT_PTR>(menu); }

// The items in a few letters: 12 for a command, - for a separator, (...) for a menu within.
std::string Shown(HMENU menu)
{
    std::string all;
    for (int i = 0; i < GetMenuItemCount(menu); ++i) {
        if (i) all += ' ';
        if (const HMENU inner = GetSubMenu(menu, i))
            all += '(' + Shown(inner) + ')';
        else if (GetMenuState(menu, static_cast<UINT>(i), MF_BYPOSITION) & MF_SEPARATOR)
            all += '-';
        else
            all += std::to_string(GetMenuItemID(menu, i));
    }
    return all;
}

// 1 (2 3) - 4
struct SomeMenus : testing::Test {
    HMENU bar = CreateMenu(), popup = CreatePopupMenu();
    SomeMenus()
    {
        AppendMenuA(popup, MF_STRING, 2, "Two");
        AppendMenuA(popup, MF_STRING | MF_CHECKED, 3, "Three");
        AppendMenuA(bar, MF_STRING, 1, "One");
        AppendMenuA(bar, MF_POPUP, NumberOf(popup), "More");
        AppendMenuA(bar, MF_SEPARATOR, 0, nullptr);
        AppendMenuA(bar, MF_GRAYED, 4, "Four");
    }
    ~SomeMenus() override { DestroyMenu(bar); }
};

TEST_F(SomeMenus, ItemsGoInByPlaceAndByCommand)
{
    EXPECT_EQ(Shown(bar), "1 (2 3) - 4");
    EXPECT_TRUE(InsertMenuA(bar, 0, MF_BYPOSITION, 5, "Five"));
    EXPECT_TRUE(InsertMenuA(bar, 3, MF_BYCOMMAND, 6, "Six"));
    EXPECT_TRUE(InsertMenuA(bar, 99, MF_BYCOMMAND, 7, "no such place: last"));
    EXPECT_TRUE(InsertMenuA(bar, 99, MF_BYPOSITION, 8, "no such place: last"));
    EXPECT_TRUE(ModifyMenuA(bar, 2, MF_BYCOMMAND, 9, "Nine"));
    EXPECT_EQ(Shown(bar), "5 1 (9 6 3) - 4 7 8");
    EXPECT_TRUE(DeleteMenu(bar, 6, MF_BYCOMMAND));
    EXPECT_TRUE(DeleteMenu(bar, 0, MF_BYPOSITION));
    EXPECT_EQ(Shown(bar), "1 (9 3) - 4 7 8");
    EXPECT_FALSE(DeleteMenu(bar, 6, MF_BYCOMMAND));
    EXPECT_EQ(GetLastError(), ERROR_MENU_ITEM_NOT_FOUND);
}

TEST_F(SomeMenus, StatesAreReadAndChanged)
{
    EXPECT_EQ(GetMenuState(bar, 3, MF_BYCOMMAND), MF_CHECKED);
    EXPECT_EQ(GetMenuState(bar, 4, MF_BYCOMMAND), MF_GRAYED);
    EXPECT_EQ(GetMenuState(bar, 1, MF_BYPOSITION), MF_POPUP | 2u << 8);
    EXPECT_EQ(GetMenuItemID(bar, 1), failure);
    EXPECT_EQ(GetMenuItemID(bar, 2), 0u);
    EXPECT_EQ(CheckMenuItem(bar, 1, MF_CHECKED), 0u);
    EXPECT_EQ(CheckMenuItem(bar, 1, MF_UNCHECKED), MF_CHECKED);
    EXPECT_EQ(EnableMenuItem(bar, 1, MF_DISABLED), 0u);
    EXPECT_EQ(EnableMenuItem(bar, 1, MF_ENABLED), MF_DISABLED);
    EXPECT_EQ(EnableMenuItem(bar, 9, MF_BYPOSITION), failure);
    char text[4];
    EXPECT_EQ(GetMenuStringA(bar, 3, text, sizeof text, MF_BYCOMMAND), 3);
    EXPECT_STREQ(text, "Thr");
    EXPECT_EQ(GetMenuStringA(bar, 3, nullptr, 0, MF_BYCOMMAND), 5);
    EXPECT_EQ(GetMenuStringA(bar, 2, text, sizeof text, MF_BYPOSITION), 0);
    EXPECT_STREQ(text, "");
}

TEST_F(SomeMenus, AMenuGoesWithItsItem)
{
    EXPECT_TRUE(ModifyMenuA(bar, 1, MF_BYPOSITION | MF_POPUP, NumberOf(popup), "the same again"));
    EXPECT_EQ(GetMenuItemCount(popup), 2);
    EXPECT_TRUE(DeleteMenu(bar, 1, MF_BYPOSITION));
    EXPECT_EQ(GetMenuItemCount(popup), -1);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_MENU_HANDLE);
    EXPECT_FALSE(DestroyMenu(popup));
    EXPECT_FALSE(CloseHandle(bar)) << "a menu is no kernel object";
}

TEST_F(SomeMenus, RefusesNonsense)
{
    EXPECT_FALSE(AppendMenuA(popup, MF_POPUP, NumberOf(bar), "round and round"));
    EXPECT_FALSE(AppendMenuA(bar, MF_POPUP, NumberOf(bar), "round and round"));
    EXPECT_FALSE(AppendMenuA(bar, MF_POPUP, 77, "no menu"));
    EXPECT_FALSE(AppendMenuA(bar, 0x4000, 7, "no such flag"));
    EXPECT_FALSE(AppendMenuA(nullptr, MF_STRING, 7, "nowhere"));
    EXPECT_EQ(GetSubMenu(bar, -1), nullptr);
    EXPECT_EQ(Shown(bar), "1 (2 3) - 4");
}

TEST(AcceleratorTables, AreCopiesUntilDestroyed)
{
    ACCEL rows[] = {{FVIRTKEY | FCONTROL, 'S', 101}, {0, 'x', 102}};
    const HACCEL table = CreateAcceleratorTableA(rows, 2);
    rows[0].cmd = 0;
    ACCEL copied[3]{};
    EXPECT_EQ(CopyAcceleratorTableA(table, nullptr, 0), 2);
    EXPECT_EQ(CopyAcceleratorTableA(table, copied, 1), 1);
    EXPECT_EQ(copied[0].cmd, 101);
    EXPECT_EQ(copied[1].key, 0);
    EXPECT_EQ(CopyAcceleratorTableA(table, copied, 3), 2);
    EXPECT_EQ(copied[1].key, 'x');
    EXPECT_TRUE(DestroyAcceleratorTable(table));
    EXPECT_FALSE(DestroyAcceleratorTable(table));
    EXPECT_EQ(CopyAcceleratorTableA(table, nullptr, 0), 0);
    EXPECT_EQ(GetLastError(), ERROR_INVALID_ACCEL_HANDLE);
    EXPECT_EQ(CreateAcceleratorTableA(rows, 0), nullptr);
    EXPECT_EQ(CreateAcceleratorTableA(rows, maximumAccelerators + 1), nullptr);
}

} // namespace
