#include "corekit/unicode/bidi/ReorderToVisual.h"
#include "corekit/unicode/bidi/MirrorBrackets.h"

#include "corekit/unicode/tables/UnicodeCharTypes.h"
#include "tests/support/CaseRows.h"
#include "tests/support/Digest.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <random>
#include <string>
#include <vector>

namespace {

// Reorders a line, and adds the line that is drawn and what else comes of it.
void AddReordered(Digest& digest, const std::u16string& line, int base)
{
    static CArray<int, int> order, types; // kept, so that sizes go up and down
    StringW text(line.data(), static_cast<int>(line.size()));
    const StringW shared(text);
    ReorderToVisual(text, order, types, base);
    ASSERT_EQ(order.GetSize(), static_cast<int>(line.size()));
    ASSERT_EQ(types.GetSize(), static_cast<int>(line.size()));
    ASSERT_EQ(std::u16string(shared, static_cast<std::size_t>(shared.GetLength())), line);
    digest.Add(std::u16string_view(text, static_cast<std::size_t>(text.GetLength())));
    for (int i = 0; i < order.GetSize(); ++i) digest.Add(order[i] * 16 + types[i]);
}

// A few characters of each type, those of the two strong types more than once.
constexpr char16_t letters[] = {u'a',   u'B', 0x0915, 0x05D0, 0x0628, 0xE301, u'1',   u'7', 0x06F4,
                                u'.',   u'/', u'%',   u'$',   0x0661, 0x066B, u',',   u':', u' ',
                                0x2003, u'!', u'\t',  0x2028, 0x4E01, 0x200F, 0xE000, u'\0'};

TEST(ReorderToVisual, LinesAreDrawnAsTheTableSays)
{
    for (CaseRow row : CaseRows(TEST_DATA "/reordering.tsv", "order")) {
        const int base = row.Number();
        StringW text(row.Units().c_str());
        CArray<int, int> order, types;
        ReorderToVisual(text, order, types, base);
        EXPECT_EQ(std::u16string(text), row.Units()) << row.Line();
    }
}

TEST(ReorderToVisual, EveryShortLineOfTypesKeepsItsOrder)
{
    Digest digest;
    constexpr char16_t one[] = {u'a', 0x05D0, u'1', u'.', u'%', 0x0661, u',', 0x2028, u' ', u'!', 0x4E01};
    constexpr int kinds = std::size(one);
    for (int length = 1, lines = kinds; length <= 4; ++length, lines *= kinds)
        for (int n = 0; n < lines; ++n) {
            std::u16string line;
            for (int rest = n, k = 0; k < length; ++k, rest /= kinds) line += one[rest % kinds];
            AddReordered(digest, line, 0);
            AddReordered(digest, line, 1);
        }
    EXPECT_EQ(digest.Value(), 0x38DD1643826526DB);
}

TEST(ReorderToVisual, RandomLinesOfAllTypesKeepTheirOrder)
{
    Digest digest;
    std::mt19937 random(4711);
    for (int round = 0; round < 20000; ++round) {
        // Lines from a part of the letters meet the rules that lines from all of them seldom meet.
        const std::size_t first = random() % std::size(letters), kinds = 1 + random() % 8;
        std::u16string line;
        for (std::size_t length = random() % 65; line.size() < length;) {
            const char16_t c = letters[(first + random() % kinds * 5) % std::size(letters)];
            line.append(1 + (random() % 4 == 0 ? random() % 9 : 0), c);
        }
        if (line.empty()) continue;
        for (const int base : {0, 1, 2, 7}) AddReordered(digest, line, base);
    }
    EXPECT_EQ(digest.Value(), 0xA9AF61709A2168B9);
}

TEST(ReorderToVisual, EveryCharacterKeepsItsOrder)
{
    Digest digest;
    for (int c = 0; c < 0x10000; ++c) {
        AddReordered(digest, std::u16string(3, static_cast<char16_t>(c)), c & 1);
        AddReordered(digest, {u'a', static_cast<char16_t>(c), u'b', u' ', u'c', u'd', u'e', u'f', u'g'}, 0);
    }
    EXPECT_EQ(digest.Value(), 0xE5A4E82AE0161BEC);
}

TEST(ReorderToVisual, LinesLongerThanTheScratchMemoryKeepTheirOrder)
{
    Digest digest;
    std::mt19937 random(99);
    for (const std::size_t length : {255, 256, 257, 1000}) {
        std::u16string line;
        while (line.size() < length) line += letters[random() % std::size(letters)];
        for (const int base : {0, 1}) AddReordered(digest, line, base);
    }
    EXPECT_EQ(digest.Value(), 0x2C6762F1919B1BB0);
}

// Each of these takes hours where a search runs over the whole line for every character.
TEST(ReorderToVisual, CostsAreLinearOnHostileLines)
{
    constexpr int length = 500'000;
    CArray<int, int> order, types;
    for (const std::u16string pattern :
         {u" ", u"1", u".", u"%", u"1 ", u"\u05D0 1", u" \u4E01", u"\u05D0a", u"1!\u0661", u"-1"}) {
        std::u16string line;
        line.reserve(length);
        while (line.size() < length) line += pattern;
        for (const int base : {0, 1}) {
            StringW text(line.data(), static_cast<int>(line.size()));
            ReorderToVisual(text, order, types, base);
            ASSERT_EQ(order.GetSize(), static_cast<int>(line.size()));
        }
    }
}

TEST(ReorderToVisual, EmptyTextLeavesTheArrays)
{
    CArray<int, int> order, types;
    order.Add(5);
    types.Add(6);
    StringW text;
    ReorderToVisual(text, order, types, 1);
    EXPECT_EQ(order.GetSize(), 1);
    EXPECT_EQ(types.GetSize(), 1);
}

TEST(ReorderToVisual, TheFirstStrongLetterGivesTheBaseLevel)
{
    for (CaseRow row : CaseRows(TEST_DATA "/reordering.tsv", "level")) {
        const std::u16string text = row.Units();
        EXPECT_EQ(GetBaseLevel(text.c_str(), -1), row.Number()) << row.Line();
    }
    EXPECT_EQ(GetBaseLevel(u"12 \u05D0a", 3), 0) << "looked behind the count";
    for (CaseRow row : CaseRows(TEST_DATA "/reordering.tsv", "mark")) {
        const WORD c = row.Number<WORD>();
        EXPECT_EQ(IsTashkeel(c) != 0, row.Number() != 0) << row.Line();
    }
}

// What opens in logical order faces the text that it encloses on the screen.
TEST(MirrorRightToLeft, TurnsBracketsOfRightToLeftStretchesOnly)
{
    for (CaseRow row : CaseRows(TEST_DATA "/reordering.tsv", "mirror")) {
        StringW text(row.Units().c_str());
        CArray<int, int> order, types;
        ReorderToVisual(text, order, types, GetBaseLevel(text, text.GetLength()));
        MirrorRightToLeft(text, types);
        EXPECT_EQ(std::u16string(text), row.Units()) << row.Line();
    }
}

} // namespace
