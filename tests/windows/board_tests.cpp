// Playing with the mouse: dragging, turning, refusals, interruptions and the applause.
#include "core/board_rendering.h"
#include "core/board_window.h"
#include "platform_qt/qt_desktop.h"
#include "tests/windows/stage.h"

#include <QMessageBox>
#include <algorithm>
#include <gtest/gtest.h>

namespace {

constexpr int LastDrawn = 6;

/// All that the mouse can change on the board.
struct Arrangement {
    PerPiece<Number> X{}, Y{}, Turn{};
    Number ActivePiece = -1;
    std::int16_t DragButton = 0, LastPiece = 0;
    std::vector<Surface::Pixel> Board, PickMap;
    bool operator==(const Arrangement&) const = default;
};

Arrangement Now() {
    const auto pixels = [](const Surface& surface) {
        return std::vector(surface.Row(0), surface.Row(0) + surface.Width() * surface.Height());
    };
    return Ask([&] {
        return Arrangement{Game.PieceX,
                           Game.PieceY,
                           Game.PieceTurn,
                           Game.ActivePiece,
                           Game.DragButton,
                           Game.LastPiece,
                           pixels(FormMain.Picture1.Image),
                           pixels(FormMain.Image)};
    });
}

void ExpectAt(int piece, Number x, Number y) {
    const Arrangement now = Now();
    EXPECT_EQ(now.ActivePiece, -1);
    EXPECT_EQ(now.X[piece], x);
    EXPECT_EQ(now.Y[piece], y);
}

/// The shown quillet, in the top left corner of the playing area.
Arrangement ShownFigure() {
    Arrangement figure;
    OnGameThread([&] {
        const auto shown = static_cast<std::size_t>(Game.CurrentQuillet);
        for (int p = 0; p < PieceCount; ++p) {
            figure.X[p] = 20 + Game.SolX[p][shown];
            figure.Y[p] = 20 + Game.SolY[p][shown];
            figure.Turn[p] = Game.SolTurn[p][shown];
        }
    });
    return figure;
}

/// First the turns and then the places, the low pieces first: the high ones are drawn over those already
/// laid.
void Build(const Arrangement& figure) {
    for (int p = 0; p < PieceCount; ++p) {
        for (int i = 0; i < TurnCount && Now().Turn[p] != figure.Turn[p]; ++i) {
            PressInside(p, MouseButton::Right);
            Release(MouseButton::Right);
        }
        EXPECT_EQ(Now().Turn[p], figure.Turn[p]);
    }
    for (int p = 0; p < PieceCount; ++p) Drag(p, figure.X[p], figure.Y[p]);
}

/// The figure is black up to its edges, which are in the board's colour around a piece in play.
void ExpectApplauseAndNextQuillet(const Arrangement& figure) {
    const Number shown = Ask([] { return Game.CurrentQuillet; });
    AwaitBox("You got it - congratulations");
    OnGameThread([&] {
        for (int p = 0; p < PieceCount; ++p) {
            const auto turn = static_cast<std::size_t>(figure.Turn[p]);
            const Number x = Game.BoardX0 + figure.X[p] + Game.PieceShape[1][p][turn];
            const Number y = Game.BoardY0 + figure.Y[p] + Game.PieceShape[2][p][turn];
            EXPECT_NE(FormMain.Picture1.Image.Point(x, y), Game.BoardColor) << "piece " << p;
        }
        MoveAside(OpenBox()->winId());
    });
    AwaitBoardOnScreen();
    PressEnter();
    Await("the end of the box", [] { return !OpenBox(); });
    OnGameThread([&] {
        EXPECT_EQ(Game.CurrentQuillet, shown < Game.QuilletCount ? shown + 1 : 1);
        EXPECT_EQ(Game.PieceX, Game.HomeX);
        EXPECT_EQ(Game.PieceY, Game.HomeY);
        EXPECT_TRUE(std::ranges::equal(Game.PieceTurn, Game.HomeTurn));
        EXPECT_TRUE(FormMain.Picture1.Enabled);
    });
    AwaitBoardOnScreen();
}

} // namespace

TEST(Board, TwoFiguresAreBuiltFromHomeToApplause) {
    StartGame();
    for (int round = 0; round < 2; ++round) {
        const Arrangement figure = ShownFigure();
        Build(figure);
        ExpectApplauseAndNextQuillet(figure);
    }
}

TEST(Board, TheLastTurnWinsLikeADrop) {
    StartGame();
    const Arrangement figure = ShownFigure();
    OnGameThread([&] {
        Game.PieceX = figure.X;
        Game.PieceY = figure.Y;
        Game.PieceTurn = figure.Turn;
        const auto turn = static_cast<std::size_t>(figure.Turn[LastDrawn]);
        Game.PieceTurn[LastDrawn] = static_cast<Number>((turn + TurnCount - 1) % TurnCount);
        Game.PieceX[LastDrawn] -= Game.TurnShiftX[LastDrawn][turn];
        Game.PieceY[LastDrawn] -= Game.TurnShiftY[LastDrawn][turn];
        FormMain.Image.Cls();
        FormMain.Picture1.Image.Cls();
        Deliver(CheckAllTurns);
        Deliver(DrawAllPieces);
    });
    PressInside(LastDrawn, MouseButton::Right);
    ExpectApplauseAndNextQuillet(figure);
}

TEST(Board, DropsAreJudgedAtTheFourLimits) {
    StartGame();
    const auto turn = static_cast<std::size_t>(Now().Turn[LastDrawn]);
    const Number right = 330 - Ask([&] { return Game.PieceWidth[LastDrawn][turn]; });
    const Number bottom = 365 - Ask([&] { return Game.PieceHeight[LastDrawn][turn]; });
    struct Limit {
        Number X, Y, BeyondX, BeyondY;
    };
    for (const Limit& limit : {Limit{20, 150, 19, 150}, Limit{120, 20, 120, 19},
                               Limit{right, 150, right + 1, 150}, Limit{120, bottom, 120, bottom + 1}}) {
        const Arrangement before = Now();
        Drag(LastDrawn, limit.BeyondX, limit.BeyondY);
        ExpectAt(LastDrawn, before.X[LastDrawn], before.Y[LastDrawn]);
        Drag(LastDrawn, limit.X, limit.Y);
        ExpectAt(LastDrawn, limit.X, limit.Y);
    }
    AwaitBoardOnScreen();
}

TEST(Board, TheRightButtonDuringADragEndsItAsADrop) {
    StartGame();
    Carry(TakeInHand(0), 150, 200);
    const Arrangement inHand = Now();
    Press(MouseButton::Right);
    EXPECT_EQ(Now(), inHand);
    Release(MouseButton::Right);
    ExpectAt(0, 150, 200);
    const Arrangement dropped = Now();
    MoveTo(40, 40);
    Release(MouseButton::Left);
    EXPECT_EQ(Now(), dropped);
}

TEST(Board, AnotherProgramDuringADragSendsThePieceBack) {
    StartGame();
    const Arrangement atHome = Now();
    Carry(TakeInHand(2), 60, 300);
    OpenAnotherProgram();
    Await("the end of the drag", [] { return Game.ActivePiece == -1; });
    EXPECT_EQ(Now(), atHome);
    Release(MouseButton::Left);
    EXPECT_EQ(Now(), atHome);
    AwaitBoardOnScreen();
    Drag(2, 60, 300);
    ExpectAt(2, 60, 300);
}

TEST(Board, ADragGoesOnOutsideTheWindow) {
    StartGame();
    const Hold hold = TakeInHand(5);
    MoveTo(500, -90);
    MoveTo(-90, 200);
    EXPECT_EQ(Now().ActivePiece, 5);
    Carry(hold, 100, 250);
    Release(MouseButton::Left);
    ExpectAt(5, 100, 250);
    Drag(5, 420, 250);
    ExpectAt(5, 100, 250);
    AwaitBoardOnScreen();
}
