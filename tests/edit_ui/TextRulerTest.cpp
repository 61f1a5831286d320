#include "corekit/unicode/ui/edit/TextRuler.h"

#include <gtest/gtest.h>
#include <random>
#include <string>

namespace {

using namespace corekit::detail;

// Letters of widths between 0 and 15, so that a beginning is never narrower than a shorter one.
class LetterRuler final : public TextRuler {
public:
    int Width(const WCHAR* text, int count) override
    {
        ++asked;
        int width = 0;
        for (int i = 0; i < count; ++i) width += text[i] >= 0x300 ? 0 : text[i] - u'a';
        return width;
    }
    int asked = 0;
};

std::u16string someText(std::mt19937& random, bool hasMarks)
{
    std::u16string text;
    for (auto left = random() % 200; left > 0; --left)
        text += static_cast<char16_t>(hasMarks && random() % 2 ? 0x301 : u'a' + random() % 16);
    return text;
}

TEST(TextRuler, FindsTheExactBounds)
{
    std::mt19937 random(7);
    LetterRuler ruler;
    for (int round = 0; round < 3000; ++round) {
        const std::u16string text = someText(random, round % 2);
        const int count = static_cast<int>(text.size()), room = static_cast<int>(random() % 1200);
        int fitting = 0, beyond = 0, end = count;
        while (fitting < count && ruler.Width(text.data(), fitting + 1) <= room) ++fitting;
        while (beyond <= count && ruler.Width(text.data(), beyond) <= room) ++beyond;
        while (end > 0 && ruler.Width(text.data() + end - 1, count - end + 1) <= room) --end;
        const int guess = static_cast<int>(random() % 300);
        ASSERT_EQ(longestFitting(ruler, text.data(), count, room, guess), fitting) << round;
        ASSERT_EQ(leastBeyond(ruler, text.data(), count, room), beyond) << round;
        ASSERT_EQ(longestFittingEnd(ruler, text.data(), count, room), end) << round;
    }
}

TEST(TextRuler, ALongTextCostsNoMoreThanItsRoom)
{
    for (const char16_t letter : {u'b', u'k', u'\u0301'}) {
        const std::u16string text = std::u16string(40, u'k') + std::u16string(100000, letter);
        LetterRuler ruler;
        EXPECT_GT(longestFitting(ruler, text.data(), static_cast<int>(text.size()), 500, 50), 49);
        EXPECT_LT(ruler.asked, 25);
    }
}

} // namespace
