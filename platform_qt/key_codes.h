// From Qt's keys to the virtual key codes that the game's handlers know.
#pragma once

#include <QKeyEvent>
#include <cstdint>

/// The virtual key code: 9 Tab, 27 Esc, 37 to 40 the arrows, 96 to 105 the digits of the keypad with NumLock,
/// letters and digits as themselves; 255 for keys without a code of their own.
std::int16_t VirtualKeyCode(const QKeyEvent& event);

/// 1 Shift, 2 Ctrl, 4 Alt, added up.
std::int16_t ShiftState(Qt::KeyboardModifiers modifiers);
