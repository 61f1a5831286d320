// How text falls on pixels.
#include "Canvas.h"

namespace {

constexpr UINT oneToOne = ETO_IGNORELANGUAGE;

TEST(TextOut, InkStaysInTheCell)
{
    for (const int em : {12, 24, 40, 96}) {
        Canvas c(1200, 300);
        c.use(latin, -em);
        const SIZE size = c.measure(u"Hamburg 123");
        ASSERT_TRUE(c.draw(u"Hamburg 123", 20, 30));
        const RECT ink = c.ink();
        EXPECT_GT(c.inkedPixels(), em * em / 2);
        EXPECT_GE(ink.left, 20);
        EXPECT_LE(ink.right, 20 + size.cx);
        EXPECT_GE(ink.top, 30);
        EXPECT_LE(ink.bottom, 30 + size.cy);
        EXPECT_GT(ink.right - ink.left, size.cx * 9 / 10);
    }
}

} // namespace
