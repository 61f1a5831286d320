// Contexts on a window's pixels: offset, clip, device pixel ratio, and that nothing leaves them.
#include "Surface.h"

#include "corekit/platform/Gdi.h"
#include "corekit/platform/SystemColours.h"

#include <QRegion>

namespace {

constexpr std::uint32_t red = 0xFFFF0000, white = 0xFFFFFFFF;

HBRUSH redBrush()
{
    static const HBRUSH brush = CreateSolidBrush(RGB(255, 0, 0));
    return brush;
}

TEST(WindowPixels, OriginAndClipHold)
{
    Surface s(40, 30, 1, QRegion(2, 2, 10, 10) + QRegion(20, 2, 5, 5));
    const RECT all{-100, -100, 100, 100};
    FillRect(s.dc, &all, redBrush());
    EXPECT_EQ(s.count(red), 10 * 10 + 5 * 5);
    EXPECT_EQ(s.ink(), (RECT{2, 2, 25, 12}));

    Surface moved(40, 30);
    auto on = moved.on();
    on.originX = 5;
    on.originY = 7;
    ASSERT_TRUE(corekit::detail::retargetForeignContext(moved.dc, on));
    const RECT part{0, 0, 3, 4};
    FillRect(moved.dc, &part, redBrush());
    EXPECT_EQ(moved.ink(), (RECT{5, 7, 8, 11}));
}

TEST(WindowPixels, TouchingAreasTouchAtEveryRatio)
{
    for (const double scale : {1.0, 1.25, 1.5, 2.0, 3.0}) {
        Surface s(90, 60, scale);
        for (int x = 0; x < 10; ++x) {
            const RECT column{x, 0, x + 1, 5};
            FillRect(s.dc, &column, redBrush());
        }
        const int width = static_cast<int>(std::lround(10 * scale)),
                  height = static_cast<int>(std::lround(5 * scale));
        EXPECT_EQ(s.ink(), (RECT{0, 0, width, height})) << scale;
        EXPECT_EQ(s.count(red), width * height) << scale;
    }
}

TEST(WindowPixels, TextKeepsItsExtentAndGainsPixels)
{
    const auto inkOf = [](double scale, SIZE& size) {
        Surface s(400, 200, scale);
        const HFONT font = CreateFontA(30, 0, 0, 0, 400, 0, 0, 0, DEFAULT_CHARSET, 0, 0, 0, 0, "Noto Sans");
        SelectObject(s.dc, font);
        SetBkMode(s.dc, TRANSPARENT);
        GetTextExtentPoint32W(s.dc, u"Prompt", 6, &size);
        EXPECT_TRUE(TextOutW(s.dc, 4, 3, u"Prompt", 6));
        DeleteObject(font);
        return s.ink();
    };
    SIZE once, twice;
    const RECT small = inkOf(1, once), large = inkOf(2, twice);
    EXPECT_EQ(once.cx, twice.cx);
    EXPECT_EQ(once.cy, twice.cy);
    EXPECT_NEAR(large.right, small.right * 2, 2);
    EXPECT_NEAR(large.bottom, small.bottom * 2, 2);
    EXPECT_NEAR(large.left, small.left * 2, 2);
}

TEST(WindowPixels, ABufferHasAsManyPixelsAndCopiesThemOneToOne)
{
    for (const double scale : {1.25, 1.5, 2.0}) {
        Surface direct(80, 60, scale), buffered(80, 60, scale);
        const HDC memory = CreateCompatibleDC(buffered.dc);
        const HBITMAP bitmap = CreateCompatibleBitmap(buffered.dc, 30, 28);
        const HGDIOBJ before = SelectObject(memory, bitmap);
        const RECT all{0, 0, 30, 28};
        for (const HDC dc : {direct.dc, memory}) {
            FillRect(dc, &all, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
            TextOutW(dc, 2, 1, u"Ag", 2);
        }
        BitBlt(buffered.dc, 0, 0, 30, 28, memory, 0, 0, SRCCOPY);
        EXPECT_EQ(direct.pixels(), buffered.pixels()) << scale;
        SelectObject(memory, before);
        DeleteObject(bitmap);
        DeleteDC(memory);
    }
}

TEST(WindowPixels, WithoutPixelsTextIsMeasuredAndNothingDrawn)
{
    const HDC dc = corekit::detail::makeForeignContext({});
    ASSERT_NE(dc, nullptr);
    SIZE size{};
    EXPECT_TRUE(GetTextExtentPoint32W(dc, u"ab", 2, &size));
    EXPECT_GT(size.cx, 0);
    EXPECT_TRUE(TextOutW(dc, 0, 0, u"ab", 2));
    EXPECT_TRUE(Rectangle(dc, 0, 0, 5, 5));
    EXPECT_TRUE(Ellipse(dc, 0, 0, 5, 5));
    EXPECT_EQ(GetPixel(dc, 0, 0), CLR_INVALID);
    DeleteDC(dc);
    corekit::detail::ForeignPixels bad;
    bad.scale = 0;
    EXPECT_EQ(corekit::detail::makeForeignContext(bad), nullptr);
    bad = {reinterpret_cast<std::uint32_t*>(8), 10, 10, 5};
    EXPECT_EQ(corekit::detail::makeForeignContext(bad), nullptr) << "rows overlap";
}

TEST(WindowPixels, AWindowsSurfaceTakesNoBitmap)
{
    Surface s;
    const HBITMAP bitmap = CreateCompatibleBitmap(s.dc, 5, 5);
    EXPECT_EQ(SelectObject(s.dc, bitmap), nullptr);
    EXPECT_TRUE(DeleteObject(bitmap));
}

// Every operation, at places in, at and far beyond the edges.
TEST(WindowPixels, NoOperationLeavesTheClip)
{
    constexpr int places[] = {INT32_MIN, -70'000, -3, 0, 7, 25, 39, 90'000, INT32_MAX};
    for (const double scale : {1.0, 1.5}) {
        const QRegion clip = QRegion(3, 3, 12, 10) + QRegion(18, 5, 4, 12);
        Surface s(40, 30, scale, clip);
        Surface whole(40, 30, scale);
        const HPEN broad = CreatePen(PS_SOLID, 5, RGB(0, 0, 255)),
                   dotted = CreatePen(PS_DOT, 1, RGB(9, 9, 9));
        const HBRUSH hatch = CreateHatchBrush(HS_DIAGCROSS, RGB(0, 255, 0));
        for (const int x : places)
            for (const int y : places) {
                RECT rect{x, y, 30, 20}, other = rect;
                const POINT points[] = {{x, y}, {20, 9}, {y, x}};
                FillRect(s.dc, &rect, hatch);
                FrameRect(s.dc, &rect, redBrush());
                InvertRect(s.dc, &rect);
                for (const HPEN pen : {broad, dotted}) {
                    SelectObject(s.dc, pen);
                    MoveToEx(s.dc, x, y, nullptr);
                    LineTo(s.dc, 17, 12);
                    Rectangle(s.dc, x, y, 22, 22);
                    Polygon(s.dc, points, 3);
                }
                Ellipse(s.dc, x, y, 22, 22);
                SetPixel(s.dc, x, y, 0);
                PatBlt(s.dc, x, y, 60, 60, PATINVERT);
                BitBlt(s.dc, x, y, 60, 60, whole.dc, y, x, SRCCOPY);
                StretchBlt(s.dc, x, y, -60, 90, whole.dc, 1, 1, 10, 10, SRCINVERT);
                DrawEdge(s.dc, &other, EDGE_RAISED, BF_RECT | BF_MIDDLE);
                DrawTextW(s.dc, u"text & more", -1, &other, DT_NOCLIP);
                TextOutW(s.dc, x, y, u"gj", 2);
            }
        EXPECT_TRUE(s.marginIsWhole()) << scale;
        for (int y = 0; y < s.height; ++y)
            for (int x = 0; x < s.width; ++x) {
                const QPoint unit(static_cast<int>((x + 0.5) / scale), static_cast<int>((y + 0.5) / scale));
                const bool near = clip.intersects(QRect(unit.x() - 1, unit.y() - 1, 3, 3));
                ASSERT_TRUE(near || s.at(x, y) == Surface::untouched) << x << ' ' << y << ' ' << scale;
                ASSERT_EQ(s.at(x, y) >> 24, 0xFFu) << "a window's pixel stays opaque";
            }
        for (const HGDIOBJ object : {broad, dotted, hatch}) DeleteObject(object);
    }
}

TEST(WindowPixels, TextGoesThroughARegionAsThroughAStencil)
{
    Surface free(60, 30), cut(60, 30);
    const HRGN region = CreateRectRgn(0, 0, 9, 30), hole = CreateRectRgn(14, 5, 40, 22);
    CombineRgn(region, region, hole, RGN_OR);
    EXPECT_EQ(SelectClipRgn(cut.dc, region), COMPLEXREGION);
    for (const HDC dc : {free.dc, cut.dc}) TextOutW(dc, 1, 2, u"Sphinx", 6);
    int inked = 0;
    for (int y = 0; y < 30; ++y)
        for (int x = 0; x < 60; ++x) {
            const bool isIn = PtInRegion(region, x, y);
            ASSERT_EQ(cut.at(x, y), isIn ? free.at(x, y) : Surface::untouched) << x << ' ' << y;
            inked += isIn && free.at(x, y) != Surface::untouched;
        }
    EXPECT_GT(inked, 50);
    DeleteObject(region);
    DeleteObject(hole);
}

TEST(WindowPixels, SavedStatesComeBack)
{
    Surface s;
    SetTextColor(s.dc, RGB(1, 2, 3));
    IntersectClipRect(s.dc, 0, 0, 20, 20);
    EXPECT_EQ(SaveDC(s.dc), 1);
    SetTextColor(s.dc, 0);
    SetViewportOrgEx(s.dc, 5, 5, nullptr);
    EXPECT_EQ(IntersectClipRect(s.dc, 0, 0, 5, 5), SIMPLEREGION);
    RECT box;
    GetClipBox(s.dc, &box);
    EXPECT_EQ(box, (RECT{0, 0, 5, 5}));
    EXPECT_EQ(SaveDC(s.dc), 2);
    EXPECT_FALSE(RestoreDC(s.dc, 3));
    EXPECT_FALSE(RestoreDC(s.dc, -3));
    EXPECT_TRUE(RestoreDC(s.dc, 1));
    EXPECT_FALSE(RestoreDC(s.dc, -1)) << "what was kept later is forgotten";
    GetClipBox(s.dc, &box);
    EXPECT_EQ(box, (RECT{0, 0, 20, 20}));
    EXPECT_EQ(GetTextColor(s.dc), RGB(1, 2, 3));
    EXPECT_EQ(ExcludeClipRect(s.dc, 5, 5, 10, 10), COMPLEXREGION);
    const RECT all{0, 0, 40, 30};
    FillRect(s.dc, &all, static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH)));
    EXPECT_EQ(s.count(white), 20 * 20 - 5 * 5);
}

} // namespace
