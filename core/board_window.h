// The board window: the board, which covers the window's own surface.
#pragma once

#include "platform/forms.h"

/// Its Image is the pick map: every piece in its own key colour, in the coordinates of Picture1.
struct BoardWindow : Form {
    ::Picture Picture1; ///< the board
    Label PStandard;    ///< the play difficulty
};

extern BoardWindow FormMain;

/// Sets the window back to its design, with clear surfaces.
void DesignFormMain();
