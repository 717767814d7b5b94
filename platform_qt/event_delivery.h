// Handlers of the game as events: each runs to its end, and then the windows show what it changed.
#pragma once

#include <functional>

class QWidget;

/// Called once, when the application is there and before the first event.
void StartDelivery();

/// Runs a handler of the game as an event of the widget, and shows what it changed.
void Deliver(const QWidget& source, const std::function<void()>& handler);

/// The same for a move of the mouse. A mouse reports more moves than a screen shows pictures, so the windows
/// show what moves changed at most every 6 milliseconds. Each move is handled at once.
void DeliverMove(const QWidget& source, const std::function<void()>& handler);

/// The same for a button, a menu item or a window's wish to close: a drag under way loses the mouse first.
void DeliverCommand(const QWidget& source, const std::function<void()>& handler);

/// The window whose event is being handled; none outside of any event. It owns the boxes of the handler.
QWidget* AskingWindow();

/// Before a box or a dialog comes up in the middle of a handler: shows what is due, and takes the mouse from
/// a drag.
void PrepareForModal();
