// Copy: every piece moves to its place in the solution.
#include "play/copy_to_board.h"

#include "core/board_rendering.h"
#include "core/board_window.h"
#include "core/game_state.h"
#include "core/piece_geometry.h"
#include "core/solution_check.h"
#include "files/sound_cues.h"

namespace {

/// How far the figure lies from the board's origin, in pixels.
constexpr Number Inset = 50;

} // namespace

void CopyToBoard() {
    PlayCue("whoosh1");
    FormMain.Picture1.Image.Cls();
    FormMain.Image.Cls();
    const Solution solution = SolutionOf(Game, ShownQuillet());
    for (int p = 0; p < PieceCount; ++p) {
        Game.PieceX[p] = solution.X[p] + Inset;
        Game.PieceY[p] = solution.Y[p] + Inset;
        Game.PieceTurn[p] = solution.Turn[p];
        PolygonOfPiece(p, Game.TargetPoly);
        DrawFilled(FormMain.Picture1.Image, Game.TargetPoly, Game.BlackColor, Game.BlackColor);
        DrawFilled(FormMain.Image, Game.TargetPoly, QBColor(Game.PieceQBColor[p]), Game.BoardColor);
    }
    Game.SolutionShown = Game.FlagOn;
    DrawAllPieces();
    FormMain.Picture1.Image.Refresh();
}
