// The desktop of the browser's page. Handlers run as tasks, so that one may wait for the player while the
// page lives on.
#pragma once

#include "platform/forms.h"

#include <string>
#include <vector>

/// A text that the page leaves for the call that it makes next.
extern std::string Letter;

/// Calls a function of page/quillets.js with arguments in JSON.
void TellPage(const char* function, const std::string& arguments = "");
/// The same, and waits for the page's Answer; a letter may tell more.
int AskPage(const char* function, const std::string& arguments);
void TakeAnswer(int answer);

/// Calls `design`, then loads and shows the start-up form. A letter tells what is wrong with the storage.
void RunDesktop(Form& startForm, void (*design)());

/// Whether the form hears of nothing, as a question or another form is modal.
bool IsHeldUp(const Form& form);

/// Brings the page in line with all forms.
void ShowAll();

/// Ends every press under way on the pictures.
void LoseMouse();

/// The player has turned to the form; false when no other one was active before.
bool TurnTo(Form& form);

/// The game's folder, as players see it in titles and boxes: what the page came with, and over it what the
/// browser keeps for them.
constexpr const char* FolderName = "Quillets";
std::string& FileOfFolder(const std::string& name);
std::vector<std::string> NamesEndingIn(const std::string& ending);
