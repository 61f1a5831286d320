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
    const HWND gone = desk.Outputs()[0].window->m_hWnd;
    there = {one, three};
    EXPECT_EQ(Shown(desk), "HDMI-2 ");
    EXPECT_FALSE(IsWindow(gone));
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
        SetWindowTextA(GetDlgItem(sheet.GetActivePage()->m_hWnd, id), text);
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
    ASSERT_TRUE(sheet.SetActivePage(3));
    EXPECT_FALSE(IsWindowEnabled(GetDlgItem(sheet.GetActivePage()->m_hWnd, remotePortField)));
    set(newsField, "/srv/news");
    click(remoteCheck);
    set(remotePortField, "4711");
    sheet.GetActivePage()->SendDlgItemMessage(codePageChoice, CB_SETCURSEL, 1);
    sheet.SendMessage(PSM_PRESSBUTTON, PSBTN_OK);
    const Settings& taken = sheet.Result();
    EXPECT_TRUE(taken.session.rate.bySeconds);
    EXPECT_EQ(taken.session.rate.SecondsPerLine(), 4.5);
    EXPECT_EQ(taken.session.clock, Clock::ntsc);
    EXPECT_EQ(taken.session.style.size, 96);
    EXPECT_EQ(taken.session.style.faces, (std::vector<std::string>{"Noto Sans", "Amiri"}));
    EXPECT_EQ(taken.session.style.text, RGB(0xFF, 0xEE, 0));
    EXPECT_EQ(taken.newsFolder, "/srv/news");
    EXPECT_TRUE(taken.hasRemote);
    EXPECT_EQ(taken.remote, (RemotePlace{"127.0.0.1", 4711, ""}));
    EXPECT_GT(taken.codePage, 0);
    ASSERT_EQ(taken.outputs.size(), 1u);
    EXPECT_EQ(taken.outputs[0].display, "HDMI-1");
    EXPECT_TRUE(taken.outputs[0].form.mirrorTopBottom);
}

// What the settings ask for begins at once, without a restart.
TEST_F(OnTheDesk, NewsAndRemoteControlFollowTheSettings)
{
    DeskOptions options = Options();
    options.newsFolder = folder / "elsewhere";
    Desk desk(options);
    desk.Open();
    EXPECT_EQ(desk.RemotePort(), 0);
    std::filesystem::create_directory(folder / "news");
    WriteWhole(folder / "news/a.txt", "first line\n");
    WriteWhole(folder / "news/binary.txt", std::string("no\0text", 7));
    Settings settings = LoadSettings(folder / "settings");
    settings.newsFolder = folder / "news";
    settings.hasRemote = true;
    settings.remote.port = 0;
    desk.TakeSettings(settings);
    EXPECT_GT(desk.RemotePort(), 0);
    for (int i = 0; i < 2; ++i) desk.SendMessage(WM_TIMER, 3);
    const Script& script = desk.TheSession().TheScript();
    ASSERT_EQ(script.Count(), 2);
    EXPECT_EQ(script.At(1).text, u"first line\n");
    settings.hasRemote = false;
    desk.TakeSettings(settings);
    EXPECT_EQ(desk.RemotePort(), 0);
    EXPECT_EQ(LoadSettings(folder / "settings").newsFolder, folder / "news");
    desk.DestroyWindow();
}

TEST_F(OnTheDesk, AFileThatMayNotBeOverwrittenStays)
{
    const std::string path = folder / "s.txt";
    WriteWhole(path, "text\n");
    ScriptFile file(folder / "state", 0);
    file.Open(path);
    file.TheScript().SetStoryText(0, u"new\n");
    EXPECT_FALSE(file.IsChangedOnDisk());
    WriteWhole(path, "by another\n");
    EXPECT_TRUE(file.IsChangedOnDisk());
    std::filesystem::permissions(path, std::filesystem::perms::owner_read);
    EXPECT_THROW(file.Save(), std::runtime_error);
    EXPECT_EQ(ReadWhole(path), "by another\n");
    std::filesystem::remove(path);
    EXPECT_FALSE(file.IsChangedOnDisk()) << "nothing can be lost";
    file.Save();
    EXPECT_EQ(ReadWhole(path), "new\n");
    EXPECT_FALSE(file.IsChangedOnDisk());
}

} // namespace
