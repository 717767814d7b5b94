// A second drawing surface, slow and plain: the edge rule asked of every single pixel, in exact arithmetic.
#pragma once

#include "platform/surface.h"

#include <vector>

using Shape = std::vector<Vertex>;

struct Reference {
    int Width;
    int Height;
    std::vector<Colour> Pixels;

    Reference(int width, int height, Colour ground);
    Colour At(int x, int y) const;
    void Set(int x, int y, Colour colour);
    void Draw(const Shape& shape, Colour edge, Colour inside, FillMode mode = FillMode::Solid);
    /// The upright rectangle, each corner at the pixel nearest to it.
    void Box(double x1, double y1, double x2, double y2, Colour edge, Colour inside = 0,
             FillMode mode = FillMode::None);
};

/// Every pixel alike; a failure tells the first that is not.
void ExpectSame(const Surface& surface, const Reference& reference);

/// A random number by a seed that is new in every run and printed; an old one by --gtest_random_seed=SEED.
int Between(int low, int high);
