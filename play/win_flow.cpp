// Applause, reset, next quillet.
#include "play/win_flow.h"

#include "core/board_rendering.h"
#include "core/board_window.h"
#include "core/game_state.h"
#include "core/solution_check.h"
#include "files/sound_cues.h"
#include "platform/desktop.h"

#include <algorithm>

void WinFlow() {
    PlayCue("clap4");
    MsgBox("You got it - congratulations");
    ResetPieces();
    Game.CurrentQuillet += 1;
    if (Game.CurrentQuillet > Game.QuilletCount) Game.CurrentQuillet = 1;
    ShowQuillet();
    CheckAllTurns();
    FormMain.Picture1.Enabled = true;
}

void ResetPieces() {
    PlayCue("whoosh1");
    Game.PieceX = Game.HomeX;
    Game.PieceY = Game.HomeY;
    std::copy(Game.HomeTurn.begin(), Game.HomeTurn.end(), Game.PieceTurn.begin());
    FormMain.Image.Cls();
    FormMain.Picture1.Image.Cls();
    DrawAllPieces();
}
