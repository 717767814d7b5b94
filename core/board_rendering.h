// All drawing of pieces and figures. Every piece is drawn twice with the same polygon: on the board in the
// colours of the level, and on the pick map in its own key colour. One pixel read there tells which piece
// lies under the mouse. Pieces are drawn in the order of their numbers; the piece in hand is left out.
#pragma once

#include "core/game_state.h"

#include <string>

/// Sets the board's fill and outline for the piece, by level, matched turn and shown solution.
void SetPieceBrush(std::int16_t piece);

/// Draws the polygon of a piece, filled and outlined in these colours.
void DrawFilled(Surface& surface, const PolygonPoints& polygon, Colour fill, Colour outline);

/// Draws the piece on both surfaces and refreshes the board.
void DrawPiece(Number piece);

/// Draws all pieces but ActivePiece on both surfaces, over what is there; refreshes the board if no piece is
/// active.
void DrawAllPieces();

/// Draws the piece over all the others.
void DrawPieceOnTop(int piece);

/// Paints TargetPoly over in the board's colour, outline and inside.
void ErasePolygon(Surface& surface);

/// Builds TargetPoly for the piece at its present place and erases it from the surface.
void ErasePiece(int piece, Surface& surface);

/// Shows the current quillet in the panel's target, with its number and the collection's name in the
/// captions, and draws the pieces. Moves no piece and does not clear the board.
void ShowQuillet();

/// The shown quillet and how many there are, as the panel's caption counts them: "Quillet (3 of 12)".
std::string NumberOfQuillet();
