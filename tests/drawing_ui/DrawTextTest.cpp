#include "Surface.h"

#include "corekit/platform/Gdi.h"

#include <cmath>
#include <string>

namespace {

class DrawText : public testing::Test {
protected:
    DrawText() : s(300, 200)
    {
        font = CreateFontA(20, 0, 0, 0, 400, 0, 0, 0, DEFAULT_CHARSET, 0, 0, 0, 0, "Noto Sans");
        SelectObject(s.dc, font);
        SetBkMode(s.dc, TRANSPARENT);
    }
    ~DrawText() override { DeleteObject(font); }

    int width(std::u16string_view text) const
    {
        SIZE size{};
        GetTextExtentPoint32W(s.dc, text.data(), static_cast<int>(text.size()), &size);
        return size.cx;
    }
    // The picture of a call, and of plain text at places.
    std::vector<std::uint32_t> drawn(std::u16string_view text, RECT rect, UINT format)
    {
        Surface fresh(300, 200);
        SelectObject(fresh.dc, font);
        SetBkMode(fresh.dc, TRANSPARENT);
        DrawTextW(fresh.dc, text.data(), static_cast<int>(text.size()), &rect, format);
        return fresh.pixels();
    }
    std::vector<std::uint32_t> placed(std::initializer_list<std::pair<POINT, std::u16string_view>> texts)
    {
        Surface fresh(300, 200);
        SelectObject(fresh.dc, font);
        SetBkMode(fresh.dc, TRANSPARENT);
        for (const auto& [at, text] : texts)
            TextOutW(fresh.dc, at.x, at.y, text.data(), static_cast<int>(text.size()));
        return fresh.pixels();
    }

    Surface s;
    HFONT font;
};

TEST_F(DrawText, PlacesFollowTheFlags)
{
    const RECT room{10, 10, 210, 110};
    const int w = width(u"Roll");
    struct Case {
        UINT format;
        POINT at;
    };
    const Case cases[] = {{DT_SINGLELINE, {10, 10}},
                          {DT_SINGLELINE | DT_CENTER | DT_VCENTER, {10 + (200 - w) / 2, 50}},
                          {DT_SINGLELINE | DT_RIGHT | DT_BOTTOM, {210 - w, 90}},
                          {DT_RIGHT | DT_BOTTOM, {210 - w, 10}}};
    for (const Case& c : cases)
        EXPECT_EQ(drawn(u"Roll", room, c.format), placed({{c.at, u"Roll"}})) << c.format;
}

TEST_F(DrawText, LinesBreakAtBlanksAndLineEnds)
{
    const RECT room{0, 0, width(u"one two") + 2, 200};
    EXPECT_EQ(drawn(u"one two three\r\n\nfour ", room, DT_WORDBREAK),
              placed({{{0, 0}, u"one two"}, {{0, 20}, u"three"}, {{0, 60}, u"four"}}));
    EXPECT_EQ(drawn(u"a\rb\nc", room, 0), placed({{{0, 0}, u"a"}, {{0, 20}, u"b"}, {{0, 40}, u"c"}}));
    EXPECT_EQ(drawn(u"a\nb", room, DT_SINGLELINE), placed({{{0, 0}, u"a b"}}));
    RECT narrow{0, 0, 3, 5};
    EXPECT_EQ(DrawTextW(s.dc, u"wide", -1, &narrow, DT_WORDBREAK | DT_CALCRECT), 20);
    EXPECT_EQ(narrow.right, width(u"wide")) << "a word that is too wide stands alone";
    RECT edit{0, 0, width(u"wid"), 5};
    EXPECT_EQ(DrawTextW(s.dc, u"wide", -1, &edit, DT_WORDBREAK | DT_EDITCONTROL | DT_CALCRECT), 40);
}

TEST_F(DrawText, MnemonicsAreUnderlinedAndTakeNoRoom)
{
    RECT size{};
    DrawTextW(s.dc, u"&Save && go", -1, &size, DT_CALCRECT);
    EXPECT_EQ(size.right, width(u"Save & go"));
    DrawTextW(s.dc, u"&Save", -1, &size, DT_CALCRECT | DT_NOPREFIX);
    EXPECT_EQ(size.right, width(u"&Save"));
    const RECT room{0, 0, 200, 30};
    EXPECT_EQ(drawn(u"a&bc", room, DT_HIDEPREFIX), placed({{{0, 0}, u"abc"}}));
    EXPECT_NE(drawn(u"a&bc", room, 0), placed({{{0, 0}, u"abc"}}));
}

TEST_F(DrawText, WhatDoesNotFitIsMarked)
{
    const RECT room{0, 0, width(u"Rundown...") + 1, 30};
    EXPECT_EQ(drawn(u"Rundown of the day", room, DT_SINGLELINE | DT_END_ELLIPSIS),
              placed({{{0, 0}, u"Rundown..."}}));
    const RECT path{0, 0, width(u"C:\\ne...\\file.txt") + 1, 30};
    EXPECT_EQ(drawn(u"C:\\newsroom\\stories\\file.txt", path, DT_SINGLELINE | DT_PATH_ELLIPSIS),
              placed({{{0, 0}, u"C:\\ne...\\file.txt"}}));
    EXPECT_EQ(drawn(u"Run", room, DT_SINGLELINE | DT_END_ELLIPSIS), placed({{{0, 0}, u"Run"}}));
}

TEST_F(DrawText, TabsStandAtMultiplesOfEightCharacters)
{
    TEXTMETRICA metrics;
    GetTextMetricsA(s.dc, &metrics);
    const RECT room{0, 0, 300, 30};
    EXPECT_EQ(drawn(u"a\tb", room, DT_EXPANDTABS),
              placed({{{0, 0}, u"a"}, {{8 * metrics.tmAveCharWidth, 0}, u"b"}}));
}

TEST_F(DrawText, LongAndOddTextsAreTaken)
{
    std::u16string text(100'000, u'x');
    for (std::size_t i = 7; i < text.size(); i += 8) text[i] = u' ';
    RECT room{0, 0, 200, 100};
    EXPECT_GT(DrawTextW(s.dc, text.data(), static_cast<int>(text.size()), &room, DT_WORDBREAK), 20 * 4000);
    const std::u16string halves(50, u'\xD800');
    EXPECT_EQ(DrawTextW(s.dc, halves.data(), 50, &room, DT_SINGLELINE | DT_END_ELLIPSIS), 20);
    RECT none{5, 5, 5, 5};
    EXPECT_EQ(DrawTextW(s.dc, u"ab cd", -1, &none, DT_WORDBREAK | DT_EDITCONTROL | DT_END_ELLIPSIS) % 20, 0);
    EXPECT_EQ(DrawTextW(s.dc, nullptr, 3, &room, 0), 0);
    EXPECT_EQ(DrawTextW(s.dc, u"", 0, &room, 0), 0);
}

} // namespace
