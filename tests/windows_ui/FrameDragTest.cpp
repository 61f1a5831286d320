#include "Recorder.h"

#include "corekit/platform/FrameParts.h"
#include "corekit/platform/Input.h"
#include "corekit/platform/Keyboard.h"

#include <gtest/gtest.h>

using namespace corekit::test;
using namespace recorder;

namespace {

// A window without a frame whose edges size it and whose body moves it.
class FrameDrags : public testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(StartToolkit(ToolkitDisplay::offscreen));
        answers.clear();
        top = Make(WS_POPUP | WS_VISIBLE, {100, 100, 300, 200});
        answers[WM_NCHITTEST] = [](HWND window, UINT, WPARAM, LPARAM lParam) -> LRESULT {
            POINT point{static_cast<SHORT>(LOWORD(static_cast<DWORD_PTR>(lParam))),
                        static_cast<SHORT>(HIWORD(static_cast<DWORD_PTR>(lParam)))};
            ScreenToClient(window, &point);
            return point.x < 8      ? HTLEFT
                   : point.x >= 192 ? HTBOTTOMRIGHT
                   : point.y < 50   ? HTCAPTION
                                    : HTCLIENT;
        };
        RunWaiting();
        received.clear();
    }
    void TearDown() override
    {
        answers.clear();
        DestroyWindow(top);
        RunWaiting();
    }
    RECT Place() const
    {
        RECT place{};
        GetWindowRect(top, &place);
        return place;
    }
    // Points are on the screen, as the window goes with the mouse.
    void DragBy(POINT from, POINT by)
    {
        const RECT at = Place();
        MouseDown(top, from);
        for (int step = 1; step <= 2; ++step) {
            POINT to{at.left + from.x + by.x * step / 2, at.top + from.y + by.y * step / 2};
            ScreenToClient(top, &to);
            MoveMouse(top, to);
        }
        POINT end{at.left + from.x + by.x, at.top + from.y + by.y};
        ScreenToClient(top, &end);
        MouseUp(top, end);
    }
    HWND top = nullptr;
};

bool operator==(const RECT& a, const RECT& b)
{
    return a.left == b.left && a.top == b.top && a.right == b.right && a.bottom == b.bottom;
}

TEST_F(FrameDrags, TheBodyMovesAndTheSidesSize)
{
    const struct {
        POINT from;
        POINT by;
        RECT place;
    } cases[] = {
        {{50, 20}, {30, -20}, {130, 80, 330, 180}},  {{2, 80}, {-40, 10}, {60, 100, 300, 200}},
        {{195, 80}, {20, 30}, {100, 100, 320, 230}}, {{195, 80}, {-500, -500}, {100, 100, 101, 101}},
        {{100, 80}, {30, 30}, {100, 100, 300, 200}}, // the client area
    };
    for (const auto& c : cases) {
        MoveWindow(top, 100, 100, 200, 100, TRUE);
        RunWaiting();
        received.clear();
        DragBy(c.from, c.by);
        EXPECT_TRUE(Place() == c.place) << c.from.x << ": " << Place().left << " " << Place().top << " "
                                        << Place().right << " " << Place().bottom;
        const bool isDragged = c.from.x != 100;
        EXPECT_EQ(Count(WM_ENTERSIZEMOVE), isDragged);
        EXPECT_EQ(Count(WM_EXITSIZEMOVE), isDragged);
        EXPECT_EQ(Count(WM_LBUTTONDOWN), !isDragged);
        EXPECT_EQ(GetCapture(), nullptr);
    }
}

TEST_F(FrameDrags, TheWindowHasTheLastWordOnItsPlace)
{
    answers[WM_MOVING] = [](HWND, UINT, WPARAM, LPARAM lParam) -> LRESULT {
        auto& place = *reinterpret_cast<RECT*>(lParam);
        place = {place.left / 50 * 50, 100, place.left / 50 * 50 + 200, 200};
        return TRUE;
    };
    DragBy({50, 20}, {25, 40});
    EXPECT_TRUE(Place() == (RECT{100, 100, 300, 200}));
    DragBy({50, 20}, {60, 40});
    EXPECT_TRUE(Place() == (RECT{150, 100, 350, 200}));
    answers[WM_GETMINMAXINFO] = [](HWND, UINT, WPARAM, LPARAM lParam) -> LRESULT {
        reinterpret_cast<MINMAXINFO*>(lParam)->ptMinTrackSize = {120, 90};
        return 0;
    };
    DragBy({195, 80}, {-195, -80});
    EXPECT_TRUE(Place() == (RECT{150, 100, 270, 190}));
}

TEST_F(FrameDrags, EscapeAndALostCaptureEndIt)
{
    SetFocus(top);
    MouseDown(top, {50, 20});
    MoveMouse(top, {90, 40});
    EXPECT_FALSE(Place() == (RECT{100, 100, 300, 200}));
    PressKey(VK_ESCAPE);
    EXPECT_TRUE(Place() == (RECT{100, 100, 300, 200}));
    EXPECT_EQ(Count(WM_EXITSIZEMOVE), 1);
    MouseUp(top, {90, 40});
    MouseDown(top, {50, 20});
    ReleaseCapture();
    EXPECT_EQ(Count(WM_EXITSIZEMOVE), 2);
    MouseUp(top, {50, 20});
    answers[WM_MOVING] = [](HWND window, UINT, WPARAM, LPARAM) -> LRESULT { return DestroyWindow(window); };
    DragBy({90, 30}, {25, 40});
    EXPECT_FALSE(IsWindow(top));
}

TEST_F(FrameDrags, AFramedWindowKeepsToItsLeastSize)
{
    answers[WM_GETMINMAXINFO] = [](HWND, UINT, WPARAM, LPARAM lParam) -> LRESULT {
        reinterpret_cast<MINMAXINFO*>(lParam)->ptMinTrackSize = {300, 150};
        return 0;
    };
    const HWND framed = Make(WS_OVERLAPPEDWINDOW, {0, 0, 400, 300});
    ShowWindow(framed, SW_SHOW);
    RunWaiting();
    SetWindowPos(framed, nullptr, 0, 0, 40, 30, SWP_NOZORDER | SWP_NOMOVE);
    RunWaiting();
    RECT place{};
    GetWindowRect(framed, &place);
    EXPECT_EQ(place.right - place.left, 300);
    EXPECT_EQ(place.bottom - place.top, 150);
    DestroyWindow(framed);
}

} // namespace
