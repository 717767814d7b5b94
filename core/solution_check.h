// The two judgements of the game: whether a piece has the turn that the solution asks for, and whether the
// seven pieces form the figure. First the rules, from values to an answer; then the procedures that put the
// answers into the record and on the board. They share a file because the first judgement can lead to the
// second.
#pragma once

#include "core/game_state.h"

#include <optional>

/// The solution of one quillet: turn and reference point of each piece, in pixels from the figure's left and
/// top edge.
struct Solution {
    PerPiece<Number> Turn{};
    PerPiece<Number> X{};
    PerPiece<std::int16_t> Y{};
};

Solution SolutionOf(const Collection& collection, std::size_t quillet);

/// For each piece whether its turn agrees with the solution.
using Matches = PerPiece<bool>;

/// The matches after the piece was judged. Twins are judged together, their turns in either order: when one
/// of the two agrees, both matches are set; when none does, the twin's is unchanged. Places play no part.
Matches MatchedTurns(const PerPiece<Number>& turns, const Solution& solution, int piece, Matches before);

/// Whether the turns of all seven pieces agree with the solution, those of twins in either order.
bool AllTurnsMatch(const PerPiece<Number>& turns, const Solution& solution);

/// A corner of the arrangement: the least PieceX and the least PieceY, perhaps of two pieces.
struct Corner {
    Number X = 0;
    Number Y = 0;
};

/// Where the pieces form the figure: the corner of the arrangement, or nothing. Each reference point,
/// measured from that corner, lies within 15 pixels of the solution in each direction; twins may stand for
/// each other. Turns play no part.
std::optional<Corner> SolvedAt(const Arrangement& pieces, const Solution& solution);

/// Brings TurnMatched up to date for the piece. When all seven are set it goes on to CheckSolution.
void CheckPieceTurn(std::int16_t piece);

/// Brings TurnMatched up to date for all pieces. When all seven are set, SolvedFlag is judged as well, but
/// nothing is shown: nobody waits for a solved figure here, and the board can be played on.
void CheckAllTurns();

/// Sets SolvedFlag by the places of the pieces. A solved figure is shown as one black figure at the corner of
/// the player's arrangement, and the board then takes no more mouse events.
void CheckSolution();
