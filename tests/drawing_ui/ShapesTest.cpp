#include "Surface.h"

#include "corekit/platform/Gdi.h"
#include "corekit/platform/SystemColours.h"

namespace {

constexpr std::uint32_t black = 0xFF000000, red = 0xFFFF0000, white = 0xFFFFFFFF;

// What a row or column of the picture holds: a letter for each pixel.
std::string line(const Surface& s, int count, bool isRow = true)
{
    std::string text;
    for (int i = 0; i < count; ++i) {
        const std::uint32_t pixel = isRow ? s.at(i, 0) : s.at(0, i);
        text += pixel == black ? '#' : pixel == white ? 'o' : pixel == red ? 'r' : '.';
    }
    return text;
}

TEST(Lines, TheEndIsLeftOutInEveryDirection)
{
    struct Case {
        POINT from, to;
        RECT ink;
    };
    const Case cases[] = {
        {{2, 2}, {8, 2}, {2, 2, 8, 3}}, {{8, 2}, {2, 2}, {3, 2, 9, 3}},   {{2, 2}, {2, 8}, {2, 2, 3, 8}},
        {{2, 8}, {2, 2}, {2, 3, 3, 9}}, {{2, 2}, {6, 6}, {2, 2, 6, 6}},   {{6, 6}, {2, 2}, {3, 3, 7, 7}},
        {{5, 5}, {5, 5}, {0, 0, 0, 0}}, {{2, 2}, {10, 6}, {2, 2, 10, 7}},
    };
    for (const Case& c : cases) {
        Surface s;
        MoveToEx(s.dc, c.from.x, c.from.y, nullptr);
        LineTo(s.dc, c.to.x, c.to.y);
        EXPECT_EQ(s.ink(), c.ink) << c.from.x << ' ' << c.from.y << " to " << c.to.x << ' ' << c.to.y;
        POINT before;
        MoveToEx(s.dc, 0, 0, &before);
        EXPECT_EQ(before.x, c.to.x);
    }
}

TEST(Lines, DashesRunAlongTheLine)
{
    struct Case {
        int style, mode;
        const char* row;
    };
    const Case cases[] = {{PS_DOT, TRANSPARENT, "###...###...###..."},
                          {PS_DOT, OPAQUE, "###ooo###ooo###ooo"},
                          {PS_DASH, TRANSPARENT, "##################......##"},
                          {PS_DASHDOT, TRANSPARENT, "#########......###......####"},
                          {PS_DASHDOTDOT, TRANSPARENT, "#########...###...###...###"}};
    for (const Case& c : cases)
        for (const bool isRow : {true, false}) {
            Surface s;
            const HPEN pen = CreatePen(c.style, 1, 0);
            SelectObject(s.dc, pen);
            SetBkMode(s.dc, c.mode);
            LineTo(s.dc, isRow ? 40 : 0, isRow ? 0 : 30);
            const std::string expected = c.row;
            EXPECT_EQ(line(s, static_cast<int>(expected.size()), isRow), expected);
            DeleteObject(pen);
        }
}

TEST(Shapes, RightAndBottomEdgeAreNotPartOfThem)
{
    Surface frame, box, round, filled;
    const RECT rect{3, 4, 13, 10};
    FrameRect(frame.dc, &rect, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
    EXPECT_EQ(frame.count(black), 10 * 6 - 8 * 4);
    Rectangle(box.dc, 13, 10, 3, 4);
    EXPECT_EQ(box.count(black), 10 * 6 - 8 * 4);
    EXPECT_EQ(box.count(white), 8 * 4);
    Ellipse(round.dc, 3, 4, 13, 10);
    EXPECT_EQ(round.ink(), rect);
    EXPECT_EQ(round.at(3, 4), Surface::untouched);
    EXPECT_EQ(round.at(8, 7), white);
    FillRect(filled.dc, &rect, reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1));
    EXPECT_EQ(filled.ink(), rect);
    EXPECT_EQ(filled.at(3, 4) & 0xFFFFFF, 0xFFFFFFu & (RGB(255, 255, 255) & GetSysColor(COLOR_WINDOW)));
}

TEST(Shapes, ABroadPenReachesBeyondUnlessItStaysInside)
{
    Surface outside, inside;
    const HPEN broad = CreatePen(PS_SOLID, 4, 0), within = CreatePen(PS_INSIDEFRAME, 4, 0);
    SelectObject(outside.dc, broad);
    SelectObject(inside.dc, within);
    Rectangle(outside.dc, 10, 10, 30, 20);
    Rectangle(inside.dc, 10, 10, 30, 20);
    EXPECT_EQ(outside.ink(), (RECT{8, 8, 32, 22}));
    EXPECT_EQ(inside.ink(), (RECT{10, 10, 30, 20}));
    DeleteObject(broad);
    DeleteObject(within);
}

TEST(Brushes, PatternsBeginAtTheCornerOfTheSurface)
{
    const WORD bits[8] = {0x55, 0xAA, 0x55, 0xAA, 0x55, 0xAA, 0x55, 0xAA};
    const HBITMAP bitmap = CreateBitmap(8, 8, 1, 1, bits);
    const HBRUSH brush = CreatePatternBrush(bitmap);
    EXPECT_TRUE(DeleteObject(bitmap));
    Surface s;
    SetTextColor(s.dc, RGB(255, 0, 0));
    SetViewportOrgEx(s.dc, 3, 0, nullptr);
    const RECT rect{-3, 0, 9, 2};
    FillRect(s.dc, &rect, brush);
    EXPECT_EQ(line(s, 13), "rorororororo.");
    PatBlt(s.dc, -3, 0, 12, 2, WHITENESS);
    SelectObject(s.dc, brush);
    PatBlt(s.dc, -3, 0, 12, 2, PATINVERT);
    PatBlt(s.dc, -3, 0, 12, 2, PATINVERT);
    EXPECT_EQ(line(s, 12), std::string(12, 'o'));
    DeleteObject(brush);
    const HBRUSH hatch = CreateHatchBrush(HS_VERTICAL, 0);
    SetBkMode(s.dc, TRANSPARENT);
    FillRect(s.dc, &rect, hatch);
    EXPECT_EQ(line(s, 12), "oooo#ooooooo");
    DeleteObject(hatch);
}

TEST(Objects, AreDescribedAsTheyWereMade)
{
    const HPEN pen = CreatePen(PS_DASH, 1, RGB(1, 2, 3));
    const HBRUSH brush = CreateHatchBrush(HS_CROSS, RGB(4, 5, 6));
    LOGFONTA wanted{};
    wanted.lfHeight = -17;
    wanted.lfWeight = FW_BOLD;
    wanted.lfItalic = 1;
    std::copy_n("Noto Sans", 10, wanted.lfFaceName);
    const HFONT font = CreateFontIndirectA(&wanted);
    LOGPEN p{};
    LOGBRUSH b{};
    LOGFONTA f{};
    EXPECT_EQ(GetObjectA(pen, sizeof p, &p), static_cast<int>(sizeof p));
    EXPECT_EQ(GetObjectA(brush, sizeof b, &b), static_cast<int>(sizeof b));
    EXPECT_EQ(GetObjectA(font, sizeof f, &f), static_cast<int>(sizeof f));
    EXPECT_EQ(GetObjectA(font, sizeof f - 1, &f), 0);
    EXPECT_EQ(p.lopnStyle, static_cast<UINT>(PS_DASH));
    EXPECT_EQ(p.lopnColor, RGB(1, 2, 3));
    EXPECT_EQ(b.lbStyle, BS_HATCHED);
    EXPECT_EQ(b.lbHatch, static_cast<UINT_PTR>(HS_CROSS));
    EXPECT_EQ(f.lfHeight, -17);
    EXPECT_EQ(f.lfWeight, FW_BOLD);
    EXPECT_STREQ(f.lfFaceName, "Noto Sans");
    for (const HGDIOBJ object : {pen, brush, font}) EXPECT_TRUE(DeleteObject(object));
    EXPECT_EQ(CreatePen(99, 1, 0), nullptr);
    EXPECT_EQ(CreateHatchBrush(6, 0), nullptr);
}

TEST(Frames, EdgesAreTakenOffTheRectangle)
{
    Surface s;
    RECT rect{2, 2, 22, 12};
    EXPECT_TRUE(DrawFrameControl(s.dc, &rect, DFC_BUTTON, DFCS_BUTTONPUSH | DFCS_PUSHED | DFCS_ADJUSTRECT));
    EXPECT_EQ(rect, (RECT{4, 4, 20, 10}));
    EXPECT_EQ(s.ink(), (RECT{2, 2, 22, 12}));
    RECT top{0, 0, 10, 10};
    DrawEdge(s.dc, &top, EDGE_SUNKEN, BF_TOP | BF_ADJUST);
    EXPECT_EQ(top, (RECT{0, 2, 10, 10}));
    EXPECT_FALSE(DrawFrameControl(s.dc, &rect, 77, 0));
    EXPECT_FALSE(DrawFrameControl(s.dc, &rect, DFC_SCROLL, 4));
    for (const UINT state : {DFCS_SCROLLUP, DFCS_SCROLLDOWN, DFCS_SCROLLLEFT, DFCS_SCROLLRIGHT}) {
        Surface normal, inactive;
        RECT room{0, 0, 16, 16};
        DrawFrameControl(normal.dc, &room, DFC_SCROLL, state);
        DrawFrameControl(inactive.dc, &room, DFC_SCROLL, state | DFCS_INACTIVE);
        EXPECT_NE(normal.pixels(), inactive.pixels());
    }
}

TEST(Frames, TheFocusRectangleTakesItselfAway)
{
    Surface s;
    const auto before = s.pixels();
    const RECT rect{3, 3, 20, 9};
    DrawFocusRect(s.dc, &rect);
    EXPECT_EQ(s.ink(), rect);
    DrawFocusRect(s.dc, &rect);
    EXPECT_EQ(s.pixels(), before);
}

} // namespace
