// The turn test and the solution check.
#include "core/solution_check.h"

#include "core/board_window.h"
#include "core/piece_geometry.h"

#include <algorithm>
#include <cmath>

namespace {

std::int16_t Tolerance;
Number MinX, MinY;
PerPiece<Number> RelX;
PerPiece<std::int16_t> RelY;

std::size_t Shown() {
    return static_cast<std::size_t>(NearestInt16(Game.CurrentQuillet));
}

/// The turns of a pair against the solution's, in either order. False, and no flag touched, when neither
/// piece has a turn that tells.
bool MatchPair(int first, int second) {
    const Number a = Game.SolTurn[first][Shown()], b = Game.SolTurn[second][Shown()];
    const Number t0 = Game.PieceTurn[first], t1 = Game.PieceTurn[second];
    const Flag on = NearestInt16(Game.FlagOn);
    const auto set = [&](Flag firstFlag, Flag secondFlag) {
        Game.TurnMatched[first] = firstFlag;
        Game.TurnMatched[second] = secondFlag;
        return true;
    };
    if (a == t0 && b == t1) return set(on, on);
    if (a == t0) return set(on, Game.FlagOff);
    if (b == t0 && a == t1) return set(on, on);
    if (b == t0) return set(on, Game.FlagOff);
    if (b == t1) return set(Game.FlagOff, on);
    return false;
}

void MatchTurn(int piece) {
    Game.TurnMatched[piece] = Game.FlagOff;
    if ((piece == 0 || piece == 1) && MatchPair(0, 1)) return;
    if ((piece == 2 || piece == 4) && MatchPair(2, 4)) return;
    if (Game.SolTurn[piece][Shown()] == Game.PieceTurn[piece])
        Game.TurnMatched[piece] = NearestInt16(Game.FlagOn);
}

void MeasureArrangement() {
    MinX = *std::min_element(Game.PieceX.begin(), Game.PieceX.end());
    MinY = *std::min_element(Game.PieceY.begin(), Game.PieceY.end());
    for (int p = 0; p < PieceCount; ++p) {
        RelX[p] = Game.PieceX[p] - MinX;
        RelY[p] = NearestInt16(Game.PieceY[p] - MinY);
    }
}

bool Fits(int piece, int place) {
    return std::abs(Game.SolX[place][Shown()] - RelX[piece]) <= Tolerance
           && std::abs(Game.SolY[place][Shown()] - RelY[piece]) <= Tolerance;
}

bool PairFits(int first, int second) {
    return (Fits(first, first) && Fits(second, second)) || (Fits(first, second) && Fits(second, first));
}

} // namespace

void CheckPieceTurn(std::int16_t piece) {
    MatchTurn(piece);
    if (std::count(Game.TurnMatched.begin(), Game.TurnMatched.end(), Game.FlagOn) == PieceCount)
        CheckSolution();
}

void CheckSolution() {
    Game.SolvedFlag = Game.FlagOff;
    Tolerance = 15;
    MeasureArrangement();
    if (!Fits(5, 5) || !Fits(6, 6) || !Fits(3, 3)) return;
    if (!PairFits(0, 1) || !PairFits(2, 4)) return;
    Game.SolvedFlag = NearestInt16(Game.FlagOn);
    ShowSolvedFigure();
    FormMain.Picture1.Enabled = false;
}

void ShowSolvedFigure() {
    Surface& board = FormMain.Picture1.Image;
    board.Cls();
    for (int p = 0; p < PieceCount; ++p) {
        Game.CurTurn = NearestInt16(Game.SolTurn[p][Shown()]);
        Game.DrawX = Game.SolX[p][Shown()] + MinX + Game.BoardX0;
        Game.DrawY = Game.SolY[p][Shown()] + MinY + Game.BoardY0;
        BuildPolygon(p, Game.CurTurn, Game.DrawX, Game.DrawY, Game.TargetPoly);
        board.FillColor = Game.BlackColor;
        board.ForeColor = QBColor(8);
        board.FillStyle = FillMode::Solid;
        Polygon(board, Drawn(Game.TargetPoly));
    }
    board.Refresh();
}
