// The one instance of the shared record.
#include "core/game_state.h"

#include <algorithm>

GameState Game;

Flag FlagOf(bool set) {
    return set ? NearestInt16(Game.FlagOn) : Game.FlagOff;
}

std::size_t ShownQuillet() {
    return static_cast<std::size_t>(std::clamp<int>(NearestInt32(Game.CurrentQuillet), 0, MostQuillets));
}
