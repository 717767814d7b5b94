// Writes the shape rows. A piece turns about its centre of gravity: every turn has one absolute place for the
// reference point, rounded to whole eighths of a unit, and the shifts are the differences, so nothing drifts.
#include "rows.h"

#include "pieces.h"

#include <algorithm>
#include <cmath>
#include <sstream>

namespace Figures {
namespace {

constexpr int ShiftPixels = 3;
constexpr double ShiftUnits = static_cast<double>(ShiftPixels) / StraightPixels;

struct Steps {
    int x, y; // in steps of three pixels
};

int RoundedSteps(double pixels) {
    return static_cast<int>(std::lround(pixels / ShiftPixels));
}

// Where the reference point lies when the centre of gravity lies at the origin.
Steps PlaceInTurn(int piece, int turn) {
    const auto& corners = ShapeOf(piece, turn).corners;
    double x = 0, y = 0;
    for (const Point& corner : corners) {
        x += Pixels(corner.x);
        y += Pixels(corner.y);
    }
    const auto count = static_cast<double>(corners.size());
    return {RoundedSteps(-x / count), RoundedSteps(-y / count)};
}

Steps ShiftInto(int piece, int turn) {
    const int used = UsedTurns(piece);
    const Steps here = PlaceInTurn(piece, turn % used);
    const Steps before = PlaceInTurn(piece, (turn + used - 1) % used);
    return {here.x - before.x, here.y - before.y};
}

std::int64_t Units(Surd value, bool slanted) {
    return (slanted ? value.root : value.whole) / UnitGrains;
}

std::string WriteRow(int piece, int turn) {
    const Shape& shape = ShapeOf(piece, turn);
    const Steps shift = ShiftInto(piece, turn);
    std::ostringstream row;
    const auto writePair = [&](Point p) {
        row << ',' << Units(p.x, shape.slanted) << ',' << Units(p.y, shape.slanted);
    };
    row << turn << (shape.slanted ? ",-1" : ",1");
    writePair(shape.size);
    row << ",0,0";
    for (std::size_t i = 0; i < 4; i++) writePair(shape.corners[std::min(i, shape.corners.size() - 1)]);
    writePair(shape.corners[0]);
    row << ',' << shift.x * ShiftUnits << ',' << shift.y * ShiftUnits << "\r\n";
    return row.str();
}

} // namespace

std::string WriteHead() {
    std::ostringstream head;
    for (const auto& [column, row] : StartCells) head << column << ',' << row << "\r\n";
    for (int piece = 0; piece < PieceCount; piece++)
        for (int turn = 0; turn < TurnCount; turn++) head << WriteRow(piece, turn);
    head << "Quillets: start places, shapes and figures\r\nfigures\r\n";
    return head.str();
}

} // namespace Figures
