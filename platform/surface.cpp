// The raster: clearing, reading, rectangles, copies, and polygons by the edge rule of the header.
// One exact walk along an edge serves both the outline and the fill. Pieces have plain edges, whose x is a
// whole number in every row; they take a road of their own, which gives the same pixels.
#include "platform/surface.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <utility>

namespace {

__extension__ using Wide = __int128;

constexpr std::size_t MostVertices = 11;

Surface::Pixel PixelOf(Colour colour) {
    const auto c = static_cast<std::uint32_t>(colour);
    return 0xFF000000u | (c & 0x0000FFu) << 16 | (c & 0x00FF00u) | (c & 0xFF0000u) >> 16;
}

Colour ColourOf(Surface::Pixel pixel) {
    return static_cast<Colour>((pixel & 0x0000FFu) << 16 | (pixel & 0x00FF00u) | (pixel & 0xFF0000u) >> 16);
}

/// Fills `count` pixels. Blocks of one size, the last of which may lie over the one before, keep the
/// processor from guessing a new end in every row.
void FillRun(Surface::Pixel* first, std::ptrdiff_t count, Surface::Pixel pixel) {
    constexpr std::ptrdiff_t Block = 8;
    if (count < Block) {
        std::fill_n(first, count, pixel);
        return;
    }
    for (std::ptrdiff_t i = 0; i < count - Block; i += Block) std::fill_n(first + i, Block, pixel);
    std::fill_n(first + count - Block, Block, pixel);
}

/// The values start + floor((2 i rise + offset) / (2 run)) for i = first, first + 1 and so on, without
/// rounding errors. Offset 0 gives the floor of the exact value, offset run its nearest whole number, halves
/// upward.
struct Walk {
    std::int64_t Whole = 0;
    std::int64_t Rest = 0;
    std::int64_t StepWhole = 0;
    std::int64_t StepRest = 0;
    std::int64_t Divisor = 1;

    Walk() = default;

    // The products can be wider than 64 bits once, here; every step after that stays within them.
    Walk(std::int64_t start, std::int64_t rise, std::int64_t run, std::int64_t offset, std::int64_t first) {
        Divisor = 2 * run;
        StepWhole = 2 * rise / Divisor;
        StepRest = 2 * rise % Divisor;
        if (StepRest < 0) {
            StepRest += Divisor;
            --StepWhole;
        }
        const Wide numerator = Wide(2 * first) * rise + offset;
        Wide quotient = numerator / Divisor;
        Wide rest = numerator % Divisor;
        if (rest < 0) {
            rest += Divisor;
            --quotient;
        }
        Whole = start + static_cast<std::int64_t>(quotient);
        Rest = static_cast<std::int64_t>(rest);
    }

    void Step() {
        Whole += StepWhole;
        Rest += StepRest;
        if (Rest >= Divisor) {
            Rest -= Divisor;
            ++Whole;
        }
    }

    std::int64_t Floor() const { return Whole; }
    std::int64_t Ceiling() const { return Whole + (Rest != 0); }
};

/// An edge of a polygon on its way down the rows Top to Bottom - 1.
struct FillEdge {
    std::int64_t Top = 0;
    std::int64_t Bottom = 0;
    Walk X;
};

/// An edge is plain when it is upright, level or at 45 degrees: its x is a whole number in every row.
/// Whether all edges are plain and lead down from the top and up again without a turn between.
bool IsPlain(std::span<const Vertex> vertices) {
    int turns = 0, lastWay = 0;
    for (std::size_t i = 0; i < vertices.size(); ++i) {
        const Vertex a = vertices[i], b = vertices[(i + 1) % vertices.size()];
        const int width = b.X - a.X, height = b.Y - a.Y;
        if (width != 0 && height != 0 && std::abs(width) != std::abs(height)) return false;
        const int way = (height > 0) - (height < 0);
        if (way == 0) continue;
        turns += lastWay != 0 && way != lastWay;
        lastWay = way;
    }
    return turns <= 2;
}

/// One of the two ways down a plain polygon.
class Chain {
  public:
    /// Stands at the vertex `top`. The stride is 1 to go on by the vertices after it, their number less 1 for
    /// those before.
    Chain(std::span<const Vertex> vertices, std::size_t top, std::size_t stride)
        : Vertices(vertices), Index(top), Stride(stride) {}

    /// Takes the edge that leads down from row y.
    void TakeEdgeBelow(int y) {
        while (Vertices[Index].Y <= y) {
            From = Vertices[Index];
            Index = (Index + Stride) % Vertices.size();
        }
        Slope_ = (Vertices[Index].X > From.X) - (Vertices[Index].X < From.X);
    }

    /// Where the edge ends.
    int Bottom() const { return Vertices[Index].Y; }
    /// Where it is in row y, and how far it goes to the right with each row.
    int X(int y) const { return From.X + Slope_ * (y - From.Y); }
    int Slope() const { return Slope_; }

  private:
    std::span<const Vertex> Vertices;
    std::size_t Index;
    std::size_t Stride;
    Vertex From;
    int Slope_ = 0;
};

/// Up to four crossings a row are usual, so that sorting them by hand is the quickest.
void SortByFloor(std::span<const Walk*> crossings) {
    for (std::size_t i = 1; i < crossings.size(); ++i)
        for (std::size_t j = i; j > 0 && crossings[j]->Floor() < crossings[j - 1]->Floor(); --j)
            std::swap(crossings[j], crossings[j - 1]);
}

} // namespace

void RowRange::Include(RowRange other) {
    if (other.Empty()) return;
    if (Empty()) {
        *this = other;
        return;
    }
    First = std::min(First, other.First);
    Last = std::max(Last, other.Last);
}

Surface::Surface(int width, int height, Colour background)
    : BackColor(background), Width_(std::max(width, 1)), Height_(std::max(height, 1)),
      Pixels_(Offset(0, Height_), PixelOf(background)), Changed_{0, Height_} {}

void Surface::Resize(int width, int height) {
    if (width == Width_ && height == Height_) return;
    Surface larger(width, height, BackColor);
    BitBlt(larger, 0, 0, Width_, Height_, *this, 0, 0);
    Width_ = larger.Width_;
    Height_ = larger.Height_;
    Pixels_ = std::move(larger.Pixels_);
    Changed_ = {0, Height_};
    Due_ = {};
}

void Surface::Cls() {
    Texts_.clear();
    std::fill(Pixels_.begin(), Pixels_.end(), PixelOf(BackColor));
    Changed_ = {0, Height_};
}

void Surface::Refresh() {
    Due_.Include(Changed_);
    Changed_ = {};
    ++RefreshCount_;
}

RowRange Surface::TakeDueRows() {
    return std::exchange(Due_, {});
}

RowRange Surface::TakeChangedRows() {
    Due_.Include(std::exchange(Changed_, {}));
    return TakeDueRows();
}

Colour Surface::Point(double x, double y) const {
    const int column = NearestInt32(x);
    const int row = NearestInt32(y);
    if (column < 0 || column >= Width_ || row < 0 || row >= Height_) return NoColour;
    return ColourOf(Pixels_[Offset(column, row)]);
}

int Surface::CountOf(Colour colour, int left, int top, int right, int bottom) const {
    left = std::max(left, 0);
    right = std::min(right, Width_ - 1);
    bottom = std::min(bottom, Height_ - 1);
    const Pixel pixel = PixelOf(colour);
    int count = 0;
    for (int y = std::max(top, 0); y <= bottom; ++y)
        for (int x = left; x <= right; ++x) count += Row(y)[x] == pixel;
    return count;
}

void Surface::Line(double x1, double y1, double x2, double y2, Colour colour) {
    const auto pixels = [&](double units) { return NearestInt32(units / UnitsPerPixel); };
    const auto [left, right] = std::minmax({pixels(x1), pixels(x2)});
    const auto [top, bottom] = std::minmax({pixels(y1), pixels(y2)});
    const Pixel pixel = PixelOf(colour);
    const int firstRow = std::max(top, 0), lastRow = std::min(bottom, Height_ - 1);
    if (FillStyle == FillMode::Solid)
        for (int y = firstRow; y <= lastRow; ++y) FillSpan(left, right, y, PixelOf(FillColor));
    for (const int y : {top, bottom})
        if (y >= 0 && y < Height_) FillSpan(left, right, y, pixel);
    for (const int x : {left, right}) {
        if (x < 0 || x >= Width_) continue;
        for (int y = firstRow; y <= lastRow; ++y) Pixels_[Offset(x, y)] = pixel;
    }
    IncludeChanged(top, bottom);
}

void Surface::Print(const std::string& text) {
    const TextItem item{NearestInt32(CurrentX / UnitsPerPixel), NearestInt32(CurrentY / UnitsPerPixel),
                        ForeColor, text};
    if (std::find(Texts_.rbegin(), Texts_.rend(), item) != Texts_.rend()) return;
    Texts_.push_back(item);
    Changed_ = {0, Height_};
}

void Surface::IncludeChanged(std::int64_t firstRow, std::int64_t lastRow) {
    const auto row = [&](std::int64_t y) {
        return static_cast<int>(std::clamp<std::int64_t>(y, 0, Height_));
    };
    Changed_.Include({row(firstRow), row(lastRow + 1)});
}

void Surface::FillSpan(std::int64_t firstX, std::int64_t lastX, int y, Pixel pixel) {
    firstX = std::max<std::int64_t>(firstX, 0);
    lastX = std::min<std::int64_t>(lastX, Width_ - 1);
    if (firstX > lastX) return;
    FillRun(&Pixels_[Offset(static_cast<int>(firstX), y)], lastX - firstX + 1, pixel);
}

bool Surface::HoldsAll(std::span<const Vertex> vertices) const {
    return std::all_of(vertices.begin(), vertices.end(), [&](Vertex vertex) {
        return vertex.X >= 0 && vertex.X < Width_ && vertex.Y >= 0 && vertex.Y < Height_;
    });
}

void Surface::DrawEdge(Vertex a, Vertex b, Pixel pixel) {
    const std::int64_t width = std::abs(std::int64_t{b.X} - a.X);
    const std::int64_t height = std::abs(std::int64_t{b.Y} - a.Y);
    if (height >= width) {
        if (a.Y > b.Y) std::swap(a, b);
        const std::int64_t first = std::max<std::int64_t>(a.Y, 0);
        const std::int64_t last = std::min<std::int64_t>(b.Y, Height_ - 1);
        const std::int64_t run = std::max<std::int64_t>(height, 1);
        Walk x(a.X, std::int64_t{b.X} - a.X, run, run, first - a.Y);
        for (std::int64_t y = first; y <= last; ++y, x.Step())
            if (x.Floor() >= 0 && x.Floor() < Width_)
                Pixels_[Offset(static_cast<int>(x.Floor()), static_cast<int>(y))] = pixel;
    } else {
        if (a.X > b.X) std::swap(a, b);
        const std::int64_t first = std::max<std::int64_t>(a.X, 0);
        const std::int64_t last = std::min<std::int64_t>(b.X, Width_ - 1);
        Walk y(a.Y, std::int64_t{b.Y} - a.Y, width, width, first - a.X);
        for (std::int64_t x = first; x <= last; ++x, y.Step())
            if (y.Floor() >= 0 && y.Floor() < Height_)
                Pixels_[Offset(static_cast<int>(x), static_cast<int>(y.Floor()))] = pixel;
    }
}

void Surface::FillInside(std::span<const Vertex> vertices, Pixel pixel) {
    std::array<FillEdge, MostVertices> storage;
    std::size_t edgeCount = 0;
    std::int64_t top = Height_, bottom = 0;
    for (std::size_t i = 0; i < vertices.size(); ++i) {
        Vertex a = vertices[i];
        Vertex b = vertices[(i + 1) % vertices.size()];
        if (a.Y == b.Y) continue;
        if (a.Y > b.Y) std::swap(a, b);
        const std::int64_t first = std::max<std::int64_t>(a.Y, 0);
        storage[edgeCount++] = {first, b.Y,
                                Walk(a.X, std::int64_t{b.X} - a.X, std::int64_t{b.Y} - a.Y, 0, first - a.Y)};
        top = std::min(top, first);
        bottom = std::max<std::int64_t>(bottom, std::min<std::int64_t>(b.Y, Height_));
    }
    const std::span edges(storage.data(), edgeCount);
    for (std::int64_t y = top; y < bottom; ++y) {
        std::array<const Walk*, MostVertices> crossings;
        std::size_t count = 0;
        for (const FillEdge& edge : edges)
            if (edge.Top <= y && y < edge.Bottom) crossings[count++] = &edge.X;
        SortByFloor({crossings.data(), count});
        for (std::size_t i = 0; i + 1 < count; i += 2)
            FillSpan(crossings[i]->Ceiling(), crossings[i + 1]->Floor(), static_cast<int>(y), pixel);
        for (FillEdge& edge : edges)
            if (edge.Top <= y && y < edge.Bottom) edge.X.Step();
    }
}

void Surface::DrawPlainPolygon(std::span<const Vertex> vertices, std::size_t top, int bottom, Pixel outline) {
    const Pixel inside = PixelOf(FillColor);
    const bool solid = FillStyle == FillMode::Solid;
    Pixel* pixels = Pixels_.data();
    Chain one(vertices, top, 1), other(vertices, top, vertices.size() - 1);
    // From vertex to vertex both ends of a row go straight. A vertex's own row is drawn with both its sides.
    for (int y = vertices[top].Y; y < bottom;) {
        one.TakeEdgeBelow(y);
        other.TakeEdgeBelow(y);
        const int end = std::min(one.Bottom(), other.Bottom());
        std::size_t left = Offset(one.X(y), y), leftStep = Offset(one.Slope(), 1);
        std::size_t right = Offset(other.X(y), y), rightStep = Offset(other.Slope(), 1);
        for (;; ++y, left += leftStep, right += rightStep) {
            if (left > right) {
                std::swap(left, right);
                std::swap(leftStep, rightStep);
            }
            if (solid) FillRun(pixels + left, static_cast<std::ptrdiff_t>(right - left), inside);
            pixels[left] = pixels[right] = outline;
            if (y == end) break;
        }
    }
    for (std::size_t i = 0; i < vertices.size(); ++i) {
        const Vertex a = vertices[i], b = vertices[(i + 1) % vertices.size()];
        if (a.Y == b.Y) FillSpan(std::min(a.X, b.X), std::max(a.X, b.X), a.Y, outline);
    }
}

void Polygon(Surface& surface, std::span<const Vertex> vertices) {
    vertices = vertices.first(std::min(vertices.size(), MostVertices));
    if (vertices.empty()) return;
    const Surface::Pixel outline = PixelOf(surface.ForeColor);
    const auto [top, bottom] =
        std::minmax_element(vertices.begin(), vertices.end(), [](Vertex a, Vertex b) { return a.Y < b.Y; });
    surface.IncludeChanged(top->Y, bottom->Y);
    if (surface.HoldsAll(vertices) && IsPlain(vertices)) {
        surface.DrawPlainPolygon(vertices, static_cast<std::size_t>(top - vertices.begin()), bottom->Y,
                                 outline);
        return;
    }
    if (surface.FillStyle == FillMode::Solid) surface.FillInside(vertices, PixelOf(surface.FillColor));
    for (std::size_t i = 0; i < vertices.size(); ++i)
        surface.DrawEdge(vertices[i], vertices[(i + 1) % vertices.size()], outline);
}

void BitBlt(Surface& target, int x, int y, int width, int height, const Surface& source, int sourceX,
            int sourceY) {
    const auto clip = [](std::int64_t to, std::int64_t from, std::int64_t length, int toSize, int fromSize) {
        const std::int64_t first = std::max({std::int64_t{0}, -to, -from});
        const std::int64_t last = std::min({length, toSize - to, fromSize - from});
        return std::pair(first, std::max(first, last));
    };
    const auto [left, right] = clip(x, sourceX, width, target.Width_, source.Width_);
    const auto [top, bottom] = clip(y, sourceY, height, target.Height_, source.Height_);
    if (left == right || top == bottom) return;
    for (std::int64_t row = top; row < bottom; ++row) {
        const std::size_t from =
            source.Offset(static_cast<int>(sourceX + left), static_cast<int>(sourceY + row));
        const std::size_t to = target.Offset(static_cast<int>(x + left), static_cast<int>(y + row));
        std::copy_n(&source.Pixels_[from], right - left, &target.Pixels_[to]);
    }
    target.Changed_.Include({static_cast<int>(y + top), static_cast<int>(y + bottom)});
}
