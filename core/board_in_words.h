// What the board shows, for a player who cannot see it.
#pragma once

#include <string>

/// The quillet, the level and the piece last handled; at the easy level, where colour shows it, also how many
/// pieces have their turn.
std::string BoardInWords();
