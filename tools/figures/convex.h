// The convex figures of the seven pieces.
// The outlines are enumerated here, the solver says which of them can be laid.
#pragma once

#include "region.h"

#include <vector>

namespace Figures {

// Every convex outline, up to turning and mirroring, that has the area of the seven pieces and sides made of
// whole piece sides. Only these can be laid: along a convex outline the pieces' sides lie end to end.
std::vector<Region> ConvexOutlines();

} // namespace Figures
