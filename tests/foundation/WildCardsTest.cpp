#include "corekit/foundation/WildCards.h"
#include "corekit/unicode/tables/UnicodeCharTypes.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace {

using Text = std::u16string;

// The rules one by one, with a copy at every step.
namespace plain {

bool Separator(char16_t c)
{
    const int type = CUnicodeCharTypes::GetGeneralType(c);
    return (type >= 4 && type <= 7) || type >= 15;
}

Text Without(Text text, std::size_t index) { return index < text.size() ? text.erase(index, 1) : text; }

template <class Find>
int Question(const Text& text, const Text& pattern, Find find)
{
    const std::size_t q = pattern.find(u'?');
    const Text shorter = Without(pattern, q);
    int result = find(Without(text, q), shorter);
    if (result >= 0 || text.size() <= pattern.size()) return result;
    for (std::size_t k = 1; k + q + 2 < text.size() && result < 0; ++k)
        if (Separator(text[k])) result = find(Without(text, q + k + 1), shorter);
    return result;
}

int FindWithQuestion(const Text& text, const Text& pattern)
{
    if (pattern.empty()) return -1;
    if (pattern.find(u'?') != Text::npos) return Question(text, pattern, FindWithQuestion);
    return static_cast<int>(text.find(pattern));
}

int FindWholeWord(const Text& text, const Text& given)
{
    if (given.empty()) return -1;
    if (given.find(u'?') != Text::npos) return Question(text, given, FindWholeWord);
    Text pattern = given;
    const bool before = pattern.front() == u'*';
    if (before) pattern.erase(0, 1);
    const bool behind = !pattern.empty() && pattern.back() == u'*';
    if (behind) pattern.pop_back();
    if (text.empty()) return -1;
    for (std::size_t at = 0; at <= text.size(); ++at) {
        at = text.find(pattern, at);
        if (at == Text::npos) return -1;
        const std::size_t end = at + pattern.size();
        if (!before && at != 0 && !Separator(text[at - 1])) continue;
        if (end == text.size() || behind || Separator(text[end])) return static_cast<int>(at);
    }
    return -1;
}

int Match(Text text, Text pattern, bool words)
{
    const std::size_t star = pattern.find(u'*');
    if (star == Text::npos) return words ? FindWholeWord(text, pattern) : FindWithQuestion(text, pattern);
    int r;
    std::size_t used;
    if (star > 0) {
        r = FindWholeWord(text, pattern.substr(0, star) + u'*');
        used = star;
    } else {
        pattern.erase(0, std::min(pattern.find_first_not_of(u'*'), pattern.size()));
        if (pattern.empty()) return 1;
        const std::size_t next = pattern.find(u'*');
        const Text part = pattern.substr(0, next);
        if (next == Text::npos)
            return words ? FindWholeWord(text, u'*' + part) : FindWithQuestion(text, part);
        r = words ? FindWholeWord(text, u'*' + part + u'*') : FindWithQuestion(text, part);
        used = next;
    }
    if (r < 0) return -1;
    text.erase(0, used + static_cast<std::size_t>(r));
    pattern.erase(0, used);
    return Match(text, pattern, words) < 0 ? -1 : r;
}

} // namespace plain

Text RandomText(std::mt19937& random, const Text& letters, std::size_t longest)
{
    Text text(random() % (longest + 1), u' ');
    for (char16_t& c : text) c = letters[random() % letters.size()];
    return text;
}

} // namespace

TEST(WildCards, WordsPartsStarsAndMarks)
{
    const struct {
        const char16_t *text, *pattern;
        int wild, whole;
    } cases[] = {
        {u"", u"*", 1, 1},
        {u"the cat", u"cat", 4, 4},
        {u"concat", u"cat", 3, -1},
        {u"concat", u"*cat", 3, 3},
        {u"the concat", u"con*", 4, 4},
        {u"a deacon", u"con*", -1, -1},
        {u"say \"no\"", u"\"no\"", 5, 5},
        {u"cat", u"c?t", 0, 0},
        {u"text", u"", -1, -1},
        {u"КОТ", u"кот", 0, 0},
        {u"one two three", u"*one*three", 0, 0},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(MatchWildCardString(c.text, c.pattern, 0), c.wild)
            << testing::PrintToString(Text(c.pattern));
        EXPECT_EQ(MatchNonWildCardString(c.text, c.pattern, 0), c.whole)
            << testing::PrintToString(Text(c.pattern));
    }
    EXPECT_EQ(MatchWildCardString(u"CAT", u"cat", 1), -1);
    EXPECT_TRUE(IsWildCardString(u"a?") && !IsWildCardString(u"a."));
}

TEST(WildCards, TheResultIsThatOfThePlainSteps)
{
    std::mt19937 random(11);
    for (int i = 0; i < 40000; ++i) {
        const Text text = RandomText(random, u"ab -", 14), pattern = RandomText(random, u"ab*?a -", 6);
        ASSERT_EQ(MatchWildCardString(text.c_str(), pattern.c_str(), 1), plain::Match(text, pattern, false))
            << testing::PrintToString(text) << testing::PrintToString(pattern);
        ASSERT_EQ(MatchNonWildCardString(text.c_str(), pattern.c_str(), 1), plain::Match(text, pattern, true))
            << testing::PrintToString(text) << testing::PrintToString(pattern);
    }
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
