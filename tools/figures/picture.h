// Draws galleries of figures and the start arrangement as SVG.
// One unit of the picture is one pixel of the game.
#pragma once

#include "source.h"

namespace Figures {

enum class Look { Silhouette, Solved };

// A page of the figures, family by family, with their numbers in this order of play and their names.
std::string DrawGallery(const std::vector<Figure>& ordered, Look look);

// The board with the pieces in their start places.
std::string DrawStart();

} // namespace Figures
