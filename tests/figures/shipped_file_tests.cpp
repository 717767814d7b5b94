// The head of the shipped file against the geometry of the seven pieces.
// Only side lengths, turns and limits are known here, no tables.
#include "shipped_file.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <set>

namespace {

constexpr std::array<int, 7> StartTurns = {0, 2, 1, 0, 0, 0, 0};

int UsedTurns(int piece) {
    return piece == 3 ? 2 : 8;
}

// The side lengths of a piece in units of half a side of the square, in ascending order.
std::vector<double> SidesOf(int piece) {
    const double root = std::sqrt(2.0);
    if (piece == 0 || piece == 1) return {4, 4, 4 * root};
    if (piece == 2 || piece == 4) return {2, 2, 2 * root};
    if (piece == 5) return {2 * root, 2 * root, 4};
    if (piece == 3) return {2, 2, 2, 2};
    return {2, 2, 2 * root, 2 * root};
}

std::vector<double> SidesOf(const Row& row) {
    std::vector<double> sides;
    for (std::size_t i = 0; i < row.corners.size(); i++) {
        const Spot from = row.corners[i], to = row.corners[(i + 1) % row.corners.size()];
        sides.push_back(std::hypot(to.x - from.x, to.y - from.y) / 24);
    }
    std::sort(sides.begin(), sides.end());
    return sides;
}

std::set<std::pair<double, double>> CornerSet(const Row& row) {
    std::set<std::pair<double, double>> corners;
    for (const Spot corner : row.corners) corners.insert({corner.x, corner.y});
    return corners;
}

// The corners turned by 45 degrees clockwise, or mirrored as well, about the centre.
std::vector<Spot> TurnedAboutCentre(const Row& row, bool mirrored) {
    const Spot centre = Centre(row.corners);
    std::vector<Spot> turned;
    for (const Spot corner : row.corners) {
        const double x = (mirrored ? -1 : 1) * (corner.x - centre.x), y = corner.y - centre.y;
        turned.push_back(mirrored ? Spot{x, y} : Spot{(x - y) / std::sqrt(2.0), (x + y) / std::sqrt(2.0)});
    }
    return turned;
}

bool SameAboutCentre(const std::vector<Spot>& turned, const Row& row) {
    const Spot centre = Centre(row.corners);
    return std::all_of(turned.begin(), turned.end(), [&](Spot t) {
        return std::any_of(row.corners.begin(), row.corners.end(), [&](Spot c) {
            return std::hypot(t.x - (c.x - centre.x), t.y - (c.y - centre.y)) < 0.5;
        });
    });
}

} // namespace

TEST(ShippedHead, IsPlainTextInLinesOfTheRightLength) {
    const auto& [text, lines, starts, rows, records] = Shipped();
    ASSERT_GT(lines.size(), 65u);
    EXPECT_TRUE(text.ends_with("\r\n"));
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), std::count(text.begin(), text.end(), '\r'));
    EXPECT_EQ(text.find_first_not_of("0123456789,.-\r\n"), text.find(lines[63]));
    for (std::size_t i = 0; i < lines.size(); i++) {
        if (i == 63 || i == 64) continue;
        EXPECT_EQ(std::count(lines[i].begin(), lines[i].end(), ',') + 1, i < 7    ? 2
                                                                         : i < 63 ? 18
                                                                                  : 24)
            << i + 1;
    }
    EXPECT_FALSE(lines[64].empty());
    EXPECT_EQ(lines[64].find(','), std::string::npos);
}

TEST(ShippedHead, RowsAreTheOutlinesOfTheSevenPieces) {
    for (int piece = 0; piece < 7; piece++)
        for (int turn = 0; turn < 8; turn++) {
            SCOPED_TRACE("piece " + std::to_string(piece) + " turn " + std::to_string(turn));
            const Row& row = Shipped().rows[piece][turn];
            EXPECT_EQ(row.slanted, turn % 2 == 1);
            const auto sides = SidesOf(row), wanted = SidesOf(piece);
            ASSERT_EQ(sides.size(), wanted.size());
            for (std::size_t i = 0; i < sides.size(); i++) EXPECT_NEAR(sides[i], wanted[i], 0.02);
            EXPECT_TRUE(CornerSet(row).contains({row.fifth.x, row.fifth.y}));
            Spot least = row.corners[0], most = least;
            for (const Spot c : row.corners) {
                least = {std::min(least.x, c.x), std::min(least.y, c.y)};
                most = {std::max(most.x, c.x), std::max(most.y, c.y)};
                EXPECT_EQ(c.x, std::floor(c.x));
                EXPECT_EQ(std::fmod(c.x, row.slanted ? 34 : 24) + std::fmod(c.y, row.slanted ? 34 : 24), 0);
            }
            EXPECT_EQ(least.x, 0);
            EXPECT_EQ(least.y, 0);
            EXPECT_EQ(most.x, row.width);
            EXPECT_EQ(most.y, row.height);
        }
}

TEST(ShippedHead, TurnsGoClockwiseAndNoUsefulOneRepeats) {
    const auto& rows = Shipped().rows;
    for (int piece = 0; piece < 7; piece++) {
        std::set<std::set<std::pair<double, double>>> outlines;
        for (int turn = 0; turn < 8; turn++) outlines.insert(CornerSet(rows[piece][turn]));
        EXPECT_EQ(outlines.size(), static_cast<std::size_t>(UsedTurns(piece))) << piece;
        for (int turn = 1; turn < 8; turn++) {
            const bool mirror = piece == 6 && turn == 4;
            const Row& before = rows[piece][mirror ? 0 : turn - 1];
            EXPECT_TRUE(SameAboutCentre(TurnedAboutCentre(before, mirror), rows[piece][turn]))
                << "piece " << piece << " turn " << turn;
        }
    }
    for (int turn = 0; turn < 8; turn++) {
        EXPECT_EQ(CornerSet(rows[0][turn]), CornerSet(rows[1][turn]));
        EXPECT_EQ(CornerSet(rows[2][turn]), CornerSet(rows[4][turn]));
    }
}

TEST(ShippedHead, ShiftsKeepAPieceInItsPlace) {
    for (int piece = 0; piece < 7; piece++) {
        const auto& rows = Shipped().rows[piece];
        Spot at{0, 0};
        const Spot home = Centre(rows[0].corners);
        for (int step = 1; step <= UsedTurns(piece); step++) {
            const Row& row = rows[step % UsedTurns(piece)];
            at = {at.x + row.shift.x, at.y + row.shift.y};
            const Spot centre = Centre(Moved(row.corners, at));
            EXPECT_LE(std::hypot(centre.x - home.x, centre.y - home.y), 3)
                << "piece " << piece << " step " << step;
        }
        EXPECT_EQ(at.x, 0) << piece;
        EXPECT_EQ(at.y, 0) << piece;
    }
}

TEST(ShippedHead, StartPlacesLieClearOfEachOtherOnTheGrid) {
    const auto& [text, lines, starts, rows, records] = Shipped();
    for (int piece = 0; piece < 7; piece++) {
        const Row& row = rows[piece][StartTurns[piece]];
        EXPECT_EQ(std::fmod(starts[piece].x - 100, 24), 0);
        EXPECT_EQ(std::fmod(starts[piece].y - 100, 24), 0);
        EXPECT_GE(starts[piece].x, 20);
        EXPECT_GE(starts[piece].y, 20);
        EXPECT_LE(starts[piece].x + row.width, 330);
        EXPECT_LE(starts[piece].y + row.height, 365);
        for (int other = 0; other < piece; other++)
            EXPECT_GE(Clearance(Moved(row.corners, starts[piece]),
                                Moved(rows[other][StartTurns[other]].corners, starts[other])),
                      6)
                << piece << " and " << other;
    }
}
