// Depth first search over the piece at the leftmost point of the rest, along the boundary that leaves it.
// Of congruent pieces the lower numbered one is laid first, so that no solution is found twice.
#include "solver.h"

#include <algorithm>

namespace Figures {
namespace {

// A piece in a turn, held at its leftmost corner.
struct Candidate {
    int piece, turn;
    Point hold;
    int heading; // in which its boundary leaves that corner
};

std::vector<Candidate> MakeCandidates() {
    std::vector<Candidate> candidates;
    for (int piece = 0; piece < PieceCount; piece++)
        for (int turn = 0; turn < UsedTurns(piece); turn++) {
            const Region region = RegionOf(std::vector<std::vector<Point>>{ShapeOf(piece, turn).corners});
            candidates.push_back({piece, turn, LeastPoint(region), LeastHeading(region)});
        }
    return candidates;
}

struct Search {
    std::size_t most = 0;
    Layout layout{};
    std::array<bool, PieceCount> laid{};
    std::vector<Layout> found{};
};

bool MayBeNext(const Search& search, int piece) {
    return !search.laid[piece] && (KindOf(piece) == piece || search.laid[KindOf(piece)]);
}

void Cover(Search& search, const Region& rest);

void TryCandidate(Search& search, const Region& rest, Point target, const Candidate& candidate) {
    const int piece = candidate.piece;
    const Placed placed{candidate.turn, target - candidate.hold};
    const auto outline = CornersOf(piece, placed);
    if (!Contains(rest, outline, SpansOf(piece, placed))) return;
    search.layout[piece] = placed;
    search.laid[piece] = true;
    Cover(search, Without(rest, outline));
    search.laid[piece] = false;
}

void Cover(Search& search, const Region& rest) {
    static const std::vector<Candidate> candidates = MakeCandidates();
    if (search.found.size() >= search.most) return;
    if (rest.empty()) {
        search.found.push_back(search.layout);
        return;
    }
    const Point target = LeastPoint(rest);
    const int heading = LeastHeading(rest);
    for (const Candidate& candidate : candidates)
        if (candidate.heading == heading && MayBeNext(search, candidate.piece))
            TryCandidate(search, rest, target, candidate);
}

} // namespace

std::vector<Layout> Solve(const Region& region, std::size_t most) {
    Search search;
    search.most = most;
    Cover(search, region);
    return search.found;
}

} // namespace Figures
