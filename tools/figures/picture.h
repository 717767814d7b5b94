// Draws galleries of figures and the start arrangement as SVG.
// One unit of the picture is one pixel of the game.
#pragma once

#include "source.h"

namespace Figures {

enum class Look { Silhouette, Solved };

// A page of numbered and named figures; numbers count from firstNumber.
std::string DrawGallery(const std::vector<Figure>& figures, Look look, int firstNumber = 1);

// The board with the pieces in their start places.
std::string DrawStart();

} // namespace Figures
