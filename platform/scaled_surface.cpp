// Scales a surface by its edges.
#include "platform/scaled_surface.h"

#include <algorithm>
#include <cmath>

namespace {

/// The colour of a pixel of the surface, or of the nearest one inside.
Surface::Pixel PixelAt(const Surface& surface, int x, int y) {
    return surface.Row(std::clamp(y, 0, surface.Height() - 1))[std::clamp(x, 0, surface.Width() - 1)];
}

/// The colour at a point between pixels. Where an edge runs at 45 degrees its steps are cut through their
/// middles: the half of a pixel's corner that lies beyond takes the colour from there. Everything else keeps
/// its pixel's.
Surface::Pixel ColourAt(const Surface& surface, double x, double y) {
    const int column = static_cast<int>(std::floor(x)), row = static_cast<int>(std::floor(y));
    const double right = x - column, down = y - row;
    const int sideX = right < 0.5 ? -1 : 1, sideY = down < 0.5 ? -1 : 1;
    const Surface::Pixel own = PixelAt(surface, column, row);
    if (std::min(right, 1 - right) + std::min(down, 1 - down) >= 0.5) return own;
    const Surface::Pixel beside = PixelAt(surface, column + sideX, row);
    if (beside == own || beside != PixelAt(surface, column, row + sideY)) return own;
    const bool thinLine =
        beside == PixelAt(surface, column - sideX, row) || beside == PixelAt(surface, column, row - sideY);
    const bool goesOn = own == PixelAt(surface, column + sideX, row - sideY)
                        || own == PixelAt(surface, column - sideX, row + sideY);
    return goesOn && !thinLine ? beside : own;
}

/// Whether each pixel of the surface covers as many pixels of the display as any other.
bool IsWholeScale(const DisplayGrid& grid) {
    constexpr double Close = 1e-9;
    const double x = 1 / grid.StepX, y = 1 / grid.StepY;
    return std::abs(x - std::round(x)) < Close && std::abs(y - std::round(y)) < Close;
}

} // namespace

DisplayGrid GridOf(const Surface& surface, int width, int height, RowRange rows) {
    const double stepX = double(surface.Width()) / width, stepY = double(surface.Height()) / height;
    return {0, rows.First, width, rows.Last - rows.First, 0, 0, stepX, stepY};
}

void ScaleSurface(const Surface& surface, const DisplayGrid& grid, Surface::Pixel* pixels,
                  std::ptrdiff_t pixelsOfARow) {
    const bool whole = IsWholeScale(grid);
    for (int row = 0; row < grid.Height; ++row, pixels += pixelsOfARow) {
        const double y = (grid.Top + row + 0.5) * grid.StepY + grid.OriginY;
        for (int column = 0; column < grid.Width; ++column) {
            const double x = (grid.Left + column + 0.5) * grid.StepX + grid.OriginX;
            pixels[column] =
                whole ? PixelAt(surface, int(std::floor(x)), int(std::floor(y))) : ColourAt(surface, x, y);
        }
    }
}
