// Exact numbers and boundaries.
// What is joined, taken out, turned and mirrored here can be checked by hand.
#include "region.h"
#include "search.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>

using namespace Figures;

namespace {

std::vector<Point> Block(int left, int top, int width, int height) {
    std::vector<Point> block = {{{left, 0}, {top, 0}},
                                {{left + width, 0}, {top, 0}},
                                {{left + width, 0}, {top + height, 0}},
                                {{left, 0}, {top + height, 0}}};
    for (Point& corner : block) {
        corner.x.whole *= UnitGrains;
        corner.y.whole *= UnitGrains;
    }
    return block;
}

Region RegionOfAll(const std::vector<std::vector<Point>>& outlines) {
    return RegionOf(outlines);
}

} // namespace

TEST(Surd, OrdersNumbersThatDifferByVeryLittle) {
    for (std::int64_t a = -40; a <= 40; a++)
        for (std::int64_t b = -40; b <= 40; b++) {
            const double value = static_cast<double>(a) + static_cast<double>(b) * std::sqrt(2.0);
            EXPECT_EQ(Sign({a, b}), (value > 0) - (value < 0)) << a << " " << b;
        }
    EXPECT_LT((Surd{1855077841, 0}), (Surd{0, 1311738121}));
    EXPECT_GT((Surd{768398401, 0}), (Surd{0, 543339720}));
}

TEST(Region, JoinsAcrossSharedSidesAndForgetsHowItWasCut) {
    const Region whole = RegionOfAll({Block(0, 0, 4, 4)});
    EXPECT_EQ(whole.size(), 4u);
    EXPECT_EQ(RegionOfAll({Block(0, 0, 1, 4), Block(1, 0, 3, 2), Block(1, 2, 3, 2)}), whole);
    const Region rest = Without(whole, Block(0, 0, 2, 2));
    EXPECT_EQ(rest.size(), 6u);
    EXPECT_EQ(RegionOfAll({Block(2, 0, 2, 2), Block(0, 2, 4, 2)}), rest);
    EXPECT_TRUE(Without(whole, Block(0, 0, 4, 4)).empty());
}

TEST(Region, KnowsWhatLiesInIt) {
    const Region ring = Without(RegionOfAll({Block(0, 0, 6, 6)}), Block(2, 2, 2, 2));
    const auto inRing = [&](const std::vector<Point>& outline) {
        return Contains(ring, outline, SpansOf(outline));
    };
    EXPECT_TRUE(inRing(Block(0, 0, 6, 2)));
    EXPECT_TRUE(inRing(Block(4, 1, 2, 5)));
    EXPECT_FALSE(inRing(Block(0, 0, 3, 3)));
    EXPECT_FALSE(inRing(Block(2, 2, 2, 2)));
    EXPECT_FALSE(inRing(Block(6, 0, 1, 1)));
    EXPECT_FALSE(inRing(Block(-1, 0, 3, 1)));
}

TEST(Region, TellsHolesFromPartsAndKeepsPartsApartThatTouchInAPoint) {
    const auto holes = [](const Region& region) {
        const auto loops = LoopsOf(region);
        return std::pair{loops.size(), std::count_if(loops.begin(), loops.end(), IsHole)};
    };
    EXPECT_EQ(holes(Without(RegionOfAll({Block(0, 0, 6, 6)}), Block(2, 2, 2, 2))),
              (std::pair{std::size_t{2}, 1l}));
    EXPECT_EQ(holes(RegionOfAll({Block(0, 0, 2, 2), Block(2, 2, 2, 2)})), (std::pair{std::size_t{2}, 0l}));
    EXPECT_EQ(holes(RegionOfAll({Block(0, 0, 2, 2), Block(3, 3, 2, 2)})), (std::pair{std::size_t{2}, 0l}));
}

TEST(Region, StandardPositionIsTheSameForEveryTurnAndMirrorImage) {
    const auto layouts = SearchFigures({14, 0, false}, 9, 20);
    ASSERT_GE(layouts.size(), 2u);
    EXPECT_NE(Standard(RegionOf(layouts[0])), Standard(RegionOf(layouts[1])));
    for (Layout layout : layouts) {
        const Region standard = Standard(RegionOf(layout));
        for (int turn = 0; turn < 8; turn++) {
            layout = Turned(layout);
            EXPECT_EQ(Standard(RegionOf(layout)), standard);
            EXPECT_EQ(Standard(RegionOf(Mirrored(layout))), standard);
        }
    }
}
