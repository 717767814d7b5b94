// The format of a collection: from text to the parts of the game's record, and back.
//
// The file is text: values separated by commas, lines ended by CR LF. LF alone is accepted too, and so are
// empty lines between records and at the end.
//   Lines 1 to 7     start cell (column, row) of each piece
//   Lines 8 to 63    a row of 18 values for each turn of each piece, the turn running fastest: ignored; sign
//                    (below 0: slanted, units of 34 pixels, else straight, 24); width; height; two ignored; x
//                    and y of five vertices in those units; shift x and y in units of 24 pixels
//   Line 64          free
//   Line 65          a free field, not empty, without a comma
//   From line 66     records: n, left, top, then turn, x, y of each piece; whole numbers, in board pixels
// A record with n not above 0 does not count. The number of a quillet is its place among those that count.
#pragma once

#include "core/game_state.h"

#include <cstddef>
#include <string>
#include <string_view>

/// A collection is never larger than this, in bytes.
constexpr std::size_t LargestCollection = 16 << 20;

/// The origin of the board, on both axes, while the piece table is read. The start places keep it.
constexpr Number StartOrigin = 100;

/// What is wrong with a text, with its line: "Line 7: a number is missing". Empty when nothing is.
using Fault = std::string;

/// Reads lines 1 to 63. The table is complete only where there is no fault.
Fault ReadPieceTable(std::string_view text, PieceTable& table);

/// Reads the records of a whole file, of which the piece table is only checked, since the next start needs
/// it. The collection is complete only where there is no fault. The count may be above 500: the first 500
/// records are in the tables then.
Fault ReadCollection(std::string_view text, Collection& collection);

/// The fault of a whole file.
Fault FaultOfCollection(std::string_view text);

/// A figure where it lay on the board when it was appended: the corner of its box and its seven pieces.
struct Figure {
    Number Left = 0;
    Number Top = 0;
    Arrangement Pieces;
};

/// The line of the figure in a collection, with its end.
std::string RecordText(Number number, const Figure& figure);

/// The text with a record added. A last line without an end gets one first.
std::string WithRecord(std::string_view text, const std::string& record);

/// The text of a whole file without its record number `dropped`, counted among all records. The others are
/// numbered 1, 2, 3 and so on; lines 1 to 64 are copied as they are.
std::string WithoutRecord(std::string_view text, Number dropped);
