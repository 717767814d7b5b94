// The collection file: the figures in playing order, as the game reads them.
// Places are whole pixels on the board.
#pragma once

#include "source.h"

namespace Figures {

// The arrangement in board pixels.
struct Record {
    int left, top; // least x and y of all corners
    struct Piece {
        int turn, x, y;
    };
    std::array<Piece, PieceCount> pieces;
};

// Left and top of every figure on the board.
constexpr int FigureLeft = 60;
constexpr int FigureTop = 60;

Record RecordOf(const Layout& layout);

// The order of play: every kind from easy to hard, the kinds mixed in proportion, the two of a pair together.
std::vector<Figure> InPlayingOrder(const std::vector<Figure>& figures);

// Pictures, geometry or finds.
std::string_view KindName(const Figure& figure);

// The whole file.
std::string WriteCollection(const std::vector<Figure>& figures);

} // namespace Figures
