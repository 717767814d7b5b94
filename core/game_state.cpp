// The one instance of the shared record.
#include "core/game_state.h"

GameState Game;
