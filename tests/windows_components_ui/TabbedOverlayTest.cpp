#include "corekit/windows/ui/TabbedOverlayWnd.h"

#include "corekit/framework/ui/Wnd.h"
#include "corekit/platform/Gdi.h"
#include "corekit/platform/InputTest.h"
#include "corekit/unicode/ui/UnicodeManager.h"

#include <gtest/gtest.h>

using namespace corekit::test;
using corekit::detail::TabStep;

namespace {

class CPane : public CWnd {
    DECLARE_DYNCREATE(CPane)
protected:
    void PostNcDestroy() override { delete this; }
};
IMPLEMENT_DYNCREATE(CPane, CWnd)

class COverlay : public CTabbedOverlayWnd {
public:
    std::string log;
    DWORD effect = 0;
    CWnd* target = nullptr;
    int toDestroy = -1; // inside of the next change

protected:
    void OnChangeActivePane(CWnd* pane, int isActive) override
    {
        log += pane ? std::to_string(GetPaneIndex(pane)) : "-";
        log += isActive ? " " : "! ";
        if (CWnd* const gone = GetPane(std::exchange(toDestroy, -1))) gone->DestroyWindow();
    }
    DWORD GetTabDragEffect(CWnd*, CPoint, CWnd*& to) override
    {
        to = target;
        return effect;
    }
    void DropTab(DWORD how, CWnd* pane, CWnd* to, CPoint) override
    {
        log += "drop" + std::to_string(how) + (pane && to == target ? " " : "? ");
    }
    void OnTabContextMenu(CWnd* pane, CPoint) override
    {
        log += "menu" + std::to_string(GetPaneIndex(pane)) + " ";
    }
};

class TabbedOverlay : public testing::Test {
protected:
    void SetUp() override
    {
        CFontDescriptor font;
        font.SetSize(16);
        for (const char* face : {"DejaVu Sans Mono", "Noto Sans Hebrew"}) font.AddFont(face);
        CUnicodeManager::Initialise(1)->OverrideControlsFont(font);
        parent.CreateEx(0, AfxRegisterWndClass(0), "tabs", WS_OVERLAPPEDWINDOW, 0, 0, 700, 500, nullptr,
                        nullptr);
        ASSERT_TRUE(overlay.Create(&parent, WS_CHILD | WS_VISIBLE, 0, CRect(0, 0, 400, 200), 1));
        parent.ShowWindow(SW_SHOW);
        RunWaiting();
    }
    void TearDown() override { parent.DestroyWindow(); }

    void AddPanes(int count)
    {
        for (int i = 0; i < count; ++i) {
            const WCHAR title[] = {u'P', u'a', u'n', u'e', static_cast<WCHAR>(u'0' + i), 0};
            ASSERT_TRUE(overlay.CreatePane(RUNTIME_CLASS(CPane), title, -1, nullptr, 0, 0));
        }
        RunWaiting();
        overlay.log.clear();
    }
    CPoint MiddleOf(int tab) const { return overlay.GetStrip().TabRect(tab).CenterPoint(); }
    int Active() const { return overlay.GetPaneIndex(overlay.GetActivePane()); }
    int VisiblePanes() const
    {
        int count = 0;
        for (int i = 0; i < overlay.GetPaneCount(); ++i)
            count += (overlay.GetPane(i)->GetStyle() & WS_VISIBLE) != 0;
        return count;
    }

    CWnd parent;
    COverlay overlay;
};

} // namespace

TEST_F(TabbedOverlay, ShowsOnePaneAboveTheStrip)
{
    EXPECT_EQ(overlay.GetStrip().Height(), 0);
    AddPanes(3);
    EXPECT_EQ(Active(), 0);
    EXPECT_EQ(VisiblePanes(), 1);
    const int height = overlay.GetStrip().Height();
    EXPECT_GT(height, 12);
    CRect place;
    overlay.GetActivePane()->GetClientRect(&place);
    EXPECT_EQ(place, CRect(0, 0, 400, 200 - height));

    Click(overlay, MiddleOf(2));
    EXPECT_EQ(Active(), 2);
    EXPECT_EQ(VisiblePanes(), 1);
    EXPECT_EQ(overlay.log, "2 ");
    EXPECT_EQ(overlay.GetPaneIndex(u"pANE1"), 1);
    overlay.RenamePane(u"Pane0", u"Pane1");
    EXPECT_EQ(overlay.GetPaneIndex(u"Pane1"), 1); // the later one
    EXPECT_EQ(overlay.GetPane(u"Pane0"), nullptr);
}

TEST_F(TabbedOverlay, HidesTheStripOfASinglePane)
{
    overlay.EnableSingleTabCollapse(1);
    AddPanes(1);
    EXPECT_EQ(overlay.GetStrip().Height(), 0);
    AddPanes(1);
    EXPECT_GT(overlay.GetStrip().Height(), 0);
}

TEST_F(TabbedOverlay, GoesOnWhenPanesGo)
{
    AddPanes(4);
    overlay.SetActivePane(3);
    const int freed = overlay.GetPane(1)->GetDlgCtrlID();
    overlay.log.clear();
    overlay.GetPane(3)->DestroyWindow();
    EXPECT_EQ(overlay.log, "2 ");
    overlay.GetPane(1)->DestroyWindow();
    EXPECT_EQ(Active(), 1);
    CWnd* const next = overlay.CreatePane(RUNTIME_CLASS(CPane), u"new", 0, nullptr, 0, 0);
    EXPECT_EQ(next->GetDlgCtrlID(), freed);
    EXPECT_EQ(Active(), 2); // the same pane, one further on

    COverlay other;
    ASSERT_TRUE(other.Create(&parent, WS_CHILD | WS_VISIBLE, 0, CRect(400, 0, 690, 200), 2));
    EXPECT_EQ(overlay.DetachPane(9, &other), nullptr);
    other.AttachPane(-1, overlay.DetachPane(0, &other), 0, u"moved", 1);
    EXPECT_EQ(other.GetPane(u"moved"), next);
    EXPECT_EQ(overlay.GetPaneCount(), 2);
    EXPECT_EQ(::GetParent(next->m_hWnd), other.m_hWnd);
    overlay.GetPane(0)->DestroyWindow();
    overlay.log.clear();
    overlay.GetPane(0)->DestroyWindow();
    EXPECT_EQ(overlay.log, "-! ");
}

TEST_F(TabbedOverlay, SurvivesAPaneThatGoesWhileItBecomesActive)
{
    AddPanes(3);
    overlay.toDestroy = 2;
    Click(overlay, MiddleOf(2));
    EXPECT_EQ(overlay.GetPaneCount(), 2);
    EXPECT_EQ(Active(), 1);
    overlay.toDestroy = 2;
    EXPECT_EQ(overlay.CreatePane(RUNTIME_CLASS(CPane), nullptr, -1, nullptr, 0, 1), nullptr);
}

TEST_F(TabbedOverlay, PassesOverPanesThatDoNotExist)
{
    AddPanes(2);
    for (const int index : {-1, 2, 1000000}) {
        overlay.SetPaneTitle(index, u"none");
        EXPECT_TRUE(overlay.GetPaneTitle(index).IsEmpty());
        EXPECT_EQ(overlay.GetPane(index), nullptr);
        EXPECT_EQ(overlay.GetPaneIndex(static_cast<const WCHAR*>(nullptr)), -1);
        overlay.SetActivePane(index);
        EXPECT_EQ(Active(), -1);
        EXPECT_EQ(overlay.SetActivePaneWidth(50), -1);
    }
    overlay.SetActivePane(1);
    EXPECT_EQ(VisiblePanes(), 1);
    EXPECT_EQ(overlay.log, "1 ");
}

TEST_F(TabbedOverlay, ScrollsTabsThatDoNotFit)
{
    AddPanes(9);
    const auto& strip = overlay.GetStrip();
    ASSERT_TRUE(strip.ButtonsShown());
    const CPoint right = strip.ButtonRect(TabStep::right).CenterPoint();
    Click(overlay, right);
    EXPECT_EQ(strip.FirstVisible(), 1);
    EXPECT_EQ(strip.Offset(), strip.Left(1));
    MoveMouse(overlay, right);
    MouseDown(overlay, right);
    RunFor(700); // 250 milliseconds a step
    MouseUp(overlay, right);
    EXPECT_GE(strip.FirstVisible(), 3);
    EXPECT_LE(strip.FirstVisible(), 5);
    for (int i = 0; i < 12; ++i) Click(overlay, right);
    EXPECT_EQ(strip.FirstVisible(), 8);
    overlay.SetActivePane(0);
    EXPECT_EQ(strip.Offset(), strip.Left(0));
}

TEST_F(TabbedOverlay, DropsATabWhereItsOwnerSays)
{
    AddPanes(2);
    overlay.EnableTabDragging(1);
    overlay.effect = 2;
    overlay.target = &parent;
    Drag(overlay, MiddleOf(1), {200, 50});
    EXPECT_EQ(overlay.log, "1 drop2 ");
    overlay.log.clear();
    Drag(overlay, MiddleOf(1), MiddleOf(1) + CSize(2, 0)); // too short
    overlay.effect = 0;
    Drag(overlay, MiddleOf(1), {200, 50});
    EXPECT_EQ(overlay.log, "");
}

TEST_F(TabbedOverlay, ADragEndsWithItsPaneAndWithTheStack)
{
    AddPanes(3);
    overlay.EnableTabDragging(1);
    overlay.effect = 2;
    MouseDown(overlay, MiddleOf(1));
    MoveMouse(overlay, {200, 50});
    overlay.GetPane(1)->DestroyWindow();
    overlay.log.clear();
    MoveMouse(overlay, {210, 50});
    MouseUp(overlay, {210, 50});
    EXPECT_EQ(overlay.log, "");

    class Fleeting : public COverlay {
        DWORD GetTabDragEffect(CWnd*, CPoint, CWnd*&) override { return DestroyWindow(), 2; }
        void PostNcDestroy() override { delete this; }
    };
    auto* const fleeting = new Fleeting;
    ASSERT_TRUE(fleeting->Create(&parent, WS_CHILD | WS_VISIBLE, 0, CRect(0, 200, 400, 400), 2));
    fleeting->EnableTabDragging(1);
    for (int i = 0; i < 2; ++i) fleeting->CreatePane(RUNTIME_CLASS(CPane), u"Pane", -1, nullptr, 0, 0);
    RunWaiting();
    const HWND window = fleeting->m_hWnd;
    Drag(window, fleeting->GetStrip().TabRect(1).CenterPoint(), {200, 50});
    EXPECT_FALSE(IsWindow(window));
}

TEST_F(TabbedOverlay, SlidesAPaneThatIsWider)
{
    AddPanes(2);
    overlay.EnableHorizScroll(1);
    EXPECT_EQ(overlay.GetStrip().Splitter(), 200);
    overlay.SetActivePane(1);
    EXPECT_EQ(overlay.SetPaneWidth(0, 900), 0); // whichever is named
    CRect place;
    overlay.GetActivePane()->GetClientRect(&place);
    EXPECT_EQ(place.Width(), 900);
    overlay.SendMessage(WM_HSCROLL, SB_PAGERIGHT);
    overlay.GetActivePane()->GetWindowRect(&place);
    overlay.ScreenToClient(&place);
    EXPECT_EQ(place.left, -400);
    overlay.SetWindowPos(nullptr, 0, 0, 410, 200, SWP_NOZORDER);
    RunWaiting();
    overlay.GetActivePane()->GetWindowRect(&place);
    overlay.ScreenToClient(&place);
    EXPECT_EQ(place.left, 0) << "another width begins at the left, pane and bar";
    EXPECT_EQ(overlay.SetActivePaneWidth(0), 900);

    const CPoint splitter(201, 195);
    Drag(overlay, splitter, {20, 195});
    EXPECT_EQ(overlay.GetStrip().Splitter(), 80);
}

TEST_F(TabbedOverlay, ChangesPanesByKeys)
{
    AddPanes(3);
    overlay.EnableKeyboardTabChange(1);
    overlay.GetActivePane()->SetFocus();
    PressKey(VK_TAB, {VK_CONTROL});
    EXPECT_EQ(Active(), 1);
    PressKey(VK_PRIOR, {VK_CONTROL});
    PressKey(VK_TAB, {VK_CONTROL, VK_SHIFT});
    EXPECT_EQ(Active(), 2);
}

TEST_F(TabbedOverlay, DrawsTabsThatAreWideAtTheTop)
{
    AddPanes(2);
    const HBITMAP picture = PictureOf(overlay);
    BITMAP facts{};
    ASSERT_TRUE(GetObjectA(picture, sizeof facts, &facts));
    const auto pixel = [&](int x, int y) {
        return static_cast<const DWORD*>(facts.bmBits)[y * facts.bmWidth + x] & 0xFFFFFF;
    };
    const CRect active = overlay.GetStrip().TabRect(0), other = overlay.GetStrip().TabRect(1);
    const int slant = overlay.GetStrip().Height() / 4;
    EXPECT_EQ(pixel(active.right + slant - 2, active.top), 0xFFFFFFu); // the active one has no line there
    EXPECT_EQ(pixel(active.left + slant + 2, active.bottom - 1), 0x808080u);
    EXPECT_EQ(pixel(other.right - slant, other.bottom - 1), 0x808080u);
    EXPECT_EQ(pixel(active.left + slant, active.bottom - 2), 0xFFFFFFu);
    EXPECT_EQ(pixel(other.left + 2 * slant, other.top + 2), 0xC0C0C0u);
    EXPECT_EQ(pixel(other.right + slant + 8, other.top), 0x000000u); // the line along the top
    DeleteObject(picture);
}

TEST_F(TabbedOverlay, OpensATabThatSomethingIsHeldOver)
{
    corekit::detail::TabHover hover;
    hover.Enter(2, {5, 5}, 1000);
    EXPECT_TRUE(hover.IsWaitingAt({5, 5}));
    EXPECT_FALSE(hover.IsWaitingAt({5, 6}));
    EXPECT_EQ(hover.Due(1499), -1);
    EXPECT_EQ(hover.Due(1500), 2);
    EXPECT_EQ(hover.Due(1501), -1);

    AddPanes(3);
    overlay.EnableDragFocusSelect(1);
    HoldTextOver(overlay, MiddleOf(1), u"anything", [&] { return Active() == 1; });
    EXPECT_EQ(Active(), 1);
    EXPECT_FALSE(DropText(overlay, MiddleOf(2), u"anything"));
}
