// The design of a page, its figures, and its scroll bar.
#include "shell/page_window.h"

#include "core/piece_geometry.h"
#include "platform/desktop.h"

#include <algorithm>

std::int16_t ViewTop = 0;

namespace {

/// How far a figure lies from the corner of its cell, in twips.
constexpr Number Inset = 100;
/// How far the dark lines lie from the light ones, in twips.
constexpr Number Etching = 8;

constexpr std::int16_t EscapeKey = 27;

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

/// A light line and a dark one beside it look etched. Each rectangle reaches up to the top of the page; those
/// of all rows together make the grid.
void DrawGrid(const PageLayout& layout, Cell cell) {
    Surface& surface = layout.Window.Image;
    const Number left = layout.GridStep * (cell.Column - 1), right = layout.GridStep * cell.Column;
    const Number bottom = layout.GridStep * cell.Row;
    const Number e = Game.ScreenScaleX * Etching;
    surface.FillStyle = FillMode::None;
    surface.Line(left, 0, right, bottom, QBColor(15));
    surface.Line(e + left, e, e + right, e + bottom, QBColor(8));
    surface.FillStyle = FillMode::Solid;
}

void DrawFigure(const PageLayout& layout, int quillet, Cell cell) {
    Surface& surface = layout.Window.Image;
    for (int p = 0; p < PieceCount; ++p) {
        BuildThumbnail(layout, p, static_cast<std::size_t>(quillet), cell);
        DrawGrid(layout, cell);
        if (layout.SetColours) layout.SetColours(surface);
        Polygon(surface, Drawn(Game.TargetPoly));
        if (layout.WriteLabel) layout.WriteLabel(surface, quillet, cell.Column, cell.Row);
    }
}

} // namespace

void DesignPageWindow(PageWindow& window, const char* name, const char* caption, Colour background,
                      float width, float height) {
    window.Name = name;
    window.Caption = caption;
    window.CloseBox = true;
    window.InTaskBar = false;
    window.Centred = true;
    window.ShowsImage = true;
    window.Image.BackColor = background;
    window.Image.UnitsPerPixel = TwipsPerPixelX();
    Resize(window, width + FrameWidth(window.Border), height + FrameHeight(window.Border));
    window.VScroll1.SmallChange = window.VScroll1.LargeChange = 8;
    window.VScroll1.Max = 496;
    window.Controls = {&window.VScroll1};
}

void DrawPage(const PageLayout& layout) {
    FitImage(layout.Window);
    int n = ViewTop;
    for (int row = 1; row <= layout.Rows; ++row)
        for (int column = 1; column <= layout.Columns; ++column) {
            n = n + 1;
            if (n > Game.QuilletCount) return;
            DrawFigure(layout, n, {column, row});
        }
}

void RedrawPage(const PageLayout& layout) {
    layout.Window.Image.Cls();
    DrawPage(layout);
}

void SetBar(ScrollBar& bar, int cells, int rowLength) {
    bar.Enabled = Game.QuilletCount > cells;
    if (bar.Enabled) bar.Max = NearestInt16(std::ceil(Game.QuilletCount / rowLength) * rowLength - cells);
    // Print scrolls further than View All, so the page can lie beyond this bar's end.
    bar.Value = std::min(ViewTop, bar.Max);
}

void HideOnEscape(PageWindow& window, std::int16_t& keyCode) {
    if (keyCode != EscapeKey) return;
    keyCode = 0;
    HideForm(window);
}
