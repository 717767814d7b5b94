// The board, the pick map and the panel's target.
#include "core/board_rendering.h"

#include "core/board_window.h"
#include "core/panel_window.h"
#include "core/piece_geometry.h"
#include "core/solution_check.h"

#include <algorithm>
#include <string>

namespace {

void DrawOnBothSurfaces(int piece) {
    PolygonOfPiece(piece, Game.PiecePoly);
    SetPieceBrush(NearestInt16(piece));
    Polygon(FormMain.Picture1.Image, Drawn(Game.PiecePoly));
    DrawFilled(FormMain.Image, Game.PiecePoly, QBColor(Game.PieceQBColor[piece]), Game.BoardColor);
}

/// The corner of the figure on the staging surface, in pixels. CentreFigure copies these margins along, so a
/// figure stands 2.5 pixels right of the middle of the box and 7 below it, clear of the frame and its
/// caption.
constexpr Number StageLeft = 5;
constexpr Number StageTop = 14;

/// The box in which the figure is centred, in twips. The target is larger, 3680 by 4152: a figure that
/// reaches over the box is still shown there.
constexpr double BoxWidth = 3500;
constexpr double BoxHeight = 3600;

/// The right and bottom ends of the figure as it was drawn on the staging surface.
struct Extent {
    Number MaxX = 0;
    Number MaxY = 0;
};

Extent DrawFigureOnStage() {
    Extent extent;
    for (int p = 0; p < PieceCount; ++p) {
        Game.TurnMatched[p] = Game.FlagOff;
        PolygonOfSolution(p, StageLeft, StageTop, Game.TargetPoly);
        for (std::size_t j = 0; j < ComputedPoints; ++j) {
            extent.MaxX = std::max<Number>(extent.MaxX, Game.TargetPoly[j].X);
            extent.MaxY = std::max<Number>(extent.MaxY, Game.TargetPoly[j].Y);
        }
        const bool inColour = Game.PlayLevel == VeryEasyLevel;
        const Colour ink = inColour ? QBColor(Game.PieceQBColor[p]) : Game.BlackColor;
        DrawFilled(Form1.TargetQui[0].Image, Game.TargetPoly, ink, ink);
    }
    return extent;
}

/// Copies the figure to the middle of the target. A figure wider or taller than the box is cut on both sides.
void CentreFigure(Extent extent) {
    const float boxW = Single(BoxWidth / TwipsPerPixelX());
    const float boxH = Single(BoxHeight / TwipsPerPixelY());
    const Number offX = (boxW - extent.MaxX) / 2;
    const Number offY = (boxH - extent.MaxY) / 2;
    BitBlt(Form1.TargetQui[1].Image, NearestInt32(offX), NearestInt32(offY), NearestInt32(boxW - offX),
           NearestInt32(boxH - offY), Form1.TargetQui[0].Image, 0, 0);
}

std::string Decimal(Number number) {
    return std::to_string(NearestInt32(number));
}

} // namespace

std::string NumberOfQuillet() {
    return "Quillet (" + Decimal(Game.CurrentQuillet) + " of " + Decimal(Game.QuilletCount) + ")";
}

void DrawFilled(Surface& surface, const PolygonPoints& polygon, Colour fill, Colour outline) {
    surface.FillColor = fill;
    surface.ForeColor = outline;
    surface.FillStyle = FillMode::Solid;
    Polygon(surface, Drawn(polygon));
}

void SetPieceBrush(std::int16_t piece) {
    Surface& board = FormMain.Picture1.Image;
    board.FillStyle = FillMode::Solid;
    board.ForeColor = Game.BoardColor;
    board.FillColor = Game.BlackColor;
    if (Game.SolutionShown == Game.FlagOn) board.ForeColor = Game.BlackColor;
    if (Game.PlayLevel == VeryEasyLevel) board.FillColor = QBColor(Game.PieceQBColor[piece]);
    if (Game.PlayLevel == EasyLevel && Game.TurnMatched[piece] == Game.FlagOn) board.FillColor = QBColor(3);
}

void DrawPiece(Number piece) {
    DrawOnBothSurfaces(NearestInt16(piece));
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
    DrawFilled(surface, Game.TargetPoly, Game.BoardColor, Game.BoardColor);
}

void ErasePiece(int piece, Surface& surface) {
    PolygonOfPiece(piece, Game.TargetPoly);
    ErasePolygon(surface);
}

void ShowQuillet() {
    Form1.TargetQui[1].Image.Cls();
    Form1.TargetQui[0].Image.Cls();
    CentreFigure(DrawFigureOnStage());
    Form1.TargetQui[1].Image.Refresh();
    Form1.TargetQui[1].Visible = true;
    Form1.TargetQui[0].Visible = false;
    Form1.TarQui.Caption = NumberOfQuillet();
    FormMain.Caption = "File: " + Game.QuilletFile;
    if (Game.PlayLevel == EasyLevel) CheckAllTurns();
    DrawAllPieces();
}
