#include "corekit/foundation/ui/DrawHelpers.h"

#include "tests/platform_ui/Canvas.h"

#include <string>

namespace {

constexpr int width = 9, height = 7;

// The picture as text: # for red, o for green, . for nothing.
std::string Picture(const Canvas& canvas)
{
    std::string rows;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const auto pixel = canvas.at(x, y);
            rows += pixel == 0xFFFF0000u ? '#' : pixel == 0xFF00FF00u ? 'o' : pixel == 0 ? '.' : '?';
        }
        rows += '\n';
    }
    return rows;
}

TEST(SolidTriangle, CoversCornersSidesAndInside)
{
    const struct {
        CPoint a, b, c;
        const char* picture;
    } cases[] = {
        {{1, 1},
         {7, 1},
         {4, 4},
         ".........\n.#######.\n..#####..\n...###...\n....#....\n.........\n.........\n"},
        {{4, 4},
         {7, 1},
         {1, 1},
         ".........\n.#######.\n..#####..\n...###...\n....#....\n.........\n.........\n"},
        {{2, 0},
         {2, 6},
         {5, 3},
         "..#......\n..##.....\n..###....\n..####...\n..###....\n..##.....\n..#......\n"},
        {{0, 0},
         {8, 0},
         {8, 6},
         "#########\n.########\n..#######\n....#####\n.....####\n......###\n........#\n"},
        {{1, 1},
         {4, 1},
         {7, 1},
         ".........\n.#######.\n.........\n.........\n.........\n.........\n.........\n"},
        {{3, 3},
         {3, 3},
         {3, 3},
         ".........\n.........\n.........\n...#.....\n.........\n.........\n.........\n"},
        {{-9, 2},
         {17, 2},
         {4, 3},
         ".........\n.........\n#########\n#########\n.........\n.........\n.........\n"},
        {{INT32_MIN, INT32_MIN},
         {INT32_MAX, INT32_MIN},
         {4, INT32_MAX},
         "#########\n#########\n#########\n#########\n#########\n#########\n#########\n"},
        {{90, 90},
         {99, 90},
         {90, 99},
         ".........\n.........\n.........\n.........\n.........\n.........\n.........\n"},
    };
    for (const auto& c : cases) {
        Canvas canvas(width, height);
        DrawSolidTriangle(canvas.dc, c.a, c.b, c.c, RGB(255, 0, 0));
        EXPECT_EQ(Picture(canvas), c.picture);
    }
}

TEST(SolidTriangle, PutsPenAndBrushBack)
{
    Canvas canvas(width, height);
    const HBRUSH brush = CreateSolidBrush(RGB(0, 255, 0));
    const HPEN pen = CreatePen(PS_SOLID, 1, RGB(0, 0, 255));
    const HGDIOBJ firstBrush = SelectObject(canvas.dc, brush), firstPen = SelectObject(canvas.dc, pen);
    DrawSolidTriangle(canvas.dc, {0, 0}, {3, 0}, {0, 3}, RGB(255, 0, 0));
    EXPECT_EQ(SelectObject(canvas.dc, firstBrush), brush);
    EXPECT_EQ(SelectObject(canvas.dc, firstPen), pen);
    EXPECT_TRUE(DeleteObject(brush) && DeleteObject(pen));
}

TEST(Polygons, FillWithTheBrushAndOutlineWithThePen)
{
    Canvas canvas(width, height);
    const HBRUSH brush = CreateSolidBrush(RGB(0, 255, 0));
    const HPEN pen = CreatePen(PS_SOLID, 0, RGB(255, 0, 0));
    SelectObject(canvas.dc, brush);
    const HGDIOBJ firstPen = SelectObject(canvas.dc, pen);
    // A bow tie, which is filled on both sides of its crossing.
    const POINT points[] = {{0, 0}, {8, 6}, {8, 0}, {0, 6}};
    EXPECT_TRUE(Polygon(canvas.dc, points, 4));
    EXPECT_EQ(Picture(canvas),
              "#.......#\n##.....##\n#o##.##o#\n#ooo#ooo#\n#oo#.#oo#\n###...###\n#.......#\n");
    canvas.clear();
    EXPECT_TRUE(DeleteObject(pen)) << "still in force while selected";
    EXPECT_TRUE(Polygon(canvas.dc, points, 2));
    EXPECT_EQ(canvas.inkedPixels(), 9);
    canvas.clear();
    const HPEN none = CreatePen(PS_NULL, 1, RGB(255, 0, 0));
    SelectObject(canvas.dc, none);
    const POINT square[] = {{1, 1}, {4, 1}, {4, 4}, {1, 4}};
    EXPECT_TRUE(Polygon(canvas.dc, square, 4));
    EXPECT_EQ(Picture(canvas),
              ".........\n.ooo.....\n.ooo.....\n.ooo.....\n.........\n.........\n.........\n");
    EXPECT_FALSE(Polygon(canvas.dc, square, 1));
    EXPECT_FALSE(Polygon(canvas.dc, nullptr, 4));
    EXPECT_FALSE(Polygon(nullptr, square, 4));
    EXPECT_EQ(CreatePen(PS_SOLID, -1, 0), nullptr);
    SelectObject(canvas.dc, firstPen);
    EXPECT_TRUE(DeleteObject(none) && DeleteObject(brush));
}

} // namespace
