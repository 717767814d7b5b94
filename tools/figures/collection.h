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

// What a figure is: a picture, geometry or a find; and its family within the kind, which a page of the
// gallery shows.
std::string_view KindName(const Figure& figure);
std::string_view FamilyName(const Figure& figure);

// Whether a family has figures of that category.
bool IsCategory(std::string_view category);

// All families in the order of the gallery.
std::vector<std::string_view> FamilyNames();

// The figure that the help builds step by step.
constexpr std::string_view FirstFigure = "Swan";

// A figure is easy when its outline tells how the pieces lie: many corners, and many pieces that stick out.
int EaseOf(const Layout& layout);

// How many pieces have more than half of their rim on the outline.
int PiecesSticking(const Layout& layout);

// The order of play: every family from easy to hard, the families mixed in proportion, the two of a pair
// together, and in every row of the overview the wide figures left.
std::vector<Figure> InPlayingOrder(const std::vector<Figure>& figures);

// The overview shows rows of eight; its figures stand wider apart than its cells, so every column leaves
// less.
constexpr std::array<int, 8> ColumnWidths = {237, 228, 220, 212, 203, 195, 187, 179};

// The names of the figures that are wider than their column, in this order of play.
std::vector<std::string> CutFigures(const std::vector<Figure>& ordered);

// The whole file.
std::string WriteCollection(const std::vector<Figure>& figures);

} // namespace Figures
