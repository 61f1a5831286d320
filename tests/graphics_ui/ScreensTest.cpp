// Full-screen output on the toolkit's screens.
#include "corekit/graphics/DirectDraw.h"
#include "corekit/platform/Gdi.h"

#include <chrono>
#include <gtest/gtest.h>
#include <QApplication>
#include <QImage>
#include <QPixmap>
#include <QScreen>
#include <QWidget>

namespace {

QImage shown()
{
    QApplication::processEvents();
    for (QWidget* const widget : QApplication::topLevelWidgets())
        if (widget->isFullScreen()) return widget->grab().toImage();
    return {};
}

class Screens : public testing::Test {
protected:
    Screens()
    {
        EXPECT_EQ(draw.Initialise(nullptr), 0);
        EXPECT_EQ(draw.SetCooperativeLevel(nullptr, DDSCL_EXCLUSIVE | DDSCL_FULLSCREEN), 0);
    }
    ~Screens() override
    {
        back.SafeDelete();
        front.SafeDelete();
        draw.Shutdown();
        EXPECT_TRUE(shown().isNull()) << "the window goes with its display";
    }
    void start(DWORD bits = 32)
    {
        ASSERT_EQ(draw.SetDisplayMode(64, 48, bits, 0, 0), 0);
        ASSERT_EQ(draw.CreateFlipChain(1, front), 0);
        ASSERT_EQ(back.AttachBackBuffer(front), 0);
    }
    void fill(CDirectDrawSurface& surface, COLORREF colour)
    {
        HRESULT error = 0;
        const HDC dc = surface.GetDC(&error);
        ASSERT_NE(dc, nullptr) << error;
        const HBRUSH brush = CreateSolidBrush(colour);
        const RECT all{0, 0, 64, 48};
        FillRect(dc, &all, brush);
        EXPECT_EQ(surface.ReleaseDC(dc), 0);
        DeleteObject(brush);
    }

    CDirectDraw draw;
    CDirectDrawSurface front, back;
};

TEST_F(Screens, AFlipShowsTheBackBuffer)
{
    start();
    fill(back, RGB(255, 0, 0));
    EXPECT_EQ(front.Flip(0), 0);
    EXPECT_EQ(shown().pixel(100, 100), 0xFFFF0000);
    EXPECT_EQ(shown().size(), QApplication::primaryScreen()->size()) << "stretched to the screen";
    fill(back, RGB(0, 0, 255));
    EXPECT_EQ(shown().pixel(100, 100), 0xFFFF0000) << "unseen until the next one";
    EXPECT_EQ(front.Flip(0), 0);
    EXPECT_EQ(shown().pixel(100, 100), 0xFF0000FF);
    EXPECT_EQ(back.Flip(0), DDERR_NOTFLIPPABLE);
}

TEST_F(Screens, SurfacesAreCopied)
{
    start();
    CDirectDrawSurface memory;
    ASSERT_EQ(draw.CreateMemorySurface(10, 10, memory), 0);
    fill(memory, RGB(0, 255, 0));
    RECT part{2, 2, 8, 8};
    EXPECT_EQ(front.BlitFast(0, 0, memory, &part, 0), 0);
    EXPECT_EQ(shown().pixel(0, 0), 0xFF00FF00);
    EXPECT_EQ(front.BlitFast(60, 0, memory, &part, 0), DDERR_INVALIDRECT);
    EXPECT_EQ(front.BlitFast(-1, 0, memory, &part, 0), DDERR_INVALIDPARAMS);
    RECT outside{5, 5, 11, 11};
    EXPECT_EQ(front.BlitFast(0, 0, memory, &outside, 0), DDERR_INVALIDRECT);
    EXPECT_EQ(front.BlitROP(CRect(0, 0, 6, 6), memory, CPoint(0, 0), 0, SRCINVERT), 0);
    EXPECT_EQ(shown().pixel(0, 0), 0xFF000000) << "green and green";
    memory.Delete();
}

TEST_F(Screens, EightBitsShowTheColoursOfThePalette)
{
    start(8);
    PALETTEENTRY entries[256] = {};
    entries[7] = {250, 10, 10, 0};
    CDirectDrawPalette palette;
    ASSERT_EQ(draw.CreatePalette(4, entries, palette), 0);
    EXPECT_EQ(front.SetPalette(palette), 0);
    palette.Delete();
    fill(back, RGB(255, 0, 0));
    EXPECT_EQ(front.Flip(0), 0);
    EXPECT_EQ(shown().pixel(10, 10), 0xFFFA0A0A);
}

TEST_F(Screens, AnotherOneOnTopTakesTheSurfacesAway)
{
    start();
    CDirectDraw other;
    CDirectDrawSurface covering;
    ASSERT_EQ(other.Initialise(nullptr), 0);
    ASSERT_EQ(other.SetCooperativeLevel(nullptr, DDSCL_EXCLUSIVE | DDSCL_FULLSCREEN), 0);
    ASSERT_EQ(other.CreateFlipChain(1, covering), 0);
    HRESULT error = 0;
    EXPECT_EQ(front.Flip(0), DDERR_SURFACELOST);
    EXPECT_EQ(back.GetDC(&error), nullptr);
    EXPECT_EQ(error, DDERR_SURFACELOST);
    front.SetAutoRestore(1);
    EXPECT_EQ(front.Flip(0), 0);
    EXPECT_EQ(covering.Flip(0), DDERR_SURFACELOST) << "now that one is covered";
    covering.Delete();
    other.Shutdown();
}

TEST_F(Screens, WhatMakesNoSenseIsRefused)
{
    CDirectDrawSurface none;
    EXPECT_EQ(draw.SetDisplayMode(0, 480, 32, 0, 0), DDERR_INVALIDPARAMS);
    EXPECT_EQ(draw.SetDisplayMode(640, 480, 31, 0, 0), DDERR_INVALIDPARAMS);
    EXPECT_EQ(draw.CreateMemorySurface(-1, 5, none), DDERR_INVALIDPARAMS);
    EXPECT_EQ(draw.SetCooperativeLevel(nullptr, 0), DDERR_INVALIDPARAMS);
    start();
    EXPECT_EQ(draw.CreateFlipChain(1, none), DDERR_PRIMARYSURFACEALREADYEXISTS);
    EXPECT_EQ(draw.SetCooperativeLevel(nullptr, DDSCL_NORMAL), 0);
    EXPECT_EQ(draw.CreateFlipChain(1, none), DDERR_NOEXCLUSIVEMODE);
    CDirectDraw fresh;
    ASSERT_EQ(fresh.Initialise(nullptr), 0);
    EXPECT_EQ(fresh.CreateMemorySurface(5, 5, none), DDERR_NOCOOPERATIVELEVELSET);
    GUID unknown{9, 9, 9, {}};
    CDirectDraw nowhere;
    EXPECT_EQ(nowhere.Initialise(&unknown), DDERR_INVALIDPARAMS);
    fresh.Shutdown();
}

TEST_F(Screens, TheBlankComesWithTheRefresh)
{
    start();
    const auto begin = std::chrono::steady_clock::now();
    for (int i = 0; i < 6; ++i) EXPECT_EQ(draw.WaitForVBlank(1), 0);
    const std::chrono::duration<double> took = std::chrono::steady_clock::now() - begin;
    EXPECT_GT(took.count(), 4.0 / QApplication::primaryScreen()->refreshRate());
}

TEST(ScreenList, HasTheMachinesScreens)
{
    CDXDisplayArray list;
    ASSERT_TRUE(dxutil_EnumDisplays(list, true, true));
    ASSERT_EQ(list.GetSize(), static_cast<int>(QApplication::screens().size()));
    EXPECT_EQ(list[0].m_driver, GUID{});
    EXPECT_FALSE(list[0].m_description.IsEmpty());
    TCOMPointer<IDirectDraw7> newer;
    EXPECT_TRUE(dxutil_CreateDirectDraw(nullptr, newer));
}

} // namespace
