// A flat region given by its boundary: maximal straight edges in four directions, the inside to the right.
// Two regions are equal exactly when their edge lists are.
#pragma once

#include "pieces.h"

#include <vector>

namespace Figures {

struct Edge {
    int direction;    // the measure that is constant along the edge: 0 x, 1 x+y, 2 y, 3 y-x
    Surd line;        // its value
    Surd least, most; // range of y for direction 0, of x for all others
    int sense;        // 1 when the boundary runs towards larger values, -1 when it runs back

    friend bool operator==(const Edge&, const Edge&) = default;
    friend std::strong_ordering operator<=>(const Edge&, const Edge&) = default;
};

using Region = std::vector<Edge>;

Point StartOf(const Edge& edge); // the end with the smaller value
Point EndOf(const Edge& edge);

// The boundary of the region covered by outlines that run clockwise and do not overlap.
Region RegionOf(const std::vector<std::vector<Point>>& outlines);
Region RegionOf(const Layout& layout);

// The region without an outline that lies wholly inside it.
Region Without(const Region& region, const std::vector<Point>& outline);

// Whether a convex outline lies in the region.
bool Contains(const Region& region, const std::vector<Point>& outline, const Spans& spans);

// The leftmost point, the upper one of several. The region must not be empty.
Point LeastPoint(const Region& region);

// The heading in which the boundary leaves the least point, in steps of 45 degrees clockwise from "up":
// the first of several, when parts of the region touch there.
int LeastHeading(const Region& region);

// The same region moved to the origin and turned or mirrored into a standard position:
// equal for two regions exactly when turning by 45 degrees, mirroring and moving makes one into the other.
Region Standard(const Region& region);

// The region mirrored left to right so that x becomes sum - x.
Region MirroredAt(const Region& region, Surd sum);

// The boundary as closed loops of corners: outer ones clockwise, holes anticlockwise. Where loops meet in a
// point they are kept apart as far as possible.
std::vector<std::vector<Point>> LoopsOf(const Region& region);

// Whether a loop runs round a hole.
bool IsHole(const std::vector<Point>& loop);

} // namespace Figures
