// Places and sizes of windows.
#include "platform_qt/window_places.h"

#include <QGuiApplication>
#include <algorithm>

QSize ShownOf(QSize whole, const QScreen& screen, int barExtent) {
    const QSize room = screen.availableSize() - FrameRoom;
    QSize wanted = whole;
    if (whole.height() > room.height()) wanted.rwidth() += barExtent;
    if (whole.width() > room.width()) wanted.rheight() += barExtent;
    return wanted.boundedTo(room);
}

QPoint OnScreen(QRect window, bool all) {
    // Any place may stand in a settings file; far enough away is far enough.
    constexpr int Farthest = 1'000'000;
    window.moveTo(std::clamp(window.left(), -Farthest, Farthest),
                  std::clamp(window.top(), -Farthest, Farthest));
    const QList<QScreen*> screens = QGuiApplication::screens();
    const auto shows = [&](const QScreen* screen) {
        const QRect area = screen->availableGeometry();
        return all ? area.contains(window) : area.intersects(window);
    };
    if (screens.isEmpty() || std::any_of(screens.begin(), screens.end(), shows)) return window.topLeft();
    const auto distance = [&](const QScreen* screen) {
        return (screen->availableGeometry().center() - window.center()).manhattanLength();
    };
    const QScreen* nearest = *std::min_element(screens.begin(), screens.end(),
                                               [&](auto* a, auto* b) { return distance(a) < distance(b); });
    const QRect area = nearest->availableGeometry();
    return {std::clamp(window.left(), area.left(), std::max(area.left(), area.right() - window.width())),
            std::clamp(window.top(), area.top(), std::max(area.top(), area.bottom() - window.height()))};
}

QPoint CentreOfScreen(QSize size) {
    const QRect area = QGuiApplication::primaryScreen()->availableGeometry();
    return area.topLeft() + QPoint((area.width() - size.width()) / 2, (area.height() - size.height()) / 2);
}
