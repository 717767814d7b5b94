// Places and sizes of windows.
#include "platform_qt/window_places.h"

#include <QGuiApplication>
#include <QWindow>
#include <algorithm>
#include <utility>

namespace {

/// The window's corner, so that all of it lies in the area; of a larger window its top left part.
QPoint MovedInto(const QRect& area, const QRect& window) {
    const QPoint last = area.bottomRight() - QPoint(window.width(), window.height()) + QPoint(1, 1);
    return {std::clamp(window.left(), area.left(), std::max(area.left(), last.x())),
            std::clamp(window.top(), area.top(), std::max(area.top(), last.y()))};
}

/// A part of the caption that can be taken hold of: its full height, and this width of it.
bool ShowsCaption(const QRect& area, const QRect& window) {
    constexpr QSize Grip(60, 20);
    const QRect shown = area & QRect(window.topLeft(), QSize(window.width(), Grip.height()));
    return shown.width() >= std::min(Grip.width(), window.width()) && shown.height() == Grip.height();
}

int Area(const QRect& rect) {
    return rect.isEmpty() ? 0 : rect.width() * rect.height();
}

} // namespace

QSize ShownOf(QSize whole, const QScreen& screen, int barExtent) {
    const QSize room = screen.availableSize() - FrameRoom;
    QSize wanted = whole;
    if (whole.height() > room.height()) wanted.rwidth() += barExtent;
    if (whole.width() > room.width()) wanted.rheight() += barExtent;
    return wanted.boundedTo(room);
}

QPoint OnScreen(QRect window, Needed needed) {
    // A settings file may hold any number; a place this far away is off every screen.
    constexpr int Farthest = 1'000'000;
    window.moveTo(std::clamp(window.left(), -Farthest, Farthest),
                  std::clamp(window.top(), -Farthest, Farthest));
    const QList<QScreen*> screens = QGuiApplication::screens();
    const auto shows = [&](const QScreen* screen) {
        const QRect area = screen->availableGeometry();
        return needed == Needed::Whole ? area.contains(window) : ShowsCaption(area, window);
    };
    if (screens.isEmpty() || std::any_of(screens.begin(), screens.end(), shows)) return window.topLeft();
    const auto move = [&](const QScreen* screen) { return MovedInto(screen->availableGeometry(), window); };
    const auto distance = [&](const QScreen* screen) {
        return (move(screen) - window.topLeft()).manhattanLength();
    };
    return move(*std::min_element(screens.begin(), screens.end(),
                                  [&](auto* a, auto* b) { return distance(a) < distance(b); }));
}

QPoint CentreOfScreen(QSize size) {
    QRect window(QPoint(), size);
    window.moveCenter(QGuiApplication::primaryScreen()->availableGeometry().center());
    return window.topLeft();
}

void SetFrameCorner(QWidget& window, QPoint corner) {
    // The widget has to know its place, or it would set it again when it is shown.
    window.setGeometry(QRect(corner, window.size()));
    window.windowHandle()->setFramePosition(corner);
}

QPoint PlaceBeside(QSize box, const QRect& owner, const QList<QRect>& inView, const QRect& room) {
    QRect middle(QPoint(), box);
    middle.moveCenter(owner.center());
    // The best place is the middle itself, or it touches an edge of what stays in view, or of the room.
    QList<int> columns{middle.left(), room.left(), room.right()},
        rows{middle.top(), room.top(), room.bottom()};
    for (const QRect& figure : inView) {
        columns << figure.left() - box.width() << figure.right() + 1;
        rows << figure.top() - box.height() << figure.bottom() + 1;
    }
    const auto cost = [&](QPoint place) {
        int covered = 0;
        for (const QRect& figure : inView) covered += Area(figure & QRect(place, box));
        return std::pair(covered, (place - middle.topLeft()).manhattanLength());
    };
    QPoint best = MovedInto(room, middle);
    for (const int x : columns)
        for (const int y : rows)
            if (const QPoint place = MovedInto(room, QRect({x, y}, box)); cost(place) < cost(best))
                best = place;
    return best;
}
