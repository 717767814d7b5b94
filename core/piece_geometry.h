// The outline of a piece for a place and a turn, and the step to its next turn.
// There is no rotation arithmetic: each turn of each piece is a row of the table read from the collection.
#pragma once

#include "core/game_state.h"

/// Fills the first five points, in pixels, for a piece whose reference point lies at (originX, originY).
void BuildPolygon(int piece, int turn, Number originX, Number originY, PolygonPoints& polygon);

/// The polygon of a piece where it lies on the board. Leaves its origin and turn in DrawX, DrawY, CurTurn.
void PolygonOfPiece(int piece, PolygonPoints& polygon);

/// The polygon of a piece as the solution of the shown quillet lays it, with the figure's corner at (left,
/// top). Leaves its origin and turn in DrawX, DrawY, CurTurn.
void PolygonOfSolution(int piece, Number left, Number top, PolygonPoints& polygon);

/// The points of a polygon that are drawn.
std::span<const Vertex> Drawn(const PolygonPoints& polygon);

/// The pieces with this one in its next turn, moved by the shift of the turn entered.
Arrangement Turned(Arrangement pieces, int piece, const PieceTable& table);

/// Takes the piece on the board to its next turn.
void StepTurn(int piece);
