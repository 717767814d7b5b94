// Boundary arithmetic: edges that run against each other on the same line cancel.
// That one idea joins pieces into a silhouette and takes a piece out of one again.
#include "region.h"

#include <algorithm>
#include <tuple>

namespace Figures {
namespace {

Point PointOn(int direction, Surd line, Surd value) {
    switch (direction) {
    case 0:
        return {line, value};
    case 1:
        return {value, line - value};
    case 2:
        return {value, line};
    default:
        return {value, line + value};
    }
}

int DirectionOf(Point from, Point to) {
    const auto start = Measures(from), end = Measures(to);
    int direction = 0;
    while (start[direction] != end[direction]) direction++;
    return direction;
}

Edge EdgeOf(Point from, Point to) {
    const int direction = DirectionOf(from, to);
    const Surd line = Measures(from)[direction];
    const Surd start = direction == 0 ? from.y : from.x;
    const Surd end = direction == 0 ? to.y : to.x;
    if (start < end) return {direction, line, start, end, 1};
    return {direction, line, end, start, -1};
}

void AddOutline(Region& edges, const std::vector<Point>& outline) {
    for (std::size_t i = 0; i < outline.size(); i++)
        edges.push_back(EdgeOf(outline[i], outline[(i + 1) % outline.size()]));
}

// Where the number of edges on one line changes, and by how much.
struct Step {
    int direction;
    Surd line, value;
    int change;

    friend std::strong_ordering operator<=>(const Step&, const Step&) = default;
};

bool SameLine(const Step& l, const Step& r) {
    return l.direction == r.direction && l.line == r.line;
}

Region Cancelled(const Region& edges) {
    std::vector<Step> steps;
    for (const Edge& edge : edges) {
        steps.push_back({edge.direction, edge.line, edge.least, edge.sense});
        steps.push_back({edge.direction, edge.line, edge.most, -edge.sense});
    }
    std::sort(steps.begin(), steps.end());
    Region region;
    int sense = 0;
    Surd since;
    for (std::size_t i = 0; i < steps.size();) {
        const Step& here = steps[i];
        int change = 0;
        for (; i < steps.size() && SameLine(steps[i], here) && steps[i].value == here.value; i++)
            change += steps[i].change;
        if (change == 0) continue;
        if (sense != 0) region.push_back({here.direction, here.line, since, here.value, sense});
        sense += change;
        since = here.value;
    }
    return region;
}

// A point strictly inside a convex outline.
Point InnerPoint(const std::vector<Point>& outline) {
    return Middle(Middle(outline[0], outline[1]), outline[2]);
}

// Counts the edges above the point, with their sense: not zero inside.
bool Inside(const Region& region, Point point) {
    int turns = 0;
    for (const Edge& edge : region) {
        if (edge.direction == 0 || point.x < edge.least || point.x >= edge.most) continue;
        if (PointOn(edge.direction, edge.line, point.x).y < point.y) turns += edge.sense;
    }
    return turns != 0;
}

Spans SpansOfEdge(const Edge& edge) {
    return SpansOf(std::array{StartOf(edge), EndOf(edge)});
}

Point FromOf(const Edge& edge) {
    return edge.sense > 0 ? StartOf(edge) : EndOf(edge);
}
Point ToOf(const Edge& edge) {
    return edge.sense > 0 ? EndOf(edge) : StartOf(edge);
}

template <class Map>
Region Mapped(const Region& region, Map map, bool reversed = false) {
    Region mapped;
    for (const Edge& edge : region) {
        const Point from = map(FromOf(edge)), to = map(ToOf(edge));
        mapped.push_back(reversed ? EdgeOf(to, from) : EdgeOf(from, to));
    }
    std::sort(mapped.begin(), mapped.end());
    return mapped;
}

Region AtOrigin(const Region& region) {
    const Point least = LeastPoint(region);
    return Mapped(region, [&](Point p) { return p - least; });
}

Region TurnedRegion(const Region& region) {
    return Mapped(region, [](Point p) { return Turned(p); });
}

int HeadingOf(const Edge& edge) {
    constexpr std::array rising = {4, 1, 2, 3};
    return (rising[edge.direction] + (edge.sense > 0 ? 0 : 4)) % 8;
}

} // namespace

Point StartOf(const Edge& edge) {
    return PointOn(edge.direction, edge.line, edge.least);
}
Point EndOf(const Edge& edge) {
    return PointOn(edge.direction, edge.line, edge.most);
}

Region RegionOf(const std::vector<std::vector<Point>>& outlines) {
    Region edges;
    for (const auto& outline : outlines) AddOutline(edges, outline);
    return Cancelled(edges);
}

Region RegionOf(const Layout& layout) {
    std::vector<std::vector<Point>> outlines;
    for (int piece = 0; piece < PieceCount; piece++) outlines.push_back(CornersOf(piece, layout[piece]));
    return RegionOf(outlines);
}

Region Without(const Region& region, const std::vector<Point>& outline) {
    Region edges = region;
    AddOutline(edges, {outline.rbegin(), outline.rend()});
    return Cancelled(edges);
}

bool Contains(const Region& region, const std::vector<Point>& outline, const Spans& spans) {
    for (const Edge& edge : region)
        if (!Apart(spans, SpansOfEdge(edge))) return false;
    return Inside(region, InnerPoint(outline));
}

Point LeastPoint(const Region& region) {
    Point least = StartOf(region.front());
    for (const Edge& edge : region) least = std::min({least, StartOf(edge), EndOf(edge)});
    return least;
}

int LeastHeading(const Region& region) {
    const Point least = LeastPoint(region);
    int first = 8;
    for (const Edge& edge : region)
        if (FromOf(edge) == least) first = std::min(first, HeadingOf(edge));
    return first;
}

Region Standard(const Region& region) {
    Region best = AtOrigin(region), turned = best;
    for (int i = 0; i < TurnCount; i++) {
        turned = TurnedRegion(turned);
        best = std::min({best, AtOrigin(turned), AtOrigin(MirroredAt(turned, {}))});
    }
    return best;
}

Region MirroredAt(const Region& region, Surd sum) {
    const auto mirror = [&](Point p) { return Point{sum - p.x, p.y}; };
    return Mapped(region, mirror, true);
}

std::vector<std::vector<Point>> LoopsOf(const Region& region) {
    Region rest = region;
    std::vector<std::vector<Point>> loops;
    while (!rest.empty()) {
        Edge edge = rest.back();
        rest.pop_back();
        const Point first = FromOf(edge);
        std::vector<Point> loop{first};
        while (ToOf(edge) != first) {
            const Point corner = ToOf(edge);
            loop.push_back(corner);
            // Of several ways on, the sharpest turn to the right keeps loops apart that only touch.
            auto next = rest.end();
            for (auto it = rest.begin(); it != rest.end(); ++it) {
                if (FromOf(*it) != corner) continue;
                const auto turn = [&](const Edge& e) { return (HeadingOf(e) - HeadingOf(edge) + 12) % 8; };
                if (next == rest.end() || turn(*it) > turn(*next)) next = it;
            }
            if (next == rest.end()) break;
            edge = *next;
            rest.erase(next);
        }
        loops.push_back(std::move(loop));
    }
    return loops;
}

bool IsHole(const std::vector<Point>& loop) {
    const std::size_t count = loop.size();
    int turned = 0; // in steps of 45 degrees, to the right
    for (std::size_t i = 0; i < count; i++) {
        const Edge before = EdgeOf(loop[i], loop[(i + 1) % count]);
        const Edge after = EdgeOf(loop[(i + 1) % count], loop[(i + 2) % count]);
        turned += (HeadingOf(after) - HeadingOf(before) + 12) % 8 - 4;
    }
    return turned < 0;
}

} // namespace Figures
