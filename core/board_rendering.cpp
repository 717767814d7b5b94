// The board, the pick map and the panel's target.
#include "core/board_rendering.h"

#include "core/board_window.h"
#include "core/panel_window.h"
#include "core/piece_geometry.h"
#include "core/solution_check.h"

#include <algorithm>
#include <string>
#include <utility>

namespace {

void DrawOnBothSurfaces(int piece) {
    Game.DrawX = Game.BoardX0 + Game.PieceX[piece];
    Game.DrawY = Game.BoardY0 + Game.PieceY[piece];
    Game.CurTurn = NearestInt16(Game.PieceTurn[piece]);
    BuildPolygon(piece, Game.CurTurn, Game.DrawX, Game.DrawY, Game.PiecePoly);
    SetPieceBrush(NearestInt16(piece));
    Polygon(FormMain.Picture1.Image, Drawn(Game.PiecePoly));

    Surface& pickMap = FormMain.Image;
    pickMap.FillColor = QBColor(Game.PieceQBColor[piece]);
    pickMap.ForeColor = Game.BoardColor;
    pickMap.FillStyle = FillMode::Solid;
    Polygon(pickMap, Drawn(Game.PiecePoly));
}

/// The right and bottom ends of the figure as it was drawn on the staging surface.
struct Extent {
    Number MaxX = 0;
    Number MaxY = 0;
};

Extent DrawFigureOnStage() {
    Surface& stage = Form1.TargetQui[0].Image;
    const auto quillet = static_cast<std::size_t>(NearestInt16(Game.CurrentQuillet));
    Extent extent;
    for (int p = 0; p < PieceCount; ++p) {
        Game.DrawX = 5 + Game.SolX[p][quillet];
        Game.DrawY = 14 + Game.SolY[p][quillet];
        Game.CurTurn = NearestInt16(Game.SolTurn[p][quillet]);
        Game.TurnMatched[p] = Game.FlagOff;
        BuildPolygon(p, Game.CurTurn, Game.DrawX, Game.DrawY, Game.TargetPoly);
        for (std::size_t j = 0; j < ComputedPoints; ++j) {
            extent.MaxX = std::max<Number>(extent.MaxX, Game.TargetPoly[j].X);
            extent.MaxY = std::max<Number>(extent.MaxY, Game.TargetPoly[j].Y);
        }
        const bool inColour = Game.PlayLevel == VeryEasyLevel;
        stage.FillColor = inColour ? QBColor(Game.PieceQBColor[p]) : Game.BlackColor;
        stage.ForeColor = stage.FillColor;
        stage.FillStyle = FillMode::Solid;
        Polygon(stage, Drawn(Game.TargetPoly));
    }
    return extent;
}

/// Copies the figure to the middle of the target. A figure wider or taller than the box is cut on both sides.
void CentreFigure(Extent extent) {
    const float boxW = Single(3500.0 / TwipsPerPixelX());
    const float boxH = Single(3600.0 / TwipsPerPixelY());
    const Number offX = (boxW - extent.MaxX) / 2;
    const Number offY = (boxH - extent.MaxY) / 2;
    BitBlt(Form1.TargetQui[1].Image, NearestInt32(offX), NearestInt32(offY), NearestInt32(boxW - offX),
           NearestInt32(boxH - offY), Form1.TargetQui[0].Image, 0, 0);
}

std::string Decimal(Number number) {
    return std::to_string(NearestInt32(number));
}

} // namespace

void SetPieceBrush(std::int16_t piece) {
    Surface& board = FormMain.Picture1.Image;
    board.FillStyle = FillMode::Solid;
    board.ForeColor = Game.BoardColor;
    board.FillColor = Game.BlackColor;
    if (Game.SolutionShown == Game.FlagOn) board.ForeColor = Game.BlackColor;
    if (Game.PlayLevel == VeryEasyLevel) board.FillColor = QBColor(Game.PieceQBColor[piece]);
    if (Game.PlayLevel == EasyLevel && Game.TurnMatched[piece] == Game.FlagOn) board.FillColor = QBColor(3);
}

void DrawPiece(int piece) {
    DrawOnBothSurfaces(piece);
    FormMain.Picture1.Image.Refresh();
}

void DrawAllPieces() {
    for (int p = 0; p < PieceCount; ++p)
        if (p != Game.ActivePiece) DrawOnBothSurfaces(p);
    if (Game.ActivePiece == -1) FormMain.Picture1.Image.Refresh();
}

void DrawPieceOnTop(int piece) {
    Game.ActivePiece = piece;
    DrawAllPieces();
    DrawPiece(piece);
    Game.ActivePiece = -1;
}

void ErasePolygon(Surface& surface) {
    surface.FillColor = Game.BoardColor;
    surface.ForeColor = Game.BoardColor;
    surface.FillStyle = FillMode::Solid;
    Polygon(surface, Drawn(Game.TargetPoly));
}

void ErasePiece(int piece, Surface& surface) {
    Game.CurTurn = NearestInt16(Game.PieceTurn[piece]);
    BuildPolygon(piece, Game.CurTurn, Game.BoardX0 + Game.PieceX[piece], Game.BoardY0 + Game.PieceY[piece],
                 Game.TargetPoly);
    ErasePolygon(surface);
}

void CheckAllTurns() {
    constexpr Flag NotJudged = -1;
    const Flag before = std::exchange(Game.SolvedFlag, NotJudged);
    for (std::int16_t p = 0; p < PieceCount; ++p) CheckPieceTurn(p);
    const bool solved = Game.SolvedFlag == Game.FlagOn;
    if (Game.SolvedFlag == NotJudged) Game.SolvedFlag = before;
    if (!solved) return;
    FormMain.Picture1.Image.Cls();
    DrawAllPieces();
    FormMain.Picture1.Enabled = true;
}

void ShowQuillet() {
    Form1.TargetQui[1].Image.Cls();
    Form1.TargetQui[0].Image.Cls();
    CentreFigure(DrawFigureOnStage());
    Form1.TargetQui[1].Image.Refresh();
    Form1.TargetQui[1].Visible = true;
    Form1.TargetQui[0].Visible = false;
    Form1.TarQui.Caption =
        "Quillet (" + Decimal(Game.CurrentQuillet) + " of " + Decimal(Game.QuilletCount) + ")";
    FormMain.Caption = "File: " + Game.QuilletFile;
    if (Game.PlayLevel == EasyLevel) CheckAllTurns();
    DrawAllPieces();
}
