#include "corekit/platform/Keyboard.h"
#include "corekit/platform/Messages.h"

#include "corekit/platform/Errors.h"

#include <array>
#include <gtest/gtest.h>
#include <memory>
#include <thread>

namespace {

class KeyboardState : public testing::Test {
protected:
    void SetUp() override
    {
        const std::array<BYTE, 256> up{};
        SetKeyboardState(up.data());
    }
    void TearDown() override { SetUp(); }

    static bool IsDown(int key) { return GetKeyState(key) < 0; }
    static bool IsToggled(int key) { return (GetKeyState(key) & 1) != 0; }
};

TEST_F(KeyboardState, EitherKeyOfAPairHoldsTheCommonOne)
{
    constexpr int pairs[][3] = {{VK_SHIFT, VK_LSHIFT, VK_RSHIFT},
                                {VK_CONTROL, VK_LCONTROL, VK_RCONTROL},
                                {VK_MENU, VK_LMENU, VK_RMENU}};
    for (const auto& [either, left, right] : pairs) {
        RecordKeyMotion(left, KeyMotion::down);
        RecordKeyMotion(right, KeyMotion::down);
        RecordKeyMotion(left, KeyMotion::up);
        EXPECT_TRUE(IsDown(either)) << either;
        EXPECT_FALSE(IsDown(left)) << left;
        RecordKeyMotion(right, KeyMotion::up);
        EXPECT_FALSE(IsDown(either)) << either;
    }
}

TEST_F(KeyboardState, RepeatedKeyIsOnePress)
{
    for (int i = 0; i < 2; ++i) RecordKeyMotion(VK_CAPITAL, KeyMotion::down);
    RecordKeyMotion(VK_CAPITAL, KeyMotion::up);
    EXPECT_TRUE(IsToggled(VK_CAPITAL));
    EXPECT_FALSE(IsDown(VK_CAPITAL));
    RecordKeyMotion(VK_CAPITAL, KeyMotion::down);
    EXPECT_FALSE(IsToggled(VK_CAPITAL));
    EXPECT_TRUE(IsDown(VK_CAPITAL));
}

TEST_F(KeyboardState, IsSetAndReadAsAWhole)
{
    std::array<BYTE, 256> set{}, read{};
    set[VK_SHIFT] = 0x80;
    set[VK_CAPITAL] = 1;
    ASSERT_TRUE(SetKeyboardState(set.data()));
    ASSERT_TRUE(GetKeyboardState(read.data()));
    EXPECT_EQ(read, set);
    EXPECT_TRUE(IsDown(VK_SHIFT) && IsToggled(VK_CAPITAL) && !IsDown(VK_CAPITAL));

    EXPECT_FALSE(SetKeyboardState(nullptr) || GetKeyboardState(nullptr));
    EXPECT_EQ(GetLastError(), ERROR_INVALID_PARAMETER);
    for (const int none : {-1, 256, 0x7FFFFFFF, -0x7FFFFFFF}) {
        RecordKeyMotion(none, KeyMotion::down);
        EXPECT_EQ(GetKeyState(none), 0) << none;
    }
    std::thread([] { EXPECT_EQ(GetKeyState(VK_SHIFT), 0); }).join(); // each thread has its own
}

TEST(Messages, ArriveAtTheirWindowAndAreAnswered)
{
    MSG arrived{};
    const MessageWindow window([&arrived](const MSG& message) -> LRESULT {
        arrived = message;
        return -7;
    });
    const MSG sent{window.GetSafeHwnd(), WM_CHAR, 0x80000915, -1, 12, {3, 4}};
    EXPECT_EQ(DispatchMessageA(&sent), -7);
    EXPECT_EQ(arrived.hwnd, sent.hwnd);
    EXPECT_EQ(arrived.message, sent.message);
    EXPECT_EQ(arrived.wParam, sent.wParam);
    EXPECT_EQ(arrived.lParam, sent.lParam);
    EXPECT_EQ(arrived.time, sent.time);
    EXPECT_EQ(arrived.pt.y, sent.pt.y);
}

TEST(Messages, WithoutAWindowAreAnsweredByZero)
{
    EXPECT_EQ(DispatchMessageA(nullptr), 0);
    MSG message{};
    EXPECT_EQ(DispatchMessageA(&message), 0);
    message.hwnd = reinterpret_cast<HWND>(UINT_PTR{0xDEADBEEF});
    EXPECT_EQ(DispatchMessageA(&message), 0);

    auto window = std::make_unique<MessageWindow>([](const MSG&) -> LRESULT { return 1; });
    message.hwnd = window->GetSafeHwnd();
    std::thread([&message] { EXPECT_EQ(DispatchMessageA(&message), 0); }).join(); // of another thread
    EXPECT_EQ(DispatchMessageA(&message), 1);
    window.reset();
    EXPECT_EQ(DispatchMessageA(&message), 0);
    const MessageWindow next([](const MSG&) -> LRESULT { return 2; });
    EXPECT_EQ(DispatchMessageA(&message), 0); // the closed one's number is not given to another
}

TEST(Messages, WindowMayCloseWhileItAnswers)
{
    std::unique_ptr<MessageWindow> window;
    const std::string kept = "kept to the end of the answer";
    window = std::make_unique<MessageWindow>([&window, kept](const MSG&) -> LRESULT {
        window.reset();
        return static_cast<LRESULT>(kept.size());
    });
    MSG message{};
    message.hwnd = window->GetSafeHwnd();
    EXPECT_EQ(DispatchMessageA(&message), static_cast<LRESULT>(kept.size()));
    EXPECT_EQ(DispatchMessageA(&message), 0);
}

} // namespace
