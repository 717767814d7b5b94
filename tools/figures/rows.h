// The head of the collection file: start places, shape rows and the two free lines.
// All of it is made from the outlines of the pieces.
#pragma once

#include <array>
#include <string>

namespace Figures {

// Start place of a piece on the 24-pixel grid.
struct Cell {
    int column, row;
};
constexpr std::array<Cell, 7> StartCells = {{{-3, -2}, {5, -2}, {6, 5}, {2, -1}, {-2, 5}, {1, 3}, {1, 8}}};

// Lines 1 to 65 of the file.
std::string WriteHead();

} // namespace Figures
