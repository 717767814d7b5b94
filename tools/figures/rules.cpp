// Rule checks: overlap is judged exactly, everything the game sees in pixels is judged in pixels.
// Two figures count as the same when turning and mirroring makes one outline into the other.
#include "rules.h"

#include "collection.h"
#include "region.h"

#include <algorithm>
#include <map>

namespace Figures {
namespace {

constexpr int ContactPixels = 3;

struct Pixel {
    int x, y;
};
using PixelOutline = std::vector<Pixel>;

PixelOutline PixelsOf(int piece, const Placed& placed) {
    PixelOutline outline;
    for (const Point& corner : CornersOf(piece, placed))
        outline.push_back({Pixels(corner.x), Pixels(corner.y)});
    return outline;
}

std::vector<PixelOutline> PixelsOf(const Layout& layout) {
    std::vector<PixelOutline> outlines;
    for (int piece = 0; piece < PieceCount; piece++) outlines.push_back(PixelsOf(piece, layout[piece]));
    return outlines;
}

// Twice the area of the triangle from, to, point: positive when the point lies inside of a clockwise edge.
int SideOf(Pixel from, Pixel to, Pixel point) {
    return (to.x - from.x) * (point.y - from.y) - (to.y - from.y) * (point.x - from.x);
}

bool Covers(const PixelOutline& outline, Pixel point) {
    for (std::size_t i = 0; i < outline.size(); i++)
        if (SideOf(outline[i], outline[(i + 1) % outline.size()], point) < 0) return false;
    return true;
}

bool Holds(const PixelOutline& outline, Pixel point) {
    for (std::size_t i = 0; i < outline.size(); i++)
        if (SideOf(outline[i], outline[(i + 1) % outline.size()], point) <= 0) return false;
    return true;
}

// Whether one of the eight pixels around a corner, three away upright, level or both, lies inside the
// outline.
bool Near(const PixelOutline& outline, Pixel corner) {
    for (const int dx : {-ContactPixels, 0, ContactPixels})
        for (const int dy : {-ContactPixels, 0, ContactPixels})
            if (Holds(outline, {corner.x + dx, corner.y + dy})) return true;
    return false;
}

bool Touching(const PixelOutline& l, const PixelOutline& r) {
    return std::any_of(l.begin(), l.end(), [&](Pixel corner) { return Near(r, corner); })
           || std::any_of(r.begin(), r.end(), [&](Pixel corner) { return Near(l, corner); });
}

std::string OverlapOf(const Layout& layout) {
    for (int piece = 0; piece < PieceCount; piece++)
        for (int other = 0; other < piece; other++)
            if (!Apart(SpansOf(piece, layout[piece]), SpansOf(other, layout[other])))
                return std::string("pieces ") + static_cast<char>('A' + other) + " and "
                       + static_cast<char>('A' + piece) + " overlap";
    return {};
}

bool IsPicture(const Figure& figure) {
    return KindName(figure) == "picture";
}

} // namespace

std::string FaultOf(const Layout& layout) {
    if (std::string overlap = OverlapOf(layout); !overlap.empty()) return overlap;
    if (!Connected(layout)) return "the pieces do not hang together";
    const Box box = BoxOf(layout);
    const int width = Pixels(box.most.x - box.least.x), height = Pixels(box.most.y - box.least.y);
    if (width > TargetWidth || height > TargetHeight || FigureLeft + width >= BoardWidth
        || FigureTop + height >= BoardHeight)
        return "too large: " + std::to_string(width) + " by " + std::to_string(height) + " pixels";
    const int share = FilledShare(layout);
    if (share < LeastShare) return "fills only " + std::to_string(share) + " percent of its box";
    return {};
}

int FilledShare(const Layout& layout) {
    const auto outlines = PixelsOf(layout);
    const Box box = BoxOf(layout);
    int filled = 0, all = 0;
    for (int y = Pixels(box.least.y); y <= Pixels(box.most.y); y++)
        for (int x = Pixels(box.least.x); x <= Pixels(box.most.x); x++, all++)
            filled += std::any_of(outlines.begin(), outlines.end(),
                                  [&](const PixelOutline& outline) { return Covers(outline, {x, y}); });
    return filled * 100 / (all + 1);
}

bool Connected(const Layout& layout) {
    const auto outlines = PixelsOf(layout);
    std::vector<int> reached = {0};
    std::array<bool, PieceCount> seen{true};
    for (std::size_t i = 0; i < reached.size(); i++)
        for (int piece = 0; piece < PieceCount; piece++)
            if (!seen[piece] && Touching(outlines[reached[i]], outlines[piece])) {
                seen[piece] = true;
                reached.push_back(piece);
            }
    return reached.size() == PieceCount;
}

std::vector<std::string> FaultsOf(const std::vector<Figure>& figures) {
    std::vector<std::string> faults;
    std::map<Region, const Figure*> known;
    for (const Figure& figure : figures) {
        const std::string fault =
            IsCategory(figure.category) ? FaultOf(figure.layout) : "no category '" + figure.category + "'";
        if (!fault.empty()) {
            faults.push_back(figure.place + ": " + fault);
            continue;
        }
        const auto [same, fresh] = known.try_emplace(Standard(RegionOf(figure.layout)), &figure);
        if (!fresh && !(IsPicture(figure) && IsPicture(*same->second)))
            faults.push_back(figure.place + ": same outline as " + same->second->place);
    }
    return faults;
}

} // namespace Figures
