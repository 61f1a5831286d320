#include "corekit/unicode/shaping/GlyphConversion.h"
#include "ShapingSteps.h"
#include "tests/support/TabbedCases.h"

#include "corekit/unicode/tables/ArabicJoiningClasses.h"

#include <gtest/gtest.h>
#include <random>
#include <string>

namespace {

using Classes = CArabicJoiningClasses;

std::u16string Convert(const std::u16string& text, int length = -1)
{
    StringW glyphs;
    ConvertToGlyphs(text.c_str(), length, glyphs, false);
    return Units(glyphs);
}

TEST(GlyphConversion, CasesFromTheTable)
{
    const auto cases = TabbedCases(TEST_DATA "/arabic_shaping.tsv");
    EXPECT_GT(cases.size(), 30U) << "the table was not read";
    for (const auto& fields : cases) EXPECT_EQ(Convert(FromHex(fields[0])), FromHex(fields[1])) << fields[0];
}

// The step done plainly, by the joining classes and with a fresh search for every neighbour.
class StepByStep {
public:
    explicit StepByStep(const std::u16string& text) : m_text(text), m_end(static_cast<int>(text.find(u'\0')))
    {
        if (m_end < 0) m_end = static_cast<int>(text.size());
    }

    std::u16string Convert(int length) const
    {
        std::u16string out;
        for (int i = 0; i < length;) {
            if (m_text[i] < 0x0600 || m_text[i] > 0x06FF) {
                out += m_text[i++];
            } else {
                Step(out, i);
            }
        }
        return out;
    }

private:
    WORD Forward(int i) const
    {
        for (; i < m_end; ++i)
            if (!Classes::IsTransparent(m_text[i])) return m_text[i];
        return 0xFFFF;
    }
    WORD Backward(int i) const
    {
        for (; i >= 0; --i)
            if (!Classes::IsTransparent(m_text[i])) return m_text[i];
        return 0xFFFF;
    }

    void Step(std::u16string& out, int& i) const
    {
        const WORD cur = m_text[i], next = Forward(i + 1), next2 = Forward(i + 2), next3 = Forward(i + 3);
        const WORD prev = Backward(i - 1), prev2 = Backward(i - 2);
        const bool joined = next != 0xFFFF && Classes::IsLeftJoinCausing(next);
        const auto row = [&](std::u16string_view glyphs, int advance) {
            out += glyphs;
            i += advance;
        };
        const auto ligature = [&](char16_t alone) {
            row(std::u16string(1, static_cast<char16_t>(alone + joined)), 1);
        };
        if (prev2 == 0x632 && prev == 0x645 && cur == 0x6D5) return row(u"\uFBA8", 3);
        if (cur == 0x631 && next == 0x6D5 && next2 == 0x645) return row(u"\uFEAE\uFBA8\uFEE3", 3);
        if (cur == 0x6CC && next == 0x643) return row(u"\u06CC\uFE80", 2);
        if (cur == 0x6CC && next == 0x633 && next2 == 0x6CC && next3 == 0x62C)
            return row(u"\uFBFD\uFEB3\uFE9F", 4);
        if (cur == 0x6D5 && next == 0x6CC) return row(u"\uFBFF", 2);
        if (cur == 0x6D5 && prev == 0x62A) return row(u"\uFBA8", 1);
        if (cur == 0x644 && next == 0x6D5 && next2 == 0x67E) return row(u"\u0644\uFBA8\uFB58", 3);
        if (cur == 0x644 && prev == 0x626) return ligature(0xFEF9);
        if (cur == 0x644 && prev == 0x627) return ligature(0xFEFB);
        if (cur == 0x644 && prev == 0x623) return ligature(0xFEF7);
        if (cur == 0x644 && prev == 0x622) return ligature(0xFEF5);
        if (cur == 0x627 && next == 0x6D2) return row(u"\uFE8E", 2);
        if ((cur == 0x627 || cur == 0x623 || cur == 0x622 || cur == 0x626) && next == 0x644)
            return row(u"", 1);
        out += Form(cur, next, prev);
        ++i;
    }

    static char16_t Form(WORD cur, WORD next, WORD prev)
    {
        const bool right = next != 0xFFFF && Classes::IsLeftJoinCausing(next),
                   left = Classes::IsJoinCausing(prev);
        if (Classes::IsRightJoining(cur)) return right ? Classes::RightForm(cur) : Classes::NominalForm(cur);
        if (!Classes::IsDualJoining(cur)) return Classes::NominalForm(cur);
        if (next == 0xFFFF) return left ? Classes::LeftForm(cur) : Classes::NominalForm(cur);
        if (prev == 0xFFFF) return right ? Classes::RightForm(cur) : Classes::NominalForm(cur);
        if (right && left) return Classes::MedialForm(cur);
        if (right) return Classes::RightForm(cur);
        return left ? Classes::LeftForm(cur) : Classes::NominalForm(cur);
    }

    std::u16string m_text;
    int m_end;
};

// The letters of the word rows crowd together here, with marks, tildes, joiners and zeros among them.
TEST(GlyphConversion, RandomTextsConvertAsStepByStep)
{
    constexpr char16_t rows[] = {0x632, 0x645, 0x6D5,  0x631, 0x6CC, 0x643, 0x633, 0x62C,
                                 0x62A, 0x644, 0x67E,  0x626, 0x627, 0x623, 0x622, 0x6D2,
                                 0x64B, u'~',  0x200D, u' ',  0x628, 0x640, 0x670, 0xFFFF};
    std::mt19937 random(1234);
    for (int round = 0; round < 60000; ++round) {
        std::u16string text;
        const unsigned kinds = 2 + random() % std::size(rows), first = random() % std::size(rows);
        for (unsigned length = random() % 24; text.size() < length;) {
            const unsigned pick = random() % 16;
            text += pick == 0                        ? static_cast<char16_t>(0x600 + random() % 256)
                    : pick == 1 && random() % 8 == 0 ? u'\0'
                                                     : rows[(first + random() % kinds * 7) % std::size(rows)];
        }
        const int length = static_cast<int>(text.size());
        const StepByStep expected(text);
        ASSERT_EQ(Convert(text, length), expected.Convert(length)) << testing::PrintToString(text);
        ASSERT_EQ(Convert(text, length / 2), expected.Convert(length / 2)) << testing::PrintToString(text);
    }
}

TEST(GlyphConversion, EveryPairOfTheBlockConvertsAsStepByStep)
{
    for (int a = 0x600; a < 0x700; ++a)
        for (int b = 0x600; b < 0x700; ++b) {
            const std::u16string text{static_cast<char16_t>(a), static_cast<char16_t>(b)};
            ASSERT_EQ(Convert(text, 2), StepByStep(text).Convert(2)) << std::hex << a << ' ' << b;
        }
}

TEST(GlyphConversion, APrefixIsShapedByWhatFollowsIt)
{
    EXPECT_EQ(Convert(u"\u0628\u0628", 1), u"\uFE90");
    EXPECT_EQ(Convert(u"\u0631\u06D5\u0645", 1), u"\uFEAE\uFBA8\uFEE3") << "a row passes the length";
}

TEST(GlyphConversion, AppendsUnlessTheSystemShapes)
{
    StringW glyphs(u"x");
    ConvertToGlyphs(u"\u0628", -1, glyphs, false);
    ConvertToGlyphs(u"", -1, glyphs, false);
    ConvertToGlyphs(u"abc", 0, glyphs, false);
    EXPECT_EQ(Units(glyphs), u"x\uFE8F");
    ConvertToGlyphs(u"\u0628\u0628", 1, glyphs, true);
    EXPECT_EQ(Units(glyphs), u"\u0628\u0628");
}

TEST(GlyphConversion, TextMayLieInTheOutput)
{
    for (const bool locked : {false, true}) {
        StringW glyphs(u"ab\u0628\u0628");
        const StringW other(glyphs);
        if (locked) glyphs.LockBuffer();
        for (int round = 0; round < 4; ++round)
            ConvertToGlyphs(static_cast<const WCHAR*>(glyphs) + 2, 2, glyphs, false);
        EXPECT_EQ(Units(glyphs), u"ab\u0628\u0628\uFE90\uFE91\uFE90\uFE91\uFE90\uFE91\uFE90\uFE91");
        EXPECT_EQ(Units(other), u"ab\u0628\u0628");
    }
}

TEST(GlyphConversion, SingleStepsGiveTheSameAsTheWalk)
{
    const char16_t* text = u"\u0627\u0644\u064B\u0628\u0631\u06D5\u0645 \u0628";
    StringW glyphs;
    int index = 0;
    while (text[index]) ConvertArabicGlyphs(glyphs, text, index);
    EXPECT_EQ(Units(glyphs), Convert(text));
    ConvertArabicGlyphs(glyphs, text, ++index);
    EXPECT_EQ(Units(glyphs), Convert(text)) << "read behind the end";
}

// Each of these takes hours where every letter searches a whole run of marks.
TEST(GlyphConversion, CostsAreLinearOnHostileTexts)
{
    for (const std::u16string pattern :
         {u"\u064B", u"~", u"\u064B~", u"\u0644", u"\u0627\u0644", u"\u0631\u06D5\u064B"}) {
        std::u16string text = u"\u0628";
        while (text.size() < 500'000) text += pattern;
        text += u'\u0628';
        EXPECT_LE(Convert(text).size(), text.size());
    }
}

TEST(GlyphConversion, SpecialGlyphs)
{
    const struct {
        WORD glyph, result;
    } cases[] = {{0xE045, 0x45},   {0xE1FF, 0xFF},   {0xE241, 0x41},   {0xE282, 0x201A}, {0xE280, 0xE280},
                 {0xE28D, 0xE28D}, {0xE29D, 0xE29D}, {0xE29F, 0x0178}, {0xE2A0, 0xA0},   {0xE27F, 0x7F},
                 {0xE3FF, 0xFF},   {0xE400, 0xE400}, {0xDFFF, 0xDFFF}, {0x0041, 0x0041}};
    for (const auto& t : cases) EXPECT_EQ(OldDumbMapSpecialGlyph(t.glyph), t.result) << std::hex << t.glyph;
}

TEST(GlyphConversion, UrduIndicText)
{
    const struct {
        WCHAR c;
        const char16_t* text;
    } cases[] = {{0xE301, u"\u0642"},       {0xE319, u"\u060E"}, {0xE358, u"\u0626\u06CC"},
                 {0xE35F, u"\u0627\u0626"}, {0xE360, u"\u0622"}, {0xE300, u"\uE300"},
                 {0xE361, u"\uE361"},       {u'a', u"a"}};
    for (const auto& t : cases) {
        StringW out(u"before");
        const WCHAR text[] = {u'-', t.c, 0};
        UrduIndicToUnicode(out, text, 1);
        EXPECT_EQ(Units(out), t.text) << std::hex << int{t.c};
    }
}

} // namespace
