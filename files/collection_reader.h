// Reads a collection: the piece table at its head, once a run, and the quillets.
//
// The file is text, values separated by commas, lines ended by CR LF (LF is accepted, and so are empty lines
// at the end). Lines 1 to 7: start cell (column, row) of each piece. Lines 8 to 63: a row of 18 values for
// each turn of each piece, the turn running fastest: ignored; sign (below 0: slanted, units of 34 pixels,
// else straight, 24); width; height; two ignored; x and y of five vertices in those units; shift x and y in
// units of 24 pixels. Line 64: free. Line 65: a free field, not empty, without a comma. From line 66: records
// n, left, top, then turn, x, y of each piece; whole numbers, in board pixels. A record with n not above 0 is
// passed over. The number of a quillet is its place among the counted records.
//
// A file that breaks these rules leaves the tables as they were, and one message names file, line and fault.
#pragma once

#include <cstddef>
#include <string>

/// A collection is never larger than this, in bytes.
constexpr std::size_t LargestCollection = 16 << 20;

/// Fills the piece table, home places and home turns from QuilletFile; sets the board's origin to 100.
/// Ends the program with the message when the file is not a collection.
void LoadPieceTable();

/// Fills QuilletCount and the solution tables from QuilletFile; its piece table is only looked at, since the
/// next start will need it. False when the file is not a collection: the message has been shown. More than
/// 500 counted records end the program.
bool LoadQuillets();

/// What is wrong with a collection, with its line; empty when nothing is.
std::string FaultOfCollection(const std::string& text);

/// The message of a collection that can't be read.
void ShowFault(const std::string& fault);
