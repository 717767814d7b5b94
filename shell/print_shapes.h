// Print: a page of 20 numbered figures, as a puzzle or with its solution. The window is the page.
#pragma once

#include "platform/forms.h"
#include "shell/page_drawing.h"

struct PrintWindow : Form {
    ScrollBar VScroll1;
};

extern PrintWindow PrintShapes;

/// Flag: the edges of the pieces are drawn.
extern std::int16_t PrintShowSolution;

/// Sets the window back to its design.
void DesignPrintShapes();

/// How a page of the window is laid out.
PageLayout PrintPage();

/// Draws the page that begins after ViewTop; does not clear the window.
void DrawPrintPage();

/// The panel's menu item: opens the window at the first page, as silhouettes.
void px_Click();
