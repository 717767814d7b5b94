// Pictures as text, drawn by the surface or, slowly and plainly, by the edge rule alone.
// Also the polygons to draw: the pieces of the shipped collection, and random ones.
#pragma once

#include "platform/surface.h"

#include <ostream>
#include <string>
#include <vector>

using Shape = std::vector<Vertex>;
/// How a failing test names a vertex.
void PrintTo(Vertex vertex, std::ostream* out);

constexpr Colour Ground = Rgb(192, 192, 192), Outline = Rgb(1, 2, 3), Inside = Rgb(200, 100, 50);

/// A line for each row of pixels: '.' the ground, '+' the inside, '#' the outline, '?' any other colour.
using Picture = std::string;

Picture PictureOf(const Surface& surface);

/// Draws in the colours above.
void Draw(Surface& surface, const Shape& shape, FillMode mode = FillMode::Solid);

/// The filled shape on a surface of the given size.
Picture Painted(const Shape& shape, int width, int height);

/// The same by the edge rule, worked out pixel by pixel.
Picture ByTheRule(const Shape& shape, int width, int height);

Shape Moved(Shape shape, int dx, int dy);

/// The 56 outlines of the shipped piece table, turns running fastest, their reference points at (0, 0).
std::vector<Shape> PieceRows();

/// A random number by a seed that is new in every run and printed; an old one by --gtest_random_seed=SEED.
int Between(int low, int high);

/// Polygons of 1 to 11 vertices up to 30 pixels from (20, 15), often knots, or with vertices that meet.
std::vector<Shape> RandomShapes(int count);
