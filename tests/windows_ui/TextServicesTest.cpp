// Caret, clipboard and pictures at other pixel ratios.
#include "Recorder.h"

#include "corekit/platform/Caret.h"
#include "corekit/platform/Clipboard.h"
#include "corekit/platform/Gdi.h"
#include "corekit/platform/Input.h"
#include "corekit/platform/Memory.h"
#include "corekit/platform/Painting.h"

#include <gtest/gtest.h>

#include <cstring>

using namespace corekit::test;
using namespace recorder;

namespace {

class TextServices : public testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(StartToolkit(ToolkitDisplay::offscreen));
        answers.clear();
        answers[WM_PAINT] = [](HWND window, UINT, WPARAM, LPARAM) -> LRESULT {
            PAINTSTRUCT paint;
            const HDC dc = BeginPaint(window, &paint);
            const HBRUSH brush = CreateSolidBrush(RGB(255, 255, 255));
            FillRect(dc, &paint.rcPaint, brush);
            DeleteObject(brush);
            EndPaint(window, &paint);
            return 0;
        };
        top = Make(WS_POPUP | WS_VISIBLE, {10, 10, 110, 60});
        RunWaiting();
    }
    void TearDown() override
    {
        answers.clear();
        DestroyWindow(top);
        RunWaiting();
    }
    COLORREF PixelAt(int x, int y)
    {
        const HBITMAP picture = PictureOf(top);
        const HDC dc = CreateCompatibleDC(nullptr);
        SelectObject(dc, picture);
        const COLORREF pixel = GetPixel(dc, x, y);
        DeleteDC(dc);
        DeleteObject(picture);
        return pixel;
    }

    HWND top = nullptr;
};

HGLOBAL BlockOf(const void* bytes, std::size_t size)
{
    const HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE, size);
    std::memcpy(GlobalLock(block), bytes, size);
    GlobalUnlock(block);
    return block;
}

TEST_F(TextServices, TheCaretIsSeenWhereItStandsAndNowhereElse)
{
    const COLORREF white = RGB(255, 255, 255), black = RGB(0, 0, 0);
    const UINT usual = GetCaretBlinkTime();
    SetCaretBlinkTime(0xFFFFFFFF);
    ASSERT_TRUE(CreateCaret(top, nullptr, 2, 12));
    SetCaretPos(20, 5);
    EXPECT_EQ(PixelAt(20, 6), white) << "hidden at first";
    ShowCaret(top);
    EXPECT_EQ(PixelAt(20, 6), black);
    SetCaretPos(40, 5);
    EXPECT_EQ(PixelAt(20, 6), white);
    EXPECT_EQ(PixelAt(41, 16), black);
    HideCaret(top);
    HideCaret(top);
    ShowCaret(top);
    EXPECT_EQ(PixelAt(41, 16), white) << "hidden twice, shown once";
    ShowCaret(top);
    const RECT half{0, 0, 41, 60}; // a paint that covers half of it turns that half only
    InvalidateRect(top, &half, TRUE);
    UpdateWindow(top);
    const HDC screen = GetDC(top);
    EXPECT_EQ(GetPixel(screen, 40, 10), black);
    EXPECT_EQ(GetPixel(screen, 41, 10), black);
    EXPECT_EQ(GetPixel(screen, 42, 10), white);
    ReleaseDC(top, screen);
    EXPECT_TRUE(DestroyCaret());
    EXPECT_EQ(PixelAt(41, 16), white);
    EXPECT_FALSE(ShowCaret(top));
    SetCaretBlinkTime(usual);
}

TEST_F(TextServices, WhatIsBeingComposedStandsAtTheCaret)
{
    SetFocus(top);
    ASSERT_TRUE(CreateCaret(top, nullptr, 1, 20));
    SetCaretPos(30, 10);
    const auto inked = [this](int left, int right) {
        for (int x = left; x < right; ++x)
            for (int y = 10; y < 30; ++y)
                if (PixelAt(x, y) != RGB(255, 255, 255)) return true;
        return false;
    };
    received.clear();
    ComposeUnfinished(u"n\u012B");
    EXPECT_TRUE(inked(30, 40));
    EXPECT_FALSE(inked(0, 28));
    EXPECT_EQ(Count(WM_CHAR), 0) << "nothing is final yet";
    ComposeText(u"\u4F60");
    EXPECT_FALSE(inked(30, 40));
    ASSERT_NE(Last(WM_CHAR), nullptr);
    EXPECT_EQ(Last(WM_CHAR)->wParam, finalCharacterBit | 0x4F60);
    DestroyCaret();
}

TEST_F(TextServices, DrawingAtAnyTimeStaysUntilTheNextPaint)
{
    const HDC dc = GetDC(top);
    SetPixel(dc, 7, 8, RGB(9, 8, 7));
    EXPECT_EQ(ReleaseDC(top, dc), 1);
    EXPECT_EQ(ReleaseDC(top, dc), 0);
    const HDC again = GetDC(top);
    EXPECT_EQ(GetPixel(again, 7, 8), RGB(9, 8, 7));
    ReleaseDC(top, again);
    const RECT part{0, 0, 20, 20};
    InvalidateRect(top, &part, FALSE);
    RECT update{};
    EXPECT_TRUE(GetUpdateRect(top, &update, FALSE));
    EXPECT_EQ(update.right, 20);
    received.clear();
    UpdateWindow(top);
    EXPECT_EQ(Count(WM_ERASEBKGND), 0) << "it was not asked for";
    EXPECT_FALSE(GetUpdateRect(top, &update, FALSE));
}

TEST_F(TextServices, TextOnTheClipboardReadsInBothFormats)
{
    const UINT own = RegisterClipboardFormatA("CoreKit Test Format");
    EXPECT_EQ(GetClipboardData(CF_TEXT), nullptr) << "not open";
    ASSERT_TRUE(OpenClipboard(top));
    EXPECT_FALSE(OpenClipboard(top));
    EmptyClipboard();
    SetClipboardData(CF_UNICODETEXT, BlockOf(u"a\u05D0z", 8));
    SetClipboardData(own, BlockOf("\1\0\2", 3));
    CloseClipboard();
    EXPECT_TRUE(IsClipboardFormatAvailable(CF_TEXT));
    ASSERT_TRUE(OpenClipboard(nullptr));
    EXPECT_STREQ(static_cast<const char*>(GlobalLock(GetClipboardData(CF_TEXT))), "a?z");
    EXPECT_EQ(std::u16string(static_cast<const char16_t*>(GlobalLock(GetClipboardData(CF_UNICODETEXT)))),
              u"a\u05D0z");
    const HGLOBAL bytes = GetClipboardData(own);
    ASSERT_EQ(GlobalSize(bytes), 3u);
    EXPECT_EQ(std::memcmp(GlobalLock(bytes), "\1\0\2", 3), 0);
    SetClipboardData(CF_UNICODETEXT, BlockOf(u"xy", 4)); // without its end
    EXPECT_STREQ(static_cast<const char*>(GlobalLock(GetClipboardData(CF_TEXT))), "a?z")
        << "good until it closes";
    CloseClipboard();
    ASSERT_TRUE(OpenClipboard(nullptr));
    EXPECT_STREQ(static_cast<const char*>(GlobalLock(GetClipboardData(CF_TEXT))), "xy");
    CloseClipboard();
}

} // namespace
