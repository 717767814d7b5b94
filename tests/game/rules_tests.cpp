// The rules of play, asked with plain values.
#include "core/piece_geometry.h"
#include "core/solution_check.h"
#include "play/mouse_play.h"

#include <gtest/gtest.h>

namespace {

/// A figure whose pieces all lie far from each other, and the pieces that form it with their corner at
/// (30, 40). No two pieces have the same turn.
const Solution Figure = {
    {0, 1, 2, 3, 4, 5, 6}, {0, 40, 80, 120, 160, 200, 240}, {240, 200, 160, 120, 80, 40, 0}};
const Arrangement Built = {{30, 70, 110, 150, 190, 230, 270}, {280, 240, 200, 160, 120, 80, 40}, {}};

TEST(RulesTest, EachPieceMayLieFifteenPixelsOffInEachDirection) {
    const std::tuple<int, int, bool> cases[] = {{15, -15, true}, {-15, 15, true}, {16, 0, false},
                                                {-16, 0, false}, {0, 16, false},  {0, -16, false}};
    for (int p = 0; p < PieceCount; ++p)
        for (const auto& [dx, dy, solved] : cases) {
            Arrangement pieces = Built;
            pieces.PieceX[p] += dx;
            pieces.PieceY[p] += dy;
            EXPECT_EQ(SolvedAt(pieces, Figure).has_value(), solved) << p << " is off by " << dx << ", " << dy;
        }
}

TEST(RulesTest, TwinsAloneMayChangePlacesAndTheFigureLiesWhereItsPiecesDo) {
    const auto exchange = [](Arrangement& pieces, int a, int b) {
        std::swap(pieces.PieceX[a], pieces.PieceX[b]);
        std::swap(pieces.PieceY[a], pieces.PieceY[b]);
    };
    for (int a = 0; a < PieceCount; ++a)
        for (int b = 0; b < a; ++b) {
            Arrangement pieces = Built;
            exchange(pieces, a, b);
            const bool twins = (b == 0 && a == 1) || (b == 2 && a == 4);
            EXPECT_EQ(SolvedAt(pieces, Figure).has_value(), twins) << a << " in the place of " << b;
            pieces.PieceX[a] = pieces.PieceX[b];
            pieces.PieceY[a] = pieces.PieceY[b];
            EXPECT_FALSE(SolvedAt(pieces, Figure)) << a << " on " << b;
        }
    Arrangement bothPairs = Built;
    exchange(bothPairs, 0, 1);
    exchange(bothPairs, 2, 4);
    const Corner corner = SolvedAt(bothPairs, Figure).value_or(Corner{});
    EXPECT_EQ(std::pair(corner.X, corner.Y), std::pair(30., 40.));
}

TEST(RulesTest, TheTurnsOfTwinsMatchInEitherOrder) {
    struct {
        Number TurnA, TurnB; ///< of the twins, where the solution has 3 and 5
        bool MatchedA, MatchedB;
    } const cases[] = {{3, 5, true, true},  {3, 6, true, false}, {3, 3, true, false}, {5, 3, true, true},
                       {5, 6, true, false}, {5, 5, true, false}, {6, 5, false, true}};
    for (const auto& [a, b] : {std::pair(0, 1), {2, 4}})
        for (const int asked : {a, b}) {
            Solution solution;
            PerPiece<Number> turns{};
            solution.Turn[a] = 3;
            solution.Turn[b] = 5;
            for (const auto& [turnA, turnB, matchedA, matchedB] : cases) {
                turns[a] = turnA;
                turns[b] = turnB;
                Matches expected{};
                expected[a] = matchedA;
                expected[b] = matchedB;
                EXPECT_EQ(MatchedTurns(turns, solution, asked, {}), expected) << turnA << " and " << turnB;
            }
            turns[a] = 6;
            turns[b] = 3;
            const Matches all = {true, true, true, true, true, true, true};
            Matches butAsked = all;
            butAsked[asked] = false;
            EXPECT_EQ(MatchedTurns(turns, solution, asked, all), butAsked) << "nothing decides for the twin";
        }
}

TEST(RulesTest, AllTurnsMatchWhenEachPieceHasItsOwnAndTwinsHaveTheirsInAnyOrder) {
    EXPECT_TRUE(AllTurnsMatch({0, 1, 2, 3, 4, 5, 6}, Figure));
    EXPECT_TRUE(AllTurnsMatch({1, 0, 4, 3, 2, 5, 6}, Figure));
    for (int p = 0; p < PieceCount; ++p) {
        PerPiece<Number> turns = Figure.Turn;
        turns[p] = 7;
        EXPECT_FALSE(AllTurnsMatch(turns, Figure)) << p << " is turned";
    }
    EXPECT_FALSE(AllTurnsMatch({0, 0, 2, 3, 4, 5, 6}, Figure)) << "both twins have the turn of one";
    EXPECT_FALSE(AllTurnsMatch({0, 1, 2, 5, 4, 3, 6}, Figure)) << "other pieces are no twins";
}

TEST(RulesTest, ATurnGoesToTheNextRowAndMovesThePieceByTheShiftOfThatRow) {
    PieceTable table;
    for (int p = 0; p < PieceCount; ++p) {
        Arrangement expected = Built, pieces = Built;
        for (int step = 1, turns = p == 3 ? 2 : 8; step <= turns; ++step) {
            const auto entered = static_cast<std::size_t>(step % turns);
            table.TurnShiftX[p][entered] = 10 * step;
            table.TurnShiftY[p][entered] = NearestInt16(-step);
            expected.PieceTurn[p] = Number(entered);
            expected.PieceX[p] += 10 * step;
            expected.PieceY[p] -= step;
            pieces = Turned(pieces, p, table);
            EXPECT_EQ(pieces.PieceTurn, expected.PieceTurn) << p;
            EXPECT_EQ(pieces.PieceX, expected.PieceX) << p << " in turn " << entered;
            EXPECT_EQ(pieces.PieceY, expected.PieceY) << p << " in turn " << entered;
        }
    }
}

TEST(RulesTest, APieceMayBeDroppedUpToTheLimitsByItsSizeInThePresentTurn) {
    PieceTable table;
    table.PieceWidth[5][6] = 100;
    table.PieceHeight[5][6] = 50;
    const std::tuple<int, int, bool> cases[] = {{20, 20, true},   {19, 20, false},   {20, 19, false},
                                                {230, 315, true}, {231, 315, false}, {230, 316, false}};
    for (const auto& [x, y, allowed] : cases) {
        Arrangement pieces;
        pieces.PieceX[5] = x;
        pieces.PieceY[5] = y;
        pieces.PieceTurn[5] = 6;
        EXPECT_EQ(InPlayingArea(pieces, 5, table), allowed) << x << ", " << y;
    }
}

} // namespace
