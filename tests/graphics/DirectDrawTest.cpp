#include "corekit/graphics/DirectDraw.h"
#include "corekit/platform/GdiBitmaps.h"
#include "corekit/platform/ScriptedDisplays.h"

#include <functional>
#include <gtest/gtest.h>

namespace {

constexpr HRESULT lost = DDERR_SURFACELOST, refused = DDERR_WRONGMODE;

class FullScreen : public testing::Test {
protected:
    FullScreen() : before(SetDisplayBackEnd(&displays))
    {
        EXPECT_EQ(draw.Initialise(nullptr), 0);
        EXPECT_EQ(draw.CreateFlipChain(3, front), 0);
        displays.ForgetCalls();
    }
    ~FullScreen() override
    {
        front.SafeDelete();
        front.SafeDelete();
        draw.Shutdown();
        EXPECT_EQ(displays.ObjectCount(), 0) << "each reference is given up once";
        SetDisplayBackEnd(before);
    }
    using Calls = std::vector<std::string>;

    ScriptedDisplays displays;
    DisplayBackEnd* before;
    CDirectDraw draw;
    CDirectDrawSurface front;
};

TEST_F(FullScreen, AFlipChainHasOneBackBuffer)
{
    EXPECT_EQ(displays.LastDescription().dwSize, 108u);
    EXPECT_EQ(displays.LastDescription().dwFlags, 0x21u);
    EXPECT_EQ(displays.LastDescription().dwBackBufferCount, 1u);
    EXPECT_EQ(displays.LastDescription().dwCaps, 0x4218u);
    CDirectDrawSurface memory, back;
    EXPECT_EQ(draw.CreateMemorySurface(30, 20, memory), 0);
    EXPECT_EQ(displays.LastDescription().dwFlags, 7u);
    EXPECT_EQ(displays.LastDescription().dwWidth, 30u);
    EXPECT_EQ(displays.LastDescription().dwHeight, 20u);
    EXPECT_EQ(displays.LastDescription().dwCaps, 64u);
    EXPECT_EQ(displays.Calls(), (Calls{"CreateSurface", "QueryInterface", "GetSurfaceDesc 108"}));
    EXPECT_EQ(back.AttachBackBuffer(front), 0);
    back.Delete();
    displays.Script("GetAttachedSurface", {refused});
    EXPECT_EQ(back.AttachBackBuffer(front), refused);
    back.SafeDelete();
    memory.Delete();
}

TEST_F(FullScreen, ALostSurfaceIsRestoredOnceWhereThatIsAskedFor)
{
    displays.Script("Flip", {lost});
    EXPECT_EQ(front.Flip(0), lost);
    EXPECT_EQ(displays.Calls(), Calls{"Flip 0"});

    front.SetAutoRestore(1);
    displays.ForgetCalls();
    displays.Script("Flip", {lost});
    displays.Script("Restore", {refused});
    EXPECT_EQ(front.Flip(7), refused);
    EXPECT_EQ(displays.Calls(), (Calls{"Flip 7", "Restore"}));

    displays.ForgetCalls();
    displays.Script("Flip", {lost, lost});
    EXPECT_EQ(front.Flip(0), lost) << "the second answer stands";
    EXPECT_EQ(displays.Calls(), (Calls{"Flip 0", "Restore", "Flip 0"}));

    displays.ForgetCalls();
    displays.Script("Flip", {refused});
    EXPECT_EQ(front.Flip(0), refused) << "another failure is no loss";
    EXPECT_EQ(displays.Calls(), Calls{"Flip 0"});
}

TEST_F(FullScreen, EveryOperationRecovers)
{
    front.SetAutoRestore(1);
    CDirectDrawPalette palette;
    EXPECT_EQ(draw.CreatePalette(4, nullptr, palette), 0);
    RECT part{0, 0, 5, 5};
    HRESULT error = 0;
    const std::pair<const char*, std::function<bool()>> operations[] = {
        {"BltFast", [&] { return front.BlitFast(1, 2, front, &part, 16) == 0; }},
        {"Blt", [&] { return front.BlitROP(CRect(3, 4, 13, 24), front, CPoint(7, 8), 1, SRCINVERT) == 0; }},
        {"GetDC", [&] { return front.GetDC(&error) != nullptr; }},
        {"ReleaseDC", [&] { return front.ReleaseDC(nullptr) == 0; }},
        {"SetPalette", [&] { return front.SetPalette(palette) == 0; }},
    };
    for (const auto& [name, call] : operations) {
        displays.ForgetCalls();
        displays.Script(name, {lost});
        EXPECT_TRUE(call()) << name;
        EXPECT_EQ(displays.Calls().size(), 3u) << name;
        EXPECT_EQ(displays.Calls()[1], "Restore") << name;
    }
    displays.ForgetCalls();
    front.BlitROP(CRect(3, 4, 13, 24), front, CPoint(7, 8), 1, SRCINVERT);
    EXPECT_EQ(displays.Calls(), Calls{"Blt 3 4 13 24 7 8 17 28 131073"});
    EXPECT_EQ(displays.LastEffects().dwSize, 100u);
    EXPECT_EQ(displays.LastEffects().dwROP, SRCINVERT);
    displays.Script("GetDC", {refused, refused});
    EXPECT_EQ(front.GetDC(&error), nullptr);
    EXPECT_EQ(error, refused);
    EXPECT_EQ(front.GetDC(nullptr), nullptr);
    palette.Delete();
}

TEST_F(FullScreen, TheModeIsKeptOnlyWhenItIsSet)
{
    EXPECT_EQ(draw.SetDisplayMode(640, 480, 32, 0, 0), 0);
    displays.Script("SetDisplayMode", {refused, 1});
    EXPECT_EQ(draw.SetDisplayMode(800, 600, 32, 0, 0), refused);
    EXPECT_EQ(draw.GetWidth(), 640u);
    EXPECT_EQ(draw.SetDisplayMode(800, 600, 32, 0, 0), 0) << "what is not negative is success";
    EXPECT_EQ(draw.GetHeight(), 600u);
    displays.Script("WaitForVerticalBlank", {1});
    EXPECT_EQ(draw.WaitForVBlank(1), 1);
}

TEST_F(FullScreen, WhatComesAnewReplacesWhatWasHeld)
{
    CDirectDrawSurface back;
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(draw.Initialise(nullptr), 0);
        EXPECT_EQ(draw.CreateFlipChain(1, front), 0);
        EXPECT_EQ(back.AttachBackBuffer(front, 0), 0);
    }
    back.SafeDelete();
}

TEST_F(FullScreen, AFailingStartLeavesNothing)
{
    CDirectDraw other;
    displays.Script("Initialize", {refused});
    EXPECT_EQ(other.Initialise(nullptr), refused);
    displays.Script("Create", {refused});
    EXPECT_EQ(other.Initialise(nullptr), refused);
    CDirectDrawSurface none;
    displays.Script("QueryInterface", {refused});
    EXPECT_EQ(draw.CreateMemorySurface(1, 1, none), refused);
    displays.Script("GetSurfaceDesc", {refused});
    EXPECT_EQ(draw.CreateMemorySurface(1, 1, none), refused);
    none.SafeDelete();
    TCOMPointer<IDirectDraw7> newer;
    EXPECT_TRUE(dxutil_CreateDirectDraw(nullptr, newer));
    displays.Script("Initialize", {refused});
    EXPECT_FALSE(dxutil_CreateDirectDraw(nullptr, newer));
    EXPECT_EQ(newer.m_p, nullptr);
}

TEST_F(FullScreen, ThePrimaryDisplayIsListedOnlyIfItComesFirst)
{
    const GUID one{1, 0, 0, {}}, two{2, 0, 0, {}};
    displays.Displays() = {{false, {}, "Primary", "display"},
                           {true, one, "Left", "a"},
                           {false, {}, "Late", "b"},
                           {true, two, "Right", "c"}};
    CDXDisplayArray list;
    list.SetSize(9);
    EXPECT_TRUE(dxutil_EnumDisplays(list, true, false));
    ASSERT_EQ(list.GetSize(), 3);
    EXPECT_EQ(list[0].m_driver, GUID{});
    EXPECT_EQ(list[0].m_description, "Primary");
    EXPECT_EQ(list[1].m_driver, one);
    EXPECT_EQ(list[2].m_name, "c");
    displays.Script("Enumerate", {1});
    EXPECT_FALSE(dxutil_EnumDisplays(list, false, true));
    EXPECT_EQ(displays.Calls(), (Calls{"Enumerate 1", "Enumerate 2"}));
}

TEST(DisplayErrors, HaveTheirTexts)
{
    struct Case {
        DWORD code;
        const char* text;
    };
    for (const Case& c :
         {Case{0, "DirectDraw error code 0 (0x00000000) - Unknown"},
          {0x80070057, "DirectDraw error code -2147024809 (0x80070057) - One or more of the input parameters "
                       "is invalid."},
          {0x8876017C,
           "DirectDraw error code -2005532292 (0x8876017C) - DirectDraw does not have enough memory to "
           "perform the operation."},
          {0x88760235, "DirectDraw error code -2005532107 (0x88760235) - Software emulation not available."},
          {0x887601C2, "DirectDraw error code -2005532222 (0x887601C2) - Unknown"}})
        EXPECT_STREQ(CDirectDraw::GetErrorString(static_cast<HRESULT>(c.code)), c.text);
}

} // namespace
