// The player: a pointer and a keyboard on a connection of its own to the display, and a look at the screen.
// Places on the board are its own pixels, whatever the scale of the display.
#pragma once

#include <QImage>
#include <string>
#include <vector>

/// A window on the display.
using WindowId = unsigned long;

enum class MouseButton { Left = 1, Right = 3 };

/// Moves the pointer and waits until the board has seen it there.
void MoveTo(int x, int y);

/// Press and release a button where the pointer is, and wait until the board has seen it.
void Press(MouseButton button);
void Release(MouseButton button);

/// Releases a button where it is none of the board's business.
void LetGo(MouseButton button);

void PressEnter();

/// The windows that the window manager cares for.
std::vector<WindowId> Clients();
std::string TitleOf(WindowId window);
bool Resizable(WindowId window);

/// What a top-level window of the game is to the display.
WindowId IdOf(const char* name);

/// What the screen shows where the window's client area is.
QImage ScreenAt(WindowId window);

/// The player's own wishes to the window manager.
void DragAside(WindowId window);
void Close(WindowId window);

/// Opens a window of another program and waits until it has the keyboard.
void TurnToAnotherProgram();
