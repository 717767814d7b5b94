// From Qt's mouse events to the game's handlers.
#pragma once

#include "platform/forms.h"

#include <QMouseEvent>
#include <QWidget>

/// 1 left, 2 right, 4 middle; 0 for buttons that the game does not know.
std::int16_t ButtonCode(Qt::MouseButton button);

/// The widget's pixel that is seen under the pointer, at every scale of the display.
QPoint PixelOf(const QWidget& widget, const QMouseEvent& event);

/// Calls the handler, if there is one, with that pixel in its units.
void DeliverMouse(const QWidget& widget, MouseHandler handler, const QMouseEvent& event, int unitsPerPixel);
