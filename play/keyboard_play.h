// What the keyboard does on the board: Tab turns the piece last handled, arrows and keypad nudge it.
// A nudge has no limits, no cue and no solution check.
#pragma once

#include <cstdint>

/// Tab (9): a turn step of LastPiece. Left 37, 100; right 39, 102; up 38, 104; down 40, 98: one pixel; with
/// Shift (1) five; with Ctrl (2) one pixel for all seven pieces. Any other key only repaints the board.
/// Nothing at all during a drag.
void Picture1_KeyDown(std::int16_t& KeyCode, std::int16_t Shift);
