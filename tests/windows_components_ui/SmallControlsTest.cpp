#include "corekit/framework/Exception.h"
#include "corekit/framework/MessageBox.h"
#include "corekit/framework/ui/CmdUI.h"
#include "corekit/framework/ui/WindowDC.h"
#include "corekit/platform/Edits.h"
#include "corekit/platform/InputTest.h"
#include "corekit/windows/controls/ui/AXStatusBar.h"
#include "corekit/windows/controls/ui/ColourListBox.h"
#include "corekit/windows/controls/ui/DataExchangeEx.h"
#include "corekit/windows/controls/ui/ImageButton.h"
#include "corekit/windows/controls/ui/MenuHelpersEx.h"
#include "corekit/windows/controls/ui/RectTracker.h"
#include "corekit/windows/controls/ui/SplitterEx.h"
#include "corekit/windows/controls/ui/TabBar.h"

#include "tests/dialogs_ui/Modal.h"
#include "tests/support/Thrown.h"

#include <gtest/gtest.h>

using namespace corekit::test;

namespace {

class CParent : public CWnd {
public:
    std::string log;

protected:
    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override
    {
        log += std::to_string(LOWORD(wParam)) + " ";
        return CWnd::OnCommand(wParam, lParam);
    }
    void OnHandled() {}
    DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(CParent, CWnd)
ON_COMMAND(11, &CParent::OnHandled)
END_MESSAGE_MAP()

class SmallControls : public testing::Test {
protected:
    void SetUp() override
    {
        parent.CreateEx(0, AfxRegisterWndClass(0), "parent", WS_OVERLAPPEDWINDOW, 0, 0, 400, 300, nullptr,
                        nullptr);
        parent.ShowWindow(SW_SHOW);
        RunWaiting();
    }
    void TearDown() override { parent.DestroyWindow(); }
    static CRect PlaceOf(const CWnd& window)
    {
        CRect rect;
        window.GetWindowRect(&rect);
        window.GetParent()->ScreenToClient(&rect);
        return rect;
    }
    static COLORREF PixelOf(const CWnd& window, CPoint at)
    {
        CDC dc;
        dc.CreateCompatibleDC(nullptr);
        CBitmap picture;
        picture.Attach(PictureOf(window.m_hWnd));
        CBitmap* const former = dc.SelectObject(&picture);
        const COLORREF colour = dc.GetPixel(at);
        dc.SelectObject(former);
        return colour;
    }
    CParent parent;
};

} // namespace

// What the menu still shows may be gone by the time that it is chosen.
TEST_F(SmallControls, ACommandThatGoesWhileItsMenuIsOpenIsNotSent)
{
    for (const char* what : {"stays", "item", "menu", "owner"}) {
        CParent owner;
        owner.CreateEx(0, AfxRegisterWndClass(0), "owner", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 300, 200,
                       nullptr, nullptr);
        CRightButtonMenu menu;
        menu.Add(11, "&Go");
        const Acts::Act goes = [&, gone = std::string(what)] {
            if (gone == "item") menu.GetMenu().DeleteMenu(11, MF_BYCOMMAND);
            if (gone == "menu") menu.GetMenu().DestroyMenu();
            if (gone == "owner") owner.DestroyWindow();
            PressKey('G');
        };
        Acts acts{goes, Press(VK_ESCAPE)};
        const bool isSent = std::string(what) == "stays";
        EXPECT_EQ(menu.Show(owner, CPoint(50, 50)), isSent ? 11u : 0u) << what;
        EXPECT_EQ(owner.log, isSent ? "11 " : "") << what;
    }
}

TEST_F(SmallControls, ASplitterKeepsSharesAndFolds)
{
    CSplitterEx splitter;
    CWnd panes[2];
    ASSERT_TRUE(splitter.Create(&parent, CSplitterEx::sideBySide, CRect(0, 0, 205, 100), 1));
    for (CWnd& pane : panes)
        pane.Create(AfxRegisterWndClass(0), "", WS_CHILD | WS_VISIBLE, CRect(), &splitter, 2);
    splitter.SetPanes(&panes[0], &panes[1]);
    EXPECT_EQ(PlaceOf(panes[0]), CRect(0, 0, 100, 100));
    EXPECT_EQ(PlaceOf(panes[1]), CRect(105, 0, 205, 100));
    RunWaiting();
    Drag(splitter.m_hWnd, CPoint(102, 50), CPoint(152, 50));
    EXPECT_EQ(splitter.GetPosition(), 150);
    splitter.MoveWindow(0, 0, 105, 100);
    EXPECT_EQ(splitter.GetPosition(), 75);
    splitter.SetPosition(500);
    EXPECT_EQ(splitter.GetPosition(), 80); // the least size of the second
    Click(splitter.m_hWnd, CPoint(82, 50), Button::left, Clicks::two);
    EXPECT_TRUE(splitter.IsFolded());
    EXPECT_EQ(PlaceOf(panes[0]).Width(), 0);
    const int share = splitter.GetShare();
    Drag(splitter.m_hWnd, CPoint(2, 50), CPoint(4, 50)); // an unsteady hand
    EXPECT_TRUE(splitter.IsFolded());
    EXPECT_EQ(splitter.GetShare(), share);
    Drag(splitter.m_hWnd, CPoint(2, 50), CPoint(52, 50));
    EXPECT_EQ(splitter.GetPosition(), 50);
    splitter.MoveWindow(0, 0, 3, 3); // narrower than its bar
    panes[1].DestroyWindow();
    splitter.Fold(false);
}

TEST_F(SmallControls, TabsAreChosenByMouseAndKeys)
{
    CTabBar tabs;
    ASSERT_TRUE(tabs.Create(&parent, CRect(0, 0, 400, 20), 77));
    for (const WCHAR* title : {u"One", u"עברית", u"हिन्दी"}) tabs.AddTab(title);
    RunWaiting();
    Click(tabs.m_hWnd, tabs.GetTabRect(2).CenterPoint());
    EXPECT_EQ(tabs.GetSelected(), 2);
    PressKey(VK_LEFT);
    EXPECT_EQ(tabs.GetSelected(), 1);
    EXPECT_EQ(parent.log, "77 77 ");
    tabs.InsertTab(0, u"First");
    EXPECT_EQ(tabs.GetSelected(), 2);
    tabs.DeleteTab(2);
    tabs.DeleteTab(9);
    EXPECT_EQ(tabs.GetSelected(), 2);
    while (tabs.GetTabCount()) tabs.DeleteTab(0);
    EXPECT_EQ(tabs.GetSelected(), -1);
}

TEST_F(SmallControls, StatusPanesHaveColoursProgressAndDoubleClicks)
{
    CAXStatusBar bar;
    ASSERT_TRUE(bar.Create(&parent));
    bar.MoveWindow(0, 200, 400, 30);
    constexpr UINT ids[] = {0, 901, 902};
    ASSERT_TRUE(bar.SetIndicators(ids, 3));
    for (int i = 1; i < 3; ++i) bar.SetPaneInfo(i, ids[i], SBPS_NORMAL, 60);
    EXPECT_TRUE(bar.SetPaneColours(1, RGB(255, 255, 255), RGB(200, 0, 0)));
    EXPECT_TRUE(bar.SetPaneProgress(2, 250));
    EXPECT_EQ(bar.GetPaneProgress(2), 100);
    EXPECT_FALSE(bar.SetPaneProgress(9, 5));
    RunWaiting();
    CRect pane;
    ASSERT_TRUE(bar.GetItemRect(1, &pane));
    EXPECT_EQ(PixelOf(bar, pane.CenterPoint()), RGB(200, 0, 0));
    Click(bar.m_hWnd, pane.CenterPoint(), Button::left, Clicks::two);
    EXPECT_EQ(parent.log, "901 ");
    bar.SetPaneColours(1, CAXStatusBar::usualColour, CAXStatusBar::usualColour);
    RunWaiting();
    EXPECT_NE(PixelOf(bar, pane.CenterPoint()), RGB(200, 0, 0));
}

TEST_F(SmallControls, ColoursAndPicturesAreDrawn)
{
    CColourListBox colours;
    ASSERT_TRUE(colours.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 150, 80), &parent, 3));
    colours.AddColour("Red", RGB(250, 0, 0));
    colours.AddColour("Green", RGB(0, 250, 0));
    EXPECT_EQ(colours.SelectColour(RGB(0, 250, 0)), 1);
    COLORREF chosen = 0;
    EXPECT_TRUE(colours.GetSelectedColour(chosen));
    EXPECT_EQ(chosen, RGB(0, 250, 0));
    EXPECT_EQ(colours.SelectColour(1), -1);
    CImageButton button;
    ASSERT_TRUE(button.Create("", WS_CHILD | WS_VISIBLE, CRect(200, 0, 240, 40), &parent, 4));
    CDC dc;
    dc.CreateCompatibleDC(nullptr);
    CClientDC screen(&parent);
    const HBITMAP bitmap = CreateCompatibleBitmap(screen, 20, 10);
    const HGDIOBJ former = dc.SelectObject(static_cast<HGDIOBJ>(bitmap));
    dc.FillSolidRect(0, 0, 20, 10, RGB(0, 0, 250));
    dc.SelectObject(former);
    ASSERT_TRUE(button.SetImages(bitmap));
    button.SizeToContent();
    RunWaiting();
    CRect row;
    colours.GetItemRect(0, &row);
    EXPECT_EQ(PixelOf(colours, CPoint(row.left + 12, row.CenterPoint().y)), RGB(250, 0, 0));
    EXPECT_EQ(PixelOf(button, CPoint(10, 5)), RGB(0, 0, 250));
    Click(button.m_hWnd, CPoint(10, 5));
    EXPECT_EQ(parent.log, "4 ");
}

TEST(RectTracker, MovesAndSizesWithinItsLimits)
{
    const struct {
        CPoint from, to;
        CRect rect;
    } cases[] = {{{50, 50}, {60, 70}, {20, 30, 110, 110}},  // moved
                 {{50, 50}, {500, 50}, {110, 10, 200, 90}}, // up to the limit
                 {{11, 11}, {1, 2}, {0, 1, 100, 90}},       // a corner
                 {{99, 50}, {-50, 50}, {10, 10, 18, 90}},   // not below the least size
                 {{55, 89}, {0, 500}, {10, 10, 100, 100}}}; // a side
    for (const auto& each : cases) {
        CRectTracker tracker(CRect(10, 10, 100, 90));
        tracker.m_limits = CRect(0, 0, 200, 100);
        if (each.to == CPoint(60, 70)) tracker.m_limits = CRect(0, 0, 200, 200);
        ASSERT_TRUE(tracker.Press(each.from));
        tracker.MoveTo(each.to);
        EXPECT_EQ(tracker.m_rect, each.rect);
        tracker.Cancel();
        EXPECT_EQ(tracker.m_rect, CRect(10, 10, 100, 90));
    }
    EXPECT_FALSE(CRectTracker(CRect(10, 10, 100, 90)).Press(CPoint(5, 5)));
}

TEST_F(SmallControls, MenusLoseSuperfluousSeparators)
{
    CMenu menu;
    menu.CreatePopupMenu();
    for (const UINT id : {0u, 0u, 11u, 0u, 0u, 12u, 0u})
        id ? menu.AppendMenu(MF_STRING, id, "Item") : menu.AppendMenu(MF_SEPARATOR);
    menuTidySeparators(menu);
    ASSERT_EQ(menu.GetMenuItemCount(), 3u);
    EXPECT_EQ(menuFind(menu, 12), 2);
    EXPECT_EQ(menuFind(menu, 13), -1);
    menuUpdate(menu, parent);
    EXPECT_FALSE(menu.GetMenuState(0, MF_BYPOSITION) & MF_GRAYED);
    EXPECT_TRUE(menu.GetMenuState(2, MF_BYPOSITION) & MF_GRAYED); // nobody handles it
}

TEST_F(SmallControls, FieldsAreReadOrRefused)
{
    static int refusals = 0;
    const MessageBoxHandler former =
        SetMessageBoxHandler([](CWnd*, const char*, UINT) { return ++refusals, IDOK; });
    CWnd field;
    field.Create(WC_EDITA, "", WS_CHILD | WS_VISIBLE, CRect(0, 0, 100, 20), &parent, 5);
    const auto exchange = [&](const char* text, auto& value, auto ddx) {
        field.SetWindowText(text);
        CDataExchange moves(&parent, TRUE);
        return ThrownClass([&] { ddx(&moves, 5, value); }) != RUNTIME_CLASS(CUserException);
    };
    CTimecode timecode;
    COLORREF colour = 0;
    UINT number = 0;
    EXPECT_TRUE(exchange(" 10:20:30:05 ", timecode, DDX_Timecode));
    EXPECT_EQ(timecode, CTimecode(10, 20, 30, 5));
    EXPECT_FALSE(exchange("10:20", timecode, DDX_Timecode));
    EXPECT_FALSE(exchange("aa:bb:cc:dd", timecode, DDX_Timecode));
    EXPECT_TRUE(exchange("#FF8000", colour, DDX_Colour));
    EXPECT_EQ(colour, RGB(255, 128, 0));
    EXPECT_FALSE(exchange("1FF8000", colour, DDX_Colour));
    EXPECT_TRUE(exchange("0x1F40", number, DDX_Hex));
    EXPECT_EQ(number, 8000u);
    for (const char* text : {"", "0x", "12G", "123456789"})
        EXPECT_FALSE(exchange(text, number, DDX_Hex)) << text;
    EXPECT_EQ(refusals, 7);
    SetMessageBoxHandler(former);
    StringW wide(u"हिन्दी"), back;
    CDataExchange show(&parent, FALSE);
    DDX_TextW(&show, 5, wide);
    CDataExchange save(&parent, TRUE);
    DDX_TextW(&save, 5, back);
    EXPECT_TRUE(back == wide);
    DDX_Colour(&show, 5, colour);
    CString text;
    field.GetWindowText(text);
    EXPECT_STREQ(text, "FF8000");
}
