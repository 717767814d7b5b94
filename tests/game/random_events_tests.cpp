// Endless play: events in any order, and what must hold after each of them.
// QUILLETS_EVENTS sets how many (20,000 without it), QUILLETS_SEED repeats a run.
#include "core/board_rendering.h"
#include "core/piece_geometry.h"
#include "game_on_script.h"
#include "shell/all_shapes.h"

#include <cstdlib>
#include <random>

namespace {

long FromEnvironment(const char* name, long otherwise) {
    const char* text = std::getenv(name);
    return text ? std::atol(text) : otherwise;
}

class RandomEvents : public GameTest {
  protected:
    RandomEvents() {
        PutFiveFigures();
        EXPECT_TRUE(Start());
    }

    int Pick(int from, int to) { return std::uniform_int_distribution(from, to)(Random); }

    void SomeMouseEvent() {
        const std::int16_t button =
            std::array<std::int16_t, 6>{1, 1, 1, 1, 2, 4}[static_cast<std::size_t>(Pick(0, 5))];
        const int kind = Pick(0, 9);
        // Often at a piece, often near the last place, now and then far outside.
        if (kind == 0)
            Mouse = {Pick(-40000, 40000), Pick(-40000, 40000)};
        else if (kind < 4)
            Mouse = {Pick(-20, 370), Pick(-20, 410)};
        else if (kind < 6)
            Mouse = InsideOf(Pick(0, PieceCount - 1));
        else if (kind < 8)
            Mouse = {Mouse.X + Pick(-5, 5), Mouse.Y + Pick(-5, 5)};
        const auto x = static_cast<float>(Mouse.X), y = static_cast<float>(Mouse.Y);
        switch (Pick(0, 3)) {
        case 0:
            Pressed |= FormMain.Picture1.Enabled, MouseDown(FormMain.Picture1, button, x, y);
            break;
        case 1:
            Pressed = false, MouseUp(FormMain.Picture1, button, x, y);
            break;
        default:
            MouseMove(FormMain.Picture1, button, x, y);
            break;
        }
    }

    void SomeKey() {
        static constexpr std::int16_t Codes[] = {9, 37, 38, 39, 40, 98, 100, 102, 104, 65, 16};
        KeyDown(FormMain.Picture1, Codes[Pick(0, 10)], static_cast<std::int16_t>(Pick(0, 4)));
    }

    void SomeEvent() {
        const int kind = Pick(0, 99);
        if (kind < 80)
            SomeMouseEvent();
        else if (kind < 90)
            SomeKey();
        else if (kind < 92)
            Pressed = false, LoseMouse(FormMain.Picture1);
        else if (kind < 98)
            Pressed = false, PressButton(Form1.MenuButx[static_cast<std::size_t>(Pick(0, 16))]);
        else if (kind < 99)
            Pressed = false, LoseMouse(FormMain.Picture1), SomeWindowEvent();
        else if (Game.ActivePiece == -1)
            SolveAllButADrag();
    }

    /// The menu but for Exit, and the windows that it and the target open.
    void SomeWindowEvent() {
        static constexpr const char* Items[] = {"Print", "Save as", "Open", "Help", "About"};
        const auto x = static_cast<float>(Pick(-100, 6000)), y = static_cast<float>(Pick(-100, 6000));
        switch (Pick(0, 4)) {
        case 0:
            ChooseMenuItem(Form1, Items[Pick(0, 4)]);
            break;
        case 1:
            MouseUp(Form1.TargetQui[1], 2, 5, 5);
            break;
        case 2:
            AllShapes.MouseMove(0, 0, x, y);
            break;
        case 3:
            AllShapes.MouseUp(static_cast<std::int16_t>(Pick(1, 2)), 0, x, y);
            break;
        default:
            AllShapes.Label1.MouseUp(1, 0, 0, 0);
            break;
        }
    }

    /// Wins are rare among random events, so the pieces are laid at times.
    void SolveAllButADrag() {
        if (Game.CurrentQuillet < 1) return;
        LaySolution(30, 30);
        SomeMouseEvent();
    }

    /// Cheap enough to be looked at after each event.
    void ExpectSoundState() {
        ASSERT_FALSE(Desktop.Ended);
        ASSERT_TRUE(FormMain.Picture1.Enabled);
        ASSERT_TRUE(Pressed || Game.ActivePiece == -1);
        // An emptied collection shows quillet 0 or 1 of none.
        ASSERT_GE(Game.CurrentQuillet, std::min<Number>(Game.QuilletCount, 1));
        ASSERT_LE(Game.CurrentQuillet, std::max<Number>(Game.QuilletCount, 1));
        for (int p = 0; p < PieceCount; ++p) {
            ASSERT_GE(Game.PieceTurn[p], 0);
            ASSERT_LE(Game.PieceTurn[p], p == 3 ? 1 : 7);
        }
        const auto latched = [](std::size_t index) { return Form1.MenuButx[index].Latched; };
        if (latched(14) || latched(15) || latched(16)) {
            ASSERT_EQ(latched(14), Game.PlayLevel == NormalLevel);
            ASSERT_EQ(latched(15), Game.PlayLevel == EasyLevel);
            ASSERT_EQ(latched(16), Game.PlayLevel == VeryEasyLevel);
        }
        ASSERT_EQ(latched(11), Game.SoundOn == Game.FlagOn);
    }

    /// The piece alone on a surface of its own: inside 1, edge 2, else 0.
    static Surface Alone(int piece) {
        Surface alone(FormMain.Image.Width(), FormMain.Image.Height(), 0);
        const bool inHand = piece == Game.ActivePiece && Game.DragButton == 0;
        PolygonPoints polygon;
        BuildPolygon(piece, NearestInt16(Game.PieceTurn[piece]),
                     Game.BoardX0 + (inHand ? Game.DragFromX[piece] : Game.PieceX[piece]),
                     Game.BoardY0 + (inHand ? Game.DragFromY[piece] : Game.PieceY[piece]), polygon);
        alone.FillStyle = FillMode::Solid;
        alone.FillColor = 1;
        alone.ForeColor = 2;
        Polygon(alone, Drawn(polygon));
        return alone;
    }

    /// Every pixel of the pick map and the board against the seven pieces, each drawn alone.
    void ExpectSurfacesInStep() {
        std::vector<Surface> alone;
        for (int p = 0; p < PieceCount; ++p) alone.push_back(Alone(p));
        const Surface& board = FormMain.Picture1.Image;
        for (int y = 0; y < board.Height(); ++y)
            for (int x = 0; x < board.Width(); ++x) {
                int covering = 0, inside = -1;
                for (int p = 0; p < PieceCount; ++p) {
                    const Colour part = alone[static_cast<std::size_t>(p)].Point(x, y);
                    covering += part != 0;
                    if (part == 1) inside = p;
                }
                const int picked = PickedAt({x, y});
                if (picked != -1) {
                    ASSERT_EQ(alone[static_cast<std::size_t>(picked)].Point(x, y), 1) << x << ", " << y;
                }
                if (covering == 1) {
                    ASSERT_EQ(picked, inside) << x << ", " << y;
                }
                ExpectBoardPixel(board.Point(x, y), picked, covering);
            }
    }

    void ExpectBoardPixel(Colour shown, int picked, int covering) {
        const bool dragging = Game.ActivePiece != -1 && Game.DragButton == 0;
        if (dragging && (shown == Game.WhiteColor || picked == Game.ActivePiece)) return;
        if (picked != -1) {
            SetPieceBrush(NearestInt16(picked));
            ASSERT_EQ(shown, FormMain.Picture1.Image.FillColor);
        } else if (covering == 0) {
            ASSERT_EQ(shown, Game.BoardColor);
        }
    }

    std::mt19937 Random;
    Vertex Mouse;
    bool Pressed = false;
};

TEST_F(RandomEvents, LeaveTheGameSoundAndBothSurfacesInStep) {
    const long seed = FromEnvironment("QUILLETS_SEED", std::random_device{}() % 1'000'000);
    const long events = FromEnvironment("QUILLETS_EVENTS", 20'000);
    std::cout << "QUILLETS_SEED=" << seed << " QUILLETS_EVENTS=" << events << "\n";
    Random.seed(static_cast<unsigned>(seed));
    for (long n = 0; n < events; ++n) {
        SomeEvent();
        ASSERT_NO_FATAL_FAILURE(ExpectSoundState()) << "after event " << n;
        if (n % 500 == 0) {
            ASSERT_NO_FATAL_FAILURE(ExpectSurfacesInStep()) << "after event " << n;
        }
        Desktop.Calls.clear();
        Desktop.Boxes.clear();
        Desktop.MediaCommands.clear();
    }
}

} // namespace
