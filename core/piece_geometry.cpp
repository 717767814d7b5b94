// Outlines and turn steps, straight from the tables.
#include "core/piece_geometry.h"

void BuildPolygon(int piece, int turn, Number originX, Number originY, PolygonPoints& polygon) {
    for (std::size_t j = 0; j < ComputedPoints; ++j) {
        polygon[j].X = NearestInt32(originX + Game.PieceShape[2 * j + 1][piece][turn]);
        polygon[j].Y = NearestInt32(originY + Game.PieceShape[2 * j + 2][piece][turn]);
    }
}

std::span<const Vertex> Drawn(const PolygonPoints& polygon) {
    return std::span(polygon).first<DrawnPoints>();
}

void StepTurn(int piece) {
    Number& turn = Game.PieceTurn[piece];
    turn = turn + 1;
    if (turn > 7) turn = 0;
    if (piece == 3 && turn > 1) turn = 0;
    const int entered = NearestInt16(turn);
    Game.PieceX[piece] += Game.TurnShiftX[piece][entered];
    Game.PieceY[piece] += Game.TurnShiftY[piece][entered];
}
