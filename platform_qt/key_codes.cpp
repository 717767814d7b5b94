// The key codes in use.
#include "platform_qt/key_codes.h"

std::int16_t VirtualKeyCode(const QKeyEvent& event) {
    const int key = event.key();
    const bool keypad = event.modifiers() & Qt::KeypadModifier;
    if (key >= Qt::Key_0 && key <= Qt::Key_9)
        return static_cast<std::int16_t>((keypad ? 96 : 48) + key - Qt::Key_0);
    if (key >= Qt::Key_A && key <= Qt::Key_Z) return static_cast<std::int16_t>('A' + key - Qt::Key_A);
    switch (key) {
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        return 9;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return 13;
    case Qt::Key_Shift:
        return 16;
    case Qt::Key_Control:
        return 17;
    case Qt::Key_Alt:
        return 18;
    case Qt::Key_Escape:
        return 27;
    case Qt::Key_Space:
        return 32;
    case Qt::Key_Left:
        return 37;
    case Qt::Key_Up:
        return 38;
    case Qt::Key_Right:
        return 39;
    case Qt::Key_Down:
        return 40;
    default:
        return 255;
    }
}

std::int16_t ShiftState(Qt::KeyboardModifiers modifiers) {
    return static_cast<std::int16_t>((modifiers & Qt::ShiftModifier ? 1 : 0)
                                     + (modifiers & Qt::ControlModifier ? 2 : 0)
                                     + (modifiers & Qt::AltModifier ? 4 : 0));
}
