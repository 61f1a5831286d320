#include "corekit/windows/ui/AppBar.h"

#include "corekit/framework/Module.h"
#include "corekit/platform/InputTest.h"
#include "corekit/platform/SystemColours.h"
#include "corekit/platform/SystemInfo.h"

#include <gtest/gtest.h>
#include <set>
#include <string>

using namespace corekit::test;

namespace {

constexpr DialogTemplate bars[] = {
    {120, "Bar", 100, 20, WS_POPUP | WS_THICKFRAME, std::span<const DialogItem>{}}};

class CBar : public CAppBar {
public:
    explicit CBar(DWORD flags) : CAppBar(120)
    {
        m_dwFlags = flags;
        m_increment = CSize(10, 10);
        const APPBARSTATE state{sizeof state, ABE_TOP, 0, 0, {50, 30, 60, 40}, {200, 200, 300, 280}};
        SetState(state);
    }
    void Hide(BOOL hides) { m_state.fAutohide = hides; }
    using CAppBar::ShowHiddenAppBar;
    std::string log;
    std::set<int> places; // tops, of all moves

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        if (message == WM_WINDOWPOSCHANGED) places.insert(reinterpret_cast<const WINDOWPOS*>(lParam)->y);
        return CAppBar::WindowProc(message, wParam, lParam);
    }

public:
    void OnAppBarStateChange(int proposed, UINT state) override
    {
        log += (proposed ? "p" : "s") + std::to_string(static_cast<int>(state)) + " ";
    }
    void OnAppBarForcedToDocked() override { log += "forced "; }
};

class AppBar : public testing::Test {
protected:
    void SetUp() override { AfxSetDialogTemplates(bars); }
    void TearDown() override { AfxSetDialogTemplates({}); }
    static CRect PlaceOf(const CWnd& window)
    {
        CRect rect;
        window.GetWindowRect(&rect);
        return rect;
    }
    // Presses in the client area, releases at a point of the screen.
    static void DragTo(const CWnd& bar, CPoint from, CPoint screen)
    {
        MouseDown(bar.m_hWnd, from);
        for (int i = 0; i < 2; ++i) MoveMouse(bar.m_hWnd, CPoint(screen - PlaceOf(bar).TopLeft()));
        MouseUp(bar.m_hWnd, CPoint(screen - PlaceOf(bar).TopLeft()));
    }
    const int width = GetSystemMetrics(SM_CXSCREEN), height = GetSystemMetrics(SM_CYSCREEN);
};

} // namespace

TEST_F(AppBar, BarsOfOneEdgeStandBesideEachOther)
{
    CBar first(appBarAllowTopBottom), second(appBarAllowTopBottom);
    ASSERT_TRUE(first.Create(120) && second.Create(120));
    first.SetState(ABE_TOP);
    second.SetState(ABE_TOP);
    EXPECT_EQ(PlaceOf(first), CRect(0, 0, width, 30));
    EXPECT_EQ(PlaceOf(second), CRect(0, 30, width, 60));
    first.SetState(appBarFloat);
    EXPECT_EQ(PlaceOf(first), CRect(200, 200, 300, 280));
    RunWaiting(); // the other one hears of it
    EXPECT_EQ(PlaceOf(second), CRect(0, 0, width, 30));
    first.SetState(ABE_RIGHT);
    EXPECT_EQ(PlaceOf(first), CRect(width - 60, 0, width, height));
    first.DestroyWindow();
    EXPECT_EQ(first.GetState(), appBarUnknown);
    APPBARSTATE part{12, 9, 9, 9, {}, {}};
    second.GetState(&part);
    EXPECT_EQ(part.uState, ABE_TOP);
    EXPECT_EQ(part.fAlwaysOnTop, 9); // behind the bytes asked for
}

TEST_F(AppBar, OneBarHidesItselfOnAnEdge)
{
    CBar first(appBarAllowTopBottom | appBarAllowAutohide),
        second(appBarAllowTopBottom | appBarAllowAutohide);
    ASSERT_TRUE(first.Create(120) && second.Create(120));
    first.Hide(TRUE);
    first.SetState(ABE_BOTTOM);
    EXPECT_EQ(first.GetAutohideEdge(), ABE_BOTTOM);
    const int rim = 2 * std::max(GetSystemMetrics(SM_CYBORDER), 1);
    EXPECT_EQ(PlaceOf(first), CRect(0, height - rim, width, height - rim + 40));
    first.ShowHiddenAppBar(1);
    EXPECT_EQ(PlaceOf(first).bottom, height);
    // It slides unless the user wants nothing to move; on the way it is seen at places between.
    first.ShowWindow(SW_SHOWNA);
    for (const UINT isAnimated : {1u, 0u}) {
        SystemParametersInfoA(SPI_SETDRAGFULLWINDOWS, isAnimated, nullptr, 0);
        first.places.clear();
        first.ShowHiddenAppBar(0);
        EXPECT_EQ(PlaceOf(first).top, height - rim);
        EXPECT_EQ(first.places.size() > 1, isAnimated == 1);
        first.ShowHiddenAppBar(1);
    }
    second.Hide(TRUE);
    second.SetState(ABE_BOTTOM);
    EXPECT_EQ(second.log, "forced s3 ");
    EXPECT_FALSE(second.IsBarAutohide());
    EXPECT_EQ(PlaceOf(second), CRect(0, height - 40, width, height)); // the hidden bar takes no room
    first.SetState(ABE_TOP);
    second.Hide(TRUE);
    second.SetState();
    EXPECT_EQ(second.GetAutohideEdge(), ABE_BOTTOM);
}

TEST_F(AppBar, TheMouseMovesAndSizesIt)
{
    CBar bar(appBarAllowTopBottom | appBarAllowFloat);
    ASSERT_TRUE(bar.Create(120));
    bar.SetState(ABE_TOP);
    bar.ShowWindow(SW_SHOW);
    RunWaiting();
    bar.log.clear();
    DragTo(bar, CPoint(100, 12), CPoint(100, height / 2)); // by its body into the middle
    EXPECT_EQ(bar.GetState(), appBarFloat);
    EXPECT_EQ(bar.log.substr(bar.log.size() - 8), "p-2 s-2 ");
    EXPECT_EQ(PlaceOf(bar).Size(), CSize(100, 80));
    bar.SetState(ABE_TOP);
    RunWaiting();
    DragTo(bar, CPoint(100, 29), CPoint(100, 56)); // the inner side, in steps of ten
    EXPECT_EQ(PlaceOf(bar), CRect(0, 0, width, 60));
    EXPECT_EQ(bar.GetDockedDim(ABE_TOP), 60u);
    DragTo(bar, CPoint(100, 1), CPoint(100, 90)); // the outer side stays
    EXPECT_EQ(PlaceOf(bar), CRect(0, 0, width, 60));
    MouseDown(bar.m_hWnd, CPoint(100, 12));
    bar.DestroyWindow();
    RunWaiting();
    EXPECT_EQ(bar.GetState(), appBarUnknown);
}

TEST_F(AppBar, ItFollowsTheTaskBarWhereItsOptionsAllowThat)
{
    const struct {
        DWORD flags, changed, state;
        bool hides, onTop;
    } cases[] = {{appBarAllowAutohide | appBarAllowOnTop, 3, 3, true, true},
                 {appBarAllowAutohide | appBarAllowOnTop, 1, 3, true, false},
                 {appBarAllowOnTop, 3, 3, false, true},
                 {appBarAllowTopBottom, 3, 3, false, false}};
    for (const auto& each : cases) {
        CBar bar(each.flags);
        ASSERT_TRUE(bar.Create(120));
        bar.MimicState(each.changed, each.state);
        EXPECT_EQ(bar.IsBarAutohide() != 0, each.hides);
        EXPECT_EQ(bar.IsBarAlwaysOnTop() != 0, each.onTop);
    }
}
