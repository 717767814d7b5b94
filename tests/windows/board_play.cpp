// The game with the mouse: dragging, turning, refusals, interruptions and the applause.
#include "core/board_window.h"
#include "core/panel_window.h"
#include "tests/windows/board.h"
#include "tests/windows/game_thread.h"
#include "tests/windows/player.h"

#include <QMessageBox>
#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

namespace {

/// The shown quillet laid out in the middle of the playing area.
struct Figure {
    PerPiece<Number> X{}, Y{}, Turn{};
};

Figure ShownFigure() {
    return Ask([] {
        const auto shown = static_cast<std::size_t>(Game.CurrentQuillet);
        Figure figure;
        Number width = 0, height = 0;
        for (int p = 0; p < PieceCount; ++p) {
            const auto turn = static_cast<std::size_t>(figure.Turn[p] = Game.SolTurn[p][shown]);
            width = std::max(width, Game.SolX[p][shown] + Game.PieceWidth[p][turn]);
            height = std::max(height, Game.SolY[p][shown] + Game.PieceHeight[p][turn]);
        }
        for (int p = 0; p < PieceCount; ++p) {
            figure.X[p] = std::floor(20 + (310 - width) / 2) + Game.SolX[p][shown];
            figure.Y[p] = std::floor(20 + (345 - height) / 2) + Game.SolY[p][shown];
        }
        return figure;
    });
}

constexpr int LastDrawn = 6;

/// First the turns and then the places, the low pieces first: the high ones are drawn over those already
/// laid.
void Lay(const Figure& figure, int last = LastDrawn) {
    for (int p = 0; p < PieceCount; ++p) TurnTo(p, figure.Turn[p]);
    for (int p = 0; p < PieceCount; ++p)
        if (p != last) Drag(p, figure.X[p], figure.Y[p]);
    Drag(last, figure.X[last], figure.Y[last]);
}

/// The figure with the last turn of one piece still to come.
Figure OneTurnShort(const Figure& figure, int piece) {
    Figure result = figure;
    const auto turn = static_cast<std::size_t>(figure.Turn[piece]);
    result.Turn[piece] = static_cast<Number>((turn + TurnCount - 1) % TurnCount);
    result.X[piece] -= Game.TurnShiftX[piece][turn];
    result.Y[piece] -= Game.TurnShiftY[piece][turn];
    return result;
}

/// A piece that can be dropped there and is then out of its place by more than the tolerance of 15.
int PieceToTurnLast(const Figure& figure) {
    for (const int p : {0, 1, 5, 6, 2}) {
        const Figure early = OneTurnShort(figure, p);
        const auto turn = static_cast<std::size_t>(early.Turn[p]);
        const bool far = std::abs(early.X[p] - figure.X[p]) > 15 || std::abs(early.Y[p] - figure.Y[p]) > 15;
        if (far && early.X[p] >= 20 && early.X[p] + Game.PieceWidth[p][turn] <= 330 && early.Y[p] >= 20
            && early.Y[p] + Game.PieceHeight[p][turn] <= 365)
            return p;
    }
    ADD_FAILURE() << "no piece for the last turn";
    return 0;
}

/// All black: also the edges, which are in the board's colour around a piece in play.
void ExpectSolvedFigure(const Figure& figure) {
    const auto black = [&](int p) {
        const auto& shape = Game.PieceShape;
        const auto t = static_cast<std::size_t>(figure.Turn[p]);
        const double left = Game.BoardX0 + figure.X[p], top = Game.BoardY0 + figure.Y[p];
        const double x = (shape[1][p][t] + shape[3][p][t] + shape[5][p][t] + shape[7][p][t]) / 4.0;
        const double y = (shape[2][p][t] + shape[4][p][t] + shape[6][p][t] + shape[8][p][t]) / 4.0;
        const Surface& board = FormMain.Picture1.Image;
        return board.Point(left + x, top + y) == Game.BlackColor
               && board.Point(left + shape[1][p][t], top + shape[2][p][t]) != Game.BoardColor;
    };
    for (int p = 0; p < PieceCount; ++p) EXPECT_TRUE(Ask([&] { return black(p); })) << "piece " << p;
    DragAside(Ask([] { return static_cast<WindowId>(OpenBox()->winId()); }));
    AwaitBoardOnScreen();
}

void ExpectApplauseAndNextQuillet(const Figure& figure) {
    const auto shown = Ask([] { return Game.CurrentQuillet; });
    AwaitBox("You got it - congratulations");
    ExpectSolvedFigure(figure);
    CloseBox();
    OnGameThread([&] {
        EXPECT_EQ(Game.CurrentQuillet, shown < Game.QuilletCount ? shown + 1 : 1);
        EXPECT_EQ(Form1.TarQui.Caption, "Quillet (" + std::to_string(int(Game.CurrentQuillet)) + " of "
                                            + std::to_string(int(Game.QuilletCount)) + ")");
        EXPECT_EQ(Game.PieceX, Game.HomeX);
        EXPECT_EQ(Game.PieceY, Game.HomeY);
        EXPECT_TRUE(std::ranges::equal(Game.PieceTurn, Game.HomeTurn));
        EXPECT_TRUE(FormMain.Picture1.Enabled);
    });
    AwaitBoardOnScreen();
}

void ExpectAt(int piece, double x, double y) {
    const Arrangement now = Now();
    EXPECT_EQ(now.ActivePiece, -1);
    EXPECT_EQ(now.X[piece], x);
    EXPECT_EQ(now.Y[piece], y);
}

} // namespace

TEST(Board, TwoFiguresAreBuiltFromHomeToApplause) {
    StartGame();
    for (int round = 0; round < 2; ++round) {
        const Figure figure = ShownFigure();
        Lay(figure);
        ExpectApplauseAndNextQuillet(figure);
    }
}

TEST(Board, TheLastTurnWinsLikeADrop) {
    StartGame();
    const Figure figure = ShownFigure();
    const int last = Ask([&] { return PieceToTurnLast(figure); });
    Lay(Ask([&] { return OneTurnShort(figure, last); }), last);
    EXPECT_TRUE(Ask([] { return !OpenBox(); })) << "not yet";
    PressRight(last);
    ExpectApplauseAndNextQuillet(figure);
    LetGo(MouseButton::Right);
}

TEST(Board, DropsAreJudgedAtTheFourLimits) {
    StartGame();
    const auto turn = static_cast<std::size_t>(Now().Turn[LastDrawn]);
    const double right = 330 - Ask([&] { return Game.PieceWidth[LastDrawn][turn]; });
    const double bottom = 365 - Ask([&] { return Game.PieceHeight[LastDrawn][turn]; });
    struct Limit {
        double X, Y, BeyondX, BeyondY;
    };
    for (const Limit& limit :
         {Limit{20, 150, -1, 0}, Limit{120, 20, 0, -1}, Limit{right, 150, 1, 0}, Limit{120, bottom, 0, 1}}) {
        SCOPED_TRACE(testing::Message() << "limit " << limit.X << ", " << limit.Y);
        const Arrangement before = Now();
        Drag(LastDrawn, limit.X + limit.BeyondX, limit.Y + limit.BeyondY);
        ExpectAt(LastDrawn, before.X[LastDrawn], before.Y[LastDrawn]);
        Drag(LastDrawn, limit.X, limit.Y);
        ExpectAt(LastDrawn, limit.X, limit.Y);
        AwaitBoardOnScreen();
    }
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

TEST(Board, AnotherWindowDuringADragSendsThePieceBack) {
    StartGame();
    const Arrangement atHome = Now();
    Carry(TakeInHand(2), 60, 300);
    TurnToAnotherProgram();
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
    Carry(TakeInHand(5), 420, 250);
    Release(MouseButton::Left);
    ExpectAt(5, 100, 250);
    AwaitBoardOnScreen();
}
