// A surface at the scale of a display.
#pragma once

#include "platform/surface.h"

/// A rectangle of a display's pixels, and where they lie on a surface. The same pixel of the display has the
/// same colour whatever rectangle it is in.
struct DisplayGrid {
    int Left = 0;
    int Top = 0;
    int Width = 0;
    int Height = 0;
    /// The point of the surface, in its pixels, at the corner of the display's pixel (0, 0).
    double OriginX = 0;
    double OriginY = 0;
    /// How far it is from there to the next.
    double StepX = 1;
    double StepY = 1;
};

/// The grid of rows First to Last - 1 of a display's picture, whose size shows all of the surface.
DisplayGrid GridOf(const Surface& surface, int width, int height, RowRange rows);

/// Fills the grid's pixels, row by row. Each pixel of the surface is repeated, or, where the scale is a
/// fraction, each edge gets the steps of the display; no colours are ever mixed.
void ScaleSurface(const Surface& surface, const DisplayGrid& grid, Surface::Pixel* pixels,
                  std::ptrdiff_t pixelsOfARow);
