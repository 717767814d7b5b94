// The panel's Copy.
#include "play/copy_to_board.h"

#include "core/board_rendering.h"
#include "core/board_window.h"
#include "core/game_state.h"
#include "core/piece_geometry.h"
#include "files/sound_cues.h"

namespace {

/// How far the figure lies from the origin of the board.
constexpr Number Inset = 50;

void FillTarget(Surface& surface, Colour fill, Colour outline) {
    surface.FillColor = fill;
    surface.ForeColor = outline;
    surface.FillStyle = FillMode::Solid;
    Polygon(surface, Drawn(Game.TargetPoly));
}

} // namespace

void CopyToBoard() {
    PlayCue("whoosh1");
    FormMain.Picture1.Image.Cls();
    FormMain.Image.Cls();
    const auto quillet = static_cast<std::size_t>(NearestInt16(Game.CurrentQuillet));
    for (int p = 0; p < PieceCount; ++p) {
        Game.PieceX[p] = Game.SolX[p][quillet] + Inset;
        Game.PieceY[p] = Game.SolY[p][quillet] + Inset;
        Game.PieceTurn[p] = Game.SolTurn[p][quillet];
        BuildPolygon(p, NearestInt16(Game.PieceTurn[p]), Game.BoardX0 + Game.PieceX[p],
                     Game.BoardY0 + Game.PieceY[p], Game.TargetPoly);
        FillTarget(FormMain.Picture1.Image, Game.BlackColor, Game.BlackColor);
        FillTarget(FormMain.Image, QBColor(Game.PieceQBColor[p]), Game.BoardColor);
    }
    Game.SolutionShown = Game.FlagOn;
    DrawAllPieces();
    FormMain.Picture1.Image.Refresh();
}
