// The turn test and the solution check.
#include "core/solution_check.h"

#include "core/board_rendering.h"
#include "core/board_window.h"
#include "core/piece_geometry.h"

#include <algorithm>
#include <cmath>
#include <tuple>
#include <utility>

namespace {

/// How far a piece may be off, in pixels, in each direction.
constexpr Number Tolerance = 15;

/// The pieces of the pair that this one belongs to.
std::optional<std::pair<int, int>> PairOf(int piece) {
    if (piece == 0 || piece == 1) return std::pair(0, 1);
    if (piece == 2 || piece == 4) return std::pair(2, 4);
    return std::nullopt;
}

/// The matches of a pair whose turns t0 and t1 stand against a and b in the solution; nothing where no turn
/// agrees that could decide. The rows are asked in this order.
std::optional<std::pair<bool, bool>> PairMatch(Number a, Number b, Number t0, Number t1) {
    if (a == t0) return std::pair(true, b == t1);
    if (b == t0) return std::pair(true, a == t1);
    if (b == t1) return std::pair(false, true);
    return std::nullopt;
}

Solution ShownSolution() {
    return SolutionOf(Game, ShownQuillet());
}

void MatchTurn(int piece) {
    Matches matches;
    for (int p = 0; p < PieceCount; ++p) matches[p] = Game.TurnMatched[p] == Game.FlagOn;
    matches = MatchedTurns(Game.PieceTurn, ShownSolution(), piece, matches);
    for (int p = 0; p < PieceCount; ++p) Game.TurnMatched[p] = FlagOf(matches[p]);
}

bool AllFlagsSet() {
    return std::count(Game.TurnMatched.begin(), Game.TurnMatched.end(), Game.FlagOn) == PieceCount;
}

std::optional<Corner> JudgePlaces() {
    const std::optional<Corner> corner = SolvedAt(Game, ShownSolution());
    Game.SolvedFlag = FlagOf(corner.has_value());
    return corner;
}

void ShowSolvedFigure(Corner corner) {
    Surface& board = FormMain.Picture1.Image;
    board.Cls();
    for (int p = 0; p < PieceCount; ++p) {
        PolygonOfSolution(p, corner.X + Game.BoardX0, corner.Y + Game.BoardY0, Game.TargetPoly);
        DrawFilled(board, Game.TargetPoly, Game.BlackColor, QBColor(8));
    }
    board.Refresh();
}

} // namespace

Solution SolutionOf(const Collection& collection, std::size_t quillet) {
    Solution solution;
    for (int p = 0; p < PieceCount; ++p) {
        solution.Turn[p] = collection.SolTurn[p][quillet];
        solution.X[p] = collection.SolX[p][quillet];
        solution.Y[p] = collection.SolY[p][quillet];
    }
    return solution;
}

Matches MatchedTurns(const PerPiece<Number>& turns, const Solution& solution, int piece, Matches before) {
    if (const auto pair = PairOf(piece)) {
        const auto [first, second] = *pair;
        if (const auto match =
                PairMatch(solution.Turn[first], solution.Turn[second], turns[first], turns[second])) {
            std::tie(before[first], before[second]) = *match;
            return before;
        }
    }
    before[piece] = solution.Turn[piece] == turns[piece];
    return before;
}

bool AllTurnsMatch(const PerPiece<Number>& turns, const Solution& solution) {
    Matches matches{};
    for (int p = 0; p < PieceCount; ++p) matches = MatchedTurns(turns, solution, p, matches);
    return std::count(matches.begin(), matches.end(), true) == PieceCount;
}

std::optional<Corner> SolvedAt(const Arrangement& pieces, const Solution& solution) {
    const Corner corner = {*std::min_element(pieces.PieceX.begin(), pieces.PieceX.end()),
                           *std::min_element(pieces.PieceY.begin(), pieces.PieceY.end())};
    const auto fits = [&](int piece, int place) {
        const Number x = pieces.PieceX[piece] - corner.X;
        const Number y = NearestInt16(pieces.PieceY[piece] - corner.Y);
        return std::abs(solution.X[place] - x) <= Tolerance && std::abs(solution.Y[place] - y) <= Tolerance;
    };
    const auto pairFits = [&](int first, int second) {
        return (fits(first, first) && fits(second, second)) || (fits(first, second) && fits(second, first));
    };
    const bool solved = fits(5, 5) && fits(6, 6) && fits(3, 3) && pairFits(0, 1) && pairFits(2, 4);
    return solved ? std::optional(corner) : std::nullopt;
}

void CheckPieceTurn(std::int16_t piece) {
    MatchTurn(piece);
    if (AllFlagsSet()) CheckSolution();
}

void CheckAllTurns() {
    for (int p = 0; p < PieceCount; ++p) {
        MatchTurn(p);
        if (AllFlagsSet()) JudgePlaces();
    }
}

void CheckSolution() {
    const std::optional<Corner> corner = JudgePlaces();
    if (!corner) return;
    ShowSolvedFigure(*corner);
    FormMain.Picture1.Enabled = false;
}
