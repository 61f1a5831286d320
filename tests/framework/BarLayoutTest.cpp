#include "corekit/framework/BarLayout.h"

#include <gtest/gtest.h>

#include <string>

using namespace corekit::detail;

namespace {

using Rows = std::vector<std::vector<DockedBar>>;

DockedBar Bar(int width, int height, int wanted)
{
    DockedBar bar;
    bar.size = CSize(width, height);
    bar.wanted = wanted;
    return bar;
}

std::string Shown(const CRect& r)
{
    return std::to_string(r.left) + "," + std::to_string(r.top) + " " + std::to_string(r.Width()) + "x" +
           std::to_string(r.Height());
}

std::string Laid(Rows rows, int length, Lying lying = Lying::horizontal)
{
    const CSize size = layOutDockRows(rows, lying, length);
    std::string text;
    for (const auto& row : rows)
        for (const DockedBar& bar : row) text += Shown(bar.rect) + (bar.startsLine ? "* " : " ");
    return text + "= " + std::to_string(size.cx) + "x" + std::to_string(size.cy);
}

} // namespace

TEST(BarLayout, BarsKeepTheirPlacesAsFarAsTheirNeighboursLetThem)
{
    const struct {
        Rows rows;
        int length;
        const char* laid;
    } cases[] = {
        {{}, 100, "= 0x0"},
        {{{Bar(30, 10, 20)}}, 100, "20,0 30x10 = 50x10"},
        {{{Bar(30, 10, 20), Bar(30, 12, 25)}}, 100, "20,0 30x10 50,0 30x12 = 80x12"},  // pushed on
        {{{Bar(30, 10, 50), Bar(30, 10, 90)}}, 100, "40,0 30x10 70,0 30x10 = 100x10"}, // and back
        {{{Bar(30, 10, -5)}, {Bar(40, 10, 0)}}, 100, "0,0 30x10 0,10 40x10 = 40x20"},
        {{{Bar(60, 10, 0), Bar(60, 20, 60), Bar(30, 5, 120)}},
         100,
         "0,0 60x10 10,10 60x20* 70,10 30x5 = 100x30"}, // the row goes on below
        {{{Bar(150, 10, 40)}}, 100, "0,0 150x10 = 150x10"},
        {{{Bar(10, 10, 0)}}, -5, "0,0 10x10 = 10x10"},
    };
    for (const auto& each : cases) EXPECT_EQ(Laid(each.rows, each.length), each.laid);
    EXPECT_EQ(Laid({{Bar(10, 30, 20), Bar(12, 30, 0)}}, 100, Lying::vertical),
              "0,20 10x30 0,50 12x30 = 12x80");
}

TEST(BarLayout, ButtonsWrapAndStack)
{
    std::vector<BarButton> buttons(5);
    for (BarButton& button : buttons) button.width = 24;
    buttons[2] = {8, true, false, {}};
    EXPECT_EQ(wrapButtons(buttons, 22, 32767), CSize(104, 22));
    EXPECT_EQ(wrapButtons(buttons, 22, 48), CSize(48, 50)); // the separator is a gap between the lines
    EXPECT_EQ(Shown(buttons[3].rect), "0,28 24x22");
    EXPECT_TRUE(buttons[2].wraps);
    EXPECT_EQ(wrapButtons(buttons, 22, 1).cy, 4 * 22 + 6); // one each line at least
    EXPECT_EQ(stackButtons(buttons, 22), CSize(24, 94));
    EXPECT_EQ(widthForHeight(buttons, 22, 22), 104);
    EXPECT_EQ(widthForHeight(buttons, 22, 50), 48);
    EXPECT_EQ(widthForHeight(buttons, 22, 0), 104); // never lower than one line
    EXPECT_EQ(wrapButtons({}, 22, 50), CSize(0, 0));
}
