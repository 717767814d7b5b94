// The second rasteriser.
#include "reference.h"

#include <algorithm>
#include <cstdlib>
#include <gtest/gtest.h>
#include <iostream>
#include <random>

namespace {

__extension__ using Wide = __int128;

/// How far the edge lies to the right of the pixel in the pixel's row, times the edge's height, which is
/// negative for an edge that runs upward.
Wide Lead(Vertex a, Vertex b, Vertex pixel) {
    return (Wide(a.X) - pixel.X) * (Wide(b.Y) - a.Y) + (Wide(pixel.Y) - a.Y) * (Wide(b.X) - a.X);
}

/// The edge leads or trails the pixel's point by half a pixel at most; a lead of just half is the next
/// pixel's.
bool IsOn(Vertex a, Vertex b, Vertex pixel) {
    if (std::abs(std::int64_t{a.X} - b.X) > std::abs(std::int64_t{a.Y} - b.Y))
        return IsOn({a.Y, a.X}, {b.Y, b.X}, {pixel.Y, pixel.X});
    if (a == b) return pixel == a;
    if (a.Y > b.Y) std::swap(a, b);
    const Wide height = Wide(b.Y) - a.Y, twiceLead = 2 * Lead(a, b, pixel);
    return a.Y <= pixel.Y && pixel.Y <= b.Y && -height <= twiceLead && twiceLead < height;
}

enum class Part { Outside, Inside, Edge };

Part PartByTheRule(const Shape& shape, Vertex pixel) {
    bool inside = false;
    for (std::size_t i = 0; i < shape.size(); ++i) {
        const Vertex a = shape[i], b = shape[(i + 1) % shape.size()];
        if (IsOn(a, b, pixel)) return Part::Edge;
        const bool meetsRow = (a.Y <= pixel.Y) != (b.Y <= pixel.Y);
        if (meetsRow && (Lead(a, b, pixel) > 0) == (a.Y < b.Y)) inside = !inside;
    }
    return inside ? Part::Inside : Part::Outside;
}

} // namespace

Reference::Reference(int width, int height, Colour ground)
    : Width(width), Height(height),
      Pixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), ground) {}

Colour Reference::At(int x, int y) const {
    const bool within = x >= 0 && y >= 0 && x < Width && y < Height;
    return within ? Pixels.begin()[y * Width + x] : Surface::NoColour;
}

void Reference::Set(int x, int y, Colour colour) {
    if (At(x, y) != Surface::NoColour) Pixels.begin()[y * Width + x] = colour;
}

void Reference::Draw(const Shape& shape, Colour edge, Colour inside, FillMode mode) {
    const auto [left, right] = std::ranges::minmax_element(shape, {}, &Vertex::X);
    const auto [top, bottom] = std::ranges::minmax_element(shape, {}, &Vertex::Y);
    for (int y = std::max(top->Y, 0); y <= std::min(bottom->Y, Height - 1); ++y)
        for (int x = std::max(left->X, 0); x <= std::min(right->X, Width - 1); ++x) {
            const Part part = PartByTheRule(shape, {x, y});
            if (part == Part::Edge) Set(x, y, edge);
            if (part == Part::Inside && mode == FillMode::Solid) Set(x, y, inside);
        }
}

void Reference::Box(double x1, double y1, double x2, double y2, Colour edge, Colour inside, FillMode mode) {
    const auto [left, right] = std::minmax({NearestInt32(x1), NearestInt32(x2)});
    const auto [top, bottom] = std::minmax({NearestInt32(y1), NearestInt32(y2)});
    for (int y = std::max(top, 0); y <= std::min(bottom, Height - 1); ++y)
        for (int x = std::max(left, 0); x <= std::min(right, Width - 1); ++x)
            if (x == left || x == right || y == top || y == bottom)
                Set(x, y, edge);
            else if (mode == FillMode::Solid)
                Set(x, y, inside);
}

void ExpectSame(const Surface& surface, const Reference& reference) {
    ASSERT_EQ(surface.Width(), reference.Width);
    ASSERT_EQ(surface.Height(), reference.Height);
    for (int y = 0; y < reference.Height; ++y)
        for (int x = 0; x < reference.Width; ++x)
            ASSERT_EQ(surface.Point(x, y), reference.At(x, y)) << "at " << x << ", " << y;
}

int Between(int low, int high) {
    static std::mt19937 dice = [] {
        const int seed = testing::UnitTest::GetInstance()->random_seed();
        std::cout << "seed " << seed << '\n';
        return std::mt19937(static_cast<unsigned>(seed));
    }();
    return std::uniform_int_distribution(low, high)(dice);
}
