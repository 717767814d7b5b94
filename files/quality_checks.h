// The two measures of a new figure, both taken from pixels: whether its pieces hang together, and how densely
// they fill their box. They only ever lead to a warning.
#pragma once

#include <cstdint>
#include <string>

/// The pieces near the corners of the piece, as the pick map shows them at eight probes 3 pixels around each
/// corner. A set of pieces is a text: each member a blank and a digit.
std::string TouchingPieces(std::int16_t piece);

/// Widens the set by the pieces that its members, or piece 0, touch.
void ExpandTouchSet(std::string& set);

/// -1 when all seven pieces hang together; 0 to 6 the first piece that touches none; -99 when they fall into
/// groups. Needs the pick map to show the pieces at their present places.
void CheckConnected(std::int16_t& result);

/// How many percent of the box's pixels on the board, edges included, are not bare board. Never 100.
double FilledPercent(double left, double top, double right, double bottom);
