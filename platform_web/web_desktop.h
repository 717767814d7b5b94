// The desktop of the browser's page. Handlers run as tasks, so that one may wait for the player while the
// page lives on.
#pragma once

#include "platform/forms.h"

#include <functional>

/// Calls `design`, then loads and shows the start-up form. A letter tells what is wrong with the storage.
void RunDesktop(Form& startForm, void (*design)());

/// Runs a handler of the game as an event of the form, and shows what it changed. Nothing happens while a box
/// or another form is modal.
void Deliver(Form& form, std::function<void()> handler);

/// The same for a button, a menu item or a wish to close: a drag under way loses the mouse first.
void DeliverCommand(Form& form, std::function<void()> handler);

/// The same for play on a picture: what it tells in words is spoken, also when it is the same as before.
void DeliverPlay(Form& form, Picture& picture, std::function<void()> handler);

/// The same for a move of the mouse, of which there may be many to a picture; ShowAll shows it.
void DeliverUnseen(Form& form, std::function<void()> handler);

/// Brings the page in line with all forms.
void ShowAll();

/// Ends every press under way on the pictures, as an event.
void TakeMouse();

/// The player has turned to the form; it is told when another one was active before.
void TurnTo(Form& form);

/// Which of the buttons the player has chosen in the question that stands; the text of a file dialog is in
/// Letter.
void TakeAnswer(int button);
