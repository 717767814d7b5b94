// Connectivity from the pick map, density from the board.
#include "files/quality_checks.h"

#include "core/board_window.h"
#include "core/piece_geometry.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr std::size_t ProbeCount = 8;
constexpr int ProbeDistance = 3;
constexpr Vertex Probes[ProbeCount] = {{+1, -1}, {+1, +1}, {-1, -1}, {-1, +1},
                                       {+1, 0},  {-1, 0},  {0, +1},  {0, -1}};

/// The length of a set that holds all pieces.
constexpr std::size_t FullSetLength = 2 * PieceCount;

/// More than seven pieces ever need.
constexpr int MostWidenings = 12;

std::string Member(int piece) {
    return {' ', static_cast<char>('0' + piece)};
}

bool Holds(const std::string& set, int piece) {
    return set.find(Member(piece)) != std::string::npos;
}

void Include(std::string& set, int piece) {
    if (!Holds(set, piece)) set += Member(piece);
}

std::array<Colour, ProbeCount> ColoursAround(Vertex corner) {
    std::array<Colour, ProbeCount> colours;
    for (std::size_t m = 0; m < ProbeCount; ++m)
        colours[m] = FormMain.Image.Point(corner.X + ProbeDistance * Probes[m].X,
                                          corner.Y + ProbeDistance * Probes[m].Y);
    return colours;
}

void IncludePieceOf(Colour colour, std::string& set) {
    for (int q = 0; q < PieceCount; ++q)
        if (colour == Game.PieceRGB[q]) return Include(set, q);
}

} // namespace

TouchLists Mutual(TouchLists lists) {
    for (int i = 0; i < PieceCount; ++i)
        for (int j = 0; j < PieceCount; ++j)
            if (j != i && Holds(lists[j], i)) Include(lists[i], j);
    return lists;
}

std::string Widened(std::string set, const TouchLists& lists) {
    const std::string before = set;
    for (int k = 0; k < PieceCount; ++k) {
        if (k != 0 && !Holds(before, k)) continue;
        for (int m = 0; m < PieceCount; ++m)
            if (Holds(lists[k], m)) Include(set, m);
    }
    return set;
}

std::int16_t Connection(const TouchLists& lists) {
    for (std::int16_t p = 0; p < PieceCount; ++p)
        if (lists[p].empty()) return p;
    std::string group = lists[0], before;
    for (int widening = 0; widening < MostWidenings && group != before; ++widening) {
        before = group;
        group = Widened(group, lists);
    }
    return before.size() < FullSetLength ? InGroups : AllConnected;
}

double Percentage(double filled, double empty) {
    return std::floor(filled * 100.0 / (empty + filled + 1.0));
}

std::string TouchingPieces(std::int16_t piece) {
    PolygonOfPiece(piece, Game.PiecePoly);
    std::string touching;
    for (const Vertex corner : Drawn(Game.PiecePoly)) {
        const std::array<Colour, ProbeCount> ProbeColor = ColoursAround(corner);
        for (const Colour colour : ProbeColor)
            if (colour != Game.PieceRGB[piece] && colour != Game.BoardColor) IncludePieceOf(colour, touching);
    }
    return touching;
}

void ExpandTouchSet(std::string& set) {
    set = Widened(set, Game.TouchList);
}

void CheckConnected(std::int16_t& result) {
    for (std::int16_t p = 0; p < PieceCount; ++p) Game.TouchList[p] = TouchingPieces(p);
    Game.TouchList = Mutual(Game.TouchList);
    result = Connection(Game.TouchList);
}

double FilledPercent(double left, double top, double right, double bottom) {
    // Steps of one from the left and from the top; a pixel is read at the nearest whole place.
    const std::int32_t firstX = NearestInt32(left), lastX = FloorInt32(right);
    const std::int32_t firstY = NearestInt32(top), lastY = FloorInt32(bottom);
    const double all = std::max(lastX - firstX + 1.0, 0.0) * std::max(lastY - firstY + 1.0, 0.0);
    const double empty = FormMain.Picture1.Image.CountOf(Game.BoardColor, firstX, firstY, lastX, lastY);
    return Percentage(all - empty, empty);
}
