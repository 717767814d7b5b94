// What counts as solved, what a win does, and that nobody is ever left with a dead board.
#include "core/solution_check.h"
#include "game_on_script.h"
#include "play/copy_to_board.h"

namespace {

const std::string Applause = "cue clap4; box You got it - congratulations; cue whoosh1";

class SolutionTest : public RunningGame {
  protected:
    static bool Solved(const Places& places) {
        Lay(places);
        CheckSolution();
        return Game.SolvedFlag == Game.FlagOn;
    }

    /// Makes the shown quillet one whose places are all far from each other; these, at some corner.
    static Places SpreadFigure() {
        Places places;
        for (int p = 0; p < PieceCount; ++p) {
            Game.SolX[p][1] = 40 * p, Game.SolY[p][1] = NearestInt16(240 - 40 * p);
            places[p] = {30. + 40 * p, 39.5 - 40 * p, 1};
        }
        return places;
    }

    /// The last piece is black with grey edges where the solution has it, at (60, 70); no mouse is taken.
    static void ExpectSolvedFigure() {
        const auto q = static_cast<std::size_t>(Game.CurrentQuillet),
                   turn = static_cast<std::size_t>(Game.SolTurn[6][q]);
        const Number x = 70 + Game.SolX[6][q] + Game.PieceShape[1][6][turn],
                     y = 80 + Game.SolY[6][q] + Game.PieceShape[2][6][turn];
        EXPECT_EQ(std::pair(Board.Image.Point(x, y), ColourOf(6)), std::pair(QBColor(8), Game.BlackColor));
        EXPECT_FALSE(Board.Enabled);
    }

    /// Turns and drags the pieces into the shown quillet with the mouse alone, its corner at (60, 70).
    static void BuildFigure() {
        const auto q = static_cast<std::size_t>(Game.CurrentQuillet);
        for (int p = 0; p < PieceCount; ++p)
            while (Game.PieceTurn[p] != Game.SolTurn[p][q]) TurnByMouse(p);
        for (int p = 0; p < PieceCount; ++p) DragTo(p, 60 + Game.SolX[p][q], 70 + Game.SolY[p][q]);
    }
};

TEST_F(SolutionTest, EachPieceMayBeFifteenPixelsOffInEachDirectionAndTurnsPlayNoPart) {
    for (int p = 0; p < PieceCount; ++p)
        for (const std::size_t axis : {0u, 1u})
            for (const double way : {-1., 1.}) {
                Places places = SpreadFigure();
                places[p][0] += 15 * way, places[p][1] -= 15 * way;
                EXPECT_TRUE(Solved(places)) << p;
                places[p][axis] += axis == 0 ? way : -way;
                EXPECT_FALSE(Solved(places)) << p;
            }
}

TEST_F(SolutionTest, OnlyTheTwoLargeAndTheTwoSmallTrianglesMayChangePlaces) {
    Places both = SpreadFigure();
    for (int a = 0; a < PieceCount; ++a)
        for (int b = 0; b < a; ++b) {
            Places places = SpreadFigure();
            std::swap(places[a], places[b]);
            const bool pair = (b == 0 && a == 1) || (b == 2 && a == 4);
            EXPECT_EQ(Solved(places), pair) << a << " and " << b;
            if (pair) std::swap(both[a], both[b]);
        }
    EXPECT_TRUE(Solved(both));
}

TEST_F(SolutionTest, AFigureBuiltByMouseIsRecognisedThenTheNextStandsAsIfItWereChosen) {
    StartWith(Shipped.substr(ShippedHead.size()));
    Desktop.WhileModal = ExpectSolvedFigure;
    for (int q = NearestInt32(Game.QuilletCount); q > 0; q -= 7) { // every kind and place in the collection
        SelectQuillet(q);
        ASSERT_TRUE(CallsOf(BuildFigure).ends_with(Applause)) << q;
        const std::string scene = Scene();
        SelectQuillet(q == Game.QuilletCount ? 1 : q + 1);
        EXPECT_EQ(Scene(), scene);
    }
}

TEST_F(SolutionTest, ATurnThatCompletesTheFigureWinsLikeADropButNotWhileTheSolutionIsShown) {
    Desktop.WhileModal = ExpectSolvedFigure;
    for (const int shown : {1, 0}) {
        SelectQuillet(1); // at the normal level this clears the flags of matched turns
        LaySolution(60, 70);
        Game.SolutionShown = shown;
        for (int step = 1; step < 8; ++step) EXPECT_EQ(CallsOf([] { TurnByMouse(5); }), "cue Click");
        EXPECT_EQ(CallsOf([] { TurnByMouse(5); }), shown ? "cue Click" : "cue Click; " + Applause);
        EXPECT_EQ(std::pair(Board.Enabled, Game.CurrentQuillet), std::pair(true, 2. - shown));
    }
}

TEST_F(SolutionTest, KeysAnnounceNothingButTheNextDropDoesEvenARefusedOneUnlessTheSolutionIsShown) {
    CopyToBoard();
    EXPECT_EQ(CallsOf([] { DragTo(Square, Game.PieceX[Square] + 1, Game.PieceY[Square]); }), "cue Slide");
    SelectQuillet(1);
    LaySolution(60, 60);
    Game.LastPiece = Square;
    Game.PieceX[Square] += 16;
    EXPECT_EQ(CallsOf([] { Key(37); }), "");
    EXPECT_EQ(CallsOf([] { DragTo(Square, -100, 60); }), Applause);
}

TEST_F(SolutionTest, TheTurnTestTakesPairsInEitherOrder) {
    // Turns of the two pieces, and what both are told, the second being asked for; the solution has 3 and 5.
    const int cases[][4] = {{3, 5, 1, 1}, {3, 6, 1, 0}, {5, 3, 1, 1}, {6, 5, 0, 1}, {6, 3, 0, 0}};
    for (const auto& [a, b] : {std::pair{0, 1}, {2, 4}})
        for (const auto& [turnA, turnB, matchedA, matchedB] : cases) {
            Game.SolTurn[a][1] = 3, Game.SolTurn[b][1] = 5;
            Game.PieceTurn[a] = turnA, Game.PieceTurn[b] = turnB;
            CheckPieceTurn(NearestInt16(b));
            EXPECT_EQ(10 * Game.TurnMatched[a] + Game.TurnMatched[b], 10 * matchedA + matchedB);
        }
}

} // namespace
