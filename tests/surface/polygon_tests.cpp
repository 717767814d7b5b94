// Polygons: every pixel against the edge rule, what follows from it, and the shipped pieces as kept pictures.
// With GOLDEN_WRITE=1 in the environment the pictures are kept anew, as they are drawn now.
#include "pictures.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>

namespace {

/// Filled and hollow the shape is as the rule has it; in the ground's colour it leaves no trace of itself.
void ExpectTheRule(const Shape& shape, int width, int height) {
    Picture expected = ByTheRule(shape, width, height);
    for (const FillMode mode : {FillMode::Solid, FillMode::None}) {
        Surface surface(width, height, Ground);
        const Picture bare = PictureOf(surface);
        if (mode == FillMode::None) std::replace(expected.begin(), expected.end(), '+', '.');
        Draw(surface, shape, mode);
        ASSERT_EQ(PictureOf(surface), expected) << testing::PrintToString(shape);
        surface.ForeColor = surface.FillColor = Ground;
        Polygon(surface, shape);
        ASSERT_EQ(PictureOf(surface), bare) << testing::PrintToString(shape);
    }
}

TEST(PolygonTest, FollowsTheRuleForEveryPolygonOnASmallGrid) {
    for (const auto& [corners, side] : {std::pair(0, 2), {1, 6}, {2, 6}, {3, 5}, {4, 3}, {5, 2}})
        for (int n = 0, points = side * side; n < std::pow(points, corners) && !HasFailure(); ++n) {
            Shape shape;
            for (int rest = n, i = 0; i < corners; ++i, rest /= points)
                shape.push_back({rest % points % side, rest % points / side});
            ExpectTheRule(shape, side, side);
        }
}

TEST(PolygonTest, FollowsTheRuleForRandomPolygonsAndEveryPieceRow) {
    for (const Shape& shape : RandomShapes(2000))
        if (!HasFailure()) ExpectTheRule(shape, 40, 30);
    for (const Shape& row : PieceRows())
        for (const Vertex place : {Vertex{4, 5}, Vertex{-21, -40}, Vertex{90, 107}})
            ExpectTheRule(Moved(row, place.X, place.Y), 145, 145);
}

TEST(PolygonTest, FollowsTheRuleHoweverFarAwayTheVerticesLie) {
    const int far[] = {INT_MIN, INT_MIN + 1, INT_MAX - 1, INT_MAX};
    for (Shape& shape : RandomShapes(3000)) {
        for (Vertex& vertex : shape)
            for (int* place : {&vertex.X, &vertex.Y})
                if (*place % 2) *place = Between(0, 1) ? far[Between(0, 3)] : Between(INT_MIN, INT_MAX);
        if (!HasFailure()) ExpectTheRule(shape, 30, 20);
    }
}

TEST(PolygonTest, HasNoGapAndIsTheSameFromAnyVertexInEitherDirectionAtAnyPlace) {
    constexpr int Side = 80, Line = Side + 1;
    for (const Shape& shape : RandomShapes(1000)) {
        Surface whole(Side, Side, Ground);
        Draw(whole, Moved(shape, 20, 20));
        const Picture picture = PictureOf(whole);
        const auto letter = [&](int at) { return picture[static_cast<std::size_t>(at)]; };
        for (const Vertex v : shape) EXPECT_EQ(letter((v.Y + 20) * Line + v.X + 20), '#');
        for (int at = Line; at < Line * (Side - 1); ++at)
            for (const int next : {at - 1, at + 1, at - Line, at + Line})
                EXPECT_FALSE(letter(at) == '+' && letter(next) == '.');
        Shape other = shape;
        for (const auto& [x, y] : {std::pair(1, 0), {0, 1}, {-9, -8}, {-25, 3}, {2, -40}}) {
            std::rotate(other.begin(), other.begin() + 1, other.end());
            if (y < 0) std::reverse(other.begin(), other.end());
            Surface part(40, 30, Ground);
            BitBlt(part, x - 20, y - 20, Side, Side, whole, 0, 0);
            EXPECT_EQ(Painted(Moved(other, x, y), 40, 30), PictureOf(part));
        }
        ASSERT_FALSE(HasFailure()) << testing::PrintToString(shape) << '\n' << picture;
    }
}

/// Three dots are 3., and so on.
std::string InRuns(const Picture& picture) {
    std::string text;
    for (std::size_t at = 0, end; at < picture.size(); at = end) {
        end = std::min(picture.find_first_not_of(picture[at], at), picture.size());
        if (end - at > 1) text += std::to_string(end - at);
        text += picture[at];
    }
    return text;
}

/// Every piece row at this scale, in a margin of ground, named by its line in the collection, is as kept.
void ExpectAsKept(const std::string& path, float scale) {
    std::string pictures;
    int line = 8;
    for (Shape& shape : PieceRows()) {
        Vertex end;
        for (Vertex& v : shape) {
            v = {1 + FloorInt32(scale * Single(v.X)), 1 + FloorInt32(scale * Single(v.Y))};
            end = {std::max(end.X, v.X), std::max(end.Y, v.Y)};
        }
        pictures += "line " + std::to_string(line++) + '\n' + InRuns(Painted(shape, end.X + 2, end.Y + 2));
    }
    if (std::getenv("GOLDEN_WRITE")) std::ofstream(path) << pictures;
    std::ifstream kept(path);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(kept), {}), pictures) << path;
}

TEST(PolygonTest, PiecesAndTheirThumbnailsLookAsKept) {
    ExpectAsKept(GOLDEN_FOLDER "/piece_rows.txt", 1);
    ExpectAsKept(GOLDEN_FOLDER "/large_thumbnails.txt", 0.54F);
    ExpectAsKept(GOLDEN_FOLDER "/small_thumbnails.txt", 0.18F);
}

} // namespace
