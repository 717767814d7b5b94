// The keys on the board: which pieces they move, how far, and what they leave alone.
#include "game_on_script.h"

namespace {

class KeyboardTest : public GameTest {
  protected:
    KeyboardTest() {
        PutFiveFigures();
        EXPECT_TRUE(Start());
        SwitchSoundOn();
    }

    static void Key(std::int16_t code, std::int16_t shift = 0) { KeyDown(FormMain.Picture1, code, shift); }
};

TEST_F(KeyboardTest, KeysNudgeTheLastPieceOrAllOfThem) {
    struct Case {
        std::int16_t Code, Shift;
        double Dx, Dy;
        bool All;
    };
    const Case cases[] = {
        {37, 0, -1, 0, false},  {39, 0, 1, 0, false},  {38, 0, 0, -1, false},  {40, 0, 0, 1, false},
        {100, 0, -1, 0, false}, {102, 0, 1, 0, false}, {104, 0, 0, -1, false}, {98, 0, 0, 1, false},
        {37, 1, -5, 0, false},  {98, 1, 0, 5, false},  {39, 2, 1, 0, true},    {104, 2, 0, -1, true},
        {40, 3, 0, 1, false},   {40, 4, 0, 1, false},  {39, 6, 1, 0, false},   {65, 0, 0, 0, false},
        {16, 1, 0, 0, false},
    };
    for (const std::int16_t last : std::array<std::int16_t, 2>{0, 5})
        for (const Case& c : cases) {
            SCOPED_TRACE(testing::Message() << "key " << c.Code << " shift " << c.Shift);
            Game.LastPiece = last;
            const auto x = Game.PieceX, y = Game.PieceY;
            const long refreshes = FormMain.Picture1.Image.RefreshCount();
            Key(c.Code, c.Shift);
            for (int p = 0; p < PieceCount; ++p) {
                const bool moved = c.All || p == last;
                EXPECT_EQ(Game.PieceX[p], x[p] + (moved ? c.Dx : 0));
                EXPECT_EQ(Game.PieceY[p], y[p] + (moved ? c.Dy : 0));
                EXPECT_EQ(PickedAt(InsideOf(p)), p);
            }
            EXPECT_GT(FormMain.Picture1.Image.RefreshCount(), refreshes);
            EXPECT_EQ(Game.LastPiece, last);
        }
    EXPECT_TRUE(TakeCues().empty());
}

TEST_F(KeyboardTest, TabTurnsTheLastPieceWhateverShiftSays) {
    Game.LastPiece = 6;
    for (const std::int16_t shift : std::array<std::int16_t, 3>{0, 1, 2}) Key(9, shift);
    EXPECT_EQ(Game.PieceTurn[6], 3);
    EXPECT_EQ(TakeCues(), (std::vector<std::string>{"Click", "Click", "Click"}));
}

TEST_F(KeyboardTest, AnyKeyStacksThePiecesByNumberAgain) {
    DragTo(0, Game.PieceX[3], Game.PieceY[3]);
    const Vertex both = InsideOf(3);
    ASSERT_EQ(PickedAt(both), 0);
    Key(16, 1);
    EXPECT_EQ(PickedAt(both), 3);
}

TEST_F(KeyboardTest, KeysKnowNoLimitsAndARefusedDropComesBackThere) {
    Game.LastPiece = 3;
    while (Game.PieceX[3] > -10) Key(37, 1);
    const Number x = Game.PieceX[3], y = Game.PieceY[3];
    DragTo(3, x, y + 30); // still too far left
    EXPECT_EQ(Game.PieceX[3], x);
    EXPECT_EQ(Game.PieceY[3], y);
    EXPECT_EQ(TakeCues(), std::vector<std::string>{"Error"});
}

TEST_F(KeyboardTest, AFigureCompletedByKeysIsAnnouncedWithTheNextDropOnly) {
    LaySolution(60, 60);
    Game.LastPiece = 3;
    Game.PieceX[3] += 16;
    Key(37);
    EXPECT_TRUE(Desktop.Boxes.empty());
    DragTo(3, Game.PieceX[3], Game.PieceY[3]);
    EXPECT_EQ(Desktop.Boxes.size(), 1u);
}

TEST_F(KeyboardTest, KeysDuringADragDoNothing) {
    const auto place = std::pair(Game.PieceX[3], Game.PieceY[3]);
    const Vertex from = InsideOf(3);
    const auto x = static_cast<float>(from.X), y = static_cast<float>(from.Y);
    Game.LastPiece = 3;
    MouseDown(FormMain.Picture1, 1, x, y);
    Key(9);
    MouseMove(FormMain.Picture1, 1, x, y);
    for (const std::int16_t code : std::array<std::int16_t, 3>{9, 37, 65}) Key(code, 2);
    EXPECT_EQ(Game.ActivePiece, 3);
    MouseUp(FormMain.Picture1, 1, x, y + 1);
    EXPECT_EQ(std::pair(Game.PieceX[3], Game.PieceY[3]), (std::pair{place.first, place.second + 1}));
    EXPECT_EQ(Game.PieceTurn[3], 0);
}

} // namespace
