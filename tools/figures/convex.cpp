// A convex outline is an upright rectangle with its corners cut off at 45 degrees.
// Lengths are in units, not in grains: sides are 2 m + 2 n sqrt(2), so a cut takes 2 n + m sqrt(2) off.
#include "convex.h"

#include <algorithm>
#include <set>

namespace Figures {
namespace {

// All pieces together have sides for twenty times 2 and ten times 2 sqrt(2), a side of twice the length
// counted twice.
constexpr int StraightSides = 20;
constexpr int SlantSides = 10;
constexpr Surd TwiceTheArea{64, 0};

// An outline around a large triangle is at least 2 sqrt(2) across, and its length times that at most twice
// the area.
constexpr Surd Longest{0, 16};

constexpr Surd Times(Surd l, Surd r) {
    return {l.whole * r.whole + 2 * l.root * r.root, l.whole * r.root + l.root * r.whole};
}

using Lengths = std::vector<Surd>; // in ascending order

// All sums of straight and slant steps from nothing up to the longest length.
Lengths SumsOf(Surd straight, Surd slant) {
    Lengths sums;
    for (int m = 0; m <= StraightSides; m++)
        for (int n = 0; n <= SlantSides; n++) {
            const Surd sum{m * straight.whole + n * slant.whole, m * straight.root + n * slant.root};
            if (sum <= Longest) sums.push_back(sum);
        }
    std::sort(sums.begin(), sums.end());
    return sums;
}

bool IsIn(const Lengths& lengths, Surd length) {
    return std::binary_search(lengths.begin(), lengths.end(), length);
}

struct Octagon {
    Surd nw, ne, se, sw; // cuts
    Surd width, height;
};

Surd TwiceTheAreaOf(const Octagon& o) {
    const Surd box = Times(o.width, o.height);
    return box + box - Times(o.nw, o.nw) - Times(o.ne, o.ne) - Times(o.se, o.se) - Times(o.sw, o.sw);
}

Region OutlineOf(const Octagon& o) {
    const Surd zero;
    const std::array<Point, 8> corners = {{{o.nw, zero},
                                           {o.width - o.ne, zero},
                                           {o.width, o.ne},
                                           {o.width, o.height - o.se},
                                           {o.width - o.se, o.height},
                                           {o.sw, o.height},
                                           {zero, o.height - o.sw},
                                           {zero, o.nw}}};
    std::vector<Point> outline;
    for (const auto& [x, y] : corners)
        outline.push_back(
            {{x.whole * UnitGrains, x.root * UnitGrains}, {y.whole * UnitGrains, y.root * UnitGrains}});
    outline.erase(std::unique(outline.begin(), outline.end()), outline.end());
    if (outline.front() == outline.back()) outline.pop_back();
    return RegionOf(std::vector<std::vector<Point>>{outline});
}

struct Survey {
    Lengths sides = SumsOf({2, 0}, {0, 2});
    Lengths cuts = SumsOf({0, 1}, {2, 0});
    std::set<Region> found;
};

// Widens and heightens the octagon, whose area only grows by that, until the area fits or is passed.
void TrySizes(Survey& survey, Octagon octagon) {
    for (const Surd top : survey.sides) {
        octagon.width = octagon.nw + octagon.ne + top;
        octagon.height = std::max(octagon.nw + octagon.sw, octagon.ne + octagon.se);
        if (TwiceTheAreaOf(octagon) > TwiceTheArea) return;
        if (!IsIn(survey.sides, octagon.width - octagon.sw - octagon.se)) continue;
        for (const Surd left : survey.sides) {
            octagon.height = octagon.nw + octagon.sw + left;
            if (!IsIn(survey.sides, octagon.height - octagon.ne - octagon.se)) continue;
            if (TwiceTheAreaOf(octagon) == TwiceTheArea) survey.found.insert(Standard(OutlineOf(octagon)));
        }
    }
}

bool MayFit(Octagon octagon) {
    octagon.width = std::max(octagon.nw + octagon.ne, octagon.sw + octagon.se);
    octagon.height = std::max(octagon.nw + octagon.sw, octagon.ne + octagon.se);
    return TwiceTheAreaOf(octagon) <= TwiceTheArea;
}

} // namespace

std::vector<Region> ConvexOutlines() {
    Survey survey;
    // Mirroring puts the largest cut in the north-west and the smaller of its neighbours in the south-west.
    for (const Surd nw : survey.cuts)
        for (const Surd ne : survey.cuts)
            for (const Surd sw : survey.cuts)
                for (const Surd se : survey.cuts) {
                    const Octagon octagon{nw, ne, se, sw, {}, {}};
                    if (ne <= nw && sw <= ne && se <= nw && MayFit(octagon)) TrySizes(survey, octagon);
                }
    return {survey.found.begin(), survey.found.end()};
}

} // namespace Figures
