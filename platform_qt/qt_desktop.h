// The desktop of real windows. Each handler of the game runs to its end; then the windows show what changed.
#pragma once

#include "platform/forms.h"

#include <functional>
#include <string>

/// Loads and shows the start-up form and delivers events until the game ends the process. `folder` is what
/// ApplicationFolder answers.
int RunDesktop(int argc, char** argv, Form& startForm, const std::string& folder);

/// Runs a handler of the game as an event, and shows what it changed.
void Deliver(const std::function<void()>& handler);

/// The same for a move of the mouse. A mouse can tell of more moves than any screen shows pictures, so what
/// they changed is shown at most every 6 milliseconds, and at the latest then. While a picture waits, moves
/// may wait as well, for 2 milliseconds at most.
void DeliverMove(const std::function<void()>& handler);

/// The same for a button, a menu item or a window's wish to close: a drag under way loses the mouse first.
void DeliverCommand(const std::function<void()>& handler);

/// The widget that shows the form's client area.
class QWidget* ClientAreaOf(Form& form);

/// Before a box or a dialog comes up in the middle of a handler: shows what is due, and takes the mouse from
/// a drag.
void PrepareForModal();
