// The control panel: its buttons, its menu, and the way out.
#pragma once

#include <cstdint>

/// The press of a panel button; what it does is told by the button's hover text alone. Afterwards the
/// keyboard belongs to the board.
void ButtonPressed(std::int16_t Index);

/// Takes up quillet n: shows it, with the pieces at home.
void SelectQuillet(double n);

/// The menu's items. Save as and Open sound their cue here, and the operations sound it again.
void Saveasx_Click();
void Openx_Click();

/// The menu's Exit: saves the settings and ends the program.
void Exitx_Click();
