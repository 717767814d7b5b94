// The raster: clearing, reading, rectangles, copies, and polygons by the edge rule of the header. One exact
// walk along an edge serves the outline and the fill.
#include "platform/surface.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <utility>

namespace {

constexpr std::size_t MostVertices = 11;

Surface::Pixel PixelOf(Colour colour) {
    const auto c = static_cast<std::uint32_t>(colour);
    return 0xFF000000u | (c & 0x0000FFu) << 16 | (c & 0x00FF00u) | (c & 0xFF0000u) >> 16;
}

Colour ColourOf(Surface::Pixel pixel) {
    return static_cast<Colour>((pixel & 0x0000FFu) << 16 | (pixel & 0x00FF00u) | (pixel & 0xFF0000u) >> 16);
}

/// The exact place of an edge on its way: Whole + Rest / Run, with 0 <= Rest < Run.
class Walk {
  public:
    Walk() = default;

    /// Stands at start + steps * rise / run; run is above 0 and steps lie between 0 and run. Differences of
    /// 32-bit places are below 2^32, so that each product fits into 64 bits.
    Walk(std::int64_t start, std::int64_t rise, std::int64_t run, std::int64_t steps) : Run(run) {
        StepWhole = rise / run - (rise % run < 0);
        StepRest = rise - StepWhole * run;
        const std::uint64_t rest = static_cast<std::uint64_t>(steps) * static_cast<std::uint64_t>(StepRest);
        Whole = start + steps * StepWhole + static_cast<std::int64_t>(rest / static_cast<std::uint64_t>(run));
        Rest = static_cast<std::int64_t>(rest % static_cast<std::uint64_t>(run));
    }

    void Step() {
        Whole += StepWhole;
        Rest += StepRest;
        if (Rest >= Run) {
            Rest -= Run;
            ++Whole;
        }
    }

    std::int64_t Floor() const { return Whole; }
    std::int64_t Ceiling() const { return Whole + (Rest != 0); }
    /// Halves upward.
    std::int64_t Nearest() const { return Whole + (2 * Rest >= Run); }

  private:
    std::int64_t Whole = 0;
    std::int64_t Rest = 0;
    std::int64_t Run = 1;
    std::int64_t StepWhole = 0;
    std::int64_t StepRest = 0;
};

/// Nearly always sorted already: edges seldom cross from one row to the next.
template <typename Edge>
void SortByFloor(std::span<Edge*> crossings) {
    for (std::size_t i = 1; i < crossings.size(); ++i)
        for (std::size_t j = i; j > 0 && crossings[j]->X.Floor() < crossings[j - 1]->X.Floor(); --j)
            std::swap(crossings[j], crossings[j - 1]);
}

} // namespace

/// An edge that a fill crosses in the rows Top to Bottom - 1; X stands in the next of them.
struct Surface::FillEdge {
    std::int64_t Top = 0;
    std::int64_t Bottom = 0;
    Walk X;
};

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
    if (firstX <= lastX)
        std::fill_n(&Pixels_[Offset(static_cast<int>(firstX), y)], lastX - firstX + 1, pixel);
}

void Surface::DrawEdge(Vertex a, Vertex b, Pixel pixel) {
    const std::int64_t width = std::int64_t{b.X} - a.X, height = std::int64_t{b.Y} - a.Y;
    const bool steep = std::abs(height) >= std::abs(width);
    if (steep ? height < 0 : width < 0) return DrawEdge(b, a, pixel);
    // Along the edge there is one pixel in each row of a steep edge, in each column of a flat one.
    const std::int64_t from = steep ? a.Y : a.X, to = steep ? b.Y : b.X;
    const std::int64_t first = std::max<std::int64_t>(from, 0);
    const std::int64_t last = std::min<std::int64_t>(to, (steep ? Height_ : Width_) - 1);
    if (first > last) return;
    const std::uint64_t room = static_cast<std::uint64_t>(steep ? Width_ : Height_);
    const std::ptrdiff_t along = steep ? Width_ : 1, across = steep ? 1 : Width_;
    Walk place(steep ? a.X : a.Y, steep ? width : height, std::max<std::int64_t>(to - from, 1), first - from);
    Pixel* pixels = Pixels_.data() + first * along;
    for (std::int64_t left = last - first; left >= 0; --left, place.Step(), pixels += along)
        if (static_cast<std::uint64_t>(place.Nearest()) < room) pixels[place.Nearest() * across] = pixel;
}

void Surface::FillInside(std::span<const Vertex> vertices, Pixel pixel) {
    std::array<FillEdge, MostVertices> edges;
    std::array<std::int64_t, 2 * MostVertices> rows;
    std::size_t edgeCount = 0, rowCount = 0;
    for (std::size_t i = 0; i < vertices.size(); ++i) {
        Vertex a = vertices[i], b = vertices[(i + 1) % vertices.size()];
        if (a.Y > b.Y) std::swap(a, b);
        const std::int64_t top = std::max(a.Y, 0), bottom = std::min(b.Y, Height_);
        if (top >= bottom) continue;
        const std::int64_t width = std::int64_t{b.X} - a.X, height = std::int64_t{b.Y} - a.Y;
        edges[edgeCount++] = {top, bottom, Walk(a.X, width, height, top - a.Y)};
        rows[rowCount++] = top;
        rows[rowCount++] = bottom;
    }
    // Between two of these rows the same edges are crossed.
    std::sort(rows.begin(), rows.begin() + rowCount);
    for (std::size_t i = 0; i + 1 < rowCount; ++i)
        FillBand({edges.data(), edgeCount}, rows[i], rows[i + 1], pixel);
}

void Surface::FillBand(std::span<FillEdge> edges, std::int64_t first, std::int64_t end, Pixel pixel) {
    std::array<FillEdge*, MostVertices> storage;
    std::size_t count = 0;
    for (FillEdge& edge : edges)
        if (edge.Top <= first && first < edge.Bottom) storage[count++] = &edge;
    const std::span crossings(storage.data(), count);
    for (std::int64_t y = first; y < end; ++y) {
        SortByFloor<FillEdge>(crossings);
        for (std::size_t i = 0; i + 1 < count; i += 2)
            FillSpan(crossings[i]->X.Ceiling(), crossings[i + 1]->X.Floor(), static_cast<int>(y), pixel);
        for (FillEdge* edge : crossings) edge->X.Step();
    }
}

void Polygon(Surface& surface, std::span<const Vertex> vertices) {
    vertices = vertices.first(std::min(vertices.size(), MostVertices));
    if (vertices.empty()) return;
    const auto [top, bottom] =
        std::minmax_element(vertices.begin(), vertices.end(), [](Vertex a, Vertex b) { return a.Y < b.Y; });
    surface.IncludeChanged(top->Y, bottom->Y);
    if (surface.FillStyle == FillMode::Solid) surface.FillInside(vertices, PixelOf(surface.FillColor));
    for (std::size_t i = 0; i < vertices.size(); ++i)
        surface.DrawEdge(vertices[i], vertices[(i + 1) % vertices.size()], PixelOf(surface.ForeColor));
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
