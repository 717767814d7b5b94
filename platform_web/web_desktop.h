// The desktop of the browser's page. Handlers run as tasks, so that one may wait for the player while the
// page lives on.
#pragma once

#include "platform/forms.h"

#include <functional>
#include <string>
#include <vector>

/// What the page leaves for the call that it makes next: a text, and the content of a file of the player's
/// own.
extern std::string Letter, OfferedFile;

/// Calls a function of page/quillets.js with arguments in JSON.
void TellPage(const char* function, const std::string& arguments = "");

/// Calls `design`, then loads and shows the start-up form. A letter tells what is wrong with the storage.
void RunDesktop(Form& startForm, void (*design)());

/// Runs a handler as an event of the form, unless a question or another form is modal. Moves of the mouse, of
/// which there may be many to a picture, are Unseen until ShowAll; a Command takes the mouse from a drag
/// first.
enum class EventKind { Plain, Unseen, Command };
void Deliver(Form& form, EventKind kind, std::function<void()> handler);

/// Brings the page in line with all forms.
void ShowAll();

/// Ends every press under way on the pictures.
void LoseMouse();

/// The player has turned to the form; it is told when another one was active before.
void TurnTo(Form& form);

/// The button that the player has chosen in the question that stands, counted from 0.
void TakeAnswer(int button);

/// The game's folder, as players see it in titles and boxes: what the page came with, and over it what the
/// browser keeps for them.
constexpr const char* FolderName = "Quillets";
std::string& FileOfFolder(const std::string& name);
std::vector<std::string> NamesEndingIn(const std::string& ending);

/// A name that no file has, made from the given one; that one itself if its file has the content.
std::string FreeName(const std::string& name, const std::string& content);

/// The next file that is replaced in the same event is handed out to the player as well.
void HandOutNextFile(bool handOut);

/// What became of the file that is being stored: empty when it is, else why not.
void TakeStored(const std::string& error);
