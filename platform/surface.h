// A drawing area with a persistent image: the raster on which everything in the game is drawn and read.
// Integer arithmetic and one edge rule, so that the board and the pick map can never disagree.
//
// The edge rule of Polygon. Pixel (x, y) stands for the point (x, y) of the plane.
//  - The outline of an edge that is steeper than 45 degrees, or just 45, has one pixel in every row that the
//    edge crosses: its exact x there, rounded to nearest, halves to the right. A flatter edge has one pixel
//    in every column, its exact y rounded to nearest, halves downward. The ends are always among them.
//  - The fill is every pixel whose point lies inside by the even-odd rule; the outline is drawn over it.
// So the outline passes through every vertex, is the same in either direction of an edge, and moves
// with the polygon pixel by pixel; the fill never shows outside the outline and never leaves a gap to it;
// and the same polygon in the colour of the ground erases every pixel that it drew. Clipping drops
// pixels and never moves one, however far away the vertices lie.
#pragma once

#include "platform/colour.h"
#include "platform/rounding.h"

#include <cstdint>
#include <span>
#include <string>
#include <vector>

/// A point of a polygon, in pixels of the surface.
struct Vertex {
    std::int32_t X = 0;
    std::int32_t Y = 0;
    bool operator==(const Vertex&) const = default;
};

/// Solid fills closed shapes with FillColor; None draws their outline alone.
enum class FillMode : std::int16_t { Solid = 0, None = 1 };

/// Rows First to Last - 1; empty when First is not below Last.
struct RowRange {
    int First = 0;
    int Last = 0;
    bool Empty() const { return First >= Last; }
    void Include(RowRange other);
};

class Surface {
  public:
    /// A pixel as it is kept: 0xFFRRGGBB.
    using Pixel = std::uint32_t;

    /// What Point answers outside the surface: no colour at all.
    static constexpr Colour NoColour = -1;

    Colour BackColor = Rgb(192, 192, 192);
    Colour ForeColor = Rgb(0, 0, 0);
    Colour FillColor = Rgb(0, 0, 0);
    FillMode FillStyle = FillMode::None;
    /// Units to the pixel in which Line and Print measure: 1 for pixels, 15 for twips. Polygons always count
    /// pixels.
    int UnitsPerPixel = 1;
    /// Where Print puts the next text, its top left corner.
    double CurrentX = 0;
    double CurrentY = 0;

    /// A text on the surface; its place in pixels. Glyphs are the one thing that the screen draws for us.
    struct TextItem {
        int X;
        int Y;
        Colour Ink;
        std::string Text;
        bool operator==(const TextItem&) const = default;
    };

    /// Makes the surface of the given size in pixels, at least 1 by 1, filled with its background.
    Surface(int width = 1, int height = 1, Colour background = Rgb(192, 192, 192));

    /// Changes the size, in pixels; what was drawn stays, new room has the background's colour.
    void Resize(int width, int height);

    int Width() const { return Width_; }
    int Height() const { return Height_; }

    /// Clears to the background; the drawing settings stay.
    void Cls();

    /// Makes what has been drawn so far due for the screen.
    void Refresh();

    /// The colour of the pixel nearest to (x, y); NoColour outside.
    Colour Point(double x, double y) const;

    /// How many pixels of that colour there are in the rectangle; these ends belong to it, and need not lie
    /// inside.
    int CountOf(Colour colour, int left, int top, int right, int bottom) const;

    /// The upright rectangle with these two corners: an outline of one pixel in the given colour, filled with
    /// FillColor when FillStyle is Solid.
    void Line(double x1, double y1, double x2, double y2, Colour colour);

    /// Puts a text at (CurrentX, CurrentY) in ForeColor; the same text at the same spot again looks like one.
    void Print(const std::string& text);
    const std::vector<TextItem>& Texts() const { return Texts_; }

    /// The first pixel of row y, 0 to Height() - 1; the row's other pixels follow it.
    const Pixel* Row(int y) const { return &Pixels_[Offset(0, y)]; }

    /// How often Refresh was called.
    long RefreshCount() const { return RefreshCount_; }

    /// Hands over the rows that Refresh made due since the last call: what a box in the middle of a handler
    /// shows.
    RowRange TakeDueRows();

    /// Hands over all rows drawn on since the last call: what is shown when a handler has ended.
    RowRange TakeChangedRows();

  private:
    friend void Polygon(Surface& surface, std::span<const Vertex> vertices);
    friend void BitBlt(Surface& target, int x, int y, int width, int height, const Surface& source,
                       int sourceX, int sourceY);

    struct FillEdge;

    std::size_t Offset(int x, int y) const {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(Width_) + static_cast<std::size_t>(x);
    }
    void IncludeChanged(std::int64_t firstRow, std::int64_t lastRow);
    void FillSpan(std::int64_t firstX, std::int64_t lastX, int y, Pixel pixel);
    void DrawEdge(Vertex a, Vertex b, Pixel pixel);
    void FillInside(std::span<const Vertex> vertices, Pixel pixel);
    void FillBand(std::span<FillEdge> edges, std::int64_t first, std::int64_t end, Pixel pixel);

    int Width_;
    int Height_;
    std::vector<Pixel> Pixels_;
    std::vector<TextItem> Texts_;
    RowRange Changed_;
    RowRange Due_;
    long RefreshCount_ = 0;
};

/// Draws the closed polygon, at most 11 vertices in pixels: outline in ForeColor, inside in FillColor by
/// FillStyle.
void Polygon(Surface& surface, std::span<const Vertex> vertices);

/// Copies a rectangle, in pixels, as it is. What lies outside of either surface is left out.
void BitBlt(Surface& target, int x, int y, int width, int height, const Surface& source, int sourceX,
            int sourceY);
