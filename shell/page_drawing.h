// Pages of a collection, straight from the stored solutions: small figures in a grid, for View All and for
// printing.
#pragma once

#include "core/game_state.h"
#include "platform/forms.h"

/// How many quillets lie before the first cell of the page; any number, not only whole rows. Shared by both
/// views.
extern std::int16_t ViewTop;

/// What the two views differ in. The grid lines are measured in twips, the figures in pixels, so that the two
/// keep their places to each other only through these numbers.
struct PageLayout {
    Form& Page;
    int Columns;
    int Rows;
    float FigureScale;
    int GridStep;
    Number ColumnPitch;
    Number RowPitch;
    /// Sets the colours before a polygon is drawn; none keeps the surface's own.
    void (*SetColours)(Surface& surface);
    /// Writes beside a figure, in the cell at (column, row), both from 1; none writes nothing.
    void (*Label)(Surface& surface, int quillet, int column, int row);
};

/// Draws the page that begins after ViewTop. Does not clear the surface.
void DrawPage(const PageLayout& layout);
