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
    Arrangement bothPairs = Built;
    for (int a = 0; a < PieceCount; ++a)
        for (int b = 0; b < a; ++b) {
            Arrangement pieces = Built;
            const bool twins = (b == 0 && a == 1) || (b == 2 && a == 4);
            for (Arrangement* each : {&pieces, &bothPairs}) {
                if (each == &bothPairs && !twins) continue;
                std::swap(each->PieceX[a], each->PieceX[b]);
                std::swap(each->PieceY[a], each->PieceY[b]);
            }
            EXPECT_EQ(SolvedAt(pieces, Figure).has_value(), twins) << a << " in the place of " << b;
        }
    const std::optional<Corner> corner = SolvedAt(bothPairs, Figure);
    ASSERT_TRUE(corner);
    EXPECT_EQ(corner->X, 30);
    EXPECT_EQ(corner->Y, 40);
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
            solution.Turn[a] = 3;
            solution.Turn[b] = 5;
            const auto matches = [&, first = a, second = b](Number turnA, Number turnB, Matches before) {
                PerPiece<Number> turns{};
                turns[first] = turnA;
                turns[second] = turnB;
                return MatchedTurns(turns, solution, asked, before);
            };
            for (const auto& [turnA, turnB, matchedA, matchedB] : cases) {
                Matches expected{};
                expected[a] = matchedA;
                expected[b] = matchedB;
                EXPECT_EQ(matches(turnA, turnB, {}), expected) << "turns " << turnA << " and " << turnB;
            }
            // Nothing decides: the one that is asked for has no match, the other keeps what it had.
            Matches others = {true, true, true, true, true, true, true};
            others[asked] = false;
            EXPECT_EQ(matches(6, 3, {true, true, true, true, true, true, true}), others) << asked;
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
    for (int turn = 0; turn < TurnCount; ++turn)
        for (int p = 0; p < PieceCount; ++p) {
            table.TurnShiftX[p][turn] = 10 * turn + 1;
            table.TurnShiftY[p][turn] = NearestInt16(-100 * turn - 1);
        }
    for (int p = 0; p < PieceCount; ++p)
        for (int turn = 0, turns = p == 3 ? 2 : 8; turn < turns; ++turn) {
            Arrangement before = Built, after = Built;
            const int entered = (turn + 1) % turns;
            before.PieceTurn[p] = turn;
            after.PieceTurn[p] = entered;
            after.PieceX[p] += 10 * entered + 1;
            after.PieceY[p] -= 100 * entered + 1;
            const Arrangement turned = Turned(before, p, table);
            EXPECT_EQ(turned.PieceTurn, after.PieceTurn) << p;
            EXPECT_EQ(turned.PieceX, after.PieceX) << p << " in turn " << entered;
            EXPECT_EQ(turned.PieceY, after.PieceY) << p << " in turn " << entered;
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
