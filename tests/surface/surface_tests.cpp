// All of the surface but polygons: reading, clearing, rectangles, copies, sizes, and which rows are shown.
#include "pictures.h"

#include <algorithm>
#include <array>
#include <climits>
#include <gtest/gtest.h>

namespace {

/// A surface on which every pixel is different, and differs from those of other tints.
Surface Speckled(int width, int height, int tint) {
    Surface surface(width, height);
    for (int y = 0; y < height; ++y)
        for (int x = 0; x < width; ++x) surface.Line(x, y, x, y, Rgb(x, y, tint));
    return surface;
}

TEST(SurfaceTest, PointTellsTheNearestPixelTiesToEvenAndNoColourOutside) {
    const Surface surface = Speckled(5, 4, 7);
    EXPECT_EQ(surface.Row(2)[3], 0xFF030207u);
    EXPECT_EQ(surface.Point(1.5, 2.5), Rgb(2, 2, 7));
    EXPECT_EQ(surface.Point(-0.5, -0.5), Rgb(0, 0, 7));
    EXPECT_EQ(surface.Point(4.5, 3.49), Rgb(4, 3, 7));
    for (const auto& [x, y] : {std::pair(-0.51, 0.0), {4.51, 0}, {0, 3.5}, {0, -1}, {1e300, 0}, {0, -1e300}})
        EXPECT_EQ(surface.Point(x, y), Surface::NoColour) << x << ' ' << y;
}

TEST(SurfaceTest, LineDrawsTheUprightRectangleBetweenItsCorners) {
    struct Case {
        double X1, Y1, X2, Y2;
        FillMode Mode;
        Picture Expected;
    };
    const Case cases[] = {{1, 0, 4, 2, FillMode::Solid, ".####.\n.#++#.\n.####.\n......\n"},
                          {1, 0, 4, 2, FillMode::None, ".####.\n.#..#.\n.####.\n......\n"},
                          {0.5, 2.6, 3.5, 0.51, FillMode::Solid, "......\n#####.\n#+++#.\n#####.\n"},
                          {-1e12, -5, 2, 2, FillMode::Solid, "++#...\n++#...\n###...\n......\n"},
                          {1, 1, 1e300, 1e300, FillMode::None, "......\n.#####\n.#....\n.#....\n"}};
    for (const Case& c : cases)
        for (const bool swapped : {false, true}) {
            Surface surface(6, 4, Ground);
            surface.ForeColor = 12345;
            surface.FillColor = Inside;
            surface.FillStyle = c.Mode;
            surface.Line(swapped ? c.X2 : c.X1, c.Y1, swapped ? c.X1 : c.X2, c.Y2, Outline);
            EXPECT_EQ(PictureOf(surface), c.Expected);
            EXPECT_EQ(surface.ForeColor, 12345);
        }
}

TEST(SurfaceTest, BitBltCopiesWhatLiesInsideOfBoth) {
    for (int n = 0; n < 20000 && !HasFailure(); ++n) {
        const Surface source = Speckled(Between(1, 7), Between(1, 7), 1);
        Surface target = Speckled(Between(1, 7), Between(1, 7), 0);
        std::array<int, 6> numbers;
        for (int& number : numbers) number = Between(-3, 6);
        if (n % 4 == 0) numbers[n / 4 % 6] = Between(0, 1) ? INT_MIN : INT_MAX;
        const auto& [x, y, width, height, fromX, fromY] = numbers;
        BitBlt(target, x, y, width, height, source, fromX, fromY);
        for (int row = 0; row < target.Height(); ++row)
            for (int column = 0; column < target.Width(); ++column) {
                const double right = 0.0 + column - x, down = 0.0 + row - y;
                const bool wanted = right >= 0 && right < width && down >= 0 && down < height;
                const Colour copied = wanted ? source.Point(fromX + right, fromY + down) : Surface::NoColour;
                const Colour expected = copied == Surface::NoColour ? Rgb(column, row, 0) : copied;
                EXPECT_EQ(target.Point(column, row), expected) << testing::PrintToString(numbers);
            }
    }
}

TEST(SurfaceTest, ClsAndResizeGiveTheBackgroundAndKeepTheRest) {
    EXPECT_EQ(PictureOf(Surface(0, -3, Ground)), ".\n");
    Surface surface(5, 5, Ground);
    const Shape square = {{0, 0}, {3, 0}, {3, 3}, {0, 3}};
    Draw(surface, square);
    surface.Resize(3, 6);
    EXPECT_EQ(PictureOf(surface), "###\n#++\n#++\n###\n...\n...\n");
    surface.Resize(6, 2);
    EXPECT_EQ(PictureOf(surface), "###...\n#++...\n");
    surface.BackColor = Inside;
    surface.Cls();
    surface.Resize(6, 3);
    surface.FillColor = Ground;
    Polygon(surface, square);
    EXPECT_EQ(PictureOf(surface), "####++\n#..#++\n#..#++\n");
}

/// The first row and the one after the last; 0 and 0 for none.
std::pair<int, int> Ends(RowRange rows) {
    return rows.Empty() ? std::pair(0, 0) : std::pair(rows.First, rows.Last);
}

/// Holds the rows that are said to have changed against the pixels.
void ExpectRowsChanged(Surface& surface, const Surface& before) {
    RowRange changed;
    for (int y = 0; y < surface.Height(); ++y)
        if (!std::equal(surface.Row(y), surface.Row(y) + surface.Width(), before.Row(y)))
            changed.Include({y, y + 1});
    EXPECT_EQ(Ends(surface.TakeChangedRows()), Ends(changed));
}

TEST(ChangedRowsTest, AreThoseThatWereDrawnOn) {
    for (const Shape& shape : RandomShapes(1000)) {
        Surface drawn(70, Between(1, 40), Ground);
        drawn.TakeChangedRows();
        const Surface bare = drawn, image(40, Between(1, 40), Outline);
        Surface copied = bare;
        Draw(drawn, Moved(shape, 10, 0));
        ExpectRowsChanged(drawn, bare);
        BitBlt(copied, 0, shape[0].Y, 40, 20, image, 0, Between(-20, 20));
        ExpectRowsChanged(copied, bare);
        ASSERT_FALSE(HasFailure()) << testing::PrintToString(shape);
    }
}

TEST(ChangedRowsTest, AreDueWhenRefreshedAndHandedOverOnce) {
    Surface surface(8, 20, Ground);
    const auto draw = [&](int row) { surface.Line(2, row, 3, row, Outline); };
    EXPECT_EQ(Ends(surface.TakeChangedRows()), std::pair(0, 20));
    draw(7);
    EXPECT_EQ(Ends(surface.TakeDueRows()), std::pair(0, 0));
    surface.Refresh();
    draw(9);
    EXPECT_EQ(Ends(surface.TakeDueRows()), std::pair(7, 8));
    EXPECT_EQ(Ends(surface.TakeChangedRows()), std::pair(9, 10));
    draw(14);
    surface.Refresh();
    draw(12);
    EXPECT_EQ(Ends(surface.TakeChangedRows()), std::pair(12, 15));
    EXPECT_EQ(surface.RefreshCount(), 2);
    surface.Cls();
    surface.Refresh();
    surface.Resize(8, 6);
    EXPECT_EQ(Ends(surface.TakeDueRows()), std::pair(0, 0));
    EXPECT_EQ(Ends(surface.TakeChangedRows()), std::pair(0, 6));
    surface.Cls();
    EXPECT_EQ(Ends(surface.TakeChangedRows()), std::pair(0, 6));
}

} // namespace
