// A case plays on a thread of its own, while the game runs on the main thread and meets it on the display.
#pragma once

#include "core/game_state.h"

#include <QPoint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

class QMessageBox;
class QWidget;

// The game.

/// The program folder of this case, empty until the game starts; $PROGRAM_FOLDER, where the case plays on in
/// that of another one.
const std::filesystem::path& Folder();

/// Starts the game with the shipped collection, and waits until the screen shows the board.
void StartGame();

/// Starts the game in the empty folder and returns at once.
void StartGameWithoutCollection();

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

/// Fails the case unless `act` leads the game to end the process within ten seconds, with `check` true at
/// the end. The code that it ends with becomes the code of the case.
void ExpectEnd(const std::function<void()>& act, const std::function<bool()>& check);

/// What the mouse has done to the board's picture so far.
struct BoardEvents {
    int Presses = 0, Releases = 0;
    QPoint Pixel; ///< of the last event
};
BoardEvents SeenByBoard();

/// How often a mouse button was released on anything.
int ReleasesSeen();

/// On the game's thread: one of its windows, by name, and the open box, if there is one.
QWidget* WindowNamed(const char* name);
QMessageBox* OpenBox();

// The player. Places are board pixels, whatever the scale of the display; each call waits until the board has
// seen what it did.

enum class MouseButton { Left = 1, Right = 3 };
void MoveTo(int x, int y);
void Press(MouseButton button);
void Release(MouseButton button);

/// Presses the button inside a piece; returns where.
QPoint PressInside(int piece, MouseButton button);

/// A piece in hand: where it lay, and the pointer at the drag's first move.
struct Hold {
    Number FromX = 0, FromY = 0;
    QPoint Pointer;
};
Hold TakeInHand(int piece);

/// Moves the pointer, in two steps, so that the piece's reference point comes to (x, y).
void Carry(const Hold& hold, Number x, Number y);

/// Takes the piece in hand, carries it there and releases it.
void Drag(int piece, Number x, Number y);

// The player anywhere. Places are in the widget's own units; the calls return when the game has had the
// events.

void PointAt(QWidget* widget, QPoint place);
void Click(QWidget* widget, QPoint place, MouseButton button = MouseButton::Left);

/// Clicks an item of a window's menu bar, its only menu first.
void ChooseFromMenu(const char* window, const char* item);

/// Presses and releases a key, while the modifier, if any, is down. Keys are those of X11/keysym.h. Returns
/// at once.
void PressKey(unsigned long key, unsigned long modifier = 0);

/// Moves one of the game's windows to a pixel of the display. At the first start the board hides most of the
/// panel.
void MoveWindow(const char* name, QPoint place);

// The display.

using WindowId = unsigned long;
std::string TitleOf(WindowId window);
bool HasFixedSize(WindowId window);

/// The top left pixel within the window's frame, in pixels of the display.
QPoint CornerOnScreen(WindowId window);
void MoveAside(WindowId window);

/// What the close button of a window manager sends.
void RequestClose(WindowId window);
void PressEnter();

/// Opens a window of another program, which takes the keyboard.
void OpenAnotherProgram();

/// What the screen shows in the board's window: rows of its own pixels, without a gap.
std::vector<Surface::Pixel> BoardWindowOnScreen();

/// Waits until that is the board's surface, and around it and the label nothing but the plain face.
void AwaitBoardOnScreen();

/// Waits for a box with that text to have the keyboard.
void AwaitBox(const std::string& text);
