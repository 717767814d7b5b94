// The two judgements of the game: whether a piece has the turn that the solution asks for, and whether the
// seven pieces form the figure. They share a file because the first can end in the second.
#pragma once

#include <cstdint>

/// Brings TurnMatched up to date for the piece. Of a pair, whose turns may be taken crosswise, the flag of
/// the partner is set too; where neither turn tells, that one stays. Places play no part. With all seven
/// matched it goes on to CheckSolution.
void CheckPieceTurn(std::int16_t piece);

/// Sets SolvedFlag: the reference points of the seven pieces, measured from the least of them, agree with the
/// solution within 15 pixels; the pairs 0, 1 and 2, 4 in either order. Turns and level play no part.
/// A solved figure is shown, and the board then takes no more mouse events.
void CheckSolution();

/// Draws the solution on the board as one black figure, at the corner of the player's arrangement.
void ShowSolvedFigure();
