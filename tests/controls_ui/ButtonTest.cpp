#include "Parent.h"

#include "corekit/platform/Buttons.h"
#include "corekit/platform/Gdi.h"
#include "corekit/platform/Keyboard.h"
#include "corekit/platform/Statics.h"

using namespace corekit::test;

TEST(Buttons, GoThroughTheStatesOfTheirKind)
{
    struct Case {
        DWORD style;
        std::vector<LRESULT> states; // at first and after each click
    };
    const Case cases[] = {
        {BS_PUSHBUTTON, {0, 0}},         {BS_CHECKBOX, {0, 0}},
        {BS_AUTOCHECKBOX, {0, 1, 0}},    {BS_3STATE, {0, 0}},
        {BS_AUTO3STATE, {0, 1, 2, 0}},   {BS_RADIOBUTTON, {0, 0}},
        {BS_AUTORADIOBUTTON, {0, 1, 1}}, {BS_AUTOCHECKBOX | BS_PUSHLIKE, {0, 1, 0}},
    };
    for (const Case& c : cases) {
        Parent parent;
        const HWND button = parent.add(WC_BUTTONA, "&Text", c.style);
        EXPECT_EQ(textOf(button), "&Text");
        EXPECT_EQ(send(button, BM_GETCHECK), c.states[0]);
        for (std::size_t i = 1; i < c.states.size(); ++i) {
            parent.notified.clear();
            Click(button, {12, 50});
            EXPECT_EQ(send(button, BM_GETCHECK), c.states[i]) << "style " << c.style << " click " << i;
            EXPECT_EQ(parent.notified, std::vector<int>{BN_CLICKED}) << "style " << c.style;
        }
    }
}

TEST(Buttons, StandBehindTheirTextForAsLongAsTheyHaveTheStyle)
{
    Parent parent;
    const HWND box = parent.add(WC_BUTTONA, "Text", BS_AUTOCHECKBOX);
    const auto picture = [&](DWORD style) {
        SetWindowLongA(box, GWL_STYLE, static_cast<LONG>(WS_CHILD | WS_VISIBLE | BS_AUTOCHECKBOX | style));
        RunWaiting();
        const HBITMAP drawn = PictureOf(box);
        BITMAP facts{};
        EXPECT_TRUE(GetObjectA(drawn, sizeof facts, &facts));
        const auto* const pixels = static_cast<const DWORD*>(facts.bmBits);
        const std::vector<DWORD> copy(pixels, pixels + facts.bmWidth * facts.bmHeight);
        DeleteObject(drawn);
        return copy;
    };
    const auto before = picture(0), behind = picture(BS_LEFTTEXT);
    EXPECT_NE(before, behind);
    EXPECT_EQ(picture(BS_LEFTTEXT | BS_NOTIFY), behind) << "another style has changed";
    EXPECT_EQ(picture(0), before);
}

TEST(Buttons, OneRadioButtonOfItsGroupIsChecked)
{
    Parent parent;
    std::vector<HWND> buttons;
    for (int i = 0; i < 5; ++i)
        buttons.push_back(parent.add(WC_BUTTONA, "r", BS_AUTORADIOBUTTON | (i == 0 || i == 3 ? WS_GROUP : 0),
                                     {10, 10 + 30 * i, 200, 38 + 30 * i}, 100 + i));
    const auto states = [&] {
        std::string text;
        for (const HWND b : buttons) text += send(b, BM_GETCHECK) ? '1' : '0';
        return text;
    };
    Click(buttons[4], {12, 14});
    Click(buttons[0], {12, 14});
    EXPECT_EQ(states(), "10001");
    Click(buttons[2], {12, 14});
    EXPECT_EQ(states(), "00101");
    send(buttons[1], BM_CLICK);
    EXPECT_EQ(states(), "01001");
}

TEST(Buttons, AreDrawnByTheirParentOnTheScreen)
{
    Parent parent;
    UINT state = 0;
    parent.hook = [&](UINT message, WPARAM, LPARAM lParam, LRESULT&) {
        if (message != WM_DRAWITEM) return false;
        const auto& item = *reinterpret_cast<DRAWITEMSTRUCT*>(lParam);
        EXPECT_EQ(item.CtlType, ODT_BUTTON);
        state = item.itemState;
        const HBRUSH red = CreateSolidBrush(RGB(200, 10, 20));
        FillRect(item.hDC, &item.rcItem, red);
        DeleteObject(red);
        return true;
    };
    const HWND button = parent.add(WC_BUTTONA, "", BS_OWNERDRAW, {20, 30, 60, 50});
    const HBITMAP picture = PictureOf(parent.window());
    BITMAP facts{};
    ASSERT_TRUE(GetObjectA(picture, sizeof facts, &facts));
    const auto pixel = [&](int x, int y) {
        return static_cast<const DWORD*>(facts.bmBits)[y * facts.bmWidth + x] & 0xFFFFFF;
    };
    ASSERT_NE(facts.bmBits, nullptr);
    EXPECT_EQ(pixel(20, 30), 0xC80A14u);
    EXPECT_EQ(pixel(59, 49), 0xC80A14u);
    EXPECT_NE(pixel(60, 50), 0xC80A14u);
    EXPECT_NE(pixel(19, 29), 0xC80A14u);
    DeleteObject(picture);
    MouseDown(button, {5, 5});
    RunWaiting();
    EXPECT_TRUE(state & ODS_SELECTED);
    MouseUp(button, {5, 5});
    EXPECT_TRUE(parent.heard(BN_CLICKED));
}

TEST(Buttons, MayBeDestroyedByTheirOwnClick)
{
    Parent parent;
    HWND button = nullptr;
    parent.hook = [&](UINT message, WPARAM, LPARAM, LRESULT&) {
        if (message == WM_COMMAND) DestroyWindow(button);
        return false;
    };
    button = parent.add(WC_BUTTONA, "x", BS_AUTOCHECKBOX);
    Click(button, {12, 50});
    EXPECT_FALSE(IsWindow(button));
}

TEST(Statics, LeaveTheMouseToWhatLiesBelowUnlessTheyNotify)
{
    Parent parent;
    const HWND quiet = parent.add(WC_STATICA, "a", SS_LEFT, {0, 0, 50, 20});
    const HWND telling = parent.add(WC_STATICA, "b", SS_NOTIFY, {0, 30, 50, 50});
    bool parentClicked = false;
    parent.hook = [&](UINT message, WPARAM, LPARAM, LRESULT&) {
        parentClicked |= message == WM_LBUTTONDOWN;
        return false;
    };
    Click(telling, {5, 5});
    EXPECT_EQ(parent.notified, std::vector<int>{STN_CLICKED});
    EXPECT_FALSE(parentClicked);
    Click(parent.window(), {5, 5});
    EXPECT_TRUE(parentClicked);
    EXPECT_EQ(textOf(quiet), "a");
}
