// Handlers of the game as events: each runs to its end, and then the windows show what it changed.
#pragma once

#include <functional>

/// Called once, when the application is there and before the first event.
void StartDelivery();

/// Runs a handler of the game as an event, and shows what it changed.
void Deliver(const std::function<void()>& handler);

/// The same for a move of the mouse. A mouse can tell of more moves than any screen shows pictures, so what
/// they changed is shown at most every 6 milliseconds, and at the latest then. While a picture waits, moves
/// may wait as well, for 2 milliseconds at most.
void DeliverMove(const std::function<void()>& handler);

/// The same for a button, a menu item or a window's wish to close: a drag under way loses the mouse first.
void DeliverCommand(const std::function<void()>& handler);

/// Before a box or a dialog comes up in the middle of a handler: shows what is due, and takes the mouse from
/// a drag.
void PrepareForModal();
