// Searches for figures with clean outlines by moving pieces about from contact to contact.
// All coordinates stay exact; the same seed gives the same figures.
#pragma once

#include "region.h"

#include <cstdint>
#include <vector>

namespace Figures {

struct Wish {
    int corners = 12;      // a find has at most so many corners
    int holes = 0;         // and so many holes, exactly
    bool mirrored = false; // and is its own mirror image
};

// Runs the given number of walks, each from a new start, and gives the different finds.
std::vector<Layout> SearchFigures(const Wish& wish, std::uint64_t seed, int walks);

// The layout turned by 45 degrees, or mirrored left to right.
Layout Turned(const Layout& layout);
Layout Mirrored(const Layout& layout);

} // namespace Figures
