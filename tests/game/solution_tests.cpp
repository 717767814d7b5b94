// What a win looks like and what follows it, and that nobody is ever left with a dead board.
#include "game_on_script.h"

namespace {

const std::string Applause = "cue clap4; box You got it - congratulations; cue whoosh1";

class SolutionTest : public RunningGame {
  protected:
    SolutionTest() { Desktop.WhileModal = ExpectSolvedFigure; }

    /// The last piece is black with grey edges where the solution has it, at (60, 70); no mouse is taken.
    static void ExpectSolvedFigure() {
        const Solution solution = SolutionOf(Game, ShownQuillet());
        PolygonPoints outline;
        BuildPolygon(6, NearestInt16(solution.Turn[6]), 70 + solution.X[6], 80 + solution.Y[6], outline);
        EXPECT_EQ(Board.Image.Point(outline[0].X, outline[0].Y), QBColor(8));
        EXPECT_EQ(ColourOf(6), Game.BlackColor);
        EXPECT_FALSE(Board.Enabled);
    }

    /// Turns and drags the pieces into the shown quillet with the mouse alone, its corner at (60, 70).
    static void BuildFigure() {
        const Solution solution = SolutionOf(Game, ShownQuillet());
        for (int p = 0; p < PieceCount; ++p)
            while (Game.PieceTurn[p] != solution.Turn[p]) TurnByMouse(p);
        for (int p = 0; p < PieceCount; ++p) DragTo(p, 60 + solution.X[p], 70 + solution.Y[p]);
    }
};

TEST_F(SolutionTest, AFigureBuiltByMouseIsRecognisedThenTheNextStandsAsIfItWereChosen) {
    StartWith(Shipped.substr(ShippedHead.size()));
    for (int q = NearestInt32(Game.QuilletCount); q > 0; q -= 7) { // every kind and place in the collection
        SelectQuillet(q);
        ASSERT_TRUE(CallsOf(BuildFigure).ends_with(Applause)) << q;
        const std::string scene = Scene();
        SelectQuillet(q == Game.QuilletCount ? 1 : q + 1);
        EXPECT_EQ(Scene(), scene);
    }
}

TEST_F(SolutionTest, ATurnThatCompletesTheFigureWinsLikeADropButNotWhileTheSolutionIsShown) {
    for (const int shown : {1, 0}) {
        SelectQuillet(1); // at the normal level this clears the flags of matched turns
        LaySolution(60, 70);
        Game.SolutionShown = shown;
        for (int step = 1; step < 8; ++step) EXPECT_EQ(CallsOf([] { TurnByMouse(5); }), "cue Click");
        EXPECT_EQ(CallsOf([] { TurnByMouse(5); }), shown ? "cue Click" : "cue Click; " + Applause);
        EXPECT_TRUE(Board.Enabled);
        EXPECT_EQ(Game.CurrentQuillet, shown ? 1 : 2);
    }
}

TEST_F(SolutionTest, ADropWinsEvenIfItIsRefusedButNotWhileTheSolutionIsShown) {
    const auto dropOutside = [] { DragTo(Square, -100, 60); };
    LaySolution(60, 70);
    Game.LastPiece = Square;
    EXPECT_EQ(CallsOf([] { Key(37); }), ""); // a key completes nothing
    Game.SolutionShown = Game.FlagOn;
    EXPECT_EQ(CallsOf(dropOutside), "cue Error");
    Game.SolutionShown = Game.FlagOff;
    EXPECT_EQ(CallsOf(dropOutside), Applause);
}

} // namespace
