// The two measures of a new figure, both taken from pixels: whether its pieces hang together, and how densely
// they fill their box. They only lead to warnings.
#pragma once

#include "core/game_state.h"

#include <cstdint>
#include <string>

/// Which pieces touch each piece. A set of pieces is a text: each member a blank and a digit.
using TouchLists = PerPiece<std::string>;

/// The lists with each contact in the lists of both pieces.
TouchLists Mutual(TouchLists lists);

/// The set with all pieces that its members, or piece 0, touch.
std::string Widened(std::string set, const TouchLists& lists);

constexpr std::int16_t AllConnected = -1;
constexpr std::int16_t InGroups = -99;

/// Judges mutual lists: AllConnected, InGroups, or 0 to 6 for the first piece that touches none.
std::int16_t Connection(const TouchLists& lists);

/// How many percent of the pixels are filled, rounded down; never 100.
double Percentage(double filled, double empty);

/// The pieces near the corners of the piece, as the pick map shows them at eight probes 3 pixels around each
/// corner. Sets DrawX, DrawY, CurTurn and PiecePoly.
std::string TouchingPieces(std::int16_t piece);

/// Widens the set by TouchList.
void ExpandTouchSet(std::string& set);

/// Fills TouchList from the pick map, which must show the pieces at their present places; answers their
/// Connection.
void CheckConnected(std::int16_t& result);

/// The percentage of pixels in the box on the board, edges included, that are not bare board.
double FilledPercent(double left, double top, double right, double bottom);
