// The board in words. They tell what the eye can see and nothing more.
#include "core/board_in_words.h"

#include "core/board_rendering.h"
#include "core/board_window.h"
#include "core/game_state.h"

#include <algorithm>
#include <array>

std::string BoardInWords() {
    static constexpr std::array<const char*, PieceCount> Names = {
        "first large triangle",  "second large triangle", "first small triangle", "square",
        "second small triangle", "middle triangle",       "parallelogram"};
    const auto last = static_cast<std::size_t>(Game.LastPiece);
    std::string words =
        NumberOfQuillet() + ", " + FormMain.PStandard.Caption + ", piece last handled: " + Names.at(last);
    if (Game.PlayLevel == EasyLevel) {
        const auto turned = std::count(Game.TurnMatched.begin(), Game.TurnMatched.end(), Game.FlagOn);
        words += ", pieces with their final turn: " + std::to_string(turned) + " of 7";
    }
    return words;
}
