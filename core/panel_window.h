// The control panel: the second window, with the figure to build.
#pragma once

#include "platform/forms.h"

#include <array>

struct PanelWindow : Form {
    Frame TarQui;                     ///< counts the quillets in its caption
    std::array<Picture, 2> TargetQui; ///< 0 the hidden staging surface, 1 the figure that the player sees
    std::array<Frame, 4> MFrame;
    std::array<TileButton, 17> MenuButx; ///< the indices 1, 12 and 13 are not in use
};

extern PanelWindow Form1;

/// Sets the window back to its design, with clear surfaces and every button unlatched.
void DesignForm1();
