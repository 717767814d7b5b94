// Keys that belong to the desktop: they move the keyboard between the windows, and change nothing in the
// game.
#pragma once

class FormWindow;

/// Whether the key is F6, which leads to the next window, or F10, which opens the menu.
bool IsWindowKey(int key);

/// Carries out a window key that was pressed in the window.
void PressWindowKey(FormWindow& window, int key);

/// Gives the keyboard back to the start-up window.
void ReturnKeyboard();
