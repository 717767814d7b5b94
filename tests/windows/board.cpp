// Finds the pieces by the pick map, as the game itself does.
#include "tests/windows/board.h"

#include "core/board_window.h"
#include "tests/windows/game_thread.h"
#include "tests/windows/player.h"

#include <QLabel>
#include <QMessageBox>
#include <cmath>
#include <gtest/gtest.h>

namespace {

std::vector<Surface::Pixel> PixelsOf(const Surface& surface) {
    return {surface.Row(0), surface.Row(0) + surface.Width() * surface.Height()};
}

/// A pixel where the piece shows, and well around it.
QPoint InsideOf(int piece) {
    const auto shows = [&](int x, int y) { return FormMain.Image.Point(x, y) == Game.PieceRGB[piece]; };
    constexpr int Room = 4;
    for (int y = Room; y < FormMain.Image.Height() - Room; ++y)
        for (int x = Room; x < FormMain.Image.Width() - Room; ++x)
            if (shows(x, y) && shows(x - Room, y) && shows(x + Room, y) && shows(x, y - Room)
                && shows(x, y + Room))
                return {x, y};
    ADD_FAILURE() << "piece " << piece << " shows nowhere";
    return {};
}

QPoint MoveInto(int piece) {
    const QPoint place = Ask([&] { return InsideOf(piece); });
    MoveTo(place.x(), place.y());
    return place;
}

QRect OnDevice(const QRect& place, double scale) {
    return {(QPointF(place.topLeft()) * scale).toPoint(), (QSizeF(place.size()) * scale).toSize()};
}

bool BoardIsOnScreen() {
    const QImage screen = ScreenAt(IdOf("FormMain"));
    return Ask([&] {
        QWidget* window = WindowNamed("FormMain");
        const double scale = window->devicePixelRatio();
        const QRect picture = window->findChild<QWidget*>("Picture1")->geometry();
        const QRect label = window->findChild<QLabel*>()->geometry();
        const Surface& board = FormMain.Picture1.Image;
        for (int y = 0; y < board.Height(); ++y)
            for (int x = 0; x < board.Width(); ++x) {
                const QPointF middle = (QPointF(picture.topLeft()) + QPointF(x + 0.5, y + 0.5)) * scale;
                if (screen.pixel(int(middle.x()), int(middle.y())) != board.Row(y)[x]) return false;
            }
        for (int y = 0; y < screen.height(); ++y)
            for (int x = 0; x < screen.width(); ++x)
                if (!OnDevice(picture, scale).contains(x, y) && !OnDevice(label, scale).contains(x, y)
                    && screen.pixel(x, y) != qRgb(240, 240, 240))
                    return false;
        return true;
    });
}

} // namespace

Arrangement Now() {
    return Ask([] {
        return Arrangement{Game.PieceX,
                           Game.PieceY,
                           Game.PieceTurn,
                           Game.ActivePiece,
                           Game.DragButton,
                           Game.LastPiece,
                           PixelsOf(FormMain.Picture1.Image),
                           PixelsOf(FormMain.Image)};
    });
}

Hold TakeInHand(int piece) {
    const Arrangement before = Now();
    const QPoint first = MoveInto(piece) + QPoint(3, -2);
    Press(MouseButton::Left);
    MoveTo(first.x(), first.y());
    return {piece, before.X[piece], before.Y[piece], first.x(), first.y()};
}

void Carry(const Hold& hold, double x, double y) {
    const int dx = static_cast<int>(std::lround(x - hold.FromX));
    const int dy = static_cast<int>(std::lround(y - hold.FromY));
    MoveTo(hold.PointerX + dx / 2, hold.PointerY + dy / 3);
    MoveTo(hold.PointerX + dx, hold.PointerY + dy);
}

void Drag(int piece, double x, double y) {
    Carry(TakeInHand(piece), x, y);
    Release(MouseButton::Left);
}

void PressRight(int piece) {
    MoveInto(piece);
    Press(MouseButton::Right);
}

void TurnTo(int piece, double turn) {
    for (int i = 0; i < TurnCount && Now().Turn[piece] != turn; ++i) {
        PressRight(piece);
        Release(MouseButton::Right);
    }
    EXPECT_EQ(Now().Turn[piece], turn) << "of piece " << piece;
}

void AwaitBoardOnScreen() {
    Await("the board on the screen", BoardIsOnScreen);
}

void AwaitBox(const std::string& text) {
    Await("a box", [] { return OpenBox() && OpenBox()->isActiveWindow(); });
    EXPECT_EQ(Ask([] { return OpenBox()->text().toStdString(); }), text);
}

void CloseBox() {
    PressEnter();
    Await("the end of the box", [] { return !OpenBox() && Clients().size() == 2; });
}
