// The settings file: which collection was open and where the two windows stood, from one run to the next.
// Two lines in the program's folder: the collection's file name, without a folder (in double quotes where it
// holds a comma or a double quote, or begins or ends with a blank), and left and top of the panel, left and
// top of the board, in twips; -1 in the first place: none stored.
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

/// What the file holds; the default for whatever can't be read.
Settings ReadSettings();

/// Puts the name of the collection in memory and these places (panel left, panel top, board left, board top)
/// into the file. On failure a message tells it, and the old file stays.
void WriteSettings(const std::array<float, 4>& placement);
