// How the program comes up, and how the board window stops it.
#pragma once

#include <cstdint>

/// The whole start-up, in one fixed order; runs when the board window is loaded. On return a collection is in
/// memory, one of its quillets is shown, the pieces are at home and the panel is on screen. Without a
/// collection it ends the program with a message.
void Form_Load();

/// Ends the program; saves nothing.
void Form_Unload(std::int16_t& Cancel);
