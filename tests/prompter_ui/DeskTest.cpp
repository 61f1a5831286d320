#include "desk/DeskCommands.h"
#include "desk/SettingsDialogs.h"
#include "desk/SettingsSheet.h"
#include "OnTheDesk.h"

#include "corekit/framework/Module.h"

#include <gtest/gtest.h>

using namespace prompter;

namespace {

TEST_F(OnTheDesk, ADisplayThatGoesAwayAndComesBackIsTakenAgain)
{
    Keep({{"HDMI-1", {true, false, Turn::none}}, {"HDMI-2"}});
    Desk desk(Options());
    desk.Open();
    desk.StartPrompt(false);
    EXPECT_EQ(Shown(desk), "HDMI-1 HDMI-2 ");
    EXPECT_TRUE(desk.Outputs()[0].window->Form().mirrorLeftRight);
    there = {one, three};
    EXPECT_EQ(Shown(desk), "HDMI-2 ");
    there = {one};
    EXPECT_EQ(Shown(desk), "") << "the desk's own display is not covered";
    there = {one, two, three};
    EXPECT_EQ(Shown(desk), "HDMI-1 HDMI-2 ");
    RECT place;
    GetWindowRect(desk.Outputs()[1].window->m_hWnd, &place);
    EXPECT_EQ(place.left, 1600);
    desk.LeavePrompt();
    EXPECT_EQ(Shown(desk), "");
    desk.DestroyWindow();
}

TEST_F(OnTheDesk, MirrorsAndTurnsBelongToTheDisplaysThatShow)
{
    Keep({{"HDMI-1"}, {"HDMI-2", {true, false, Turn::none}}});
    {
        Desk desk(Options());
        desk.Open();
        desk.StartPrompt(false);
        desk.SendMessage(WM_COMMAND, mirrorSides);
        desk.SendMessage(WM_COMMAND, turnDisplays);
        EXPECT_TRUE(desk.Outputs()[0].window->Form().mirrorLeftRight);
        EXPECT_FALSE(desk.Outputs()[1].window->Form().mirrorLeftRight) << "each from what it was";
        EXPECT_EQ(desk.Outputs()[1].window->Form().turn, Turn::quarter);
        desk.DestroyWindow();
    }
    EXPECT_TRUE(LoadSettings(folder / "settings").outputs[0].form.mirrorLeftRight) << "remembered";
}

TEST_F(OnTheDesk, TheSettingsAreTakenFromTheirPages)
{
    AfxSetDialogTemplates(dialogs::all);
    Settings settings;
    SettingsSheet sheet(settings, there, nullptr);
    ASSERT_TRUE(sheet.Create());
    const auto set = [&](int id, const char* text) {
        SetDlgItemTextA(sheet.GetActivePage()->m_hWnd, id, text);
    };
    const auto click = [&](int id) { sheet.GetActivePage()->SendDlgItemMessage(id, BM_CLICK); };
    EXPECT_TRUE(IsDlgButtonChecked(sheet.GetActivePage()->m_hWnd, byCharactersRadio)) << "as it is set";
    click(bySecondsRadio);
    set(linesField, "2");
    set(secondsField, "9");
    sheet.GetActivePage()->SendDlgItemMessage(clockChoice, CB_SETCURSEL, 2);
    ASSERT_TRUE(sheet.SetActivePage(1));
    set(sizeField, "96");
    set(faceChoice, "Noto Sans; Amiri");
    set(textColourChoice, "#FFEE00");
    ASSERT_TRUE(sheet.SetActivePage(2));
    sheet.GetActivePage()->SendDlgItemMessage(displayList, LB_SETCURSEL, 1);
    sheet.GetActivePage()->SendMessage(WM_COMMAND, static_cast<WPARAM>(MAKELONG(displayList, LBN_SELCHANGE)));
    click(showHereCheck);
    click(mirrorTopCheck);
    sheet.SendMessage(PSM_PRESSBUTTON, PSBTN_OK);
    const Settings& taken = sheet.Result();
    EXPECT_TRUE(taken.session.rate.bySeconds);
    EXPECT_EQ(taken.session.rate.SecondsPerLine(), 4.5);
    EXPECT_EQ(taken.session.clock, Clock::ntsc);
    EXPECT_EQ(taken.session.style.size, 96);
    EXPECT_EQ(taken.session.style.faces, (std::vector<std::string>{"Noto Sans", "Amiri"}));
    EXPECT_EQ(taken.session.style.text, RGB(0xFF, 0xEE, 0));
    ASSERT_EQ(taken.outputs.size(), 1u);
    EXPECT_EQ(taken.outputs[0].display, "HDMI-1");
    EXPECT_TRUE(taken.outputs[0].form.mirrorTopBottom);
}

} // namespace
