#include "corekit/foundation/WildCards.h"
#include "tests/support/CaseRows.h"
#include "tests/support/Digest.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace {

using Text = std::u16string;

Text RandomText(std::mt19937& random, const Text& letters, std::size_t longest)
{
    Text text(random() % (longest + 1), u' ');
    for (char16_t& c : text) c = letters[random() % letters.size()];
    return text;
}

} // namespace

TEST(WildCards, WordsAndPartsMatchWithStarsAndMarks)
{
    for (CaseRow row : CaseRows(TEST_DATA "/wild_cards.tsv")) {
        const Text text = row.Units(), pattern = row.Units();
        EXPECT_EQ(MatchWildCardString(text.c_str(), pattern.c_str(), 0), row.Number()) << row.Line();
        EXPECT_EQ(MatchNonWildCardString(text.c_str(), pattern.c_str(), 0), row.Number()) << row.Line();
    }
    EXPECT_EQ(MatchWildCardString(u"CAT", u"cat", 1), -1);
    EXPECT_TRUE(IsWildCardString(u"a?") && !IsWildCardString(u"a."));
}

TEST(WildCards, NoResultOfRandomPatternsHasChanged)
{
    std::mt19937 random(11);
    Digest parts, words;
    for (int i = 0; i < 40000; ++i) {
        const Text text = RandomText(random, u"ab -", 14), pattern = RandomText(random, u"ab*?a -", 6);
        parts.Add(MatchWildCardString(text.c_str(), pattern.c_str(), 1));
        words.Add(MatchNonWildCardString(text.c_str(), pattern.c_str(), 1));
    }
    EXPECT_EQ(parts.Value(), 0xED2E3F93969A190);
    EXPECT_EQ(words.Value(), 0x629DC3574C650BAD);
}

TEST(WildCards, ManyQuestionMarksAgainstALongTextEnd)
{
    Text text;
    for (int i = 0; i < 20000; ++i) text += u"- ";
    const Text marks = Text(40, u'?') + u"x" + Text(20, u'?') + u"y";
    EXPECT_EQ(MatchWildCardString(text.c_str(), marks.c_str(), 1), -1);
    EXPECT_EQ(MatchNonWildCardString(text.c_str(), (u"*" + marks).c_str(), 0), -1);
    EXPECT_EQ(MatchWildCardString(text.c_str(), (Text(100000, u'?') + u"x").c_str(), 1), -1);
}
