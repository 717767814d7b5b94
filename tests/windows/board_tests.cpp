// Playing with mouse and keyboard, and leaving the game where it stands.
#include "platform/desktop.h"
#include "tests/windows/stage.h"

#include <QApplication>
#include <X11/keysym.h>
#include <fstream>
#include <gtest/gtest.h>
#include <set>

TEST(Board, AFigureIsBuiltByMouseToTheApplause) {
    StartGame();
    const auto shown = static_cast<std::size_t>(Ask([] { return Game.CurrentQuillet; }));
    for (int p = 0; p < PieceCount; ++p)
        while (Ask([&] { return Game.PieceTurn[p] != Game.SolTurn[p][shown]; }))
            Click(Part("FormMain", "Picture1"), InsideOf(p), MouseButton::Right);
    // The low pieces first: the high ones are drawn over those already laid.
    for (int p = 0; p < PieceCount; ++p) Drag(p, 20 + Game.SolX[p][shown], 20 + Game.SolY[p][shown]);
    Answer("You got it - congratulations", XK_Return);
    Await("the next quillet", [&] {
        const auto next = shown < static_cast<std::size_t>(Game.QuilletCount) ? shown + 1 : 1;
        return Game.CurrentQuillet == static_cast<Number>(next) && Game.PieceX == Game.HomeX;
    });
    AwaitBoardOnScreen();
}

TEST(Board, ADragEndsAtItsReleaseOrWhereItBegan) {
    StartGame();
    const auto hand = [] { return std::tuple(Game.ActivePiece, Game.PieceX, Game.PieceY); };
    const auto atHome = Ask(hand);
    const auto expectBackHome = [&] { Await("the piece back", [&] { return hand() == atHome; }); };
    Carry(5, 100, 250);
    PointAt(Part("FormMain", "Picture1"), {-200, 500});
    EXPECT_EQ(Ask([] { return Game.ActivePiece; }), 5);
    Release();
    expectBackHome();
    Carry(2, 60, 300);
    OnGameThread([] { Part("Form1")->activateWindow(); });
    expectBackHome();
    Release();
    Carry(2, 60, 300);
    QMetaObject::invokeMethod(
        qApp, [] { MsgBox("A pause"); }, Qt::QueuedConnection);
    expectBackHome();
    Answer("A pause", XK_Return);
    Release();
    expectBackHome();
    Drag(2, 60, 300);
    EXPECT_EQ(Ask([] { return std::pair(Game.PieceX[2], Game.PieceY[2]); }), std::pair(60.0, 300.0));
    AwaitBoardOnScreen();
}

TEST(Keys, AreTheBoardsAlsoAfterAPressOnThePanel) {
    const struct {
        unsigned long Key, Modifier;
        int X, Y;
    } nudges[] = {{XK_Right, 0, 1, 0},    {XK_Up, XK_Shift_L, 0, -5}, {XK_Left, XK_Control_L, -1, 0},
                  {XK_KP_Left, 0, -1, 0}, {XK_KP_Up, 0, 0, -1},       {XK_KP_Down, 0, 0, 1}};
    const auto places = [] { return std::tuple(Game.PieceX, Game.PieceY, Game.PieceTurn); };
    StartGame();
    for (const char* numLock : {"off", "on"}) {
        Click(Part("Form1", "MenuButx_6"));
        Await("the keyboard on the board", [] { return Part("FormMain")->isActiveWindow(); });
        for (const auto& nudge : nudges) {
            auto wanted = Ask(places);
            for (int p = 0; p < PieceCount; ++p) {
                if (p != Game.LastPiece && nudge.Modifier != XK_Control_L) continue;
                std::get<0>(wanted)[p] += nudge.X;
                std::get<1>(wanted)[p] += nudge.Y;
            }
            PressKey(nudge.Key, nudge.Modifier);
            Await(std::string("a nudge, NumLock ") + numLock, [&] { return places() == wanted; });
        }
        const auto before = Ask(places);
        PressKey(XK_Tab);
        Await("the turn", [&] { return std::get<2>(places()) != std::get<2>(before); });
        PressKey(XK_Num_Lock);
    }
}

namespace {

/// Where both windows really are goes into a file, so that one run can be compared with the next.
void Exit(const char* place, QPoint move) {
    StartGame();
    std::ofstream corners(Folder() / place);
    for (const char* window : {"Form1", "FormMain"}) {
        const auto corner = [&] { return Ask([&] { return CornerOf(Part(window)->winId()); }); };
        const QPoint before = corner();
        corners << before.x() << ' ' << before.y() << std::endl;
        OnGameThread([&] { Part(window)->move(Part(window)->pos() + move); });
        Await("the move", [&] { return (corner() == before) == move.isNull(); });
    }
    ExpectEnd([] { Choose("Form1", "Exit"); });
}

} // namespace

TEST(BoardAndPanel, StandWhereTheyStoodAfterTenExits) {
    std::set<std::string> corners, settings;
    EXPECT_EXIT(Exit("before", {40, 60}), testing::ExitedWithCode(0), "");
    for (int run = 0; run < 10; ++run) {
        settings.insert(Content(Folder() / "Quillets.cfg"));
        EXPECT_EXIT(Exit("after", {}), testing::ExitedWithCode(0), "");
        corners.insert(Content(Folder() / "after"));
    }
    EXPECT_EQ(settings.size(), 1U) << *settings.begin() << *settings.rbegin();
    EXPECT_EQ(corners.size(), 1U) << *corners.begin() << *corners.rbegin();
    EXPECT_NE(*corners.begin(), Content(Folder() / "before"));
}
