// The seven pieces and their outlines in every turn.
// Offsets count from the reference point, the top left corner of the upright box around the outline.
#pragma once

#include "exact.h"

#include <array>
#include <vector>

namespace Figures {

constexpr int PieceCount = 7;
constexpr int TurnCount = 8;
constexpr int Square = 3;
constexpr int Slope = 6;

struct Shape {
    std::vector<Point> corners; // clockwise on the screen
    Spans spans;
    bool slanted;
    Point size;
};

// Number of turns of a piece that the game uses: two for the square, eight for all others.
constexpr int UsedTurns(int piece) {
    return piece == Square ? 2 : TurnCount;
}

// The lower numbered piece with the same outlines: 0 for 0 and 1, 2 for 2 and 4, else the piece itself.
constexpr int KindOf(int piece) {
    return piece == 1 ? 0 : piece == 4 ? 2 : piece;
}

// The outline of a piece (0 to 6) in a turn (0 to 7).
const Shape& ShapeOf(int piece, int turn);

struct Placed {
    int turn = 0;
    Point at; // reference point
};

// All seven pieces, indexed by piece number.
using Layout = std::array<Placed, PieceCount>;

std::vector<Point> CornersOf(int piece, const Placed& placed);
Spans SpansOf(int piece, const Placed& placed);

// The smallest upright box around a layout.
struct Box {
    Point least, most;
};
Box BoxOf(const Layout& layout);

} // namespace Figures
