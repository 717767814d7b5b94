// What the board shows, for a player who cannot see it.
#pragma once

#include <string>

/// The quillet, the level, the piece last handled, and how many pieces have their turn where the board tells
/// that by colour.
std::string BoardInWords();
