// The settings file: which collection was open and where the two windows stood, from one run to the next.
// It has two lines, in the program's folder. Line 1 is the file name of the collection, without a folder; in
// double quotes if it holds a comma or a double quote, or begins or ends with a blank. Line 2 is left and top
// of the panel, left and top of the board, in twips; -1 in the first place means that none are stored.
#pragma once

#include <array>
#include <string>

struct Settings {
    std::string CollectionName = "QUILLET.qui";
    /// Panel left, panel top, board left, board top.
    std::array<float, 4> Placement = {-1, -1, -1, -1};
};

/// Makes the file with its defaults if it is missing or empty.
void EnsureSettings();

/// What the file holds, and the default for what cannot be read. Where line 1 holds control characters or a
/// byte order mark, all are the defaults.
Settings ReadSettings();

/// Stores the name of the collection in memory and these places (panel left, panel top, board left, board
/// top). A name with control characters, which no line can hold, is not stored. On failure a message says so,
/// and the old file stays.
void WriteSettings(const std::array<float, 4>& placement);
