// Print: a page of 20 numbered figures, as a puzzle or with the solution. What the window shows is printed.
#pragma once

#include "shell/page_window.h"

extern PageWindow PrintShapes;

/// Flag: the edges of the pieces are drawn.
extern std::int16_t PrintShowSolution;

/// Sets the window back to its design.
void DesignPrintShapes();

/// How a page of the window is laid out.
PageLayout PrintShapesPage();

/// Draws the page that begins after ViewTop; does not clear the window.
void DrawPrintPage();

/// The panel's menu item: opens the window at the first page, as silhouettes.
void px_Click();
