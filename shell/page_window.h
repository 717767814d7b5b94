// What View All and Print share: a window that is a page of the collection, small figures in a grid, with a
// scroll bar beside it. The figures are drawn straight from the stored solutions.
#pragma once

#include "core/game_state.h"
#include "platform/forms.h"

/// How many quillets lie before the first cell of the page; any number, not only whole rows. Both windows
/// share it.
extern std::int16_t ViewTop;

struct PageWindow : Form {
    ScrollBar VScroll1;
};

/// What the two pages differ in. Grid lines are measured in twips and figures in pixels: these numbers keep
/// the two together.
struct PageLayout {
    PageWindow& Window;
    int Columns;
    int Rows;
    float FigureScale;  ///< a figure's pixel to a pixel of the board
    int GridStep;       ///< side of a cell, in twips
    Number ColumnPitch; ///< from a figure to the next, in pixels
    Number RowPitch;
    /// Sets the colours before a polygon is drawn; none keeps the surface's own.
    void (*SetColours)(Surface& surface);
    /// Writes beside a figure, in the cell at (column, row), both from 1; none writes nothing.
    void (*WriteLabel)(Surface& surface, int quillet, int column, int row);
};

/// Gives the window its design: name, caption, background and the size of its client area, in twips.
void DesignPageWindow(PageWindow& window, const char* name, const char* caption, Colour background,
                      float width, float height);

/// Draws the page that begins after ViewTop. Does not clear the surface.
void DrawPage(const PageLayout& layout);

/// Clears the window and draws its page.
void RedrawPage(const PageLayout& layout);

/// Enables the bar when the collection has more quillets than the page has cells. The bar then ends where the
/// last page begins, counted in full rows of `rowLength`.
void SetBar(ScrollBar& bar, int cells, int rowLength);

/// Hides the window when the key is Esc, and uses the key up.
void HideOnEscape(PageWindow& window, std::int16_t& keyCode);
