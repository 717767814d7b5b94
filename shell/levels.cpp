// Each level's steps, in their order.
#include "shell/levels.h"

#include "core/board_rendering.h"
#include "core/board_window.h"
#include "core/game_state.h"
#include "core/solution_check.h"
#include "files/sound_cues.h"

void Normal_Play() {
    if (Game.PlayLevel == NormalLevel) return;
    if (Game.PlayLevel == VeryEasyLevel) {
        Game.PlayLevel = NormalLevel;
        ShowQuillet();
    }
    Game.PlayLevel = NormalLevel;
    FormMain.PStandard.Caption = "Play difficulty: NORMAL";
    PlayCue("click2");
    DrawAllPieces();
    FormMain.Picture1.Enabled = true;
}

void Easy_Play() {
    if (Game.PlayLevel == EasyLevel) return;
    if (Game.PlayLevel == VeryEasyLevel) {
        Game.PlayLevel = EasyLevel;
        ShowQuillet();
    }
    Game.PlayLevel = EasyLevel;
    CheckAllTurns();
    FormMain.PStandard.Caption = "Play difficulty: EASY";
    PlayCue("click2");
    DrawAllPieces();
    FormMain.Picture1.Enabled = true;
}

void VeryEasy_Play() {
    if (Game.PlayLevel == VeryEasyLevel) return;
    Game.PlayLevel = VeryEasyLevel;
    FormMain.PStandard.Caption = "Play difficulty: VERY EASY";
    PlayCue("GiveUp");
    DrawAllPieces();
    ShowQuillet();
    FormMain.Picture1.Enabled = true;
}
