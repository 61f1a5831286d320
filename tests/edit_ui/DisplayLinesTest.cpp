#include "corekit/unicode/ui/edit/DisplayLines.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace {

using namespace corekit::detail;

constexpr char16_t mark = 0x064E, letter = 0x0628;

// Letters of several widths, marks of none, and letters that are narrower where another one follows.
struct UnevenRuler final : TextRuler {
    long long measured = 0;
    int Width(const WCHAR* text, int count) override
    {
        measured += count;
        int width = 0;
        for (int i = 0; i < count; ++i) {
            EXPECT_NE(text[i], u'\n') << "a newline is measured as a blank";
            const bool joined = i + 1 < count && text[i + 1] == letter;
            width += text[i] == mark     ? 0
                     : text[i] == letter ? (joined ? 4 : 9)
                     : text[i] == u' '   ? 4
                     : text[i] == u'i'   ? 3
                                         : 7;
        }
        return width;
    }
};

// The lines word by word from the start of the text, as nobody would do it at every key.
std::vector<std::u16string> LinesWordByWord(std::u16string rest, int room)
{
    UnevenRuler ruler;
    const auto fits = [&](const std::u16string& s) {
        return ruler.Width(s.data(), static_cast<int>(s.size())) <= room;
    };
    std::vector<std::u16string> lines;
    while (!rest.empty()) {
        std::u16string line;
        bool ended = false;
        while (!ended && line.size() < rest.size()) {
            const std::size_t end = std::min(rest.find_first_of(u" \n", line.size()), rest.size() - 1) + 1;
            std::u16string more = rest.substr(0, end);
            const bool newline = more.back() == u'\n';
            if (newline) more.back() = u' ';
            ended = newline;
            if (!fits(more)) {
                ended = true;
                while (line.empty() && more.size() > 1 && !fits(more)) more.pop_back();
                if (line.empty()) line = more;
            } else {
                line = more;
            }
        }
        lines.push_back(line);
        rest.erase(0, line.size());
    }
    return lines;
}

std::u16string RandomText(std::mt19937& random, std::size_t length, unsigned blanksIn)
{
    static constexpr char16_t kinds[] = {u'a', u'i', u'W', mark, letter, letter, u'x'};
    std::u16string text;
    while (text.size() < length)
        text += random() % blanksIn == 0 ? u' ' : random() % 70 == 0 ? u'\n' : kinds[random() % 7];
    return text;
}

TEST(DisplayLines, KeptLinesAreThoseThatWouldBeMadeAnew)
{
    std::mt19937 random(1);
    for (int round = 0; round < 150; ++round) {
        const int room = round % 5 == 0 ? round - 10 : 40 + round * 2;
        UnevenRuler ruler;
        DisplayLines lines(ruler);
        lines.SetMode(Wrapping::on, room);
        std::u16string text = RandomText(random, random() % 600, 2 + random() % 60);
        lines.Forget();
        for (int edit = 0; edit < 30; ++edit) {
            if (edit > 0) {
                const std::size_t at = random() % (text.size() + 1),
                                  gone = std::min<std::size_t>(random() % 4, text.size() - at);
                const std::u16string come = RandomText(random, random() % 5 ? 1 : random() % 40, 5);
                lines.TextChanges(static_cast<int>(at), static_cast<int>(text.size() - at - gone));
                text.replace(at, gone, come);
            }
            lines.Update(text);
            // As a window does that shows some lines and is typed into before the others are made.
            if (random() % 3 == 0) {
                lines.Has(static_cast<int>(random() % 20));
                continue;
            }
            const std::vector<std::u16string> wanted = LinesWordByWord(text, room);
            ASSERT_EQ(lines.Count(), static_cast<int>(wanted.size()));
            int start = 0;
            for (int i = 0; i < lines.Count(); ++i) {
                ASSERT_EQ(lines.StartOf(i), start) << "round " << round << " edit " << edit << " line " << i;
                ASSERT_EQ(lines.LengthOf(i), static_cast<int>(wanted[static_cast<std::size_t>(i)].size()));
                start += lines.LengthOf(i);
            }
        }
    }
}

TEST(DisplayLines, OneKeyMeasuresAFewLinesOfALongText)
{
    UnevenRuler ruler;
    DisplayLines lines(ruler);
    lines.SetMode(Wrapping::on, 400);
    std::u16string text;
    for (int i = 0; i < 4000; ++i) text += i % 40 == 39 ? u"paragraph\n" : u"words and more ";
    lines.Forget();
    lines.Update(text);
    EXPECT_LT(ruler.measured, static_cast<long long>(text.size()) * 8);
    ruler.measured = 0;
    lines.TextChanges(20000, static_cast<int>(text.size()) - 20000);
    text.insert(20000, u"x");
    lines.Update(text);
    EXPECT_LT(ruler.measured, 10000);
}

// Every line costs what it shows, however long the word is.
TEST(DisplayLines, AWordOfMillionsIsCutInLinearTime)
{
    UnevenRuler ruler;
    DisplayLines lines(ruler);
    lines.SetMode(Wrapping::on, 700);
    const std::u16string text(5'000'000, u'a');
    lines.Forget();
    lines.Update(text);
    EXPECT_EQ(lines.Count(), 50'000);
    EXPECT_LT(ruler.measured, static_cast<long long>(text.size()) * 16);
    lines.SetMode(Wrapping::on, 1);
    lines.Update(std::u16string_view(text).substr(0, 100'000));
    EXPECT_EQ(lines.Count(), 100'000) << "one character in a line, where none fits";
}

TEST(DisplayLines, NewlinesAloneEndLinesThatAreNotWrapped)
{
    UnevenRuler ruler;
    DisplayLines lines(ruler);
    lines.SetMode(Wrapping::off, 10);
    lines.Update(u"ab\n\ncde\n");
    ASSERT_EQ(lines.Count(), 3);
    EXPECT_EQ(lines.StartOf(2), 4);
    EXPECT_EQ(lines.LengthOf(1), 0);
    EXPECT_EQ(lines.PositionOf(2), 4) << "two characters and two lines before";
    EXPECT_EQ(lines.PositionOf(3), 8);
    EXPECT_EQ(lines.LineAt(2), 0);
    EXPECT_EQ(lines.LineAt(3), 1);
    EXPECT_EQ(lines.LineAt(8), 3);
    lines.TextChanges(0, 0);
    lines.Update(u"");
    EXPECT_EQ(lines.Count(), 0);
    EXPECT_EQ(lines.LineAt(0), 0);
}

} // namespace
