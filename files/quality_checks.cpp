// Connectivity from the pick map, density from the board.
#include "files/quality_checks.h"

#include "core/board_window.h"
#include "core/game_state.h"
#include "core/piece_geometry.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr std::size_t ProbeCount = 8;
constexpr int ProbeDistance = 3;
constexpr Vertex Probes[ProbeCount] = {{+1, -1}, {+1, +1}, {-1, -1}, {-1, +1},
                                       {+1, 0},  {-1, 0},  {0, +1},  {0, -1}};

/// A set that holds all pieces, as a text.
constexpr std::size_t FullSetLength = 2 * PieceCount;

constexpr std::int16_t AllConnected = -1;
constexpr std::int16_t InGroups = -99;
constexpr int MostWidenings = 12;

PerPiece<std::string> TouchList;

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

void MakeMutual() {
    for (int i = 0; i < PieceCount; ++i)
        for (int j = 0; j < PieceCount; ++j)
            if (j != i && Holds(TouchList[j], i)) Include(TouchList[i], j);
}

} // namespace

std::string TouchingPieces(std::int16_t piece) {
    Game.DrawX = Game.BoardX0 + Game.PieceX[piece];
    Game.DrawY = Game.BoardY0 + Game.PieceY[piece];
    Game.CurTurn = NearestInt16(Game.PieceTurn[piece]);
    BuildPolygon(piece, Game.CurTurn, Game.DrawX, Game.DrawY, Game.PiecePoly);
    std::string touching;
    for (const Vertex corner : Drawn(Game.PiecePoly))
        for (const Colour colour : ColoursAround(corner))
            if (colour != Game.PieceRGB[piece] && colour != Game.BoardColor) IncludePieceOf(colour, touching);
    return touching;
}

void ExpandTouchSet(std::string& set) {
    const std::string before = set;
    for (int k = 0; k < PieceCount; ++k) {
        if (k != 0 && !Holds(before, k)) continue;
        for (int m = 0; m < PieceCount; ++m)
            if (Holds(TouchList[k], m)) Include(set, m);
    }
}

void CheckConnected(std::int16_t& result) {
    result = AllConnected;
    for (std::int16_t p = 0; p < PieceCount; ++p) TouchList[p] = TouchingPieces(p);
    MakeMutual();
    for (std::int16_t p = 0; p < PieceCount; ++p)
        if (TouchList[p].empty()) {
            result = p;
            return;
        }
    std::string group = TouchList[0], before;
    for (int widening = 0; widening < MostWidenings && group != before; ++widening) {
        before = group;
        ExpandTouchSet(group);
    }
    if (before.size() < FullSetLength) result = InGroups;
}

double FilledPercent(double left, double top, double right, double bottom) {
    // Steps of one from the left and from the top; a pixel is read at the nearest whole place.
    const std::int32_t firstX = NearestInt32(left), lastX = FloorInt32(right);
    const std::int32_t firstY = NearestInt32(top), lastY = FloorInt32(bottom);
    const double all = std::max(lastX - firstX + 1.0, 0.0) * std::max(lastY - firstY + 1.0, 0.0);
    const double empty = FormMain.Picture1.Image.CountOf(Game.BoardColor, firstX, firstY, lastX, lastY);
    return std::floor((all - empty) * 100.0 / (all + 1.0));
}
