// A case plays on a thread of its own, while the game runs on the main thread and meets it on the display.
#pragma once

#include "core/game_state.h"

#include <QWidget>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>

/// The program folder, with the shipped collection and settings, which put the windows side by side.
std::filesystem::path Folder();
std::string Content(const std::filesystem::path& path);

/// Starts the game and waits for both windows.
void StartGame();

/// Acts, and waits for the end of the process, which is a fault before this call.
void ExpectEnd(const std::function<void()>& act);

/// Runs the call on the game's thread between two of its events, also while a box is open, and waits for it.
void OnGameThread(const std::function<void()>& call);

template <typename Call>
auto Ask(Call call) {
    std::optional<decltype(call())> answer;
    OnGameThread([&] { answer = call(); });
    return *answer;
}

/// Asks on the game's thread until the answer is yes; when it is not within ten seconds, the case fails here.
void Await(const std::string& what, const std::function<bool()>& condition);

/// One of the game's windows, or what shows in it under that name; null where there is none. On any thread.
QWidget* Part(const char* window, const char* name = nullptr);

// The player. Places are in the widget's own pixels, whatever the scale of the display. All calls return when
// the game has had the events; PressKey returns at once.

enum class MouseButton { Left = 1, Right = 3 };
void PointAt(QWidget* widget, QPoint place);
void Click(QWidget* widget, QPoint place = {9, 9}, MouseButton button = MouseButton::Left);

/// A pixel of the board well inside the piece, where no other covers it.
QPoint InsideOf(int piece);
/// Takes the piece in hand and moves it so that its reference point comes to (x, y) on the board.
void Carry(int piece, Number x, Number y);
void Release();
/// Carries the piece there and releases it.
void Drag(int piece, Number x, Number y);

/// Chooses from the window's only menu.
void Choose(const char* window, const char* item);
/// Presses a key of X11/keysym.h, while the modifier, if any, is down.
void PressKey(unsigned long key, unsigned long modifier = 0);
/// Waits for a box with that text, answers it by a key, and waits for its end.
void Answer(const std::string& text, unsigned long key, unsigned long modifier = 0);
/// The name box of the open file dialog; none without one.
class QLineEdit* NameBox();
/// Waits for a file dialog and enters the name.
void TypeName(const std::string& name);

/// The top left pixel within the frame of a window, in pixels of the display.
QPoint CornerOf(unsigned long window);
/// What the close button of a window manager sends.
void RequestClose(const char* window);
/// Waits until the board's window shows the board, in a frame of the plain light face.
void AwaitBoardOnScreen();
