// The control panel: its buttons, its menu, and the way out.
#pragma once

#include <cstdint>

/// The press of a panel button. The button's hover text alone decides what it does. Afterwards the board has
/// the keyboard.
void ButtonPressed(std::int16_t Index);

/// Chooses quillet n: shows it and sends the pieces home.
void SelectQuillet(double n);

/// Menu items. They play their cue here, and the operations play it again.
void Saveasx_Click();
void Openx_Click();

/// The menu's Exit: saves the settings and ends the program.
void Exitx_Click();
