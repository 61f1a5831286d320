#include "corekit/unicode/bidi/ReorderToVisual.h"
#include "corekit/unicode/bidi/MirrorBrackets.h"

#include "corekit/unicode/tables/UnicodeCharTypes.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <random>
#include <string>
#include <vector>

namespace {

// The rules one by one, without regard to cost, to hold the linear pass against.
class StepByStep {
public:
    StepByStep(std::u16string line, int base) : text(std::move(line)), m_base(base)
    {
        for (std::size_t i = 0; i < text.size(); ++i) {
            order.push_back(static_cast<int>(i));
            m_table.push_back(CUnicodeCharTypes::GetBiDirectionalType(text[i]));
        }
        types = m_table;
        m_levels.assign(text.size(), base);
        for (int i = 0; i < Size(); ++i) ResolveNumber(i);
        for (int i = 0; i < Size(); ++i) SetLevel(i);
        Reverse();
    }

    std::u16string text;
    std::vector<int> order, types;

private:
    int Size() const { return static_cast<int>(text.size()); }

    void ResolveNumber(int i)
    {
        const int type = types[i];
        if (type == 2) {
            int j = i - 1;
            while (j >= 0 && types[j] != 0 && types[j] != 1) --j;
            if (j < 0 ? m_base % 2 != 0 : types[j] == 1) types[i] = 5;
        } else if (type == 3 || type == 6) {
            const bool inside = i > 0 && i < Size() - 1;
            types[i] =
                inside && m_table[i - 1] == m_table[i + 1] && m_table[i - 1] != -1 ? m_table[i - 1] : 10;
        } else if (type == 4) {
            const bool number = (i > 0 && m_table[i - 1] == 2) || (i < Size() - 1 && m_table[i + 1] == 2);
            types[i] = number ? 2 : 10;
        }
    }

    int ResolveNeutral(int i) const
    {
        const int embedding = m_levels[i] % 2 != 0;
        int previous = -1, next = -1;
        for (int j = i - 1; j >= 0 && previous < 0; --j)
            previous = types[j] == 0 ? 0 : types[j] == 1 || types[j] == 5 ? 1 : -1;
        if (previous < 0 || i == Size() - 1) return embedding;
        for (int j = i + 1; j < Size() && next < 0; ++j) {
            next = types[j] == 0 ? 0 : types[j] == 1 || types[j] == 5 ? 1 : -1;
            if (types[j] == 2) {
                int k = j - 1;
                while (k >= 0 && types[k] != 0 && types[k] != 1) --k;
                if (k < 0) return embedding;
                next = types[k];
            }
        }
        return next == previous ? next : embedding;
    }

    void SetLevel(int i)
    {
        if (types[i] == 9 || types[i] == 10) types[i] = ResolveNeutral(i);
        const int type = types[i];
        if (m_levels[i] % 2 != 0) {
            if (type == 0 || type == 2 || type == 5) m_levels[i] += 1;
        } else if (type == 1) {
            m_levels[i] += 1;
        } else if (type == 5 || (type == 2 && !(i > 0 && types[i - 1] == 0))) {
            m_levels[i] += 2;
        }
    }

    void Reverse()
    {
        if (text.empty()) return;
        int lowestOdd = INT_MAX;
        for (const int level : m_levels)
            if (level % 2 != 0) lowestOdd = std::min(lowestOdd, level);
        for (int level = *std::max_element(m_levels.begin(), m_levels.end()); level >= lowestOdd; --level) {
            for (int i = 0; i < Size(); ++i) {
                int end = i;
                while (end < Size() && m_levels[end] >= level) ++end;
                std::reverse(text.begin() + i, text.begin() + end);
                std::reverse(order.begin() + i, order.begin() + end);
                std::reverse(types.begin() + i, types.begin() + end);
                if (end > i) i = end - 1;
            }
        }
    }

    int m_base;
    std::vector<int> m_table, m_levels;
};

void ExpectAsStepByStep(const std::u16string& line, int base)
{
    static CArray<int, int> order, types; // kept, so that sizes go up and down
    const StepByStep expected(line, base);
    StringW text(line.data(), static_cast<int>(line.size()));
    const StringW shared(text);
    ReorderToVisual(text, order, types, base);
    ASSERT_EQ(order.GetSize(), static_cast<int>(line.size()));
    ASSERT_EQ(types.GetSize(), static_cast<int>(line.size()));
    const auto same = [](const std::vector<int>& a, const CArray<int, int>& b) {
        return std::equal(a.begin(), a.end(), b.GetData());
    };
    ASSERT_TRUE(same(expected.types, types)) << testing::PrintToString(line) << " base " << base;
    ASSERT_TRUE(same(expected.order, order)) << testing::PrintToString(line) << " base " << base;
    ASSERT_EQ(std::u16string(text, static_cast<std::size_t>(text.GetLength())), expected.text);
    ASSERT_EQ(std::u16string(shared, static_cast<std::size_t>(shared.GetLength())), line);
}

// A few characters of each type, those of the two strong types more than once.
constexpr char16_t letters[] = {u'a',   u'B', 0x0915, 0x05D0, 0x0628, 0xE301, u'1',   u'7', 0x06F4,
                                u'.',   u'/', u'%',   u'$',   0x0661, 0x066B, u',',   u':', u' ',
                                0x2003, u'!', u'\t',  0x2028, 0x4E01, 0x200F, 0xE000, u'\0'};

TEST(ReorderToVisual, EveryShortLineOfTypes)
{
    constexpr char16_t one[] = {u'a', 0x05D0, u'1', u'.', u'%', 0x0661, u',', 0x2028, u' ', u'!', 0x4E01};
    constexpr int kinds = std::size(one);
    for (int length = 1, lines = kinds; length <= 4; ++length, lines *= kinds)
        for (int n = 0; n < lines; ++n) {
            std::u16string line;
            for (int rest = n, k = 0; k < length; ++k, rest /= kinds) line += one[rest % kinds];
            ExpectAsStepByStep(line, 0);
            ExpectAsStepByStep(line, 1);
            if (HasFatalFailure()) return;
        }
}

TEST(ReorderToVisual, RandomLinesOfAllTypes)
{
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
        for (const int base : {0, 1, 2, 7}) ExpectAsStepByStep(line, base);
        if (HasFatalFailure()) return;
    }
}

TEST(ReorderToVisual, EveryCharacterAlone)
{
    for (int c = 0; c < 0x10000; ++c) {
        ExpectAsStepByStep(std::u16string(3, static_cast<char16_t>(c)), c & 1);
        ExpectAsStepByStep({u'a', static_cast<char16_t>(c), u'b', u' ', u'c', u'd', u'e', u'f', u'g'}, 0);
        if (HasFatalFailure()) return;
    }
}

TEST(ReorderToVisual, LinesLongerThanTheScratchMemory)
{
    std::mt19937 random(99);
    for (const std::size_t length : {255, 256, 257, 1000}) {
        std::u16string line;
        while (line.size() < length) line += letters[random() % std::size(letters)];
        for (const int base : {0, 1}) ExpectAsStepByStep(line, base);
    }
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

TEST(ReorderToVisual, BaseLevelAndMarks)
{
    const struct {
        const char16_t* text;
        int level;
    } cases[] = {{u"abc", 0}, {u"12 \u05D0a", 1}, {u"\u0661 a\u05D0", 0},
                 {u"", 0},    {u"... 12", 0},     {u"\u064B", 1}};
    for (const auto& t : cases) EXPECT_EQ(GetBaseLevel(t.text, -1), t.level);
    EXPECT_EQ(GetBaseLevel(u"12 \u05D0a", 3), 0) << "looked behind the count";
    for (const int c : {0x064B, 0x065E, 0x0670}) EXPECT_TRUE(IsTashkeel(static_cast<WORD>(c)));
    for (const int c : {0x064A, 0x065F, 0x0671, 0x066F}) EXPECT_FALSE(IsTashkeel(static_cast<WORD>(c)));
}

// What opens in logical order faces the text that it encloses on the screen.
TEST(MirrorRightToLeft, TurnsBracketsOfRightToLeftStretchesOnly)
{
    const struct {
        const char16_t *text, *drawn;
    } cases[] = {
        {u"(a)", u"(a)"},
        {u"(\u05D0)", u"(\u05D0)"},
        {u"\u05D0(\u05D1)", u"(\u05D1)\u05D0"},
        {u"a (\u05D0 <\u05D1) b", u"a (\u05D1> \u05D0) b"},
        {u"\u05D0 (a) \u05D1", u"\u05D1 (a) \u05D0"},
        {u"\u05D0\u00AB\u05D1\u00BB", u"\u00AB\u05D1\u00BB\u05D0"},
    };
    for (const auto& c : cases) {
        StringW text(c.text);
        CArray<int, int> order, types;
        ReorderToVisual(text, order, types, GetBaseLevel(text, text.GetLength()));
        MirrorRightToLeft(text, types);
        EXPECT_EQ(std::u16string(text), c.drawn);
    }
}

} // namespace
