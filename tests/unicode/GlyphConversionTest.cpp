#include "corekit/unicode/shaping/GlyphConversion.h"
#include "ShapingSteps.h"
#include "tests/support/TabbedCases.h"

#include "tests/support/CaseRows.h"
#include "tests/support/Digest.h"

#include <gtest/gtest.h>
#include <random>
#include <string>

namespace {

std::u16string Convert(const std::u16string& text, int length = -1)
{
    StringW glyphs;
    ConvertToGlyphs(text.c_str(), length, glyphs, false);
    return Units(glyphs);
}

TEST(GlyphConversion, ArabicLettersTakeTheFormsOfTheirPlaces)
{
    const auto cases = TabbedCases(TEST_DATA "/arabic_shaping.tsv");
    EXPECT_GT(cases.size(), 30U) << "the table was not read";
    for (const auto& fields : cases) EXPECT_EQ(Convert(FromHex(fields[0])), FromHex(fields[1])) << fields[0];
}

// The letters of the word rows crowd together here, with marks, tildes, joiners and zeros among them.
TEST(GlyphConversion, NoFormOfRandomTextsHasChanged)
{
    constexpr char16_t rows[] = {0x632, 0x645, 0x6D5,  0x631, 0x6CC, 0x643, 0x633, 0x62C,
                                 0x62A, 0x644, 0x67E,  0x626, 0x627, 0x623, 0x622, 0x6D2,
                                 0x64B, u'~',  0x200D, u' ',  0x628, 0x640, 0x670, 0xFFFF};
    std::mt19937 random(1234);
    Digest digest;
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
        digest.Add(Convert(text, length));
        digest.Add(Convert(text, length / 2));
    }
    EXPECT_EQ(digest.Value(), 0x397121E40BA96F1A);
}

TEST(GlyphConversion, NoFormOfAnyPairOfLettersHasChanged)
{
    Digest digest;
    for (int a = 0x600; a < 0x700; ++a)
        for (int b = 0x600; b < 0x700; ++b)
            digest.Add(Convert({static_cast<char16_t>(a), static_cast<char16_t>(b)}, 2));
    EXPECT_EQ(digest.Value(), 0x38B2D68A601C7BD2);
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

TEST(GlyphConversion, SpecialGlyphsStandForCodesOfTheAnsiPage)
{
    for (CaseRow row : CaseRows(TEST_DATA "/glyph_codes.tsv", "special")) {
        const WORD glyph = row.Number<WORD>();
        EXPECT_EQ(OldDumbMapSpecialGlyph(glyph), row.Number()) << row.Line();
    }
}

TEST(GlyphConversion, UrduGlyphsTurnBackIntoLetters)
{
    for (CaseRow row : CaseRows(TEST_DATA "/glyph_codes.tsv", "urdu")) {
        StringW out(u"before");
        const WCHAR text[] = {u'-', row.Number<WCHAR>(), 0};
        UrduIndicToUnicode(out, text, 1);
        EXPECT_EQ(Units(out), row.Units()) << row.Line();
    }
}

} // namespace
