// Turning and nudging by keys.
#include "play/keyboard_play.h"

#include "core/board_rendering.h"
#include "core/board_window.h"
#include "core/game_state.h"
#include "core/piece_geometry.h"
#include "play/mouse_play.h"

namespace {

constexpr std::int16_t TabKey = 9;
constexpr std::int16_t ShiftKey = 1;
constexpr std::int16_t CtrlKey = 2;

/// Which pieces a key moves, and how far.
struct Nudge {
    int FirstPiece;
    int LastPiece;
    Number Dx = 0;
    Number Dy = 0;
};

Nudge NudgeFor(std::int16_t keyCode, std::int16_t shift) {
    Nudge nudge{Game.LastPiece, Game.LastPiece};
    if (shift == CtrlKey) nudge = {0, PieceCount - 1};
    const Number step = shift == ShiftKey ? 5 : 1;
    switch (keyCode) {
    case 37:
    case 100:
        nudge.Dx = -step;
        break;
    case 39:
    case 102:
        nudge.Dx = step;
        break;
    case 38:
    case 104:
        nudge.Dy = -step;
        break;
    case 40:
    case 98:
        nudge.Dy = step;
        break;
    default:
        break;
    }
    return nudge;
}

} // namespace

void Picture1_KeyDown(std::int16_t& KeyCode, std::int16_t Shift) {
    if (Game.ActivePiece != -1) return;
    if (KeyCode == TabKey) {
        TurnPiece(Game.LastPiece);
        return;
    }
    const Nudge nudge = NudgeFor(KeyCode, Shift);
    for (int p = nudge.FirstPiece; p <= nudge.LastPiece; ++p) {
        ErasePiece(p, FormMain.Image);
        Game.PieceX[p] += nudge.Dx;
        Game.PieceY[p] += nudge.Dy;
    }
    FormMain.Picture1.Image.Cls();
    DrawAllPieces();
}
