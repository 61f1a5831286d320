#include "Recorder.h"

#include "corekit/platform/Cursors.h"
#include "corekit/platform/Gdi.h"
#include "corekit/platform/Input.h"
#include "corekit/platform/Painting.h"
#include "corekit/platform/ScrollBars.h"
#include "corekit/platform/Timers.h"

#include <QApplication>
#include <QIcon>
#include <QWidget>

#include <algorithm>
#include <gtest/gtest.h>
#include <thread>

using namespace corekit::test;
using namespace recorder;

namespace {

class Windows : public testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(StartToolkit(ToolkitDisplay::offscreen));
        received.clear();
        answers.clear();
        top = Make(WS_OVERLAPPEDWINDOW | WS_VISIBLE, {100, 100, 400, 300});
        ASSERT_TRUE(top);
        RunWaiting();
    }
    void TearDown() override
    {
        answers.clear();
        if (IsWindow(top)) DestroyWindow(top);
        RunWaiting();
        EXPECT_EQ(living, 0) << "windows that were left behind";
    }

    HWND top = nullptr;
};

TEST_F(Windows, MessagesOfALifeComeInOrder)
{
    const std::initializer_list<UINT> of = {WM_NCCREATE, WM_CREATE, WM_SIZE,    WM_SHOWWINDOW, WM_ACTIVATE,
                                            WM_SETFOCUS, WM_PAINT,  WM_DESTROY, WM_NCDESTROY};
    const HWND child = Make(WS_CHILD | WS_VISIBLE, {10, 20, 60, 70}, top, 7);
    RunWaiting();
    EXPECT_EQ(Order(top, of), (std::vector<UINT>{WM_NCCREATE, WM_CREATE, WM_SHOWWINDOW, WM_SIZE, WM_ACTIVATE,
                                                 WM_SETFOCUS, WM_PAINT}));
    EXPECT_EQ(Order(child, of),
              (std::vector<UINT>{WM_NCCREATE, WM_CREATE, WM_SIZE, WM_SHOWWINDOW, WM_PAINT}));
    EXPECT_EQ(GetDlgItem(top, 7), child);
    received.clear();
    EXPECT_TRUE(DestroyWindow(top));
    std::vector<std::pair<HWND, UINT>> end;
    for (const Received& each : received)
        if (each.message == WM_DESTROY || each.message == WM_NCDESTROY)
            end.emplace_back(each.window, each.message);
    EXPECT_EQ(end, (std::vector<std::pair<HWND, UINT>>{
                       {top, WM_DESTROY}, {child, WM_DESTROY}, {child, WM_NCDESTROY}, {top, WM_NCDESTROY}}));
    EXPECT_FALSE(IsWindow(child));
    EXPECT_FALSE(SendMessageA(top, WM_NULL, 0, 0));
}

TEST_F(Windows, ShowTheIconTheyAreGiven)
{
    const auto isShown = [] {
        const auto all = QApplication::topLevelWidgets();
        return std::ranges::any_of(all, [](const QWidget* each) { return !each->windowIcon().isNull(); });
    };
    EXPECT_FALSE(isShown());
    SendMessageA(top, WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(LoadIconA(nullptr, IDI_ERROR)));
    EXPECT_TRUE(isShown());
    EXPECT_TRUE(SendMessageA(top, WM_SETICON, ICON_BIG, 0));
    EXPECT_FALSE(isShown());
}

TEST_F(Windows, AKeyBecomesMessagesOfTheFocus)
{
    const HWND child = Make(WS_CHILD | WS_VISIBLE, {0, 0, 50, 50}, top, 1);
    SetFocus(child);
    received.clear();
    PressKey('A', {VK_SHIFT});
    EXPECT_EQ(Order(child, {WM_KEYDOWN, WM_CHAR, WM_KEYUP}),
              (std::vector<UINT>{WM_KEYDOWN, WM_KEYDOWN, WM_CHAR, WM_KEYUP, WM_KEYUP}));
    EXPECT_EQ(Last(WM_CHAR)->wParam, finalCharacterBit | 'A');
    EXPECT_EQ((Last(WM_CHAR)->lParam >> 16) & 0xFF, 0x1E);
    ComposeText(u"\u05D0\u0905");
    EXPECT_EQ(Last(WM_CHAR)->wParam, finalCharacterBit | 0x0905);
    PressKey('F', {VK_MENU});
    EXPECT_EQ(Last(WM_SYSKEYDOWN)->wParam, 'F');
    EXPECT_EQ(GetKeyState(VK_SHIFT) & 0x8000, 0);
}

TEST_F(Windows, PaintingReachesThePicture)
{
    answers[WM_PAINT] = [](HWND window, UINT, WPARAM, LPARAM) -> LRESULT {
        PAINTSTRUCT paint;
        const HDC dc = BeginPaint(window, &paint);
        const RECT square{10, 10, 20, 20};
        const HBRUSH brush = CreateSolidBrush(RGB(200, 30, 40));
        FillRect(dc, &square, brush);
        DeleteObject(brush);
        EndPaint(window, &paint);
        return 0;
    };
    InvalidateRect(top, nullptr, TRUE);
    UpdateWindow(top);
    const HBITMAP picture = PictureOf(top);
    const HDC dc = CreateCompatibleDC(nullptr);
    SelectObject(dc, picture);
    EXPECT_EQ(GetPixel(dc, 15, 15), RGB(200, 30, 40));
    EXPECT_NE(GetPixel(dc, 25, 15), RGB(200, 30, 40));
    DeleteDC(dc);
    DeleteObject(picture);
}

TEST_F(Windows, ClicksAndCaptureGiveClientPoints)
{
    const HWND child = Make(WS_CHILD | WS_VISIBLE | WS_BORDER, {50, 60, 150, 160}, top, 1);
    received.clear();
    Click(child, {5, 6}, Button::left, Clicks::two, {VK_CONTROL});
    EXPECT_EQ(Order(child, {WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK}),
              (std::vector<UINT>{WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK, WM_LBUTTONUP}));
    EXPECT_EQ(Last(WM_LBUTTONDBLCLK)->lParam, MAKELONG(5, 6));
    EXPECT_EQ(Last(WM_LBUTTONDBLCLK)->wParam, MK_LBUTTON | MK_CONTROL);
    answers[WM_LBUTTONDOWN] = [](HWND window, UINT, WPARAM, LPARAM) -> LRESULT {
        return SetCapture(window), 0;
    };
    Drag(child, {5, 5}, {-20, 3});
    EXPECT_EQ(Last(WM_LBUTTONUP)->window, child);
    EXPECT_EQ(static_cast<SHORT>(LOWORD(static_cast<DWORD>(Last(WM_LBUTTONUP)->lParam))), -20);
    EXPECT_EQ(GetCapture(), child);
    ShowWindow(child, SW_HIDE);
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_EQ(Count(WM_CAPTURECHANGED, child), 1);
}

TEST_F(Windows, TheWheelTurnsTheWindowBelowThePointerAndThoseAboveIt)
{
    const HWND child = Make(WS_CHILD | WS_VISIBLE, {50, 60, 150, 160}, top, 1);
    POINT place{5, 6};
    ClientToScreen(child, &place);
    received.clear();
    TurnWheel(child, {5, 6}, -120);
    ASSERT_EQ(Count(WM_MOUSEWHEEL, child), 1);
    EXPECT_EQ(static_cast<SHORT>(HIWORD(static_cast<DWORD>(Last(WM_MOUSEWHEEL)->wParam))), -120);
    EXPECT_EQ(Last(WM_MOUSEWHEEL)->lParam, MAKELONG(place.x, place.y)) << "a point of the screen";
    EXPECT_EQ(Count(WM_MOUSEWHEEL, top), 1) << "the child does not want it";
    answers[WM_MOUSEWHEEL] = [](HWND, UINT, WPARAM, LPARAM) -> LRESULT { return 0; };
    TurnWheel(child, {5, 6}, 240);
    EXPECT_EQ(Count(WM_MOUSEWHEEL, child), 2);
    EXPECT_EQ(Count(WM_MOUSEWHEEL, top), 1);
}

// Each message during which a window may go down, and how it comes about.
TEST_F(Windows, MayEndWithinAnyOfTheirMessages)
{
    const std::pair<UINT, std::function<void(HWND)>> ways[] = {
        {WM_PAINT, [](HWND w) { InvalidateRect(w, nullptr, TRUE), UpdateWindow(w); }},
        {WM_ERASEBKGND, [](HWND w) { InvalidateRect(w, nullptr, TRUE), UpdateWindow(w); }},
        {WM_KEYDOWN, [](HWND w) { SetFocus(w), PressKey('A'); }},
        {WM_CHAR, [](HWND w) { SetFocus(w), PressKey('A'); }},
        {WM_LBUTTONDOWN,
         [](HWND w) {
             Click(w, {3, 3});
         }},
        {WM_SETCURSOR,
         [](HWND w) {
             Click(w, {3, 3});
         }},
        {WM_MOUSEACTIVATE,
         [](HWND w) {
             Click(w, {3, 3});
         }},
        {WM_SIZE, [](HWND w) { MoveWindow(w, 0, 0, 5, 5, TRUE); }},
        {WM_WINDOWPOSCHANGING, [](HWND w) { MoveWindow(w, 0, 0, 5, 5, TRUE); }},
        {WM_SETFOCUS, [](HWND w) { SetFocus(w); }},
        {WM_KILLFOCUS, [](HWND w) { SetFocus(w), SetFocus(nullptr); }},
        {WM_SHOWWINDOW, [](HWND w) { ShowWindow(w, SW_HIDE); }},
        {WM_TIMER, [](HWND w) { SetTimer(w, 1, 10, nullptr), RunFor(60); }},
        {WM_USER,
         [](HWND w) { PostMessageA(w, WM_USER, 0, 0), PostMessageA(w, WM_USER, 0, 0), RunWaiting(); }},
        {WM_CAPTURECHANGED, [](HWND w) { SetCapture(w), ReleaseCapture(); }},
        {WM_ENABLE, [](HWND w) { EnableWindow(w, FALSE); }},
        {WM_DESTROY, [](HWND w) { DestroyWindow(w); }},
    };
    for (const auto& [message, bring] : ways) {
        answers.clear();
        const HWND doomed = Make(WS_CHILD | WS_VISIBLE, {0, 0, 100, 100}, top, 1);
        Make(WS_CHILD | WS_VISIBLE, {10, 10, 50, 50}, doomed, 2);
        RunWaiting();
        int ended = 0;
        answers[message] = [&](HWND window, UINT, WPARAM, LPARAM) -> LRESULT {
            if (window == doomed) ended += DestroyWindow(window);
            return 0;
        };
        bring(doomed);
        answers.clear();
        RunWaiting();
        EXPECT_FALSE(IsWindow(doomed)) << std::hex << message;
        EXPECT_LE(ended, 1) << std::hex << message;
        if (IsWindow(doomed)) DestroyWindow(doomed);
    }
    EXPECT_TRUE(IsWindow(top));
}

TEST_F(Windows, PostsFromAnotherThreadWakeTheLoopInOrder)
{
    std::vector<WPARAM> got;
    answers[WM_USER] = [&](HWND, UINT, WPARAM wParam, LPARAM) -> LRESULT { return got.push_back(wParam), 0; };
    std::thread poster([&] {
        for (WPARAM i = 0; i < 100; ++i) PostMessageA(top, WM_USER, i, 0);
        PostMessageA(top, WM_APP, 0, 0);
    });
    MSG message{};
    while (GetMessageA(&message, nullptr, 0, 0) && message.message != WM_APP) DispatchMessageA(&message);
    poster.join();
    ASSERT_EQ(got.size(), 100u);
    for (WPARAM i = 0; i < 100; ++i) EXPECT_EQ(got[i], i);
}

TEST_F(Windows, ADisabledWindowTakesNoInput)
{
    const HWND child = Make(WS_CHILD | WS_VISIBLE | WS_DISABLED, {0, 0, 100, 100}, top, 1);
    received.clear();
    Click(child, {5, 5});
    EXPECT_EQ(Count(WM_LBUTTONDOWN, child), 0);
    EXPECT_EQ(Count(WM_LBUTTONDOWN, top), 1);
    EXPECT_EQ(SetFocus(child), nullptr);
    EnableWindow(top, FALSE);
    received.clear();
    Click(top, {200, 150});
    PressKey('A');
    EXPECT_EQ(Count(WM_LBUTTONDOWN) + Count(WM_KEYDOWN), 0);
}

TEST_F(Windows, ScrollBarsTakeTheirRoomAndNotify)
{
    const HWND child = Make(WS_CHILD | WS_VISIBLE | WS_VSCROLL, {0, 0, 100, 100}, top, 1);
    RECT before{}, after{};
    GetClientRect(child, &before);
    EXPECT_LT(before.right, 100);
    SCROLLINFO info{sizeof info, SIF_ALL, 0, 99, 10, 95, 0};
    EXPECT_EQ(SetScrollInfo(child, SB_VERT, &info, TRUE), 90);
    answers[WM_VSCROLL] = [](HWND window, UINT, WPARAM wParam, LPARAM) -> LRESULT {
        if (LOWORD(wParam) == SB_LINEUP)
            SetScrollPos(window, SB_VERT, GetScrollPos(window, SB_VERT) - 1, TRUE);
        return 0;
    };
    Click(top, {before.right + 3, 3}); // the arrow, or the groove above the thumb
    EXPECT_GE(Count(WM_VSCROLL, child), 2);
    EXPECT_EQ(LOWORD(Last(WM_VSCROLL)->wParam), SB_ENDSCROLL);
    info = {sizeof info, SIF_RANGE | SIF_PAGE, 0, 5, 10, 0, 0};
    SetScrollInfo(child, SB_VERT, &info, TRUE);
    GetClientRect(child, &after);
    EXPECT_EQ(after.right, 100) << "nothing to scroll";
}

} // namespace
