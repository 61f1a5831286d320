#include "corekit/commands/MacroBitmaps.h"
#include "corekit/commands/MacroProfile.h"
#include "corekit/commands/ui/AXPropertyPage.h"
#include "corekit/commands/ui/AXPropertySheet.h"
#include "corekit/commands/ui/CommandList.h"
#include "corekit/commands/ui/CustomToolbar.h"
#include "corekit/commands/ui/IntelliToolBar.h"
#include "corekit/foundation/AcceleratorResource.h"
#include "corekit/framework/ui/DC.h"
#include "corekit/framework/ui/FrameWnd.h"
#include "corekit/platform/ComboBoxes.h"
#include "corekit/platform/HotKeys.h"
#include "corekit/platform/ListBoxes.h"
#include "corekit/stores/PropertyStore.h"

#include "tests/dialogs_ui/Modal.h"
#include "tests/support/TempFolder.h"
#include "tests/windows_components_ui/Strips.h"

using namespace corekit::test;
using namespace corekit;
using namespace corekit::detail;

namespace {

constexpr ACCEL defaultKeys[] = {{FVIRTKEY, 0x70, 1}, {FVIRTKEY, 0x71, 2}};
constexpr auto defaultTable = AcceleratorResource(defaultKeys);

WPARAM WParam(int id, int code) { return static_cast<WPARAM>(id | code << 16); }
CAXPropertySheet& Sheet()
{
    return *static_cast<CAXPropertySheet*>(CWnd::FromHandlePermanent(::GetActiveWindow()));
}
CWnd& Control(int id) { return *Sheet().GetActivePage()->GetDlgItem(id); }
Acts::Act Go(int page)
{
    return [=] { Sheet().SetActivePage(page); };
}
Acts::Act Push(int id)
{
    return [=] { Click(Control(id).m_hWnd, {8, 8}); };
}
// Selects a row as a click does.
Acts::Act Pick(int id, int row)
{
    return [=] {
        Control(id).SendMessage(LB_SETCURSEL, static_cast<WPARAM>(row));
        Sheet().GetActivePage()->SendMessage(WM_COMMAND, WParam(id, LBN_SELCHANGE),
                                             reinterpret_cast<LPARAM>(Control(id).m_hWnd));
    };
}
Acts::Act Confirm()
{
    return [] { Sheet().PressButton(PSBTN_OK); };
}
CString TextOf(int id)
{
    CString text;
    Control(id).GetWindowText(text);
    return text;
}

class Frame : public CFrameWnd {
public:
    std::vector<WPARAM> macros;

protected:
    LRESULT OnMacro(WPARAM button, LPARAM)
    {
        macros.push_back(button);
        return 0;
    }
    DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(Frame, CFrameWnd)
ON_REGISTERED_MESSAGE(CCustomToolbar::s_uMacroMsg, &Frame::OnMacro)
END_MESSAGE_MAP()

std::vector<BYTE> Bitmap(int width, int height)
{
    std::vector<BYTE> bytes(40 + static_cast<std::size_t>((width * 3 + 3) / 4 * 4 * height));
    bytes[0] = 40;
    bytes[4] = static_cast<BYTE>(width);
    bytes[8] = static_cast<BYTE>(height);
    bytes[12] = 1;
    bytes[14] = 24;
    CDib dib;
    dib.AttachDIBData(bytes.data(), static_cast<DWORD>(bytes.size()));
    return bytesOf(&dib);
}

class Customise : public testing::Test {
protected:
    void SetUp() override
    {
        strips.Add(60, 16, 15, 2);
        strips.Add(61, 32, 30, 2);
        strips.AddTable(500, defaultTable);
        strips.Use();
        frame = new Frame;
        const CRect place(100, 100, 700, 500);
        ASSERT_TRUE(frame->Create(nullptr, "host", WS_OVERLAPPEDWINDOW, &place));
        frame->EnableDocking(CBRS_ALIGN_ANY);
        frame->ShowWindow(SW_SHOW);
        RunWaiting();
        list.RegisterCommand(1, 60, 61, 0, "File!", "Open");
        list.RegisterCommand(2, 60, 61, 1, "Play!", "Start");
        list.RegisterCommand(3, 0, 61, 1, "Play!", "No small picture");
        list.RegisterAcceleratorTable("Main", 500, 0);
        CUIntArray buttons;
        for (const UINT command : {1u, 2u}) buttons.Add(command);
        list.RegisterDefaultToolbar(810, "Standard", buttons);
        list.RegisterDefaultToolbar(811, "Second", buttons);
    }
    void TearDown() override { frame->DestroyWindow(); }
    int Configure()
    {
        return list.Configure(frame, 500, &keys, &macros, &macroList, nullptr, &changed, &shown);
    }

    StripResources strips;
    Frame* frame = nullptr;
    CCommandList& list = GetCommandList();
    CPropertyStore keys, macros, macroList;
    int changed = 0, shown = 0;
};

} // namespace

TEST_F(Customise, KeysAreAssignedKeptAndInForce)
{
    HACCEL* const table = list.GetAcceleratorTable(500);
    ASSERT_TRUE(table);
    const HACCEL former = *table;
    CString taken, unassigned, afterwards;
    bool offered = true, offeredAgain = true;
    const auto press = [](WORD key, BYTE held) {
        return [=] {
            Control(1044).SendMessage(HKM_SETHOTKEY, MAKEWORD(key, held));
            Sheet().GetActivePage()->SendMessage(WM_COMMAND, WParam(1044, 0x300),
                                                 reinterpret_cast<LPARAM>(Control(1044).m_hWnd));
        };
    };
    Acts acts{Go(1),
              [] {
                  Control(1041).SendMessage(CB_SETCURSEL, 2); // all commands
                  Sheet().GetActivePage()->SendMessage(WM_COMMAND, WParam(1041, CBN_SELCHANGE),
                                                       reinterpret_cast<LPARAM>(Control(1041).m_hWnd));
              },
              Pick(1040, 1),
              press(0x70, 0),
              [&] {
                  taken = TextOf(1045);
                  offered = Control(1046).IsWindowEnabled();
              },
              press('K', HOTKEYF_CONTROL),
              [&] { unassigned = TextOf(1045); },
              Push(1046),
              [&] {
                  afterwards = TextOf(1045);
                  offeredAgain = Control(1046).IsWindowEnabled();
              },
              Confirm()};
    EXPECT_EQ(Configure(), 1);
    EXPECT_STREQ(taken, "File - Open");
    EXPECT_FALSE(offered);
    EXPECT_STREQ(afterwards, "Play - Start");
    EXPECT_FALSE(offeredAgain);
    EXPECT_STREQ(unassigned, "{Unassigned}");
    ACCEL rows[8];
    EXPECT_NE(*table, former);
    ASSERT_EQ(CopyAcceleratorTableA(*table, rows, 8), 3);
    EXPECT_EQ(rows[1].key, 'K'); // in the place of the default key
    int count = 0;
    EXPECT_TRUE(keys.GetValue("Custom Key Table Count", count));
    EXPECT_EQ(count, 1);
    CCommandList::CustomTableArray none;
    list.SetCustomAccelTableArray(none);
}

TEST_F(Customise, ToolbarsAreResetShownAndDeleted)
{
    int bars = 0, rows = 0;
    CRect first, second;
    Acts acts{Push(1038),
              [&] {
                  bars = list.GetToolbarCount();
                  rows = static_cast<int>(Control(1049).SendMessage(LB_GETCOUNT));
                  list.GetToolbarByIndex(0)->GetWindowRect(&first);
                  list.GetToolbarByIndex(1)->GetWindowRect(&second);
              },
              Push(1034), Push(1037), Confirm()};
    EXPECT_EQ(Configure(), 1);
    EXPECT_EQ(bars, 2);
    EXPECT_EQ(rows, 2);
    EXPECT_EQ(second.left, first.right + 1);
    EXPECT_EQ(second.top, first.top);
    ASSERT_EQ(list.GetToolbarCount(), 1);
    EXPECT_STREQ(list.GetToolbarByIndex(0)->GetName(), "Second");
    EXPECT_EQ(list.GetToolbarByIndex(0)->GetButtonSize(), CSize(48, 46));
    CIntelliToolBar* found = nullptr;
    int index = -1;
    CRect rect;
    EXPECT_TRUE(list.FindToolbarButton(2, found, index, rect));
    EXPECT_EQ(index, 1);
    EXPECT_FALSE(list.FindToolbarButton(3, found, index, rect));
    CIntelliToolBar::EnableLargeButtons(0);
    list.DestroyAllToolbars();
    EXPECT_EQ(list.GetToolbarCount(), 0);
}

TEST_F(Customise, ANewToolbarNeedsANameOfItsOwn)
{
    const auto dialogControl = [](int id) { return ::GetDlgItem(::GetActiveWindow(), id); };
    const auto answer = [=](const char* name, int button) {
        return [=] {
            ::SetWindowTextA(dialogControl(1038), name);
            ::SendMessageA(dialogControl(1040), LB_SETCURSEL, 0, 0);
            ::SendMessageA(::GetActiveWindow(), WM_COMMAND, WParam(1047, 0),
                           reinterpret_cast<LPARAM>(dialogControl(1047)));
            Click(dialogControl(button), {8, 8});
        };
    };
    Acts acts{Push(1038),        Push(1035), answer("Second", 1), Press(VK_RETURN) /* the box */,
              answer("Mine", 1), Confirm()};
    EXPECT_EQ(Configure(), 1);
    ASSERT_EQ(list.GetToolbarCount(), 3);
    const CIntelliToolBar* const mine = list.GetToolbarByIndex(2);
    EXPECT_STREQ(mine->GetName(), "Mine");
    EXPECT_EQ(mine->GetDlgCtrlID(), 812);
    EXPECT_GE(mine->GetButtonCount(), 1);
    list.DestroyAllToolbars();
}

TEST_F(Customise, MacroButtonsSurviveWithTheirBitmaps)
{
    const std::vector<BYTE> bitmap = Bitmap(16, 16);
    SaveMacroButtons(macros, {{"One", "clear", bitmap, "Clears"}, {"Two", "lost", {}, ""}});
    macroList.SetPropertyStore("Clear", CPropertyStore());
    int command = -1, lostCommand = -1;
    bool shows = false;
    Acts acts{Go(2),
              [&] {
                  command = static_cast<int>(Control(1003).SendMessage(CB_GETCURSEL));
                  shows = Control(1002).IsWindowVisible();
              },
              Pick(1040, 1),
              [&] { lostCommand = static_cast<int>(Control(1003).SendMessage(CB_GETCURSEL)); },
              Push(1001), // up
              Push(1006),
              Confirm()};
    EXPECT_EQ(Configure(), 1);
    EXPECT_EQ(command, 1);
    EXPECT_EQ(lostCommand, 0);
    EXPECT_TRUE(shows);
    EXPECT_EQ(changed + shown, 2);
    const std::vector<MacroButton> stored = LoadMacroButtons(macros);
    ASSERT_EQ(stored.size(), 2u);
    EXPECT_STREQ(stored[0].name, "Two");
    EXPECT_STREQ(stored[1].command, "Clear");
    EXPECT_EQ(stored[1].bitmap, bitmap);
}

// By the file dialog, as a user does: 32 by 32 fits, a pixel more in either direction does not.
TEST_F(Customise, AButtonTakesABitmapOfThirtyTwoPixelsAtMost)
{
    const TempFolder folder;
    const struct {
        int width, height;
        bool fits;
    } cases[] = {{32, 32, true}, {33, 1, false}, {1, 33, false}, {16, 8, true}};
    for (const auto& each : cases) {
        const std::string file = folder.Path() + "/button.bmp";
        dibOf(Bitmap(each.width, each.height))->SaveDIBFile(file.c_str());
        SaveMacroButtons(macros, {{"One", "", Bitmap(4, 4), ""}});
        const Acts::Act choose = [&] {
            ComposeText(std::u16string(file.begin(), file.end()));
            PressReturnInField();
        };
        changed = 0;
        bool shows = false;
        const Acts::Act look = [&] { shows = Control(1002).IsWindowVisible(); };
        if (each.fits) {
            Acts acts{Go(2), Push(1042), choose, look, Confirm()};
            EXPECT_EQ(Configure(), 1);
        } else {
            Acts acts{Go(2), Push(1042), choose, Press(VK_RETURN) /* the box */, look, Confirm()};
            EXPECT_EQ(Configure(), 1);
        }
        EXPECT_EQ(shows, each.fits) << each.width;
        EXPECT_EQ(changed, 1);
        const std::vector<MacroButton> stored = LoadMacroButtons(macros);
        ASSERT_EQ(stored.size(), 1u);
        ASSERT_EQ(stored[0].bitmap.empty(), !each.fits);
        const std::unique_ptr<CDib> kept = dibOf(stored[0].bitmap);
        EXPECT_TRUE(!kept || CSize(kept->GetSize()) == CSize(each.width, each.height));
    }
}

TEST_F(Customise, TheMacroToolbarAsksTheFrame)
{
    CCustomToolbar empty, bar;
    EXPECT_FALSE(empty.Create(frame, 830, &macros));
    std::vector<BYTE> spoilt = Bitmap(16, 16);
    spoilt.resize(20);
    SaveMacroButtons(macros, {{"A", "go", Bitmap(16, 16), ""}, {"B", "", spoilt, ""}, {"C", "stop", {}, ""}});
    ASSERT_TRUE(bar.Create(frame, 830, &macros));
    frame->DockControlBar(&bar);
    frame->RecalcLayout();
    EXPECT_EQ(bar.CalcFixedLayout(FALSE, TRUE), CSize(128, 48));
    EXPECT_EQ(bar.CalcFixedLayout(FALSE, FALSE), CSize(48, 128));
    EXPECT_EQ(bar.CalcFixedLayout(FALSE, TRUE), CSize(128, 48));
    bar.OnUpdateCmdUI(frame, TRUE);
    for (int i = 0; i < 3; ++i) Click(bar.m_hWnd, {24 + 40 * i, 24});
    RunWaiting();
    EXPECT_EQ(frame->macros, (std::vector<WPARAM>{0, 2}));
    frame->FloatControlBar(&bar, CPoint(300, 300));
    EXPECT_EQ(bar.CalcDynamicLayout(-1, LM_HORZ), CSize(128, 48));
    CDC dc;
    dc.CreateCompatibleDC(nullptr);
    CBitmap picture;
    picture.Attach(PictureOf(bar.GetDlgItem(57348)->m_hWnd));
    CBitmap* const former = dc.SelectObject(&picture);
    EXPECT_EQ(dc.GetPixel(10, 10), 0u); // the bitmap lies in the middle: from 10 to 25
    EXPECT_EQ(dc.GetPixel(25, 25), 0u);
    EXPECT_NE(dc.GetPixel(8, 12), 0u);
    EXPECT_NE(dc.GetPixel(27, 12), 0u);
    dc.SelectObject(former);
}
