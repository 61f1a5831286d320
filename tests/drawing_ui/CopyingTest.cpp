#include "Surface.h"

#include "corekit/platform/Gdi.h"

#include <numeric>

namespace {

// A memory context with a picture of its own.
class Picture {
public:
    Picture(int w, int h) : width(w)
    {
        BITMAPINFO info{};
        info.bmiHeader = {sizeof(BITMAPINFOHEADER), w, -h, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        void* bits = nullptr;
        bitmap = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
        pixels = {static_cast<std::uint32_t*>(bits), static_cast<std::size_t>(w * h)};
        dc = CreateCompatibleDC(nullptr);
        SelectObject(dc, bitmap);
        std::iota(pixels.begin(), pixels.end(), 0xFF000000u);
    }
    ~Picture()
    {
        DeleteDC(dc);
        DeleteObject(bitmap);
    }
    Picture(const Picture&) = delete;
    Picture& operator=(const Picture&) = delete;
    std::uint32_t at(int x, int y) const
    {
        return pixels[static_cast<std::size_t>(y * width + x)] & 0xFFFFFF;
    }

    HDC dc = nullptr;
    HBITMAP bitmap = nullptr;
    std::span<std::uint32_t> pixels;
    const int width;
};

TEST(Copying, OverlappingAreasMoveWhole)
{
    for (const int dx : {-3, 0, 3})
        for (const int dy : {-2, 0, 2}) {
            Picture p(20, 16);
            EXPECT_TRUE(BitBlt(p.dc, 5 + dx, 5 + dy, 8, 6, p.dc, 5, 5, SRCCOPY));
            for (int y = 0; y < 6; ++y)
                for (int x = 0; x < 8; ++x)
                    ASSERT_EQ(p.at(5 + dx + x, 5 + dy + y), static_cast<std::uint32_t>((5 + y) * 20 + 5 + x))
                        << dx << ' ' << dy;
        }
}

TEST(Copying, WhatTheSourceLacksIsLeftAlone)
{
    Picture source(4, 4);
    Surface s;
    EXPECT_TRUE(BitBlt(s.dc, 10, 10, 20, 20, source.dc, -2, 1, SRCCOPY));
    EXPECT_EQ(s.ink(), (RECT{12, 10, 16, 13}));
    EXPECT_EQ(s.at(12, 10) & 0xFFFFFF, 4u);
}

TEST(Copying, OperationsFollowTheirTables)
{
    const std::uint32_t d = 0x0F33AA, s = 0x55F0CC, p = 0x123456;
    struct Case {
        DWORD operation;
        std::uint32_t result;
    };
    const Case cases[] = {{SRCCOPY, s},
                          {SRCPAINT, d | s},
                          {SRCAND, d & s},
                          {SRCINVERT, d ^ s},
                          {NOTSRCCOPY, ~s},
                          {PATCOPY, p},
                          {PATINVERT, d ^ p},
                          {DSTINVERT, ~d},
                          {BLACKNESS, 0},
                          {WHITENESS, ~0u},
                          {0x00B8074A, ((d ^ p) & s) ^ p},
                          {0x00FB0A09, d | p | ~s}};
    for (const Case& c : cases) {
        Picture to(3, 3), from(3, 3);
        std::ranges::fill(to.pixels, d | 0x80000000);
        std::ranges::fill(from.pixels, s | 0xFF000000);
        const HBRUSH brush = CreateSolidBrush(RGB(0x12, 0x34, 0x56));
        SelectObject(to.dc, brush);
        EXPECT_TRUE(BitBlt(to.dc, 0, 0, 2, 3, from.dc, 0, 0, c.operation));
        EXPECT_EQ(to.at(1, 1), c.result & 0xFFFFFF) << std::hex << c.operation;
        EXPECT_EQ(to.at(2, 1), d) << "outside";
        DeleteObject(brush);
    }
    Picture any(2, 2);
    EXPECT_FALSE(PatBlt(any.dc, 0, 0, 1, 1, SRCCOPY));
}

TEST(Copying, StretchingMirrorsWhereASignDiffers)
{
    Picture p(2, 2);
    Surface s;
    const auto corners = [&] {
        return std::vector<std::uint32_t>{s.at(4, 4) & 0xFF, s.at(9, 4) & 0xFF, s.at(4, 9) & 0xFF,
                                          s.at(9, 9) & 0xFF};
    };
    StretchBlt(s.dc, 4, 4, 6, 6, p.dc, 0, 0, 2, 2, SRCCOPY);
    EXPECT_EQ(corners(), (std::vector<std::uint32_t>{0, 1, 2, 3}));
    EXPECT_EQ(s.ink(), (RECT{4, 4, 10, 10}));
    StretchBlt(s.dc, 10, 4, -6, 6, p.dc, 0, 0, 2, 2, SRCCOPY);
    EXPECT_EQ(corners(), (std::vector<std::uint32_t>{1, 0, 3, 2}));
    StretchBlt(s.dc, 10, 4, -6, 6, p.dc, 2, 2, -2, -2, SRCCOPY);
    EXPECT_EQ(corners(), (std::vector<std::uint32_t>{2, 3, 0, 1}));
    EXPECT_TRUE(StretchBlt(s.dc, 0, 0, INT32_MAX, 1, p.dc, 0, 0, 2, 2, SRCCOPY) == FALSE) << "out of reason";
}

TEST(Copying, SmoothingTakesTheMean)
{
    Picture p(2, 2), to(1, 1);
    p.pixels[0] = p.pixels[3] = 0xFF000000;
    p.pixels[1] = p.pixels[2] = 0xFFFFFFFF;
    SetStretchBltMode(to.dc, HALFTONE);
    StretchBlt(to.dc, 0, 0, 1, 1, p.dc, 0, 0, 2, 2, SRCCOPY);
    EXPECT_NEAR(static_cast<int>(to.at(0, 0) & 0xFF), 0x80, 2);
}

TEST(Copying, TwoColoursTakeThoseOfTheTarget)
{
    const BYTE bits[] = {0xA0, 0};
    const HBITMAP mask = CreateBitmap(3, 1, 1, 1, bits);
    const HDC from = CreateCompatibleDC(nullptr);
    const HGDIOBJ before = SelectObject(from, mask);
    Surface s;
    SetTextColor(s.dc, RGB(1, 0, 0));
    SetBkColor(s.dc, RGB(0, 0, 2));
    BitBlt(s.dc, 0, 0, 3, 1, from, 0, 0, SRCCOPY);
    EXPECT_EQ(s.at(0, 0), 0xFF000002);
    EXPECT_EQ(s.at(1, 0), 0xFF010000);
    SelectObject(from, before);
    DeleteDC(from);
    DeleteObject(mask);
}

} // namespace
