// What follows a completed figure, and sending the pieces home.
#pragma once

/// Applauds, waits for the player to close the box, and goes on to the next quillet with the pieces at home.
/// On entry the board shows the solved figure and takes no mouse events; on return it does.
void WinFlow();

/// Sets all seven pieces back to their home places and turns.
void ResetPieces();
