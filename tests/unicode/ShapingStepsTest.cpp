#include "ShapingSteps.h"
#include "corekit/unicode/shaping/GlyphConversion.h"
#include "tests/support/CaseRows.h"
#include "tests/support/TabbedCases.h"

#include <gtest/gtest.h>
#include <map>
#include <random>
#include <vector>

namespace {

std::u16string Convert(const std::u16string& text, int length = -1)
{
    StringW glyphs;
    ConvertToGlyphs(text.c_str(), length, glyphs, false);
    return Units(glyphs);
}

class StepsFromTheTable : public testing::TestWithParam<const char*> {};

// A step takes exactly the characters of its piece of the line, and one conversion gives all pieces.
TEST_P(StepsFromTheTable, EachStepTakesAndGivesWhatTheTableSays)
{
    const auto cases = TabbedCases(std::string(TEST_DATA "/") + GetParam());
    ASSERT_GT(cases.size(), 50U) << "the table was not read";
    for (const auto& fields : cases) {
        ASSERT_GE(fields.size(), 2U);
        const auto pieces = Split(fields[0], '/'), given = Split(fields[1], '/');
        ASSERT_EQ(pieces.size(), given.size()) << fields[0];
        std::u16string text, glyphs;
        for (const std::string& piece : pieces) text += FromHex(piece);
        int index = 0, taken = 0;
        for (std::size_t i = 0; i < pieces.size(); ++i) {
            const std::u16string expected = FromHex(given[i]);
            EXPECT_EQ(TakeShapingStep(text.c_str(), index), expected) << fields[0] << ", piece " << i + 1;
            EXPECT_EQ(index, taken += static_cast<int>(FromHex(pieces[i]).size())) << fields[0];
            glyphs += expected;
        }
        EXPECT_EQ(Convert(text), glyphs) << fields[0];
    }
}

INSTANTIATE_TEST_SUITE_P(Indic, StepsFromTheTable,
                         testing::Values("bengali_shaping.tsv", "devanagari_shaping.tsv",
                                         "tamil_shaping.tsv"));

// Letters, joiners and marks of all blocks crowd together, with what belongs to none among them.
std::u16string RandomText(std::mt19937& random)
{
    constexpr char16_t often[] = {0x094D, 0x0930, 0x0902, 0x093C, 0x093F, 0x0915, 0x0BCD, 0x0B95, 0x0BB7,
                                  0x0BB0, 0x0BC0, 0x0BBE, 0x09CD, 0x09B0, 0x09A9, 0x09AF, 0x09D5, 0x099B,
                                  0x0644, 0x0627, u' ',   0xD800, 0xDC00, 0xFFFF, 0xE2FF, 0xE045};
    std::u16string text;
    for (unsigned length = random() % 20; text.size() < length;) {
        const ShapingStep& block = shapingSteps[random() % std::size(shapingSteps)];
        text += random() % 2
                    ? often[random() % std::size(often)]
                    : static_cast<char16_t>(block.first + random() % (block.last - block.first + 1U));
    }
    return text;
}

TEST(ShapingSteps, OneCallGivesTheSameAsAllSteps)
{
    std::mt19937 random(77);
    for (int round = 0; round < 50000; ++round) {
        const std::u16string text = RandomText(random);
        const int length = static_cast<int>(text.size()), half = length / 2;
        std::u16string whole, prefix;
        for (int index = 0; index < length;) {
            const int from = index;
            const std::u16string glyphs = TakeShapingStep(text.c_str(), index);
            ASSERT_GT(index, from) << testing::PrintToString(text);
            whole += glyphs;
            if (from < half) prefix += glyphs;
        }
        ASSERT_EQ(Convert(text), whole) << testing::PrintToString(text);
        ASSERT_EQ(Convert(text, half), prefix) << testing::PrintToString(text);
    }
}

TEST(ShapingSteps, AnIndexOutsideTheTextGivesNothing)
{
    const std::u16string text = u"\u0915\u0BBE";
    for (const ShapingStep& step : shapingSteps)
        for (int index : {-1, 2, 3}) {
            StringW out(u"x");
            const int from = index;
            step.take(out, text.c_str(), index);
            EXPECT_EQ(index, from + 1);
            EXPECT_EQ(Units(out), u"x");
        }
}

// Behind a zero within the length the text ends where the length does: nothing follows to shape by.
TEST(ShapingSteps, TextBehindAZeroEndsWithTheLength)
{
    const char16_t text[] = {u'a', 0, 0x0915, 0x094D, 0x0937, 0x0BA8, 0x0B82};
    StringW glyphs;
    ConvertToGlyphs(text, 4, glyphs, false);
    EXPECT_EQ(Units(glyphs), std::u16string(u"a\0\uE045\uE0C2\uE0F2", 5));
    ConvertToGlyphs(text + 1, 6, glyphs = StringW(), false);
    EXPECT_EQ(Units(glyphs), std::u16string(u"\0\uE043\uE0B9\uE0C9\uE2EF\u0020\u0020", 7))
        << "Tamil signs are looked for up to the zero only";
}

TEST(ShapingSteps, CostsAreLinearOnHostileTexts)
{
    for (const std::u16string pattern :
         {u"\u0902", u"\u0915\u0902", u"\u0915\u094D", u"\u094D", u"\u0930\u094D\u0915\u0902\u093F",
          u"\u0BBE", u"\u0B95\u0BCD\u0BB7\u0BCB", u"\u0934\u0949", u"\u099F", u"\u0980\u09CC",
          u"\u0995\u09CD\u09B7\u09CD", u"\u099B\u09CD"}) {
        std::u16string text;
        while (text.size() < 500'000) text += pattern;
        EXPECT_LE(Convert(text).size(), 4 * text.size());
    }
}

TEST(TamilGlyphs, SignsTakeTheGlyphOfTheirConsonant)
{
    EXPECT_EQ(TamilBaseGlyph(0x0020), 0x0020);
    EXPECT_EQ(TamilBaseGlyph(0x0B96), 0);
    EXPECT_EQ(TamilSignIGlyph(0x0B95), 0xE241);
    EXPECT_EQ(TamilSignIIGlyph(0x0BB9), 0xE271);
    EXPECT_EQ(TamilSignUGlyph(0x0B9C), 0);
    EXPECT_EQ(TamilSignUUGlyph(0x0BA9), 0xE2DB);
    EXPECT_EQ(TamilViramaGlyph(0x0BB1), 0xE29F);
    EXPECT_EQ(TamilAnusvaraGlyph(0x0BAF), 0xE2D0);

    StringW out;
    int index = 5;
    EXPECT_FALSE(ConvertTamilConsonantSign(0x0B95, 0x0B95, 0, 0, out, index));
    EXPECT_FALSE(ConvertTamilConsonantSign(0x0B96, 0x0BBE, 0, 0, out, index));
    EXPECT_FALSE(ConvertTamilConsonantSign(0x0B95, 0, 0x0BBE, 0, out, index));
    EXPECT_EQ(index, 5);
    EXPECT_TRUE(ConvertTamilConsonantSign(0x0020, 0x0BCC, 0, 0, out, index));
    EXPECT_EQ(index, 7);
    EXPECT_EQ(Units(out), u"\uE2AA \uE2F7");
    ConvertTamilKssaSign(0x0B82, out = StringW(), index);
    EXPECT_EQ(index, 10);
    ConvertTamilKssaSign(0x0BCA, out, index);
    EXPECT_EQ(index, 14);
    EXPECT_EQ(Units(out), u"\uE2FE\uE2AA\uE2FE\uE2A3");
}

TEST(BengaliCluster, LeavesSignsAndLowerLettersToTheSyllable)
{
    const auto cluster = [](const char16_t* text, int index, int next) {
        StringW out;
        ConvertBengaliCluster(out, text, index);
        EXPECT_EQ(index, next);
        return Units(out);
    };
    EXPECT_EQ(cluster(u"\u0995\u09CB", 0, 1), u"\uE14B\uE19A");
    EXPECT_EQ(cluster(u"\u0995\u09CB", 1, 2), u"\uE109\uE176") << "always as at a word's start";
    EXPECT_EQ(cluster(u"\u09A0\u09CD\u09AF", 0, 1), u"\uE156");
    EXPECT_EQ(cluster(u"\u0995\u09CD\u0995\u09BF", 0, 3), u"\uE1B0");
    EXPECT_EQ(cluster(u"A", 0, 1), u"");
}

// The letter that cha and virama take may be the end of the text, behind which nothing is to be read.
TEST(BengaliCluster, ChaAndViramaTakeTheEndToo)
{
    const std::vector<char16_t> text = {0x099B, 0x09CD, 0};
    StringW out;
    int index = 0;
    ConvertBengaliSyllable(out, text.data(), index);
    EXPECT_EQ(index, 3);
    EXPECT_EQ(Units(out), u"\uE151\uE126\uE19A");
    EXPECT_EQ(Convert(u"\u099B\u09CD"), u"\uE151\uE126\uE19A");

    const char16_t behindZero[] = {0x099B, 0x09CD, 0, 0x09BF, 0x0995};
    ConvertToGlyphs(behindZero, 5, out = StringW(), false);
    EXPECT_EQ(Units(out), u"\uE151\uE126\uE19A\uE177\uE14B\uE19A") << "what comes behind a zero is its own";
}

TEST(LetterClasses, EndWhereTheirRangesEnd)
{
    const std::map<std::string, bool (*)(WORD)> classes = {
        {"Devanagari consonant", [](WORD c) { return bool(IsDevanagariConsonant(c)); }},
        {"Devanagari matra", [](WORD c) { return bool(IsDevanagariMatra(c)); }},
        {"Bengali consonant", [](WORD c) { return bool(IsBengaliConsonant(c)); }},
    };
    for (CaseRow row : CaseRows(TEST_DATA "/letter_classes.tsv")) {
        const auto isOne = classes.at(row.Word());
        const WORD c = row.Number<WORD>();
        EXPECT_EQ(isOne(c), row.Number() != 0) << row.Line();
    }
}

} // namespace
