// The mouse on the board: picking, dragging, dropping, turning, and a mouse that is taken away.
#include "core/board_rendering.h"
#include "game_on_script.h"

namespace {

constexpr int Square = 3;

class MouseTest : public GameTest {
  protected:
    MouseTest() {
        PutFiveFigures();
        EXPECT_TRUE(Start());
        SwitchSoundOn();
    }

    Picture& Board = FormMain.Picture1;
    static float X(Vertex v) { return static_cast<float>(v.X); }
    static float Y(Vertex v) { return static_cast<float>(v.Y); }
    void Press(std::int16_t button, Vertex at) { MouseDown(Board, button, X(at), Y(at)); }
    void Move(Vertex to) { MouseMove(Board, 0, X(to), Y(to)); }
    void Release(std::int16_t button, Vertex at) { MouseUp(Board, button, X(at), Y(at)); }
    static std::pair<Number, Number> PlaceOf(int piece) { return {Game.PieceX[piece], Game.PieceY[piece]}; }
    std::vector<Colour> Pixels() {
        std::vector<Colour> pixels;
        for (int y = 0; y < Board.Image.Height(); ++y)
            for (int x = 0; x < Board.Image.Width(); ++x) pixels.push_back(Board.Image.Point(x, y));
        return pixels;
    }
    bool Shows(Colour colour) {
        const auto pixels = Pixels();
        return std::find(pixels.begin(), pixels.end(), colour) != pixels.end();
    }
};

TEST_F(MouseTest, APressBesideThePiecesOrByAThirdButtonDoesNothing) {
    const auto before = Pixels();
    const Vertex bare{2, 2}, square = InsideOf(Square);
    Press(1, bare);
    Release(1, bare);
    Press(4, square);
    EXPECT_EQ(Game.ActivePiece, -1);
    Move(bare);
    Release(4, square);
    EXPECT_EQ(Pixels(), before);
    EXPECT_TRUE(TakeCues().empty());
}

TEST_F(MouseTest, AnEdgePixelOfTheTopPieceHitsNothing) {
    // The square's top left corner, laid over the middle of a large triangle.
    Game.PieceX[Square] = Game.PieceX[0] + 10;
    Game.PieceY[Square] = Game.PieceY[0] + 10;
    DrawAllPieces();
    const Vertex corner{NearestInt32(Game.BoardX0 + Game.PieceX[Square]),
                        NearestInt32(Game.BoardY0 + Game.PieceY[Square])};
    EXPECT_EQ(PickedAt(corner), -1);
    EXPECT_EQ(PickedAt({corner.X + 1, corner.Y + 1}), Square);
}

TEST_F(MouseTest, APlainClickMakesThePieceTheKeyboardsAndNothingElse) {
    const auto before = Pixels();
    const Vertex pixel = InsideOf(5);
    Press(1, pixel);
    EXPECT_EQ(Game.ActivePiece, 5);
    Release(1, pixel);
    EXPECT_EQ(Game.ActivePiece, -1);
    EXPECT_EQ(Game.LastPiece, 5);
    EXPECT_EQ(Pixels(), before);
    EXPECT_TRUE(TakeCues().empty());
}

TEST_F(MouseTest, ADragTakesThePieceFromTheBoardAndPickMapAndDropsItOnTop) {
    const Vertex from = InsideOf(Square), to = InsideOf(0);
    const auto place = PlaceOf(Square);
    Press(1, from);
    Move(from);
    EXPECT_EQ(Board.Image.Point(from.X, from.Y), Game.BoardColor);
    EXPECT_EQ(PickedAt(from), Square); // on the pick map it stays until the drop
    const long refreshes = Board.Image.RefreshCount();
    Move(to);
    EXPECT_EQ(Board.Image.RefreshCount(), refreshes + 1);
    const Vertex corner{NearestInt32(Game.DragX) + to.X - from.X, NearestInt32(Game.DragY) + to.Y - from.Y};
    EXPECT_EQ(Board.Image.Point(corner.X, corner.Y), Game.WhiteColor);
    Release(1, to);
    EXPECT_EQ(PlaceOf(Square), (std::pair{place.first + to.X - from.X, place.second + to.Y - from.Y}));
    EXPECT_EQ(PickedAt(from), -1);
    EXPECT_EQ(PickedAt(to), Square);
    EXPECT_EQ(Game.LastPiece, Square);
    EXPECT_FALSE(Shows(Game.WhiteColor));
    EXPECT_EQ(TakeCues(), std::vector<std::string>{"Slide"});
    DrawAllPieces(); // stacked by number again, the square is still above piece 0
    EXPECT_EQ(PickedAt(to), Square);
}

TEST_F(MouseTest, TheGripIsTakenAtTheFirstMoveAndAReturnToThePressPointIsADrop) {
    const Vertex press = InsideOf(Square), first{press.X + 7, press.Y + 3};
    const auto place = PlaceOf(Square);
    Press(1, press);
    Move(first);
    Move(press);
    Release(1, press);
    EXPECT_EQ(PlaceOf(Square), (std::pair{place.first - 7, place.second - 3}));
    EXPECT_EQ(TakeCues(), std::vector<std::string>{"Slide"});
}

TEST_F(MouseTest, AReleaseElsewhereWithoutAMoveLeavesThePieceWhereItWas) {
    const Vertex press = InsideOf(Square);
    const auto place = PlaceOf(Square);
    Press(1, press);
    Release(1, {press.X + 40, press.Y});
    EXPECT_EQ(PlaceOf(Square), place);
    EXPECT_EQ(Game.ActivePiece, -1);
    EXPECT_EQ(PickedAt(press), Square);
}

TEST_F(MouseTest, ADropIsJudgedByTheFourLimits) {
    struct Case {
        double X, Y;
        bool Accepted;
    };
    const double width = Game.PieceWidth[Square][0], height = Game.PieceHeight[Square][0];
    const double right = 330 - width, bottom = 365 - height;
    const Case cases[] = {{20, 100, true},     {19, 100, false},         {100, 20, true},
                          {100, 19, false},    {right, 100, true},       {right + 1, 100, false},
                          {100, bottom, true}, {100, bottom + 1, false}, {-4000, 9000, false}};
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << c.X << ", " << c.Y);
        const auto before = PlaceOf(Square);
        Game.LastPiece = 0;
        DragTo(Square, c.X, c.Y);
        EXPECT_EQ(PlaceOf(Square), c.Accepted ? std::pair(c.X, c.Y) : before);
        EXPECT_EQ(TakeCues(), std::vector<std::string>{c.Accepted ? "Slide" : "Error"});
        EXPECT_EQ(Game.LastPiece, Square);
        EXPECT_EQ(PickedAt(InsideOf(Square)), Square);
    }
}

TEST_F(MouseTest, TheLimitsUseTheExtentOfThePresentTurn) {
    TurnByMouse(Square);
    ASSERT_EQ(Game.PieceTurn[Square], 1);
    const double right = 330 - Game.PieceWidth[Square][1];
    ASSERT_NE(Game.PieceWidth[Square][0], Game.PieceWidth[Square][1]);
    DragTo(Square, right + 1, 150);
    DragTo(Square, right, 150);
    TakeCues();
    EXPECT_EQ(Game.PieceX[Square], right);
}

TEST_F(MouseTest, ATurnIsNeverRefusedAndEightOrTwoComeBackToTheStart) {
    for (int p = 0; p < PieceCount; ++p) {
        const auto place = PlaceOf(p);
        const Number turn = Game.PieceTurn[p];
        const int steps = p == Square ? 2 : 8;
        for (int step = 0; step < steps; ++step) {
            TurnByMouse(p);
            EXPECT_EQ(PickedAt(InsideOf(p)), p);
        }
        EXPECT_EQ(Game.PieceTurn[p], turn);
        EXPECT_EQ(PlaceOf(p), place);
        EXPECT_EQ(TakeCues(), std::vector<std::string>(static_cast<std::size_t>(steps), "Click"));
    }
    // Beyond the limits a turned piece stays; only its next drop is judged.
    Game.PieceX[0] = -20;
    FormMain.Image.Cls();
    DrawAllPieces();
    TurnByMouse(0);
    EXPECT_LT(Game.PieceX[0], 20);
    EXPECT_EQ(TakeCues(), std::vector<std::string>{"Click"});
}

TEST_F(MouseTest, ATurnedPieceComesToTheTop) {
    Game.PieceX[6] = Game.PieceX[0];
    Game.PieceY[6] = Game.PieceY[0];
    FormMain.Image.Cls();
    DrawAllPieces();
    TurnByMouse(0); // a pixel of piece 0 that shows
    EXPECT_EQ(PickedAt(InsideOf(0)), 0);
}

TEST_F(MouseTest, PressesDuringADragDoNothingAndAnyReleaseDrops) {
    const Vertex from = InsideOf(Square), to{from.X + 12, from.Y + 5};
    const Number turn = Game.PieceTurn[Square];
    const auto place = PlaceOf(Square);
    for (const std::int16_t other : std::array<std::int16_t, 3>{2, 4, 1}) {
        Press(1, from);
        Move(from);
        Move(to);
        Press(other, to);
        EXPECT_EQ(Game.ActivePiece, Square);
        Release(other, to);
        EXPECT_EQ(Game.PieceTurn[Square], turn);
        EXPECT_EQ(PlaceOf(Square), (std::pair{place.first + 12, place.second + 5}));
        EXPECT_EQ(TakeCues(), std::vector<std::string>{"Slide"});
        Move(from);
        Release(1, from);
        EXPECT_EQ(PlaceOf(Square), (std::pair{place.first + 12, place.second + 5}));
        DragTo(Square, place.first, place.second);
        TakeCues();
    }
}

TEST_F(MouseTest, AMouseThatIsTakenAwayPutsThePieceBack) {
    const auto before = Pixels();
    const auto place = PlaceOf(Square);
    const Vertex from = InsideOf(Square);
    for (const bool moved : {false, true}) {
        Press(1, from);
        if (moved) Move({from.X + 3, from.Y}), Move({from.X + 60, from.Y + 60});
        LoseMouse(Board);
        EXPECT_EQ(Game.ActivePiece, -1);
        EXPECT_EQ(PlaceOf(Square), place);
        EXPECT_EQ(Pixels(), before);
        Move({5, 5});
        Release(1, {5, 5});
        EXPECT_EQ(PlaceOf(Square), place);
    }
    EXPECT_TRUE(TakeCues().empty());
}

TEST_F(MouseTest, LettingTheMouseGoFarOutsideAndComeBackLosesNothing) {
    const Vertex from = InsideOf(Square);
    const auto place = PlaceOf(Square);
    Press(1, from);
    Move(from);
    Move({-5000, 70000});
    Move({100000, -3});
    Move({from.X + 1, from.Y});
    Release(1, {from.X + 1, from.Y});
    EXPECT_EQ(PlaceOf(Square), (std::pair{place.first + 1, place.second}));
    EXPECT_FALSE(Shows(Game.WhiteColor));
}

} // namespace
