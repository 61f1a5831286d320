#include "desk/Desk.h"
#include "desk/DeskCommands.h"
#include "desk/SettingsDialogs.h"
#include "desk/SettingsSheet.h"

#include "../TempFolder.h"

#include "corekit/framework/Module.h"
#include "corekit/platform/Toolkit.h"

#include <gtest/gtest.h>

using namespace prompter;

namespace {

const Display one{"DP-1", "One", {0, 0, 800, 600}}, two{"HDMI-1", "Two", {800, 0, 1600, 600}},
    three{"HDMI-2", "Three", {1600, 0, 2400, 600}};

// A desk on the first of displays that come and go.
class OnTheDesk : public testing::Test {
protected:
    static void SetUpTestSuite() { ASSERT_TRUE(StartToolkit(ToolkitDisplay::offscreen)); }

    DeskOptions Options()
    {
        DeskOptions options;
        options.settingsPath = folder / "settings";
        options.recoveryFolder = folder / "state";
        options.listDisplays = [this] { return there; };
        return options;
    }
    void Keep(std::vector<OutputSettings> outputs)
    {
        Settings settings;
        settings.desk = {10, 10, 600, 500};
        settings.outputs = std::move(outputs);
        ASSERT_TRUE(SaveSettings(folder / "settings", settings));
    }
    // The names of the displays that show the prompt, after the desk has looked.
    static std::string Shown(Desk& desk)
    {
        desk.SendMessage(WM_TIMER, 4);
        std::string names;
        for (const auto& output : desk.Outputs())
            if (IsWindowVisible(output.window->m_hWnd)) names += output.display + " ";
        return names;
    }

    const TempFolder folder;
    std::vector<Display> there = {one, two, three};
};

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
