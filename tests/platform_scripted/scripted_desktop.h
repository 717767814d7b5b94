// The desktop of the tests: answers boxes from a list and keeps a record of every call. Its surfaces are
// real, and its mouse obeys the rules of a real one: a disabled or hidden control hears nothing.
#pragma once

#include "platform/desktop.h"

#include <deque>
#include <functional>
#include <string>
#include <vector>

struct BoxCall {
    std::string Text;
    std::string Title;
    BoxButtons Buttons;
    BoxIcon Icon;
    BoxDefault Preset;
};

struct ScriptedDesktop {
    std::string Folder;
    float Clock = 0;
    /// Answers for the boxes to come; when none is left, the first button is pressed.
    std::deque<BoxAnswer> Answers;
    /// What the file dialogs to come answer; an empty path, and none at all, is Cancel.
    std::deque<std::string> Paths;
    /// Runs while a box or a modal form is on screen, before it is answered.
    std::function<void()> WhileModal;

    std::vector<BoxCall> Boxes;
    std::vector<OpenFileName> FileDialogs;
    /// The pages of the one browser, and which of them is shown.
    std::vector<std::string> History;
    std::size_t PageShown = 0;
    /// Every call in its order, in words: "box TEXT", "media COMMAND", "show NAME", "focus NAME" and so on.
    std::vector<std::string> Calls;
    std::vector<Form*> Loaded;
    bool Ended = false;
};

extern ScriptedDesktop Desktop;

/// What EndProgram throws here, for the test that plays the process.
struct ProgramEnded {};

/// Loads and shows the start-up form, as a real desktop does before its first event. The desktop starts
/// afresh with the given folder; clock, answers and WhileModal stay as they were set. False when the program
/// ended itself.
bool StartProgram(Form& startForm, const std::string& folder);

/// Runs a handler as an event; false when it ended the program.
bool Deliver(const std::function<void()>& handler);

/// What the player does with a picture, in pixels of it, while it can be used.
void MouseDown(Picture& picture, std::int16_t button, float x, float y);
void MouseMove(Picture& picture, std::int16_t button, float x, float y);
void MouseUp(Picture& picture, std::int16_t button, float x, float y);
void KeyDown(Picture& picture, std::int16_t keyCode, std::int16_t shift);

/// A box, a button or a menu takes the mouse from a press under way.
void LoseMouse();

/// The player moves a scroll bar, which stops at its ends, by so much.
void Scroll(ScrollBar& bar, int by);

/// The player follows a link in the help page.
void FollowLink(const std::string& address);

/// A press on a button of the panel, and the choice of a menu item by its caption.
void PressButton(TileButton& button);
void ChooseMenuItem(Form& form, const std::string& caption);
