// The surface against the plain one: whatever is drawn, every pixel is the same, and no changed row is kept
// back.
#include "reference.h"

#include <algorithm>
#include <array>
#include <climits>
#include <gtest/gtest.h>

namespace {

/// A surface, and the plain one on which the same is drawn.
struct Pair {
    Surface Drawn;
    Reference Plain;
    Pair(int width, int height, Colour ground) : Drawn(width, height, ground), Plain(width, height, ground) {}
};

void Draw(Pair& both, const Shape& shape, FillMode mode = FillMode::Solid) {
    Surface& surface = both.Drawn;
    surface.ForeColor = Rgb(1, 2, Between(0, 255));
    surface.FillColor = Rgb(200, 100, Between(0, 255));
    surface.FillStyle = mode;
    Polygon(surface, shape);
    both.Plain.Draw(shape, surface.ForeColor, surface.FillColor, mode);
}

/// Two ways down with a bend in each, by edges as pieces have them; they may cross.
Shape SomePlainShape() {
    const int top = Between(-2, 12), height = Between(0, 14);
    Shape shape;
    for (const int side : {0, 1}) {
        const int bend = Between(0, height), x = Between(5, 35), middle = x + Between(-1, 1) * bend;
        Shape way = {
            {x, top}, {middle, top + bend}, {middle + Between(-1, 1) * (height - bend), top + height}};
        if (side == 1) std::reverse(way.begin(), way.end());
        shape.insert(shape.end(), way.begin(), way.end());
    }
    return shape;
}

/// Up to 11 vertices, often knots, or with vertices that meet; now and then beyond all bounds.
Shape SomeShape() {
    if (Between(0, 2) == 0) return SomePlainShape();
    constexpr std::array Far = {INT_MIN, INT_MIN + 1, INT_MAX - 1, INT_MAX};
    const bool far = Between(0, 3) == 0;
    const int reach = Between(1, 30);
    Shape shape(static_cast<std::size_t>(Between(1, 11)));
    for (Vertex& vertex : shape) {
        vertex = {20 + Between(-reach, reach), 15 + Between(-reach, reach)};
        for (int* place : {&vertex.X, &vertex.Y})
            if (far && Between(0, 1)) *place = Between(0, 1) ? Far[Between(0, 3)] : Between(INT_MIN, INT_MAX);
    }
    return shape;
}

double SomePlace() {
    return Between(0, 9) == 0 ? 1e10 * Between(-1, 1) : Between(-60, 300) / 8.0;
}

void DrawSomeBox(Pair& both) {
    Surface& surface = both.Drawn;
    surface.FillStyle = Between(0, 1) ? FillMode::Solid : FillMode::None;
    surface.FillColor = Rgb(9, Between(0, 255), 9);
    surface.UnitsPerPixel = Between(0, 1) ? 1 : 15;
    const int units = surface.UnitsPerPixel;
    const double x1 = SomePlace(), y1 = SomePlace(), x2 = SomePlace(), y2 = SomePlace();
    const Colour edge = Rgb(Between(0, 255), 8, 8);
    surface.Line(x1 * units, y1 * units, x2 * units, y2 * units, edge);
    both.Plain.Box(x1, y1, x2, y2, edge, surface.FillColor, surface.FillStyle);
}

void CopySomething(Pair& both) {
    Pair source(Between(1, 40), Between(1, 40), Rgb(7, 7, 7));
    Draw(source, SomeShape());
    std::array<int, 6> numbers;
    for (int& number : numbers) number = Between(-20, 40);
    if (Between(0, 3) == 0) numbers[Between(0, 5)] = Between(0, 1) ? INT_MIN : INT_MAX;
    const auto& [x, y, width, height, fromX, fromY] = numbers;
    BitBlt(both.Drawn, x, y, width, height, source.Drawn, fromX, fromY);
    for (int row = 0; row < source.Plain.Height; ++row)
        for (int column = 0; column < source.Plain.Width; ++column) {
            const std::int64_t right = std::int64_t{column} - fromX, down = std::int64_t{row} - fromY;
            if (right < 0 || down < 0 || right >= width || down >= height) continue;
            if (std::abs(x + right) < 1000 && std::abs(y + down) < 1000)
                both.Plain.Set(static_cast<int>(x + right), static_cast<int>(y + down),
                               source.Plain.At(column, row));
        }
}

void DrawSomething(Pair& both) {
    const int kind = Between(0, 8);
    if (kind < 5) Draw(both, SomeShape(), Between(0, 1) ? FillMode::Solid : FillMode::None);
    if (kind == 5 || kind == 6) DrawSomeBox(both);
    if (kind > 6) CopySomething(both);
}

TEST(SurfaceTest, DrawsEveryPixelByTheRuleAndTellsOnceOfEveryRowThatChanged) {
    for (int picture = 0; picture < 1500; ++picture) {
        Pair both(Between(1, 45), Between(1, 45), Rgb(192, 192, 192));
        both.Drawn.TakeChangedRows();
        for (int n = 0; n < 8; ++n) {
            const Reference before = both.Plain;
            DrawSomething(both);
            ASSERT_NO_FATAL_FAILURE(ExpectSame(both.Drawn, both.Plain));
            ASSERT_TRUE(both.Drawn.TakeDueRows().Empty()) << "before it is refreshed";
            const bool refreshed = Between(0, 1);
            if (refreshed) both.Drawn.Refresh();
            const RowRange told = refreshed ? both.Drawn.TakeDueRows() : both.Drawn.TakeChangedRows();
            for (int y = 0; y < both.Plain.Height; ++y)
                for (int x = 0; x < both.Plain.Width; ++x)
                    ASSERT_TRUE(both.Plain.At(x, y) == before.At(x, y) || (told.First <= y && y < told.Last))
                        << y;
            ASSERT_TRUE(both.Drawn.TakeChangedRows().Empty()) << "told already";
        }
    }
}

} // namespace
