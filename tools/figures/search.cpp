// A walk takes one piece off, lays it at another corner and keeps the better outline, seldom a worse one.
// Better means fewer corners, no slivers or loose tips, the wished holes and mirror image.
#include "search.h"

#include "rules.h"

#include <algorithm>
#include <iterator>
#include <random>
#include <set>

namespace Figures {
namespace {

constexpr int StepsInWalk = 3000;
constexpr int CoolingSteps = 750; // after which the tolerance for a worse outline falls by one

struct Walk {
    std::mt19937_64 random;
    Wish wish;
    Layout layout{};
    int cost = 0;
};

int Roll(Walk& walk, std::size_t sides) {
    return static_cast<int>(walk.random() % sides);
}

bool IsFree(const Layout& layout, int piece, int laid) {
    for (int other = 0; other < laid; other++)
        if (other != piece && !Apart(SpansOf(piece, layout[piece]), SpansOf(other, layout[other])))
            return false;
    return true;
}

// Lays a piece with one of its corners at a corner of one of the laid pieces. False when it does not fit.
bool TryLay(Walk& walk, Layout& layout, int piece, int laid) {
    const int turn = Roll(walk, UsedTurns(piece));
    const int other = Roll(walk, laid);
    if (other == piece) return false;
    const auto& own = ShapeOf(piece, turn).corners;
    const auto targets = CornersOf(other, layout[other]);
    layout[piece] = {turn, targets[Roll(walk, targets.size())] - own[Roll(walk, own.size())]};
    return IsFree(layout, piece, laid);
}

Layout StartLayout(Walk& walk) {
    Layout layout{};
    for (int piece = 1; piece < PieceCount; piece++)
        while (!TryLay(walk, layout, piece, piece)) continue;
    return layout;
}

int EdgesWithoutImage(const Region& region) {
    Surd least = StartOf(region.front()).x, most = least;
    for (const Edge& edge : region)
        for (const Point end : {StartOf(edge), EndOf(edge)}) {
            least = std::min(least, end.x);
            most = std::max(most, end.x);
        }
    Region image = MirroredAt(region, least + most);
    Region lone;
    std::set_difference(region.begin(), region.end(), image.begin(), image.end(), std::back_inserter(lone));
    return static_cast<int>(lone.size());
}

// Corners in which more than one loop or two parts of a loop meet.
int Tips(const std::vector<std::vector<Point>>& loops) {
    std::vector<Point> corners;
    for (const auto& loop : loops) corners.insert(corners.end(), loop.begin(), loop.end());
    std::sort(corners.begin(), corners.end());
    const auto different = std::unique(corners.begin(), corners.end());
    return static_cast<int>(corners.end() - different);
}

// Edges so short that the eye takes them for a slip.
int ShortEdges(const Region& region) {
    constexpr Surd least{UnitGrains, 0};
    return static_cast<int>(std::count_if(region.begin(), region.end(),
                                          [&](const Edge& edge) { return edge.most - edge.least < least; }));
}

int CostOf(const Wish& wish, const Layout& layout) {
    const Region region = RegionOf(layout);
    const auto loops = LoopsOf(region);
    const int corners = static_cast<int>(region.size());
    const int holes = static_cast<int>(std::count_if(loops.begin(), loops.end(), IsHole));
    const int parts = static_cast<int>(loops.size()) - holes;
    const int lone = wish.mirrored ? EdgesWithoutImage(region) : 0;
    return std::max(0, corners - wish.corners) + 2 * ShortEdges(region) + 4 * Tips(loops)
           + 6 * (parts - 1 + std::abs(holes - wish.holes)) + lone;
}

void Step(Walk& walk, int tolerance) {
    Layout changed = walk.layout;
    if (!TryLay(walk, changed, Roll(walk, PieceCount), PieceCount)) return;
    const int cost = CostOf(walk.wish, changed);
    if (cost > walk.cost + (tolerance > 0 ? Roll(walk, tolerance + 1) : 0)) return;
    if (!Connected(changed)) return;
    walk.layout = changed;
    walk.cost = cost;
}

// The placing of a piece whose corners are known.
Placed Recognised(int piece, const std::vector<Point>& corners) {
    const Spans spans = SpansOf(corners);
    Placed placed{0, {spans[0].least, spans[2].least}};
    while (placed.turn < TurnCount - 1) {
        const auto own = CornersOf(piece, placed);
        if (std::is_permutation(own.begin(), own.end(), corners.begin(), corners.end())) break;
        placed.turn++;
    }
    return placed;
}

template <class Map>
Layout Mapped(const Layout& layout, Map map) {
    Layout mapped;
    for (int piece = 0; piece < PieceCount; piece++) {
        std::vector<Point> corners = CornersOf(piece, layout[piece]);
        for (Point& corner : corners) corner = map(corner);
        mapped[piece] = Recognised(piece, corners);
    }
    return mapped;
}

} // namespace

std::vector<Layout> SearchFigures(const Wish& wish, std::uint64_t seed, int walks) {
    Walk walk{std::mt19937_64(seed), wish, {}, 0};
    std::set<Region> known;
    std::vector<Layout> finds;
    for (int i = 0; i < walks; i++) {
        walk.layout = StartLayout(walk);
        walk.cost = CostOf(wish, walk.layout);
        for (int step = 0; step < StepsInWalk && walk.cost > 0; step++)
            Step(walk, (StepsInWalk - step) / CoolingSteps);
        if (walk.cost > 0) continue;
        // A figure too long for the target may fit it cornerwise.
        const Layout find = FaultOf(walk.layout).empty() ? walk.layout : Turned(walk.layout);
        if (FaultOf(find).empty() && known.insert(Standard(RegionOf(find))).second) finds.push_back(find);
    }
    return finds;
}

Layout Turned(const Layout& layout) {
    return Mapped(layout, [](Point p) { return Turned(p); });
}

Layout Mirrored(const Layout& layout) {
    return Mapped(layout, [](Point p) { return Mirrored(p); });
}

} // namespace Figures
