// Where the game keeps its files.
#pragma once

#include <string>

/// The folder of the executable if it can be written; for an installed game, whose data files lie elsewhere
/// or cannot be written, the player's own $XDG_DATA_HOME/quillets. Into that, each shipped file is copied
/// that is missing there, or that is newer than the one which the player has left as it was. The folder
/// becomes the current folder of the process.
std::string ProgramFolder();
