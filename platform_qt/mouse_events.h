// From Qt's mouse events to the game's handlers.
#pragma once

#include "platform/forms.h"

#include <QMouseEvent>

/// 1 left, 2 right, 4 middle; 0 for buttons that the game does not know.
std::int16_t ButtonCode(Qt::MouseButton button);

/// The pixel under the pointer, also where a scaled display puts the pointer between two of ours.
QPoint PixelOf(const QMouseEvent& event);

/// Calls the handler, if there is one, with the pixel in its units.
void DeliverMouse(MouseHandler handler, const QMouseEvent& event, int unitsPerPixel);
