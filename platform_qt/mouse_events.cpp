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

QPoint PixelOf(const QMouseEvent& event) {
    return {static_cast<int>(std::floor(event.position().x())),
            static_cast<int>(std::floor(event.position().y()))};
}

void DeliverMouse(MouseHandler handler, const QMouseEvent& event, int unitsPerPixel) {
    // A press or release of a button that the game doesn't know is none.
    if (!handler || (event.type() != QEvent::MouseMove && ButtonCode(event.button()) == 0)) return;
    const QPoint pixel = PixelOf(event) * unitsPerPixel;
    const auto deliver = event.type() == QEvent::MouseMove ? DeliverMove : Deliver;
    deliver([&] {
        handler(ButtonCode(event.button()), ShiftState(event.modifiers()), static_cast<float>(pixel.x()),
                static_cast<float>(pixel.y()));
    });
}
