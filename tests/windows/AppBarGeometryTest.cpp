#include "corekit/windows/AppBarGeometry.h"

#include <gtest/gtest.h>

using namespace corekit::detail;

namespace {

const AppBarScreen screen{{1600, 900}, {0, 0, 1600, 860}, {16, 16}, {1, 2}};

TEST(AppBarGeometry, TheEdgeIsTheOneOnThePointsSideOfTheDiagonals)
{
    const struct {
        DWORD allowed;
        POINT point;
        UINT edge;
    } cases[] = {
        {3, {10, 450}, ABE_LEFT},    {3, {1590, 450}, ABE_RIGHT}, {3, {800, 10}, ABE_TOP},
        {3, {800, 890}, ABE_BOTTOM}, {3, {0, 0}, ABE_LEFT}, // as far from both
        {3, {1, 0}, ABE_TOP},        {1, {800, 10}, ABE_RIGHT},   {2, {10, 450}, ABE_BOTTOM},
        {0, {10, 450}, ABE_LEFT},    {4, {0, 0}, appBarFloat},    {7, {800, 450}, appBarFloat},
        {7, {16, 450}, appBarFloat}, {7, {15, 450}, ABE_LEFT},    {6, {15, 450}, ABE_BOTTOM},
    };
    for (const auto& c : cases)
        EXPECT_EQ(edgeFromPoint(c.allowed, c.point, screen), c.edge)
            << c.allowed << " at " << c.point.x << ", " << c.point.y;
}

TEST(AppBarGeometry, ABarKeepsItsBreadthAndHidesBehindTwoBorders)
{
    const struct {
        UINT edge;
        CRect docked, hidden;
    } cases[] = {
        {ABE_LEFT, {0, 0, 50, 900}, {-48, 0, 2, 900}},
        {ABE_TOP, {0, 0, 1600, 50}, {0, -46, 1600, 4}},
        {ABE_RIGHT, {1550, 0, 1600, 900}, {1598, 0, 1648, 900}},
        {ABE_BOTTOM, {0, 850, 1600, 900}, {0, 896, 1600, 946}},
    };
    for (const auto& c : cases) {
        CRect rect = dockedRect(c.edge, CRect({0, 0}, screen.size), 50);
        EXPECT_EQ(rect, c.docked) << c.edge;
        EXPECT_TRUE(moveForAutohide(c.edge, AppBarShow::hidden, screen, rect));
        EXPECT_EQ(rect, c.hidden) << c.edge;
        EXPECT_TRUE(moveForAutohide(c.edge, AppBarShow::shown, screen, rect));
        EXPECT_EQ(rect, c.docked) << c.edge;
    }
    CRect floating(1, 2, 3, 4);
    EXPECT_FALSE(moveForAutohide(appBarFloat, AppBarShow::hidden, screen, floating));
    EXPECT_EQ(floating, CRect(1, 2, 3, 4));
}

TEST(AppBarGeometry, SlidingGoesEvenlyAndEndsExactly)
{
    const CRect start(0, 0, 100, 50), end(-99, 10, 1, 63);
    EXPECT_EQ(slidingRect(start, end, 0), start);
    EXPECT_EQ(slidingRect(start, end, 200), CRect(CPoint(-49, 5), CSize(100, 51)));
    EXPECT_EQ(slidingRect(start, end, 400), end);
    EXPECT_EQ(slidingRect(start, end, 100000), end);
}

TEST(AppBarGeometry, SizesSnapToIncrementsOnTheSideThatMoves)
{
    const CSize frame(6, 8), steps(10, 20);
    const struct {
        UINT side;
        CRect rect;
    } cases[] = {{1, {-5, 0, 121, 100}}, {2, {0, 0, 126, 100}},   {3, {0, -8, 121, 100}},
                 {6, {0, 0, 121, 108}},  {4, {-5, -8, 121, 100}}, {8, {0, 0, 126, 108}}};
    for (const auto& c : cases)
        EXPECT_EQ(wholeIncrements({0, 0, 121, 100}, frame, steps, c.side), c.rect) << c.side;
    EXPECT_EQ(wholeIncrements({0, 0, 121, 100}, frame, {0, 0}, 8), CRect(0, 0, 121, 100));
}

TEST(AppBarGeometry, OnlyTheInnerSideOfADockedBarSizes)
{
    const CRect client(10, 10, 90, 90);
    const struct {
        UINT edge;
        POINT point;
        CSize steps;
        int code;
    } cases[] = {{ABE_LEFT, {95, 50}, {1, 0}, 11},  {ABE_LEFT, {5, 50}, {1, 0}, 18},
                 {ABE_LEFT, {95, 50}, {0, 1}, 18},  {ABE_TOP, {50, 95}, {0, 1}, 15},
                 {ABE_RIGHT, {5, 50}, {1, 0}, 10},  {ABE_BOTTOM, {50, 5}, {0, 1}, 12},
                 {ABE_BOTTOM, {50, 95}, {0, 1}, 18}};
    for (const auto& c : cases) EXPECT_EQ(dockedHitTest(c.edge, c.point, client, c.steps), c.code) << c.edge;
}

} // namespace
