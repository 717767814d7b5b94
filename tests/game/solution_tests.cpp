// What counts as solved, what a win does, and that nobody is ever left with a dead board.
#include "core/board_rendering.h"
#include "core/solution_check.h"
#include "game_on_script.h"
#include "play/win_flow.h"

namespace {

class SolutionTest : public GameTest {
  protected:
    SolutionTest() {
        PutFiveFigures();
        EXPECT_TRUE(Start());
        Choose(1);
        SwitchSoundOn();
    }

    static void Choose(int quillet) {
        Game.CurrentQuillet = quillet;
        ShowQuillet();
        ResetPieces();
    }

    /// Runs the check on the present arrangement, and makes the board usable again.
    static bool Solved() {
        CheckSolution();
        const bool disabled = !FormMain.Picture1.Enabled;
        EXPECT_EQ(disabled, Game.SolvedFlag == Game.FlagOn);
        FormMain.Picture1.Enabled = true;
        return disabled;
    }

    static void Exchange(int a, int b) {
        std::swap(Game.PieceX[a], Game.PieceX[b]);
        std::swap(Game.PieceY[a], Game.PieceY[b]);
        std::swap(Game.PieceTurn[a], Game.PieceTurn[b]);
    }
};

TEST_F(SolutionTest, OnlyDifferencesBetweenPiecesCount) {
    for (const double left : {20.0, 90.5, -700.0}) {
        LaySolution(left, left / 2);
        EXPECT_TRUE(Solved());
    }
}

TEST_F(SolutionTest, FifteenPixelsOffPassAndSixteenDoNot) {
    for (int p = 0; p < PieceCount; ++p)
        for (const double way : {-1.0, 1.0}) {
            SCOPED_TRACE(testing::Message() << "piece " << p << " way " << way);
            // A piece that holds the least x or y takes the others' measure with it, so the rest is moved
            // instead.
            const auto shiftRest = [&](double dx, double dy) {
                LaySolution(50, 50);
                for (int other = 0; other < PieceCount; ++other) {
                    if (other == p) continue;
                    Game.PieceX[other] -= way * dx;
                    Game.PieceY[other] -= way * dy;
                }
            };
            shiftRest(15, 15);
            const bool fifteen = Solved();
            EXPECT_TRUE(fifteen);
            shiftRest(31, 0);
            EXPECT_FALSE(Solved());
            shiftRest(0, 31);
            EXPECT_FALSE(Solved());
        }
    // Two pieces off in opposite senses, each by the most allowed; then by one more.
    LaySolution(50, 50);
    const auto quillet = static_cast<std::size_t>(Game.CurrentQuillet);
    int inner = 0; // a piece that holds neither least coordinate
    while (Game.SolX[inner][quillet] == 0 || Game.SolY[inner][quillet] == 0) ++inner;
    Game.PieceX[inner] += 15;
    Game.PieceY[inner] -= 15;
    EXPECT_TRUE(Solved());
    Game.PieceX[inner] += 1;
    EXPECT_FALSE(Solved());
    Game.PieceX[inner] -= 1;
    Game.PieceY[inner] -= 1;
    EXPECT_FALSE(Solved());
}

TEST_F(SolutionTest, PairsMayBeExchangedEachByItselfAndNoOthers) {
    for (int quillet = 1; quillet <= Game.QuilletCount; ++quillet) {
        Choose(quillet);
        for (const bool large : {false, true})
            for (const bool small : {false, true}) {
                LaySolution(40, 40);
                if (large) Exchange(0, 1);
                if (small) Exchange(2, 4);
                EXPECT_TRUE(Solved());
            }
        LaySolution(40, 40);
        std::fill(Game.PieceTurn.begin(), Game.PieceTurn.end(), 0);
        EXPECT_TRUE(Solved()); // turns play no part
    }
    LaySolution(40, 40);
    Exchange(3, 5);
    EXPECT_FALSE(Solved());
}

TEST_F(SolutionTest, TheSolvedFigureIsTheSolutionsOwnAtThePlayersCorner) {
    LaySolution(60, 70);
    const auto quillet = static_cast<std::size_t>(Game.CurrentQuillet);
    ASSERT_TRUE(Solved());
    const Surface& board = FormMain.Picture1.Image;
    int black = 0;
    for (int y = 0; y < board.Height(); ++y)
        for (int x = 0; x < board.Width(); ++x) {
            const Colour colour = board.Point(x, y);
            black += colour == Game.BlackColor;
            EXPECT_TRUE(colour == Game.BlackColor || colour == QBColor(8) || colour == Game.BoardColor);
        }
    EXPECT_NEAR(black, 48 * 48 * 8, 48 * 48); // all seven pieces but their edges
    EXPECT_EQ(PickedAt(InsideOf(0)), 0);      // the pick map is left alone
    EXPECT_GE(Game.SolX[0][quillet], 0);
}

TEST_F(SolutionTest, AFigureBuiltWithTheMouseIsApplaudedAndTheNextOneStandsReady) {
    Choose(NearestInt32(Game.QuilletCount));
    int boxes = 0;
    Desktop.WhileModal = [&] {
        ++boxes;
        EXPECT_FALSE(FormMain.Picture1.Enabled);
        EXPECT_EQ(std::count(Desktop.MediaCommands.begin(), Desktop.MediaCommands.end(),
                             "play " + Game.AppPath + "whoosh1.wav"),
                  1); // that of choosing the quillet
    };
    BuildFigure(60, 60);
    Desktop.WhileModal = nullptr;
    ASSERT_EQ(boxes, 1);
    EXPECT_EQ(Desktop.Boxes[0].Text, "You got it - congratulations");
    EXPECT_EQ(Desktop.Boxes[0].Title, "");
    const auto cues = TakeCues();
    ASSERT_GE(cues.size(), 2u);
    EXPECT_EQ(cues[cues.size() - 2], "clap4");
    EXPECT_EQ(cues.back(), "whoosh1");
    EXPECT_EQ(Game.CurrentQuillet, 1); // after the last comes the first
    EXPECT_EQ(Game.PieceX, Game.HomeX);
    EXPECT_EQ(Game.PieceTurn[1], 2);
    EXPECT_TRUE(FormMain.Picture1.Enabled);
    for (int p = 0; p < PieceCount; ++p) EXPECT_EQ(PickedAt(InsideOf(p)), p);
    BuildFigure(100, 80); // and the game goes on
    EXPECT_EQ(Game.CurrentQuillet, 2);
}

TEST_F(SolutionTest, ShippedFiguresAreRecognisedWhenLaidByDragsAndTurnsAlone) {
    PutShippedCollection();
    ASSERT_TRUE(Start());
    constexpr int Step = 7; // every kind and place in the collection, in a few seconds
    for (int quillet = 1; quillet <= Game.QuilletCount; quillet += Step) {
        Choose(quillet);
        BuildFigure(60, 60);
        ASSERT_EQ(Game.CurrentQuillet, quillet == Game.QuilletCount ? 1 : quillet + 1);
    }
}

TEST_F(SolutionTest, ATurnThatCompletesTheFigureWinsLikeADrop) {
    LaySolution(60, 60);
    Game.PieceTurn[5] = Game.PieceTurn[5] == 0 ? 7 : Game.PieceTurn[5] - 1;
    const auto entered = static_cast<std::size_t>(Game.PieceTurn[5] == 7 ? 0 : Game.PieceTurn[5] + 1);
    Game.PieceX[5] -= Game.TurnShiftX[5][entered];
    Game.PieceY[5] -= Game.TurnShiftY[5][entered];
    FormMain.Image.Cls();
    DrawAllPieces();
    CheckAllTurns();
    TakeCues();
    bool figureShown = false;
    Desktop.WhileModal = [&] {
        const Vertex inside = InsideOf(5);
        figureShown = !FormMain.Picture1.Enabled
                      && FormMain.Picture1.Image.Point(inside.X, inside.Y) == Game.BlackColor
                      && Game.PieceX != Game.HomeX;
    };
    TurnByMouse(5);
    EXPECT_TRUE(figureShown);
    EXPECT_EQ(TakeCues(), (std::vector<std::string>{"Click", "clap4", "whoosh1"}));
    EXPECT_EQ(Game.CurrentQuillet, 2);
    EXPECT_TRUE(FormMain.Picture1.Enabled);
}

TEST_F(SolutionTest, WhileTheSolutionIsShownNothingIsAnnounced) {
    LaySolution(60, 60);
    Game.SolutionShown = Game.FlagOn;
    DragTo(3, Game.PieceX[3] + 1, Game.PieceY[3]);
    for (int step = 0; step < 2; ++step) TurnByMouse(3);
    EXPECT_TRUE(Desktop.Boxes.empty());
    EXPECT_TRUE(FormMain.Picture1.Enabled);
}

TEST_F(SolutionTest, ARefusedDropStillRunsTheCheck) {
    LaySolution(60, 60);
    DragTo(3, -100, 60);
    EXPECT_EQ(Desktop.Boxes.size(), 1u);
}

TEST_F(SolutionTest, TheTurnTestTakesPairsInEitherOrder) {
    const auto q = static_cast<std::size_t>(Game.CurrentQuillet);
    const auto flags = [&](int pair, double sol0, double sol1, double turn0, double turn1,
                           std::int16_t piece) {
        const int first = pair == 0 ? 0 : 2, second = pair == 0 ? 1 : 4;
        Game.SolTurn[first][q] = sol0;
        Game.SolTurn[second][q] = sol1;
        Game.PieceTurn[first] = turn0;
        Game.PieceTurn[second] = turn1;
        Game.TurnMatched[first] = Game.TurnMatched[second] = Game.FlagOff;
        Game.SolTurn[3][q] = 1 - Game.PieceTurn[3]; // never all seven
        CheckPieceTurn(piece);
        return std::pair(Game.TurnMatched[first], Game.TurnMatched[second]);
    };
    using Flags = std::pair<Flag, Flag>;
    for (const int pair : {0, 1}) {
        const std::int16_t first = pair == 0 ? 0 : 2, second = pair == 0 ? 1 : 4;
        EXPECT_EQ(flags(pair, 3, 5, 3, 5, first), Flags(1, 1));
        EXPECT_EQ(flags(pair, 3, 5, 3, 6, second), Flags(1, 0));
        EXPECT_EQ(flags(pair, 3, 5, 5, 3, first), Flags(1, 1));
        EXPECT_EQ(flags(pair, 3, 5, 5, 6, second), Flags(1, 0));
        EXPECT_EQ(flags(pair, 3, 5, 6, 5, first), Flags(0, 1));
        // The second piece in the first one's turn matches no row, and its own turn is another.
        EXPECT_EQ(flags(pair, 3, 5, 6, 3, second), Flags(0, 0));
        EXPECT_EQ(flags(pair, 3, 5, 6, 7, first), Flags(0, 0));
    }
}

TEST_F(SolutionTest, AtTheEasyLevelAChosenSolvedQuilletIsNotAnnouncedEither) {
    Game.PlayLevel = EasyLevel;
    LaySolution(60, 60);
    ShowQuillet();
    EXPECT_TRUE(Desktop.Boxes.empty());
    EXPECT_TRUE(FormMain.Picture1.Enabled);
    for (int p = 0; p < PieceCount; ++p)
        EXPECT_EQ(FormMain.Picture1.Image.Point(InsideOf(p).X, InsideOf(p).Y), QBColor(3));
    Game.PlayLevel = NormalLevel;
    DrawAllPieces();
    EXPECT_EQ(FormMain.Picture1.Image.Point(InsideOf(3).X, InsideOf(3).Y), Game.BlackColor);
}

} // namespace
