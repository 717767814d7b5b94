// Finds every way to lay the seven pieces into an outline, each once, by exact arithmetic.
// Complete: the leftmost point of what is left can only be the leftmost corner of a piece.
#pragma once

#include "region.h"

#include <cstddef>
#include <vector>

namespace Figures {

// All layouts that cover the region, at most the given number of them. Layouts that differ only by exchanging
// the two large or the two small triangles are one solution.
std::vector<Layout> Solve(const Region& region, std::size_t most = 100000);

} // namespace Figures
