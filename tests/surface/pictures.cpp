// The second rasteriser, which asks of every single pixel whether it belongs, in exact arithmetic.
#include "pictures.h"

#include "core/piece_geometry.h"
#include "files/collection_reader.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <iostream>
#include <random>

namespace {

__extension__ using Wide = __int128;

/// How far the edge lies to the right of the pixel in the pixel's row, times the edge's height, which is
/// negative for an edge that runs upward.
Wide Lead(Vertex a, Vertex b, Vertex pixel) {
    return (Wide(a.X) - pixel.X) * (Wide(b.Y) - a.Y) + (Wide(pixel.Y) - a.Y) * (Wide(b.X) - a.X);
}

/// The edge leads or trails the pixel's point by half a pixel at most; a lead of just half is the next
/// pixel's.
bool IsOn(Vertex a, Vertex b, Vertex pixel) {
    if (std::abs(std::int64_t{a.X} - b.X) > std::abs(std::int64_t{a.Y} - b.Y))
        return IsOn({a.Y, a.X}, {b.Y, b.X}, {pixel.Y, pixel.X});
    if (a == b) return pixel == a;
    if (a.Y > b.Y) std::swap(a, b);
    const Wide height = Wide(b.Y) - a.Y, twiceLead = 2 * Lead(a, b, pixel);
    return a.Y <= pixel.Y && pixel.Y <= b.Y && -height <= twiceLead && twiceLead < height;
}

char LetterByTheRule(const Shape& shape, Vertex pixel) {
    bool inside = false;
    for (std::size_t i = 0; i < shape.size(); ++i) {
        const Vertex a = shape[i], b = shape[(i + 1) % shape.size()];
        if (IsOn(a, b, pixel)) return '#';
        const bool meetsRow = (a.Y <= pixel.Y) != (b.Y <= pixel.Y);
        if (meetsRow && (Lead(a, b, pixel) > 0) == (a.Y < b.Y)) inside = !inside;
    }
    return inside ? '+' : '.';
}

char Letter(Surface::Pixel pixel) {
    return pixel == 0xFFC0C0C0 ? '.' : pixel == 0xFF010203 ? '#' : pixel == 0xFFC86432 ? '+' : '?';
}

} // namespace

void PrintTo(Vertex vertex, std::ostream* out) {
    *out << '(' << vertex.X << ", " << vertex.Y << ')';
}

Picture PictureOf(const Surface& surface) {
    Picture picture;
    for (int y = 0; y < surface.Height(); ++y, picture += '\n')
        for (int x = 0; x < surface.Width(); ++x) picture += Letter(surface.Row(y)[x]);
    return picture;
}

Picture ByTheRule(const Shape& shape, int width, int height) {
    Picture picture;
    for (int y = 0; y < height; ++y, picture += '\n')
        for (int x = 0; x < width; ++x) picture += LetterByTheRule(shape, {x, y});
    return picture;
}

void Draw(Surface& surface, const Shape& shape, FillMode mode) {
    surface.ForeColor = Outline;
    surface.FillColor = Inside;
    surface.FillStyle = mode;
    Polygon(surface, shape);
}

Picture Painted(const Shape& shape, int width, int height) {
    Surface surface(width, height, Ground);
    Draw(surface, shape);
    return PictureOf(surface);
}

Shape Moved(Shape shape, int dx, int dy) {
    for (Vertex& vertex : shape) vertex = {vertex.X + dx, vertex.Y + dy};
    return shape;
}

std::vector<Shape> PieceRows() {
    Game.QuilletFile = DATA_FOLDER "/QUILLET.qui";
    LoadPieceTable();
    std::vector<Shape> rows;
    for (int row = 0; row < PieceCount * TurnCount; ++row) {
        PolygonPoints points;
        BuildPolygon(row / TurnCount, row % TurnCount, 0, 0, points);
        rows.emplace_back(Drawn(points).begin(), Drawn(points).end());
    }
    return rows;
}

int Between(int low, int high) {
    static std::mt19937 dice = [] {
        const int seed = testing::UnitTest::GetInstance()->random_seed();
        std::cout << "seed " << seed << '\n';
        return std::mt19937(static_cast<unsigned>(seed));
    }();
    return std::uniform_int_distribution(low, high)(dice);
}

std::vector<Shape> RandomShapes(int count) {
    std::vector<Shape> shapes(static_cast<std::size_t>(count));
    for (Shape& shape : shapes) {
        const int reach = Between(1, 30);
        shape.resize(static_cast<std::size_t>(Between(1, 11)));
        for (Vertex& v : shape) v = {20 + Between(-reach, reach), 15 + Between(-reach, reach)};
    }
    return shapes;
}
