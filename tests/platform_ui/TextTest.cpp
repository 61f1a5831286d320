// How text falls on pixels.
#include "Canvas.h"

#include <climits>
#include <random>

namespace {

constexpr UINT oneToOne = ETO_IGNORELANGUAGE;

int differing(const Canvas& a, const Canvas& b)
{
    const auto p = a.pixels(), q = b.pixels();
    int count = 0;
    for (std::size_t i = 0; i < p.size(); ++i)
        count += std::abs(static_cast<int>(p[i] & 0xFF) - static_cast<int>(q[i] & 0xFF)) > 8;
    return count;
}

TEST(TextOut, InkStaysInTheCell)
{
    for (const int em : {12, 24, 40, 96}) {
        Canvas c(1200, 300);
        c.use(latin, -em);
        const SIZE size = c.measure(u"Hamburg 123");
        ASSERT_TRUE(c.draw(u"Hamburg 123", 20, 30));
        const RECT ink = c.ink();
        EXPECT_GT(c.inkedPixels(), em * em / 2);
        EXPECT_GE(ink.left, 20);
        EXPECT_LE(ink.right, 20 + size.cx);
        EXPECT_GE(ink.top, 30);
        EXPECT_LE(ink.bottom, 30 + size.cy);
        EXPECT_GT(ink.right - ink.left, size.cx * 9 / 10);
    }
}

// Some faces have ink for the joiners that stand within Persian words.
TEST(TextOut, JoinersAndDirectionMarksShowNothingAndTakeNoRoom)
{
    for (const char* face : {"Amiri", latin}) {
        Canvas c;
        c.use(face, -40);
        EXPECT_EQ(c.measure(u"\u200B\u200C\u200D\u200E\u200F\u202C\uFEFF", oneToOne).cx, 0) << face;
        ASSERT_TRUE(c.draw(u"\u200B\u200C\u200D\u200E\u200F\u202C\uFEFF", 100, 20, oneToOne));
        EXPECT_EQ(c.inkedPixels(), 0) << face;
    }
}

struct Sample {
    const char* face;
    const char16_t* text;
    UINT options;
};
constexpr Sample samples[] = {
    {latin, u"Good (evening), 12:45", 0},
    {latin, u"Good (evening), 12:45", oneToOne},
    {latin, u"abc.", ETO_RTLREADING},
    {latin, u"e\u0301tude\tfi", 0},
    {hebrew, u"\u05E9\u05DC\u05D5\u05DD \u05E2\u05D5\u05DC\u05DD", 0},
    {hebrew, u" (\u05E9\u05DC\u05D5\u05DD) ", 0},
    {hebrew, u"\u05E9\u05B8\u05DC\u05D5\u05DD", 0},
    {arabic, u"\u0627\u0644\u0633\u0644\u0627\u0645 12", 0},
    {arabic, u"\u0627\u0644\u0633\u0644\u0627\u0645", ETO_RTLREADING},
    {arabic, u"\uFEE1\uFEFC\uFEB4\uFEDF\uFE8D", oneToOne},
    {devanagari, u"\u0939\u093F\u0928\u094D\u0926\u0940", 0},
    {devanagari, u"\u0939\u093F\u0928\u094D\u0926\u0940", oneToOne},
};

// The opaque mode paints the cell, so the picture itself shows what width the drawing took.
TEST(TextOut, MeasuredIsDrawn)
{
    for (const Sample& s : samples)
        for (const int height : {18, 24, -40}) {
            Canvas c(500);
            c.use(s.face, height);
            SetBkMode(c.dc, OPAQUE);
            SetBkColor(c.dc, RGB(255, 255, 255));
            const SIZE size = c.measure(s.text, s.options);
            const RECT clip{10, 10, 500, 10 + size.cy};
            ASSERT_TRUE(c.draw(s.text, 10, 10, s.options | ETO_CLIPPED, &clip));
            const RECT cell = c.ink();
            EXPECT_EQ(cell.left, 10);
            EXPECT_NEAR(cell.right, 10 + size.cx, 2) << "overhang of the last glyph aside";
            EXPECT_GE(cell.right, 10 + size.cx);
            EXPECT_EQ(cell.bottom - cell.top, size.cy);
        }
}

TEST(TextOut, WidthsAddUpAcrossCalls)
{
    for (const Sample& s : samples) {
        if (s.options != oneToOne) continue;
        Canvas c;
        c.use(s.face, 24);
        const std::u16string_view text = s.text;
        int sum = 0;
        for (const char16_t& unit : text) sum += c.measure({&unit, 1}, oneToOne).cx;
        EXPECT_NEAR(sum, c.measure(text, oneToOne).cx, static_cast<int>(text.size() + 1) / 2);
        const auto cut = text.size() / 2;
        EXPECT_NEAR(c.measure(text.substr(0, cut), oneToOne).cx + c.measure(text.substr(cut), oneToOne).cx,
                    c.measure(text, oneToOne).cx, 1);
    }
}

TEST(TextOut, ClipCutsThePictureAndNothingElse)
{
    for (const Sample& s : samples) {
        Canvas whole;
        whole.use(s.face, 40);
        whole.draw(s.text, 15, 20, s.options);
        std::mt19937 random(7);
        for (int round = 0; round < 12; ++round) {
            const auto pick = [&](int limit) {
                return static_cast<LONG>(random() % static_cast<unsigned>(limit)) - 20;
            };
            const LONG left = pick(400), top = pick(120);
            const RECT clip{left, top, left + pick(200), top + pick(100)};
            Canvas c;
            c.use(s.face, 40);
            c.draw(s.text, 15, 20, s.options | ETO_CLIPPED, &clip);
            int wrong = 0;
            for (int y = 0; y < 120; ++y)
                for (int x = 0; x < 400; ++x) {
                    const bool inside = x >= clip.left && x < clip.right && y >= clip.top && y < clip.bottom;
                    wrong += c.at(x, y) != (inside ? whole.at(x, y) : 0);
                }
            EXPECT_EQ(wrong, 0);
        }
    }
}

TEST(TextOut, AnyPositionAndAnyUnitsAreSafe)
{
    constexpr int edges[] = {INT_MIN, INT_MIN + 1, -100000, -50, 0, 390, 100000, INT_MAX - 1, INT_MAX};
    std::mt19937 random(11);
    Canvas c;
    for (const char* face : {latin, arabic, devanagari}) {
        c.use(face, 30, {.underline = 1, .strikeOut = 1});
        SetBkMode(c.dc, OPAQUE);
        for (const int x : edges)
            for (const int y : edges) {
                const RECT rect{x, y, y, x};
                EXPECT_TRUE(c.draw(u"Wg\u0928\u0645", x, y, ETO_OPAQUE, &rect));
            }
        for (int round = 0; round < 200; ++round) {
            std::u16string text(random() % 40, u' ');
            for (char16_t& unit : text) unit = static_cast<char16_t>(random() >> (random() % 12));
            const UINT options = (random() & ETO_RTLREADING) | (random() & oneToOne);
            EXPECT_GE(c.measure(text, options).cx, 0);
            EXPECT_TRUE(c.draw(text, 5, 5, options));
        }
    }
}

TEST(TextOut, OpaqueFillsExactlyTheRectangle)
{
    Canvas c;
    SetBkColor(c.dc, RGB(1, 2, 3));
    const RECT rect{33, 17, 101, 59};
    ASSERT_TRUE(ExtTextOutW(c.dc, 0, 0, ETO_OPAQUE, &rect, nullptr, 0));
    EXPECT_EQ(c.inkedPixels(), 68 * 42);
    EXPECT_EQ(c.at(33, 17), 0xFF010203u);
    EXPECT_EQ(c.at(100, 58), 0xFF010203u);
    EXPECT_EQ(c.at(101, 58), 0u);
}

TEST(TextOut, ColourIsExactWhereCoverageIsFullAndBetweenElsewhere)
{
    Canvas c;
    c.use(latin, 80, {.weight = 700});
    const RECT all{0, 0, 400, 120};
    SetBkColor(c.dc, RGB(200, 100, 50));
    SetTextColor(c.dc, RGB(10, 20, 250));
    ASSERT_TRUE(c.draw(u"IOX", 10, 10, ETO_OPAQUE, &all));
    int full = 0, mixed = 0;
    for (const std::uint32_t p : c.pixels()) {
        EXPECT_EQ(p >> 24, 0xFFu);
        const auto red = p >> 16 & 0xFF, green = p >> 8 & 0xFF, blue = p & 0xFF;
        full += p == 0xFF0A14FA;
        mixed += p != 0xFF0A14FA && p != 0xFFC86432;
        EXPECT_TRUE(red >= 10 && red <= 200 && green >= 20 && green <= 100 && blue >= 50 && blue <= 250);
    }
    EXPECT_GT(full, 500);
    EXPECT_GT(mixed, 50);
}

TEST(TextOut, AlignmentMovesThePicture)
{
    struct Case {
        UINT align;
        double across, down; // share of the cell that lies before the reference point; down -1 is the ascent
    };
    Canvas plain;
    plain.use(latin, 30);
    plain.draw(u"Align", 200, 60);
    const RECT base = plain.ink();
    const SIZE size = plain.measure(u"Align");
    TEXTMETRICA metrics;
    GetTextMetricsA(plain.dc, &metrics);
    for (const Case& k :
         {Case{TA_RIGHT, 1, 0}, {TA_CENTER, 0.5, 0}, {TA_BOTTOM, 0, 1}, {TA_BASELINE | TA_RIGHT, 1, -1}}) {
        Canvas c;
        c.use(latin, 30);
        EXPECT_EQ(SetTextAlign(c.dc, k.align), TA_LEFT | TA_TOP);
        c.draw(u"Align", 200, 60);
        const int down = k.down < 0 ? metrics.tmAscent : static_cast<int>(k.down * size.cy);
        EXPECT_EQ(c.ink().left, base.left - static_cast<int>(k.across * size.cx)) << k.align;
        EXPECT_EQ(c.ink().top, base.top - down) << k.align;
    }
}

// Vowel sign i is written after its consonant and drawn before it.
TEST(Shaping, DevanagariReordersUnlessOneToOne)
{
    Canvas shaped, single, swapped;
    for (Canvas* c : {&shaped, &single, &swapped}) c->use(devanagari, -60);
    shaped.draw(u"\u0915\u093F", 50, 10);
    single.draw(u"\u0915\u093F", 50, 10, oneToOne);
    swapped.draw(u"\u093F\u0915", 50, 10, oneToOne);
    EXPECT_LT(differing(shaped, swapped), differing(shaped, single) / 3);
}

// A direction mark draws nothing and sends the run to the layout; the picture must not depend on the road.
TEST(Shaping, GlyphByGlyphAgreesWithTheLayout)
{
    const Sample cases[] = {{hebrew, u"\u05E9\u05DC\u05D5\u05DD \u05E2\u05D5\u05DC\u05DD", 0},
                            {hebrew, u" - \u05E9\u05DC\u05D5\u05DD - ", 0},
                            {hebrew, u"\u05E9\u05DC\u05D5\u05DD!", ETO_RTLREADING},
                            {"DejaVu Sans", u"\u05E9(\u05DC\u05D5)\u05DD", 0},
                            {"DejaVu Sans", u"(\u05E9\u05DC)", 0},
                            {"DejaVu Sans", u"!<", ETO_RTLREADING},
                            {latin, u"Hamburg 12:45", 0},
                            {latin, u"e\u0301tude (n\u0303\u0323o)", 0},
                            {latin, u"\u0301a", 0},
                            {latin, u"of\u200Cfi\u200Dce \u200C", 0},
                            {hebrew, u"\u05E9\u200C\u05DC \u05D5\u200D\u05DD\u200C", 0},
                            {hebrew, u"\u05E9\u05C1\u05B8\u05DC\u05D5\u05B9\u05DD", 0},
                            {hebrew, u"\u05E9\u05B8\u05DC - \u05D5\u05B9\u05DD\u05B8!", ETO_RTLREADING},
                            {"DejaVu Sans", u"- (\u05E9\u05B8\u05DC\u05BC) -", 0}};
    for (const Sample& s : cases) {
        Canvas fast, laidOut;
        fast.use(s.face, -40);
        laidOut.use(s.face, -40);
        fast.draw(s.text, 10, 10, s.options);
        // Marks of the base direction at both ends leave the order as it is.
        const char16_t* const mark = s.options ? u"\u200F" : u"\u200E";
        const std::u16string marked = mark + std::u16string(s.text) + mark;
        laidOut.draw(marked, 10, 10, s.options);
        EXPECT_EQ(fast.measure(s.text, s.options).cx, laidOut.measure(marked, s.options).cx);
        EXPECT_LT(differing(fast, laidOut), fast.inkedPixels() / 50 + 1)
            << ::testing::PrintToString(std::u16string(s.text));
    }
}

TEST(Shaping, BaseDirectionPlacesTheFullStop)
{
    Canvas left, right;
    left.use(latin, 40);
    right.use(latin, 40);
    left.draw(u"HH.", 10, 10);
    right.draw(u"HH.", 10, 10, ETO_RTLREADING);
    const auto letterTopAt = [](const Canvas& c, int x) {
        for (int y = 0; y < 30; ++y)
            if (c.at(x, y)) return true;
        return false;
    };
    EXPECT_TRUE(letterTopAt(left, left.ink().left + 2));
    EXPECT_FALSE(letterTopAt(right, right.ink().left + 1));
}

// The joining stroke runs through five glyphs; no column of it may be lighter where one ends and the next
// begins.
TEST(Shaping, JoinedGlyphsHaveNoSeam)
{
    for (const int em : {17, 18, 19, 24, 33, 40, 96})
        for (const char* face : {arabic, "Noto Naskh Arabic", "DejaVu Sans"})
            for (const UINT options : {UINT{0}, oneToOne}) {
                Canvas c(600, 300);
                c.use(face, -em);
                c.draw(u"\u0640\u0640\u0640\u0640\u0640", 20, 10, options);
                const RECT ink = c.ink();
                ASSERT_GT(ink.right, ink.left + em / 2);
                std::uint32_t weakest = UINT_MAX, strongest = 0;
                for (int x = ink.left + em / 8 + 1; x < ink.right - em / 8 - 1; ++x) {
                    std::uint32_t column = 0;
                    for (int y = ink.top; y < ink.bottom; ++y) column += c.at(x, y) & 0xFF;
                    weakest = std::min(weakest, column);
                    strongest = std::max(strongest, column);
                }
                EXPECT_LE(strongest - weakest, 40u) << face << ' ' << em << ' ' << options;
            }
}

TEST(TextOut, UnitsWithoutAGlyphShowTheMissingOne)
{
    Canvas a, b;
    a.use(devanagari, 40);
    b.use(devanagari, 40);
    a.draw(u"\u4E00", 10, 10);
    const char16_t lone = 0xD800;
    b.draw({&lone, 1}, 10, 10, oneToOne);
    EXPECT_GT(a.inkedPixels(), 50);
    EXPECT_EQ(a.pixels(), b.pixels());
    EXPECT_GT(a.measure(u"\u4E00").cx, 10);
}

TEST(TextOut, ControlsTakeTheRoomOfABlankInLaidOutText)
{
    Canvas c;
    c.use(latin, 24);
    for (const char16_t* text : {u"a\tb", u"a\nb", u"a\u2028b"})
        EXPECT_EQ(c.measure(text).cx, c.measure(u"a b").cx);
}

TEST(TextOut, DistancesPlaceTheUnits)
{
    Canvas c;
    c.use(latin, 24);
    const int distances[] = {100, 50};
    ASSERT_TRUE(ExtTextOutW(c.dc, 0, 0, 0, nullptr, u"ll", 2, distances));
    Canvas one;
    one.use(latin, 24);
    one.draw(u"l", 0, 0);
    EXPECT_EQ(c.ink().left, one.ink().left);
    EXPECT_EQ(c.ink().right, one.ink().right + 100);
}

TEST(TextOut, GlyphsTooLargeToKeepAreDrawnWhereSeen)
{
    Canvas c;
    c.use(latin, -4000, {.weight = 700});
    c.draw(u"I", -300, -2000);
    EXPECT_EQ(c.at(200, 60), 0xFFFFFFFFu);
    Canvas d;
    d.use(latin, -4000);
    d.draw(u" ", 0, 0);
    EXPECT_EQ(d.inkedPixels(), 0);
}

TEST(TextOut, OverlongTextIsRefused)
{
    Canvas c;
    c.use(latin, 10);
    SIZE size;
    const std::u16string longest(65535, u'x'), over(65536, u'x'), complex(8193, u'\u0628');
    EXPECT_TRUE(GetTextExtentPoint32W(c.dc, longest.data(), 65535, &size));
    EXPECT_GT(size.cx, 65535 * 3);
    EXPECT_FALSE(GetTextExtentPoint32W(c.dc, over.data(), 65536, &size));
    EXPECT_FALSE(c.draw(complex, 0, 0));
    EXPECT_TRUE(c.draw(complex, 0, 0, oneToOne));
    EXPECT_FALSE(ExtTextOutW(c.dc, 0, 0, 0, nullptr, u"x", 0xFFFFFFFF));
    EXPECT_FALSE(GetTextExtentPoint32W(c.dc, u"x", -1, &size));
}

} // namespace
