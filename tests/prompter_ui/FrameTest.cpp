#include "view/FramePainter.h"

#include "corekit/platform/Toolkit.h"
#include "corekit/unicode/ui/UnicodeManager.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

using namespace prompter;

namespace {

class Frame : public testing::Test {
protected:
    static constexpr SIZE size{800, 450};

    static void SetUpTestSuite()
    {
        ASSERT_TRUE(StartToolkit(ToolkitDisplay::offscreen));
        CUnicodeManager::Initialise(1);
        CUnicodeManager::GetObjectA()->OverrideSettings({TRUE, FALSE, FALSE, FALSE});
    }
    void Show(std::u16string_view text, const FrameState& state = {})
    {
        m_style.size = 48;
        m_face.SetStyle(m_style);
        m_script.SetText(text);
        m_layout.SetForm(FramePainter::TextWidth(m_style, size.cx), m_style.LineHeight());
        m_layout.Update(m_script, m_face, {&m_held, 1});
        FramePainter painter(m_layout, m_face);
        painter.SetStyle(m_style);
        ASSERT_TRUE(m_frame.Resize(size));
        painter.Paint(m_frame, state);
    }
    // Pixels of the colour within a part of the frame.
    int Count(COLORREF colour, RECT part) const
    {
        int count = 0;
        for (int y = part.top; y < part.bottom; ++y)
            for (int x = part.left; x < part.right; ++x) {
                const std::uint32_t p = m_frame.Pixels()[static_cast<std::size_t>(y * size.cx + x)];
                count += RGB(p >> 16 & 0xFF, p >> 8 & 0xFF, p & 0xFF) == colour;
            }
        return count;
    }
    int White(RECT part) const { return Count(m_style.text, part); }

    PromptStyle m_style;
    PromptFace m_face;
    Script m_script;
    PromptLayout m_layout;
    Anchor m_held;
    FrameBuffer m_frame;
};

TEST_F(Frame, ParagraphsAndTheMarkStandWhereTheirDirectionBegins)
{
    const RECT left{80, 0, 300, 450}, right{500, 0, 720, 450}, leftMargin{0, 0, 80, 450},
        rightMargin{720, 0, 800, 450};
    Show(u"News");
    EXPECT_GT(White(left), 100);
    EXPECT_EQ(White(right), 0);
    EXPECT_GT(Count(m_style.mark, leftMargin), 100);
    EXPECT_EQ(Count(m_style.mark, rightMargin), 0);
    Show(u"\u05D7\u05D3\u05E9");
    EXPECT_EQ(White(left), 0);
    EXPECT_GT(White(right), 100);
    EXPECT_EQ(Count(m_style.mark, leftMargin), 0);
    EXPECT_GT(Count(m_style.mark, rightMargin), 100);
    EXPECT_EQ(White(leftMargin) + White(rightMargin), 0) << "text stays within its margins";
}

TEST_F(Frame, TheLineBeingReadStandsAtTheMark)
{
    const int mark = 450 * 33 / 100, height = 67;
    Show(u"one\ntwo\nthree\nfour", {.position = 67.0 * 2});
    EXPECT_GT(White({80, mark, 720, mark + height}), 100);
    EXPECT_GT(White({80, mark - height, 720, mark}), 100);
    EXPECT_EQ(White({80, mark + 2 * height, 720, 450}), 0) << "below the fourth line is nothing";
}

TEST_F(Frame, ABlankFrameShowsNothingAndACountdownOnlyItself)
{
    Show(u"one\ntwo", {.isBlank = true});
    EXPECT_EQ(White({0, 0, 800, 450}), 0);
    Show(u"one\ntwo", {.countdown = 3});
    EXPECT_GT(White({300, 150, 500, 300}), 50);
    EXPECT_EQ(White({0, 0, 300, 450}), 0);
}

// Scripts with ink far above and below their lines, close together, with both sides of the mark.
TEST_F(Frame, OneThatMovedIsTheSameAsOneDrawnAnew)
{
    m_style.lineGap = 0;
    std::u16string text;
    for (int i = 0; i < 12; ++i)
        text += u"Agj\u00C5\u1EA4 \u0926\u0941\u0930\u094D\u0917\u093E\n"
                u"\u0628\u0650\u0633\u0652\u0645\u0650 "
                u"\u0671\u0644\u0644\u0651\u064E\u0670\u0647\u0650\n\u05E9\u05BC\u05C1\u05B8\n\n";
    Show(text);
    FramePainter moving(m_layout, m_face), anew(m_layout, m_face);
    moving.SetStyle(m_style);
    anew.SetStyle(m_style);
    FrameBuffer moved, drawn;
    ASSERT_TRUE(moved.Resize(size) && drawn.Resize(size));
    FrameState state{.position = 300, .status = u"12:00", .markers = {480, 960}};
    for (const double by : {1.0, 0.4, 0.4, 7.0, -3.0, 0.0, 48.0, -200.0, 371.5, 500.0, -1.0, -0.5, 90.0}) {
        state.position += by;
        if (by == 90.0) state.markers.pop_back();
        state.status[0] = static_cast<char16_t>(u'1' + static_cast<int>(std::abs(by)) % 3);
        moving.Paint(moved, state);
        anew.Forget();
        anew.Paint(drawn, state);
        ASSERT_TRUE(std::ranges::equal(moved.Pixels(), drawn.Pixels())) << "after " << by;
    }
}

// The second line has no letter that would say so.
TEST_F(Frame, ALineThatWasBrokenOffRunsAsItsParagraph)
{
    Show(u"\u05D7\u05D3\u05E9\u05D5\u05EA \u05D4\u05E2\u05E8\u05D1 \u05D4\u05E9\u05E0\u05D9\u05D9\u05DD "
         u"12345678901234.");
    const int second = 450 * 33 / 100 + 67, baseline = second + 67 * 3 / 4;
    int left = 80, right = 720;
    while (left < 720 && White({left, second, left + 1, second + 67}) == 0) ++left;
    while (right > 80 && White({right - 1, second, right, second + 67}) == 0) --right;
    ASSERT_LT(left, right);
    EXPECT_EQ(White({left, second, left + 4, baseline - 12}), 0) << "the full stop stands at the left";
    EXPECT_GT(White({right - 8, second, right, baseline - 12}), 0);
}

// Brackets around a Hebrew word open towards it.
TEST_F(Frame, BracketsFaceTheWordThatTheyEnclose)
{
    m_style.brackets = Brackets::asTyped;
    Show(u"(\u05D0)");
    const int typed = White({0, 0, 800, 450});
    std::vector<int> before;
    for (int x = 500; x < 720; ++x) before.push_back(White({x, 0, x + 1, 450}));
    m_style.brackets = Brackets::mirrored;
    Show(u"(\u05D0)");
    std::vector<int> after;
    for (int x = 500; x < 720; ++x) after.push_back(White({x, 0, x + 1, 450}));
    EXPECT_GT(typed, 50);
    EXPECT_NE(before, after);
}

} // namespace
