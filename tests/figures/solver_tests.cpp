// The exact solver: it finds what is there, once, and proves what is not.
// The convex figures are its proof piece.
#include "convex.h"
#include "rules.h"
#include "search.h"
#include "solver.h"
#include "source.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <set>

using namespace Figures;

namespace {

Layout SquareLayout() {
    return ReadSource(
               "Square | x | A:e B:s nw=A.nw D:tilt w=A.e C:w ne=B.ne E:n n=A.e G:3 sw=A.sw F:se ne=D.e",
               "square")
        .figures.at(0)
        .layout;
}

} // namespace

TEST(Solver, FindsTheEightSquaresAndEachCoversTheOutline) {
    const Region square = RegionOf(SquareLayout());
    std::set<std::string> different;
    for (const Layout& layout : Solve(square)) {
        different.insert(WriteLayout(layout));
        EXPECT_EQ(RegionOf(layout), square);
        EXPECT_EQ(FaultOf(layout), "");
    }
    EXPECT_EQ(different.size(), 8u);
    EXPECT_EQ(Solve(square).size(), 8u);
    EXPECT_EQ(Solve(square, 3).size(), 3u);
}

TEST(Solver, CountsTheSameInEveryTurnAndMirrorImage) {
    const auto layouts = SearchFigures({9, 0, false}, 5, 6);
    ASSERT_FALSE(layouts.empty());
    for (Layout layout : layouts) {
        const auto count = Solve(RegionOf(layout)).size();
        EXPECT_GE(count, 1u);
        EXPECT_EQ(Solve(RegionOf(Mirrored(layout))).size(), count);
        for (int turn = 1; turn < 8; turn++) {
            layout = Turned(layout);
            EXPECT_EQ(Solve(RegionOf(layout)).size(), count);
        }
    }
}

TEST(Solver, LeavesOutlinesAloneThatCannotBeLaid) {
    std::vector<Point> bar;
    for (const auto& [x, y] : {std::pair{0, 0}, {32, 0}, {32, 1}, {0, 1}})
        bar.push_back({{x * UnitGrains, 0}, {y * UnitGrains, 0}});
    EXPECT_TRUE(Solve(RegionOf(std::vector<std::vector<Point>>{bar})).empty());
}

TEST(ConvexFigures, AreThirteenOfTwentyOutlinesAndAllThatFitAreInTheCollection) {
    std::set<Region> shipped;
    for (const Figure& figure : ReadSourceFolder(DATA_FOLDER "/figures").figures)
        shipped.insert(Standard(RegionOf(figure.layout)));
    const auto outlines = ConvexOutlines();
    EXPECT_EQ(outlines.size(), 20u);
    int laid = 0, fit = 0;
    for (const Region& outline : outlines) {
        EXPECT_EQ(Standard(outline), outline);
        const auto layouts = Solve(outline);
        if (layouts.empty()) continue;
        laid++;
        const bool playable = std::any_of(layouts.begin(), layouts.end(), [](const Layout& layout) {
            return FaultOf(layout).empty() || FaultOf(Turned(layout)).empty();
        });
        if (!playable) continue;
        fit++;
        EXPECT_TRUE(shipped.contains(outline)) << outline.size() << " sides";
    }
    EXPECT_EQ(laid, 13);
    EXPECT_EQ(fit, 10);
}

TEST(Search, GivesTheWishedFiguresAndTheSameOnesAgain) {
    for (const Wish& wish : {Wish{8, 0, false}, Wish{12, 1, false}, Wish{16, 0, true}}) {
        const auto finds = SearchFigures(wish, 3, 60);
        ASSERT_FALSE(finds.empty());
        for (const Layout& find : finds) {
            const Region region = RegionOf(find);
            const auto loops = LoopsOf(region);
            EXPECT_LE(region.size(), static_cast<std::size_t>(wish.corners));
            EXPECT_EQ(std::count_if(loops.begin(), loops.end(), IsHole), wish.holes);
            EXPECT_EQ(FaultOf(find), "");
        }
    }
    const Wish wish{10, 0, false};
    EXPECT_EQ(WriteLayout(SearchFigures(wish, 4, 10).at(0)), WriteLayout(SearchFigures(wish, 4, 10).at(0)));
}
