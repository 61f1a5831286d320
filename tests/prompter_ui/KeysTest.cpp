#include "desk/CommandKeys.h"
#include "desk/DeskCommands.h"
#include "OnTheDesk.h"

#include "../devices/Line.h"

#include "corekit/commands/ui/AXPropertySheet.h"
#include "corekit/commands/ui/PPage_CustomiseKeyboard.h"
#include "corekit/platform/Buttons.h"
#include "corekit/platform/ComboBoxes.h"
#include "corekit/platform/InputTest.h"
#include "corekit/platform/ListBoxes.h"

using namespace prompter;
using namespace corekit::test;

namespace {

struct Given {
    UINT table;
    UINT command;
    int key;
};

CPropertyStore KeysOf(std::initializer_list<Given> given)
{
    RegisterCommands();
    CCommandList::CustomTableArray tables;
    for (const Given& one : given) {
        CCustomAcceleratorTable table(one.table);
        ACCEL key{FVIRTKEY | 2, static_cast<WORD>(one.key), static_cast<WORD>(one.command)};
        const bool isNew = tables.GetSize() == 0 || tables[tables.GetSize() - 1].m_nTableID != one.table;
        if (isNew) tables.Add(table);
        tables[tables.GetSize() - 1].m_entries.Add(key);
    }
    GetCommandList().SetCustomAccelTableArray(tables);
    return DifferingKeys();
}

template <class Condition>
bool Wait(Condition holds)
{
    for (int i = 0; i < 1000 && !holds(); ++i) RunFor(10);
    return holds();
}

std::string MenuText(const Desk& desk, UINT command)
{
    char text[128] = "";
    GetMenuStringA(GetMenu(desk.m_hWnd), command, text, sizeof text, MF_BYCOMMAND);
    return text;
}

TEST_F(OnTheDesk, KeysThatTheUserGaveAreRememberedAndCount)
{
    WriteWhole(folder / "s.txt", "one\n---\ntwo\n---\nthree\n");
    Settings settings;
    settings.keys =
        KeysOf({{viewKeys, 300, 'X'}, {viewKeys, 324, VK_SPACE}, {deskKeys, startPrompt, VK_F1 + 8}});
    ASSERT_TRUE(SaveSettings(folder / "settings", settings));
    TakeKeys({});
    DeskOptions options = Options();
    options.script = folder / "s.txt";
    Desk desk(options);
    desk.Open();
    EXPECT_EQ(MenuText(desk, startPrompt), "&Start\tF9");
    EXPECT_EQ(MenuText(desk, openScript), "&Open...\tCtrl + O");
    PressKey(VK_F1 + 4);
    EXPECT_TRUE(desk.Outputs().empty()) << "the key that it had";
    PressKey(VK_F1 + 8);
    ASSERT_EQ(desk.Outputs().size(), 1u);
    PressKey(VK_SPACE);
    EXPECT_FALSE(desk.TheSession().IsRunning());
    const std::uint64_t second = desk.TheSession().TheScript().At(1).key;
    EXPECT_EQ(desk.TheSession().CurrentStory(PromptWnd::Now()), second);
    PressKey('X');
    EXPECT_TRUE(desk.TheSession().IsRunning());
    PressKey('G');
    PressKey('3');
    PressKey(VK_RETURN);
    EXPECT_EQ(desk.TheSession().Speed(), 10) << "a digit of a story's number is no speed";
    EXPECT_NE(desk.TheSession().CurrentStory(PromptWnd::Now()), second);
    PressKey(VK_ESCAPE);
    EXPECT_FALSE(desk.TheSession().IsRunning());
    desk.DestroyWindow();
}

TEST_F(OnTheDesk, ThePageOfKeysKnowsTheCommandsOfEachPlace)
{
    RegisterCommands();
    TakeKeys({});
    CAXPropertySheet sheet("Keys");
    PPage_CustomiseKeyboard page(GetCommandList(), "Prompt view");
    sheet.AddPage(&page);
    ASSERT_TRUE(sheet.Create());
    enum { places = 1039, commands = 1040, categories = 1041, hotKey = 1044, assign = 1046 };
    const auto pick = [&](int list, UINT findIn, UINT select, const char* text, UINT code) {
        const LRESULT row =
            page.SendDlgItemMessage(list, findIn, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(text));
        ASSERT_GE(row, 0) << text;
        page.SendDlgItemMessage(list, select, static_cast<WPARAM>(row));
        page.SendMessage(WM_COMMAND, static_cast<WPARAM>(MAKELONG(list, code)),
                         reinterpret_cast<LPARAM>(page.GetDlgItem(list)->m_hWnd));
    };
    pick(places, CB_FINDSTRINGEXACT, CB_SETCURSEL, "Desk", CBN_SELCHANGE);
    pick(categories, CB_FINDSTRINGEXACT, CB_SETCURSEL, "All Commands", CBN_SELCHANGE);
    pick(commands, LB_FINDSTRINGEXACT, LB_SETCURSEL, "Turn by a quarter", LBN_SELCHANGE);
    pick(places, CB_FINDSTRINGEXACT, CB_SETCURSEL, "Hand controller", CBN_SELCHANGE);
    pick(commands, LB_FINDSTRINGEXACT, LB_SETCURSEL, "Start and pause", LBN_SELCHANGE);
    page.SendDlgItemMessage(hotKey, WM_KEYDOWN, static_cast<WPARAM>(KeyOfButton(12)), 1);
    EXPECT_FALSE(page.GetDlgItem(assign)->IsWindowEnabled()) << "the button has a command";
    page.SendDlgItemMessage(hotKey, WM_KEYDOWN, 'P', 1);
    page.SendDlgItemMessage(assign, BM_CLICK);
    sheet.SendMessage(PSM_PRESSBUTTON, PSBTN_OK);
    GetCommandList().RebuildAcceleratorTables();
    EXPECT_EQ(KeyNameOf(controllerKeys, 300), "P");
    EXPECT_EQ(CommandOfButton(1), 300u) << "as well";
    TakeKeys({});
    EXPECT_EQ(KeyNameOf(controllerKeys, 300), "F13");
}

class WithAController : public OnTheDesk {
protected:
    class Port : public Line {
    public:
        using Line::number, Line::Send;
        void TestBody() override {}
    } port;
};

TEST_F(WithAController, ButtonsDoWhatTheUserGaveThem)
{
    WriteWhole(folder / "s.txt", "one\n---\ntwo\n---\nthree\n");
    Settings settings;
    settings.keys = KeysOf({{controllerKeys, 300, KeyOfButton(3)}, {controllerKeys, 324, KeyOfButton(1)}});
    settings.controllerPort = Port::number;
    ASSERT_TRUE(SaveSettings(folder / "settings", settings));
    DeskOptions options = Options();
    options.script = folder / "s.txt";
    Desk desk(options);
    desk.Open();
    ASSERT_TRUE(Wait([&] { return desk.HasController(); }));
    Session& session = desk.TheSession();
    port.Send("\x82\x01");
    EXPECT_TRUE(
        Wait([&] { return session.CurrentStory(PromptWnd::Now()) == session.TheScript().At(1).key; }));
    EXPECT_FALSE(session.IsRunning());
    port.Send("\x80\x36\x82\x03");
    EXPECT_TRUE(Wait([&] { return session.IsRunning() && session.Speed() == -10; }));
    desk.DestroyWindow();
}

} // namespace
