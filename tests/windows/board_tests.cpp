// Playing with mouse and keyboard, and leaving the game where it stands.
#include "platform/desktop.h"
#include "windows/stage.h"

#include <QApplication>
#include <X11/keysym.h>
#include <fstream>
#include <gtest/gtest.h>
#include <set>

TEST(Board, AFigureIsBuiltByMouseToTheApplause) {
    StartGame();
    const auto shown = static_cast<std::size_t>(Ask([] { return Game.CurrentQuillet; }));
    for (int p = 0; p < PieceCount; ++p)
        while (Ask([&] { return Game.PieceTurn[p] != Game.SolTurn[p][shown]; })) {
            Click(Part("FormMain", "Picture1"), InsideOf(p), MouseButton::Right);
            AwaitBoardOnScreen();
        }
    // The low pieces first: the high ones are drawn over those already laid.
    for (int p = 0; p < PieceCount; ++p) Drag(p, 20 + Game.SolX[p][shown], 20 + Game.SolY[p][shown]);
    Answer("You got it - congratulations", XK_Return);
    Await("the next quillet", [] { return Game.PieceX == Game.HomeX; });
    AwaitBoardOnScreen();
}

TEST(Board, ADragEndsAtItsReleaseOrWhereItBegan) {
    StartGame();
    const auto hand = [] { return std::tuple(Game.ActivePiece, Game.PieceX, Game.PieceY); };
    const auto atHome = Ask(hand);
    const auto expectBackHome = [&] { Await("the piece back", [&] { return hand() == atHome; }); };
    Carry(5, 100, 250);
    AwaitBoardOnScreen();
    PointAt(Part("FormMain", "Picture1"), {-200, 500});
    EXPECT_EQ(Ask([] { return Game.ActivePiece; }), 5);
    Release();
    expectBackHome();
    Carry(2, 60, 300);
    OnGameThread([] { Part("Form1")->activateWindow(); });
    expectBackHome();
    Release();
    Carry(2, 60, 300);
    QMetaObject::invokeMethod(qApp, [] { MsgBox("A pause"); }, Qt::QueuedConnection);
    expectBackHome();
    Answer("A pause", XK_Return);
    Release();
    expectBackHome();
    AwaitBoardOnScreen();
}

TEST(Keys, AreTheBoardsAlsoAfterAPressOnThePanel) {
    const std::tuple<unsigned long, unsigned long, int, int> nudges[] = {
        {XK_Right, 0, 1, 0}, {XK_Up, XK_Shift_L, 0, -5}, {XK_KP_Left, 0, -1, 0}, {XK_KP_Down, 0, 0, 1}};
    const auto hand = [] { return std::tuple(Game.PieceX[0], Game.PieceY[0], Game.PieceTurn[0]); };
    StartGame();
    Click(Part("Form1", "MenuButx_6"));
    Await("the keyboard on the board", [] { return Part("FormMain")->isActiveWindow(); });
    for (const char* numLock : {"off", "on"}) {
        for (const auto& [key, modifier, dx, dy] : nudges) {
            const auto [x, y, turn] = Ask(hand);
            PressKey(key, modifier);
            Await(std::string("a nudge, NumLock ") + numLock,
                  [&, wanted = std::tuple(x + dx, y + dy, turn)] { return hand() == wanted; });
        }
        const auto before = Ask(hand);
        PressKey(XK_Tab);
        Await("the turn", [&] { return std::get<2>(hand()) != std::get<2>(before); });
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
        OnGameThread([&] { Part(window)->move(Part(window)->pos() + move); });
        Await("the move", [&] { return (corner() == before) == move.isNull(); });
        corners << corner().x() << ' ' << corner().y() << std::endl;
    }
    ExpectEnd([] { Choose("Form1", "Exit"); });
}

} // namespace

TEST(BoardAndPanel, StandWhereTheyStoodAfterTenExits) {
    EXPECT_EXIT(Exit("moved", {40, 60}), testing::ExitedWithCode(0), "");
    std::set<std::string> ends;
    for (int run = 0; run < 10; ++run) {
        EXPECT_EXIT(Exit("after", {}), testing::ExitedWithCode(0), "");
        ends.insert(Content(Folder() / "after") + Content(Folder() / "Quillets.cfg"));
    }
    EXPECT_EQ(ends.size(), 1U) << *ends.begin() << *ends.rbegin();
}
