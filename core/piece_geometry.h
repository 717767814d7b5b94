// The outline of a piece for a place and a turn, and the step to its next turn.
// There is no rotation arithmetic: each turn of each piece is a row of the table read from the collection.
#pragma once

#include "core/game_state.h"

/// Fills the first five points, in pixels, for a piece whose reference point lies at (originX, originY).
void BuildPolygon(int piece, int turn, Number originX, Number originY, PolygonPoints& polygon);

/// The points of a polygon that are drawn.
std::span<const Vertex> Drawn(const PolygonPoints& polygon);

/// Takes the piece to its next turn, by the shift of the turn entered.
void StepTurn(int piece);
