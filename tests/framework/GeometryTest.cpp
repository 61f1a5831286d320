#include "corekit/framework/Geometry.h"

#include <gtest/gtest.h>

#include <climits>

TEST(Rect, EmptyAndTouchingRectanglesDoNotIntersectAndEmptyOnesAddNothing)
{
    const CRect a(0, 0, 10, 10), touching(10, 0, 20, 10), inside(2, 3, 4, 5), empty(50, 50, 50, 60);
    EXPECT_EQ(a & inside, inside);
    EXPECT_EQ(a & touching, CRect());
    EXPECT_EQ(a & empty, CRect());
    EXPECT_EQ(a | touching, CRect(0, 0, 20, 10));
    EXPECT_EQ(a | empty, a);
    EXPECT_EQ(empty | a, a);
    EXPECT_EQ(empty | empty, CRect());
    CRect self = a;
    self &= self;
    EXPECT_EQ(self, a);
}

TEST(Rect, HoldsItsLeftTopEdgeOnly)
{
    const CRect rect(1, 2, 5, 6);
    EXPECT_TRUE(rect.PtInRect({1, 2}));
    EXPECT_FALSE(rect.PtInRect({5, 3}));
    EXPECT_FALSE(rect.PtInRect({3, 6}));
    EXPECT_TRUE(CRect(5, 5, 5, 9).IsRectEmpty());
    CRect turned(5, 6, 1, 2);
    EXPECT_TRUE(turned.IsRectEmpty());
    turned.NormalizeRect();
    EXPECT_EQ(turned, rect);
}

TEST(Rect, ExtremeCoordinatesWrap)
{
    CRect rect(INT_MIN, INT_MIN, INT_MAX, INT_MAX);
    EXPECT_EQ(rect.Width(), -1);
    EXPECT_EQ(rect.CenterPoint(), CPoint(0, 0));
    rect.DeflateRect(INT_MIN, INT_MIN, INT_MIN, INT_MIN);
    rect.OffsetRect(INT_MAX, INT_MIN);
    EXPECT_EQ(CPoint(INT_MAX, 0) + CSize(1, 0), CPoint(INT_MIN, 0));
    EXPECT_EQ(-CPoint(INT_MIN, 1), CPoint(INT_MIN, -1));
}

TEST(Point, UnpacksSignedHalvesOfAMessageArgument)
{
    EXPECT_EQ(CPoint(static_cast<LPARAM>(0xFFFE0003)), CPoint(3, -2));
    EXPECT_EQ(CPoint(5, 7) - CPoint(2, 3), CSize(3, 4));
}
