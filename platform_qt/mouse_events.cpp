// What a mouse event is to the game.
#include "platform_qt/mouse_events.h"

#include "platform_qt/event_delivery.h"
#include "platform_qt/key_codes.h"

#include <cmath>

std::int16_t ButtonCode(Qt::MouseButton button) {
    switch (button) {
    case Qt::LeftButton:
        return 1;
    case Qt::RightButton:
        return 2;
    case Qt::MiddleButton:
        return 4;
    default:
        return 0;
    }
}

QPoint PixelOf(const QWidget& widget, const QMouseEvent& event) {
    // The event's place in the widget is rounded to our pixels; its place in the window is not. The pointer
    // stands on the whole pixel of the display whose corner that is, so its middle counts.
    const QPointF middle = event.scenePosition() + QPointF(0.5, 0.5) / widget.devicePixelRatio();
    const QPointF place = middle - widget.mapTo(widget.window(), QPoint());
    return {static_cast<int>(std::floor(place.x())), static_cast<int>(std::floor(place.y()))};
}

void DeliverMouse(const QWidget& widget, MouseHandler handler, const QMouseEvent& event, int unitsPerPixel) {
    const bool isMove = event.type() == QEvent::MouseMove;
    if (!handler || (!isMove && ButtonCode(event.button()) == 0)) return;
    const QPoint pixel = PixelOf(widget, event) * unitsPerPixel;
    (isMove ? DeliverMove : Deliver)(widget, [&] {
        handler(ButtonCode(event.button()), ShiftState(event.modifiers()), static_cast<float>(pixel.x()),
                static_cast<float>(pixel.y()));
    });
}
