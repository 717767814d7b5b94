// What the mouse does on the board: the left button drags a piece, the right one turns it.
// A piece is found by its colour on the pick map. A piece in hand is a white outline until it is dropped; the
// drop is the only place where a position is judged. All places are board pixels.
#pragma once

#include "core/game_state.h"

/// Whether a piece may be dropped where it lies: its rectangle in the present turn within the playing area,
/// limits included.
bool InPlayingArea(const Arrangement& pieces, int piece, const PieceTable& table);

void Picture1_MouseDown(std::int16_t Button, std::int16_t Shift, float X, float Y);
void Picture1_MouseMove(std::int16_t Button, std::int16_t Shift, float X, float Y);
void Picture1_MouseUp(std::int16_t Button, std::int16_t Shift, float X, float Y);

/// No release will follow the press: the piece goes back to where its drag began.
void Picture1_MouseLost();

/// One turn step, shown on top, with its cue; a turn that completes the figure wins like a drop.
void TurnPiece(int piece);
