// Where the game keeps its files.
#pragma once

#include <string>

/// The folder of the executable if it can be written; otherwise (an installed game) the player's own
/// $XDG_DATA_HOME/quillets, into which every shipped file that is missing there is copied first. It becomes
/// the current folder of the process.
std::string ProgramFolder();
