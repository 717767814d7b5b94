// Outlines and turn steps, straight from the tables.
#include "core/piece_geometry.h"

namespace {

void BuildAt(int piece, Number turn, Number x, Number y, PolygonPoints& polygon) {
    Game.DrawX = x;
    Game.DrawY = y;
    Game.CurTurn = NearestInt16(turn);
    BuildPolygon(piece, Game.CurTurn, Game.DrawX, Game.DrawY, polygon);
}

} // namespace

void BuildPolygon(int piece, int turn, Number originX, Number originY, PolygonPoints& polygon) {
    for (std::size_t j = 0; j < ComputedPoints; ++j) {
        polygon[j].X = NearestInt32(originX + Game.PieceShape[2 * j + 1][piece][turn]);
        polygon[j].Y = NearestInt32(originY + Game.PieceShape[2 * j + 2][piece][turn]);
    }
}

void PolygonOfPiece(int piece, PolygonPoints& polygon) {
    BuildAt(piece, Game.PieceTurn[piece], Game.BoardX0 + Game.PieceX[piece],
            Game.BoardY0 + Game.PieceY[piece], polygon);
}

void PolygonOfSolution(int piece, Number left, Number top, PolygonPoints& polygon) {
    const std::size_t quillet = ShownQuillet();
    BuildAt(piece, Game.SolTurn[piece][quillet], left + Game.SolX[piece][quillet],
            top + Game.SolY[piece][quillet], polygon);
}

std::span<const Vertex> Drawn(const PolygonPoints& polygon) {
    return std::span(polygon).first<DrawnPoints>();
}

Arrangement Turned(Arrangement pieces, int piece, const PieceTable& table) {
    Number turn = pieces.PieceTurn[piece] + 1;
    if (turn > 7) turn = 0;
    if (piece == 3 && turn > 1) turn = 0;
    const int entered = NearestInt16(turn);
    pieces.PieceTurn[piece] = turn;
    pieces.PieceX[piece] += table.TurnShiftX[piece][entered];
    pieces.PieceY[piece] += table.TurnShiftY[piece][entered];
    return pieces;
}

void StepTurn(int piece) {
    static_cast<Arrangement&>(Game) = Turned(Game, piece, Game);
}
