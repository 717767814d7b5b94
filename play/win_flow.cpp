// Applause, reset, next quillet.
#include "play/win_flow.h"

#include "core/board_rendering.h"
#include "core/board_window.h"
#include "core/game_state.h"
#include "files/sound_cues.h"
#include "platform/desktop.h"

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
    for (int p = 0; p < PieceCount; ++p) {
        Game.PieceX[p] = Game.HomeX[p];
        Game.PieceY[p] = Game.HomeY[p];
        Game.PieceTurn[p] = Game.HomeTurn[p];
    }
    FormMain.Image.Cls();
    FormMain.Picture1.Image.Cls();
    DrawAllPieces();
}
