#include "corekit/commands/ui/CommandList.h"
#include "corekit/commands/ui/IntelliToolBar.h"
#include "corekit/framework/ResourceException.h"
#include "corekit/framework/ui/CmdUI.h"
#include "corekit/framework/ui/FrameWnd.h"
#include "corekit/framework/ui/MiniDockFrameWnd.h"
#include "corekit/platform/InputTest.h"
#include "corekit/stores/PropertyStore.h"
#include "corekit/windows/ui/DockableWindow.h"
#include "corekit/windows/ui/DockBarEx.h"

#include "tests/windows_components_ui/Strips.h"

#include <gtest/gtest.h>

using namespace corekit::test;

namespace {

constexpr UINT play = 701, stop = 702, lost = 703;

class CHost : public CFrameWnd {
public:
    ~CHost() override
    {
        if (gone) *gone = true;
    }
    int played = 0;
    bool* gone = nullptr;

protected:
    void OnPlay() { ++played; }
    void OnUpdatePlay(CCmdUI* item) { item->SetCheck(played > 0); }
    DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(CHost, CFrameWnd)
ON_COMMAND(play, &CHost::OnPlay)
ON_UPDATE_COMMAND_UI(play, &CHost::OnUpdatePlay)
END_MESSAGE_MAP()

class COutline : public CDockableWindow {
public:
    int OnCreateContents(CREATESTRUCTA*, void*) override
    {
        return contents.Create(AfxRegisterWndClass(0), "", WS_CHILD | WS_VISIBLE, CRect(), this, contentsId);
    }
    CSize CalcFloatingSize(int cx, int cy) override { return {std::max(cx, 80), std::max(cy, 60)}; }
    CSize CalcDockedSize(int horizontal, int cx, int cy) override
    {
        return horizontal ? CSize(cx, 70) : CSize(90, cy);
    }
    CSize CalcContentSize(int, int) override { return {111, 50}; }
    CWnd contents;
};

class Docking : public testing::Test {
protected:
    void SetUp() override
    {
        strips.Add(60, 16, 15, 2);
        strips.Add(61, 32, 30, 2);
        strips.Use();
        CCommandList& list = GetCommandList();
        list.RegisterCommand(play, 60, 61, 0, "Play!", "Play");
        list.RegisterCommand(stop, 60, 61, 1, "Play!", "Stop");
        list.RegisterCommand(lost, 99, 99, 0, "Play!", "Lost");
        MakeFrame();
    }
    void TearDown() override
    {
        CIntelliToolBar::EnableLargeButtons(0);
        CIntelliToolBar::EnableFloatableBars(1);
        if (!gone) frame->DestroyWindow();
    }
    void MakeFrame()
    {
        gone = false;
        frame = new CHost;
        frame->gone = &gone;
        const CRect place(100, 100, 700, 500);
        ASSERT_TRUE(frame->Create(nullptr, "docks", WS_OVERLAPPEDWINDOW, &place));
        EnableExtendedDocking(frame, CBRS_ALIGN_ANY);
        frame->ShowWindow(SW_SHOW);
        RunWaiting();
    }
    CIntelliToolBar* AddBar(UINT id, std::initializer_list<UINT> commands)
    {
        CUIntArray array;
        for (UINT command : commands) array.Add(command);
        auto* const bar = new CIntelliToolBar;
        EXPECT_TRUE(bar->CreateFromData(frame, id, array, "Bar"));
        return bar;
    }
    // In the frame's client area.
    CRect PlaceOf(const CWnd* window) const
    {
        CRect rect;
        window->GetWindowRect(&rect);
        frame->ScreenToClient(&rect);
        return rect;
    }
    UINT DockOf(const CControlBar* bar) const
    {
        return bar->m_pDockBar ? static_cast<UINT>(bar->m_pDockBar->GetDlgCtrlID()) : 0;
    }

    StripResources strips;
    bool gone = true;
    CHost* frame = nullptr;
};

} // namespace

TEST_F(Docking, ButtonsSendTheirCommandsAndFollowTheirHandlers)
{
    CIntelliToolBar* const bar = AddBar(800, {play, 0, stop});
    frame->RecalcLayout();
    EXPECT_EQ(PlaceOf(bar).TopLeft(), CPoint(0, 0)); // below the frame's upper edge, before it is docked
    CRect button;
    ASSERT_TRUE(bar->GetItemRect(0, &button));
    EXPECT_EQ(button.Size(), CSize(24, 22));
    Click(bar->m_hWnd, button.CenterPoint());
    EXPECT_EQ(frame->played, 1);
    bar->OnUpdateCmdUI(frame, TRUE);
    TBBUTTON state{};
    bar->GetButton(0, &state);
    EXPECT_EQ(state.fsState, TBSTATE_ENABLED | TBSTATE_CHECKED);
    bar->GetButton(2, &state);
    EXPECT_EQ(state.fsState, 0); // nobody handles it
    bar->GetItemRect(2, &button);
    Click(bar->m_hWnd, button.CenterPoint());
    EXPECT_EQ(frame->played, 1);
    CUIntArray commands;
    bar->GetButtonArray(commands);
    ASSERT_EQ(commands.GetSize(), 3);
    EXPECT_EQ(commands[1], 0u);
    EXPECT_FALSE(bar->InsertButton(0, 12345)); // not registered
    EXPECT_FALSE(bar->InsertButton(0, lost));  // no picture
}

TEST_F(Docking, ButtonSizesChangeWhileTheProgramRuns)
{
    CIntelliToolBar* const bar = AddBar(800, {play, 0, stop});
    const CSize small = bar->CalcFixedLayout(FALSE, TRUE);
    CIntelliToolBar::EnableLargeButtons(1);
    bar->ToggleButtonSize();
    EXPECT_EQ(bar->GetButtonSize(), CSize(48, 46));
    EXPECT_EQ(bar->CalcFixedLayout(FALSE, TRUE), small + CSize(48, 24));
    TBBUTTON button{};
    bar->GetButton(2, &button);
    EXPECT_EQ(button.iBitmap, 3); // behind the two small pictures
    CIntelliToolBar::EnableLargeButtons(0);
    bar->ToggleButtonSize();
    EXPECT_EQ(bar->CalcFixedLayout(FALSE, TRUE), small);
}

TEST_F(Docking, BarsStandWhereTheyWereDocked)
{
    CIntelliToolBar* const first = AddBar(800, {play, stop});
    CIntelliToolBar* const second = AddBar(801, {play});
    frame->DockControlBar(first, AFX_IDW_DOCKBAR_TOP);
    frame->RecalcLayout();
    CRect beside;
    first->GetWindowRect(&beside);
    beside.left = beside.right + 1;
    beside.right = beside.left + 200;
    frame->DockControlBar(second, AFX_IDW_DOCKBAR_TOP, &beside);
    frame->RecalcLayout();
    EXPECT_EQ(PlaceOf(second).left, PlaceOf(first).right + 1);
    EXPECT_EQ(PlaceOf(second).top, PlaceOf(first).top);
    const int height = PlaceOf(first).Height();
    EXPECT_EQ(PlaceOf(GetExtendedDockBar(frame, AFX_IDW_DOCKBAR_TOP)).Height(), height);

    frame->ShowControlBar(first, FALSE, FALSE);
    EXPECT_FALSE(first->IsVisible());
    frame->DockControlBar(second, AFX_IDW_DOCKBAR_LEFT);
    frame->RecalcLayout();
    EXPECT_EQ(PlaceOf(second).TopLeft(), CPoint(0, 0)); // the upper dock shows nothing
    frame->ShowControlBar(first, TRUE, TRUE);
    EXPECT_TRUE(first->IsVisible());
    RunWaiting();
    EXPECT_EQ(PlaceOf(second).top, height);
    frame->DockControlBar(first, AFX_IDW_DOCKBAR_LEFT); // a second row: a column here
    frame->RecalcLayout();
    EXPECT_EQ(PlaceOf(first).left, PlaceOf(second).right);
    first->DestroyWindow();
    RunWaiting();
    EXPECT_EQ(GetCommandList().GetToolbarCount(), 0);
}

TEST_F(Docking, BarsAreDraggedOutAndBack)
{
    CIntelliToolBar* const bar = AddBar(800, {play, 0, stop});
    frame->DockControlBar(bar, AFX_IDW_DOCKBAR_TOP);
    frame->RecalcLayout();
    const CPoint grip(2, 12); // left of the first button
    CIntelliToolBar::EnableFloatableBars(0);
    Drag(bar->m_hWnd, grip, CPoint(200, 200));
    EXPECT_EQ(DockOf(bar), AFX_IDW_DOCKBAR_TOP);
    CIntelliToolBar::EnableFloatableBars(1);
    Drag(bar->m_hWnd, grip, CPoint(200, 200));
    EXPECT_TRUE(bar->IsFloating());
    auto* const floating = dynamic_cast<CMiniDockFrameWnd*>(bar->GetParentFrame());
    ASSERT_TRUE(floating);
    EXPECT_TRUE(floating->IsWindowVisible());
    bar->ToggleDocking();
    EXPECT_EQ(DockOf(bar), AFX_IDW_DOCKBAR_TOP);
    RunWaiting();

    // By the caption of its frame, to the right edge.
    bar->ToggleDocking();
    RunWaiting();
    CRect client, at;
    frame->GetClientRect(&client);
    CWnd* const caption = bar->GetParentFrame();
    CPoint edge(client.right - 3, 200);
    frame->MapWindowPoints(caption, &edge, 1);
    Drag(caption->m_hWnd, CPoint(12, 8), edge);
    EXPECT_EQ(DockOf(bar), AFX_IDW_DOCKBAR_RIGHT);
    EXPECT_EQ(PlaceOf(bar).right, client.right);
    EXPECT_GT(PlaceOf(bar).Height(), PlaceOf(bar).Width());

    // Escape leaves it where it was.
    MouseDown(bar->m_hWnd, CPoint(12, 2));
    MoveMouse(bar->m_hWnd, CPoint(-200, 40));
    PressKey(VK_ESCAPE);
    MouseUp(bar->m_hWnd, CPoint(-200, 40));
    EXPECT_EQ(DockOf(bar), AFX_IDW_DOCKBAR_RIGHT);

    // The window that is dragged goes meanwhile.
    MouseDown(bar->m_hWnd, CPoint(12, 2));
    MoveMouse(bar->m_hWnd, CPoint(-200, 40));
    bar->DestroyWindow();
    RunWaiting();
    EXPECT_FALSE(frame->GetControlBar(800));
}

TEST_F(Docking, AFrameGoesWithBarsThatFloat)
{
    CIntelliToolBar* const bar = AddBar(800, {play});
    frame->FloatControlBar(bar, CPoint(300, 300));
    EXPECT_TRUE(bar->IsFloating());
    EXPECT_EQ(frame->GetControlBar(AFX_IDW_DOCKBAR_FLOAT), bar->m_pDockBar);
    frame->DestroyWindow();
    RunWaiting();
    EXPECT_TRUE(gone);
    EXPECT_EQ(GetCommandList().GetToolbarCount(), 0);
}

TEST_F(Docking, PanesTakeTheSizesOfTheirHost)
{
    COutline pane;
    ASSERT_TRUE(pane.Create(frame, 820, "Outline", CRect(0, 0, 200, 100), WS_CHILD | WS_VISIBLE | CBRS_LEFT));
    EXPECT_EQ(pane.CalcDynamicLayout(-1, LM_HORZDOCK | LM_HORZ), CSize(123, 58)); // not resizable
    pane.SetBarStyle(pane.GetBarStyle() | CBRS_SIZE_DYNAMIC);
    const struct {
        int length;
        DWORD mode;
        CSize size;
    } cases[] = {
        {-1, LM_MRUWIDTH, {212, 108}},           {-1, LM_HORZ | LM_HORZDOCK, {212, 78}},
        {-1, LM_VERTDOCK, {102, 108}},           {300, LM_HORZ, {312, 108}},
        {150, LM_HORZ | LM_LENGTHY, {312, 158}}, {-1, LM_MRUWIDTH, {212, 108}}, // not let go of yet
        {10, LM_HORZ | LM_COMMIT, {92, 158}},    {-1, LM_MRUWIDTH, {92, 158}},
    };
    for (const auto& each : cases) EXPECT_EQ(pane.CalcDynamicLayout(each.length, each.mode), each.size);
    pane.EnableDocking(CBRS_ALIGN_ANY);
    frame->DockControlBar(&pane, AFX_IDW_DOCKBAR_LEFT);
    frame->RecalcLayout();
    CRect inside;
    pane.GetClientRect(&inside);
    EXPECT_EQ(PlaceOf(&pane.contents).Size(), inside.Size() - CSize(12, 8));
    frame->DestroyWindow();
}

TEST_F(Docking, EdgesAreDrawnOnTheSidesThatHaveThem)
{
    auto* const dock = dynamic_cast<CDockBarEx*>(GetExtendedDockBar(frame, AFX_IDW_DOCKBAR_TOP));
    ASSERT_TRUE(dock);
    dock->SetEdgeBorder(CBRS_LEFT | CBRS_BOTTOM, 1, 0);
    dock->SetEdgeBorder(CBRS_BOTTOM, 0, 1);
    EXPECT_EQ(dock->GetEdgeMode(CBRS_LEFT), 1);
    EXPECT_EQ(dock->GetEdgeMode(CBRS_TOP) + dock->GetEdgeMode(CBRS_RIGHT) + dock->GetEdgeMode(CBRS_BOTTOM),
              0);
    CIntelliToolBar* const bar = AddBar(800, {play});
    frame->DockControlBar(bar, dock);
    frame->RecalcLayout();
    EXPECT_EQ(PlaceOf(bar).left, 6);
    RunWaiting();
    CDC dc;
    dc.CreateCompatibleDC(nullptr);
    CBitmap picture;
    picture.Attach(PictureOf(dock->m_hWnd));
    CBitmap* const former = dc.SelectObject(&picture);
    const COLORREF row[] = {0xFFFFFF, 0xC0C0C0, 0xC0C0C0, 0xC0C0C0, 0xC0C0C0, 0};
    for (int x = 0; x < 6; ++x) EXPECT_EQ(dc.GetPixel(x, 5), row[x]) << x;
    dc.SelectObject(former);
}

TEST_F(Docking, BarsOfOneRowComeBackInTheOrderThatTheUserGaveThem)
{
    const auto dockBeside = [this](CIntelliToolBar& bar, const CIntelliToolBar& other) {
        frame->RecalcLayout();
        CRect beside;
        other.GetWindowRect(&beside);
        beside.OffsetRect(beside.Width() + 1, 0);
        frame->DockControlBar(&bar, AFX_IDW_DOCKBAR_TOP, &beside);
        frame->RecalcLayout();
    };
    CPropertyStore store;
    CIntelliToolBar *first = AddBar(800, {play}), *second = AddBar(801, {stop});
    frame->DockControlBar(first, AFX_IDW_DOCKBAR_TOP);
    dockBeside(*second, *first);
    dockBeside(*first, *second); // the user drags it behind
    ASSERT_LT(PlaceOf(second).left, PlaceOf(first).left);
    const CRect firstPlace = PlaceOf(first), secondPlace = PlaceOf(second);
    CDockBarEx::SaveControlBarStates(store, frame);
    frame->DestroyWindow();
    RunWaiting();
    MakeFrame();
    first = AddBar(800, {play});
    second = AddBar(801, {stop});
    frame->DockControlBar(first, AFX_IDW_DOCKBAR_TOP); // as at the first start
    dockBeside(*second, *first);
    CDockBarEx::LoadControlBarStates(store, frame);
    EXPECT_EQ(PlaceOf(first), firstPlace);
    EXPECT_EQ(PlaceOf(second), secondPlace);
}

TEST_F(Docking, TheLayoutSurvivesARestart)
{
    CPropertyStore store;
    {
        CIntelliToolBar* const top = AddBar(800, {play, stop});
        CIntelliToolBar* const left = AddBar(801, {play});
        CIntelliToolBar* const floating = AddBar(802, {stop});
        CIntelliToolBar* const hidden = AddBar(803, {stop});
        for (CIntelliToolBar* bar : {top, hidden}) frame->DockControlBar(bar, AFX_IDW_DOCKBAR_TOP);
        frame->DockControlBar(left, AFX_IDW_DOCKBAR_LEFT);
        frame->FloatControlBar(floating, CPoint(333, 222));
        frame->ShowControlBar(hidden, FALSE, FALSE);
        CDockBarEx::SaveControlBarStates(store, frame);
        frame->DestroyWindow();
        RunWaiting();
    }
    MakeFrame();
    CIntelliToolBar* bars[4];
    for (UINT i = 0; i < 4; ++i) {
        bars[i] = AddBar(800 + i, {play});
        frame->DockControlBar(bars[i], AFX_IDW_DOCKBAR_BOTTOM);
    }
    CPropertyStore noScreen = store;
    noScreen.DeleteValue("Screen Size");
    CDockBarEx::LoadControlBarStates(noScreen, frame);
    EXPECT_EQ(DockOf(bars[0]), AFX_IDW_DOCKBAR_BOTTOM);
    bars[1]->DestroyWindow(); // its record is passed over
    CDockBarEx::LoadControlBarStates(store, frame);
    EXPECT_EQ(DockOf(bars[0]), AFX_IDW_DOCKBAR_TOP);
    EXPECT_EQ(DockOf(bars[3]), AFX_IDW_DOCKBAR_TOP);
    EXPECT_FALSE(bars[3]->IsVisible());
    EXPECT_TRUE(bars[2]->IsFloating());
    CRect place;
    bars[2]->GetParentFrame()->GetWindowRect(&place);
    EXPECT_EQ(place.TopLeft(), CPoint(333, 222));
}
