// One figure a cell, one polygon a piece, with the grid drawn as each cell comes.
#include "shell/page_drawing.h"

#include "core/piece_geometry.h"

std::int16_t ViewTop = 0;

namespace {

/// How far a figure lies from the corner of its cell, in twips.
constexpr Number Inset = 100;
/// How far the dark lines lie from the light ones, in twips.
constexpr Number Etching = 8;

struct Cell {
    int Column;
    int Row;
};

void BuildThumbnail(const PageLayout& layout, int piece, std::size_t quillet, Cell cell) {
    const auto turn = static_cast<std::size_t>(NearestInt16(Game.SolTurn[piece][quillet]));
    const Number ox = Game.SolX[piece][quillet] + 1;
    const Number oy = Game.SolY[piece][quillet] + 1;
    const float dx = Single(Inset / TwipsPerPixelX());
    const std::int16_t dy = NearestInt16(Inset / TwipsPerPixelY());
    for (std::size_t j = 0; j < ComputedPoints; ++j) {
        const Number x = FloorNumber(layout.FigureScale * (Game.PieceShape[2 * j + 1][piece][turn] + ox));
        const Number y = FloorNumber(layout.FigureScale * (Game.PieceShape[2 * j + 2][piece][turn] + oy));
        Game.TargetPoly[j].X = NearestInt32(x + dx + layout.ColumnPitch * (cell.Column - 1));
        Game.TargetPoly[j].Y = NearestInt32(y + dy + layout.RowPitch * (cell.Row - 1));
    }
}

/// Light lines and dark ones beside them look etched. Each rectangle reaches up to the top of the page: those
/// of all rows together are the grid.
void DrawGrid(const PageLayout& layout, Cell cell) {
    Surface& surface = layout.Page.Image;
    const Number left = layout.GridStep * (cell.Column - 1), right = layout.GridStep * cell.Column;
    const Number bottom = layout.GridStep * cell.Row;
    const Number e = Game.ScreenScaleX * Etching;
    surface.FillStyle = FillMode::None;
    surface.Line(left, 0, right, bottom, QBColor(15));
    surface.Line(e + left, e, e + right, e + bottom, QBColor(8));
    surface.FillStyle = FillMode::Solid;
}

void DrawFigure(const PageLayout& layout, int quillet, Cell cell) {
    Surface& surface = layout.Page.Image;
    for (int p = 0; p < PieceCount; ++p) {
        BuildThumbnail(layout, p, static_cast<std::size_t>(quillet), cell);
        DrawGrid(layout, cell);
        if (layout.SetColours) layout.SetColours(surface);
        Polygon(surface, Drawn(Game.TargetPoly));
        if (layout.Label) layout.Label(surface, quillet, cell.Column, cell.Row);
    }
}

} // namespace

void DrawPage(const PageLayout& layout) {
    FitImage(layout.Page);
    int n = ViewTop;
    for (int row = 1; row <= layout.Rows; ++row)
        for (int column = 1; column <= layout.Columns; ++column) {
            n = n + 1;
            if (n > Game.QuilletCount) return;
            DrawFigure(layout, n, {column, row});
        }
}
