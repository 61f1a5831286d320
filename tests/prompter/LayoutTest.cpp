#include "model/FrameTransform.h"
#include "model/PromptLayout.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace prompter;

namespace {

// Every unit is ten pixels wide.
class TenPixels : public TextRuler {
public:
    int Width(std::u16string_view text) override
    {
        measured += text.size();
        return static_cast<int>(text.size()) * 10;
    }
    std::size_t measured = 0;
};

struct View {
    explicit View(std::u16string_view text, int width = 100)
    {
        script.SetText(text);
        layout.SetForm(width, 20);
        Update();
    }
    void Update() { layout.Update(script, ruler, {&held, 1}); }
    std::vector<std::string> Lines() const
    {
        std::vector<std::string> lines;
        layout.VisitLines(0, 1e9, [&](std::u16string_view text, const PromptLine& line, double) {
            lines.emplace_back(line.rightToLeft ? "<" : "");
            for (const char16_t c : text) lines.back() += c < 0x80 ? static_cast<char>(c) : '*';
        });
        return lines;
    }

    Script script;
    TenPixels ruler;
    PromptLayout layout;
    Anchor held;
};

using Lines = std::vector<std::string>;

// Edits of a story one after the other, each compared with the same text laid out for the first time.
TEST(PromptLayout, AnEditGivesTheLinesOfTheNewTextAndMeasuresOnlyWhatChanged)
{
    View edited(u"");
    std::u16string text;
    const auto put = [&](std::size_t at, std::size_t count, const char16_t* added) {
        text.replace(std::min(at, text.size()), count, added);
        edited.script.SetStoryText(0, text);
        edited.ruler.measured = 0;
        edited.Update();
        View anew(u"");
        anew.script.SetStoryText(0, text);
        anew.Update();
        EXPECT_EQ(edited.Lines(), anew.Lines()) << std::string(text.begin(), text.end());
        EXPECT_EQ(edited.layout.Height(), anew.layout.Height());
    };
    put(0, 0, u"one two three four\nfive six seven eight\n\nnine ten\n");
    put(4, 3, u"2");
    EXPECT_LT(edited.ruler.measured, 30u) << "the other lines stay";
    put(0, 0, u"\n");
    put(text.size(), 0, u"eleven twelve");
    put(text.size(), 0, u" thirteen");
    put(text.size(), 0, u"\n");
    put(text.size() - 1, 1, u"");
    put(5, 30, u"x\ny\n");
    put(1, 1, u"");
    put(0, 1, u"");
    put(2, 2, u"\n\n\n");
    put(2, 1, u"");
    put(0, text.size(), u"");
    put(0, 0, u"\n");
    put(0, 0, u"a\n");
    put(1, 0, u"a");
}

TEST(PromptLayout, BreaksBetweenWordsAndWordsThatAreTooWide)
{
    const struct {
        const char16_t* text;
        Lines lines; // the last one is the gap to the next story
    } cases[] = {
        {u"one two three", {"one two", "three", ""}},
        {u"exactly 10", {"exactly 10", ""}},
        {u"one\n\ntwo\n", {"one", "", "two", ""}},
        {u"abcdefghijklmno pq", {"abcdefghij", "klmno pq", ""}},
        {u"a  b      c", {"a  b", "c", ""}},
        {u"  lead", {"  lead", ""}},
        {u"ab\n---\ncd", {"ab", "", "cd", ""}},
        {u"\u05D0\u05D1 ab", {"<** ab", ""}},
        {u"abcdefghi\U0001F600z", {"abcdefghi", "**z", ""}}, // a pair is not torn
        {u"", {""}},
    };
    for (const auto& c : cases) EXPECT_EQ(View(c.text).Lines(), c.lines) << testing::PrintToString(c.lines);
    EXPECT_EQ(View(u"abc", 1).Lines(), (Lines{"a", "b", "c", ""})) << "one character a line at the least";
}

TEST(PromptLayout, AnEditMovesTheViewWithTheLineBeingRead)
{
    View view(u"one\ntwo\nthree\nfour\n---\nnext");
    view.held = view.layout.AnchorAt(45); // 5 pixels into "three"
    view.script.SetStoryText(0, u"zero\nhalf\none\ntwo\nthree\nfour\n");
    view.Update();
    EXPECT_EQ(view.layout.YOf(view.held), 85);
    view.script.SetStoryText(0, u"zero\nhalf\none\ntwo\nthree\nfour and more than fits\n");
    view.Update();
    EXPECT_EQ(view.layout.YOf(view.held), 85) << "what comes later moves nothing";
    view.script.SetStoryText(1, u"changed\nnext");
    view.Update();
    EXPECT_EQ(view.layout.YOf(view.held), 85);
    view.script.Move(1, 0);
    view.Update();
    EXPECT_EQ(view.layout.YOf(view.held), 85 + 3 * 20);
    view.script.Remove(1);
    view.Update();
    EXPECT_EQ(view.held.story, view.script.At(0).key);
}

TEST(PromptLayout, OnlyWhatChangedIsMeasuredAnew)
{
    View view(u"one\n---\ntwo\n---\nthree");
    view.ruler.measured = 0;
    view.script.SetStoryText(1, u"2");
    view.script.SetSkipped(2, true);
    view.Update();
    EXPECT_EQ(view.ruler.measured, 1u);
    EXPECT_EQ(view.Lines(), (Lines{"one", "", "2", ""}));
}

TEST(PromptLayout, PlacesAndHeightsAgree)
{
    const View view(u"one\n---\ntwo\nthree");
    const auto second = view.script.At(1).key;
    EXPECT_EQ(view.layout.Height(), 100);
    EXPECT_EQ(view.layout.YOfStory(second), 40);
    EXPECT_EQ(view.layout.StoryAt(39), view.script.At(0).key);
    EXPECT_EQ(view.layout.StoryAt(40), second);
    EXPECT_EQ(view.layout.StoryAt(1e9), second);
    EXPECT_EQ(view.layout.YOfOffset(second, 5), 60);
}

TEST(FrameTransform, TurnsAndMirrorsEveryPixel)
{
    const std::vector<std::uint32_t> frame = {1, 2, 3, 4, 5, 6}; // 3 by 2
    const struct {
        FrameForm form;
        std::vector<std::uint32_t> result;
    } cases[] = {
        {{false, false, Turn::none}, {1, 2, 3, 4, 5, 6}},
        {{true, false, Turn::none}, {3, 2, 1, 6, 5, 4}},
        {{false, true, Turn::none}, {4, 5, 6, 1, 2, 3}},
        {{true, true, Turn::none}, {6, 5, 4, 3, 2, 1}},
        {{false, false, Turn::half}, {6, 5, 4, 3, 2, 1}},
        {{false, false, Turn::quarter}, {4, 1, 5, 2, 6, 3}},
        {{false, false, Turn::threeQuarters}, {3, 6, 2, 5, 1, 4}},
        {{true, false, Turn::quarter}, {6, 3, 5, 2, 4, 1}},
    };
    for (const auto& c : cases) {
        std::vector<std::uint32_t> result(6);
        TransformFrame(frame, 3, 2, c.form, result);
        EXPECT_EQ(result, c.result);
    }
    std::vector<std::uint32_t> small(5, 9);
    TransformFrame(frame, 3, 2, {}, small);
    EXPECT_EQ(small, std::vector<std::uint32_t>(5, 9)) << "a frame that is too small is left alone";
}

} // namespace
