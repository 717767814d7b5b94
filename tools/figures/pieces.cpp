// Outlines of the seven pieces: one row given for each piece, the others by turning it.
// The rows are made once, at first use.
#include "pieces.h"

#include <algorithm>

namespace Figures {
namespace {

using Corners = std::vector<Point>;

Corners FirstRow(int piece) {
    static const std::vector<std::vector<std::array<int, 2>>> units = {
        {{0, 0}, {4, 0}, {0, 4}},         {{0, 0}, {4, 0}, {0, 4}}, {{0, 0}, {2, 0}, {0, 2}},
        {{0, 0}, {2, 0}, {2, 2}, {0, 2}}, {{0, 0}, {2, 0}, {0, 2}}, {{2, 0}, {4, 2}, {0, 2}},
        {{0, 0}, {2, 0}, {4, 2}, {2, 2}},
    };
    Corners corners;
    for (const auto& [x, y] : units[piece]) corners.push_back({{x * UnitGrains, 0}, {y * UnitGrains, 0}});
    return corners;
}

Corners Mirrored(Corners corners) {
    for (Point& corner : corners) corner = Mirrored(corner);
    std::reverse(corners.begin(), corners.end());
    return corners;
}

Corners OutlineOf(int piece, int turn) {
    Corners corners = FirstRow(piece);
    if (piece == Slope && turn >= 4) {
        corners = Mirrored(corners);
        turn -= 4;
    }
    if (piece == Square) turn %= 2;
    for (; turn > 0; turn--)
        for (Point& corner : corners) corner = Turned(corner);
    return corners;
}

Shape MakeShape(int piece, int turn) {
    Shape shape{OutlineOf(piece, turn), {}, turn % 2 == 1, {}};
    const Spans raw = SpansOf(shape.corners);
    const Point least{raw[0].least, raw[2].least};
    for (Point& corner : shape.corners) corner = corner - least;
    shape.spans = SpansOf(shape.corners);
    shape.size = {shape.spans[0].most, shape.spans[2].most};
    return shape;
}

std::vector<Shape> MakeShapes() {
    std::vector<Shape> shapes;
    for (int piece = 0; piece < PieceCount; piece++)
        for (int turn = 0; turn < TurnCount; turn++) shapes.push_back(MakeShape(piece, turn));
    return shapes;
}

} // namespace

const Shape& ShapeOf(int piece, int turn) {
    static const std::vector<Shape> shapes = MakeShapes();
    return shapes[piece * TurnCount + turn];
}

std::vector<Point> CornersOf(int piece, const Placed& placed) {
    Corners corners = ShapeOf(piece, placed.turn).corners;
    for (Point& corner : corners) corner = corner + placed.at;
    return corners;
}

Spans SpansOf(int piece, const Placed& placed) {
    return Moved(ShapeOf(piece, placed.turn).spans, placed.at);
}

Box BoxOf(const Layout& layout) {
    Box box{layout[0].at, layout[0].at};
    for (int piece = 0; piece < PieceCount; piece++) {
        const Point least = layout[piece].at;
        const Point most = least + ShapeOf(piece, layout[piece].turn).size;
        box.least = {std::min(box.least.x, least.x), std::min(box.least.y, least.y)};
        box.most = {std::max(box.most.x, most.x), std::max(box.most.y, most.y)};
    }
    return box;
}

} // namespace Figures
