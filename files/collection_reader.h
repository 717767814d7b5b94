// Loads the collection that QuilletFile names, and changes it. A file that breaks the rules of the format
// leaves the tables as they were, and one message names file, line and fault.
#pragma once

#include "platform/files.h"

#include <functional>
#include <string>

/// Where Remove leaves the new content of the collection, in the current folder.
constexpr const char* TemporaryFile = "QuiFile.tmp";

/// The end of a message about a collection that cannot be used: names the temporary file if that holds a
/// whole collection, else is empty.
std::string HintAtTemporary();

/// Fills the piece table and takes the pieces home; sets the board's origin to 100. Where the file is no
/// whole collection, a message says so and the program ends.
void LoadPieceTable();

/// Fills QuilletCount and the solution tables. False after a message when the file is no whole collection.
/// More than 500 quillets end the program.
bool LoadQuillets();

/// Gives the file the text that `change` makes of its present one. No other copy of the game reads or changes
/// the file meanwhile; a file that is no whole collection stays as it is. `change` can refuse with an error.
FileError ChangeCollection(const std::function<FileError(std::string& text)>& change);
