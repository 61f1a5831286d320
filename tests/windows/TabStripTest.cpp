#include "corekit/windows/TabStrip.h"

#include <gtest/gtest.h>

#include <vector>

using namespace corekit::detail;

namespace {

TabStrip Strip(int tabs, int width, CSize client = {400, 300}, int height = 20)
{
    TabStrip strip;
    strip.SetTabs(std::vector<int>(static_cast<std::size_t>(tabs), width));
    strip.Resize(client, height);
    strip.FindFirstVisible();
    return strip;
}

TEST(TabStrip, TabsThatFitNeedNoButtons)
{
    const TabStrip strip = Strip(3, 100);
    EXPECT_FALSE(strip.ButtonsShown());
    EXPECT_EQ(strip.TabArea(), CRect(0, 280, 400, 300));
    EXPECT_EQ(strip.TabRect(1), CRect(100, 280, 200, 300));
    EXPECT_EQ(strip.TabAt({150, 290}), 1);
    EXPECT_EQ(strip.TabAt({150, 279}), -1);
    EXPECT_EQ(strip.TabAt({350, 290}), -1);
}

TEST(TabStrip, TabsThatDoNotFitScrollFromTabToTab)
{
    TabStrip strip = Strip(10, 100);
    EXPECT_TRUE(strip.ButtonsShown());
    EXPECT_EQ(strip.TabArea(), CRect(40, 280, 400, 300));
    EXPECT_EQ(strip.ButtonRect(TabStep::left), CRect(0, 280, 20, 300));
    EXPECT_EQ(strip.ButtonRect(TabStep::right), CRect(20, 280, 40, 300));
    EXPECT_FALSE(strip.ButtonEnabled(TabStep::left));

    strip.BringIntoView(5); // its right edge, 606, comes into the 360 pixels of the area
    EXPECT_EQ(strip.Offset(), 306);
    EXPECT_EQ(strip.FirstVisible(), 3);
    EXPECT_EQ(strip.TabAt({45, 290}), 3);
    strip.BringIntoView(1);
    EXPECT_EQ(strip.Offset(), 106);

    int steps = 0;
    while (strip.Step(TabStep::right)) ++steps;
    EXPECT_EQ(steps, 8);
    EXPECT_FALSE(strip.ButtonEnabled(TabStep::right));
    strip.Resize({400, 300}, 20); // the gap behind the last tab closes, at a tab's edge
    EXPECT_EQ(strip.Offset(), 706);
}

TEST(TabStrip, TheSplitterKeepsItsMarginsAndTheLeftOneWins)
{
    const struct {
        int position, width, splitter;
    } cases[] = {{200, 400, 200}, {10, 400, 80}, {390, 400, 320}, {50, 120, 80}};
    for (const auto& c : cases) {
        TabStrip strip;
        strip.SetScrollBar(true);
        strip.MoveSplitter(c.position);
        strip.Resize({c.width, 300}, 20);
        EXPECT_EQ(strip.Splitter(), c.splitter) << c.position << " of " << c.width;
        EXPECT_EQ(strip.ScrollBarRect(), CRect(c.splitter + 4, 280, c.width, 300));
        EXPECT_EQ(strip.TabArea().right, c.splitter);
    }
}

TEST(TabStrip, WithoutHeightThereIsNoStrip)
{
    const TabStrip strip = Strip(10, 100, {400, 300}, 0);
    EXPECT_TRUE(strip.TabArea().IsRectEmpty());
    EXPECT_FALSE(strip.ButtonsShown());
    EXPECT_EQ(strip.PaneHeight(), 300);
    EXPECT_EQ(strip.TabAt({10, 290}), -1);
}

TEST(TabStrip, RemovingAPaneKeepsTheActiveOneOrTakesItsNeighbour)
{
    const struct {
        int active, removed, remaining, then;
    } cases[] = {{2, 0, 3, 1}, {1, 1, 3, 1}, {3, 3, 3, 2}, {0, 2, 3, 0}, {0, 0, 0, -1}};
    for (const auto& c : cases) EXPECT_EQ(activeAfterRemoval(c.active, c.removed, c.remaining), c.then);
}

} // namespace
