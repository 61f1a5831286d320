#include "corekit/platform/Handles.h"
#include "corekit/platform/Accelerators.h"
#include "corekit/platform/Errors.h"
#include "corekit/platform/Menus.h"
#include "corekit/platform/Messages.h"
#include "corekit/platform/Registry.h"
#include "corekit/platform/Waits.h"
#include "corekit/platform/Windows.h"

#include <gtest/gtest.h>

namespace {

TEST(Handles, AClosedOneStaysClosedHoweverManyFollow)
{
    const HANDLE first = CreateEventA(nullptr, TRUE, FALSE, nullptr);
    EXPECT_TRUE(CloseHandle(first));
    for (int i = 0; i < 1000; ++i) {
        const HANDLE next = CreateEventA(nullptr, TRUE, FALSE, nullptr);
        ASSERT_NE(next, first);
        ASSERT_FALSE(SetEvent(first));
        ASSERT_FALSE(CloseHandle(first));
        ASSERT_TRUE(CloseHandle(next));
    }
}

TEST(Handles, OneOfAKindMeansNothingToOthers)
{
    const MessageWindow window([](const MSG&) -> LRESULT { return 7; });
    const HMENU menu = CreateMenu();
    const ACCEL row{FVIRTKEY, 'A', 1};
    const HACCEL keys = CreateAcceleratorTableA(&row, 1);
    const HANDLE event = CreateEventA(nullptr, TRUE, FALSE, nullptr);
    for (void* const value : {reinterpret_cast<void*>(window.GetSafeHwnd()), reinterpret_cast<void*>(menu),
                              reinterpret_cast<void*>(keys), static_cast<void*>(event)}) {
        const auto as = [&](auto own, auto operation) {
            EXPECT_FALSE(value != reinterpret_cast<void*>(own) && operation());
        };
        as(window.GetSafeHwnd(), [&] { return IsWindow(reinterpret_cast<HWND>(value)); });
        as(menu, [&] { return DestroyMenu(reinterpret_cast<HMENU>(value)); });
        as(keys, [&] { return DestroyAcceleratorTable(reinterpret_cast<HACCEL>(value)); });
        as(event, [&] { return CloseHandle(static_cast<HANDLE>(value)); });
        EXPECT_EQ(RegCloseKey(reinterpret_cast<HKEY>(value)), static_cast<LONG>(ERROR_INVALID_HANDLE));
    }
    EXPECT_EQ(SendMessageA(window.GetSafeHwnd(), WM_USER, 0, 0), 7);
    EXPECT_TRUE(DestroyMenu(menu));
    EXPECT_TRUE(DestroyAcceleratorTable(keys));
    EXPECT_TRUE(CloseHandle(event));
}

} // namespace
