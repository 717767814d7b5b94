// Every figure of the shipped file against the rules of the game, in pixels.
// And the file itself, and the list of it, against the sources they are made from.
#include "collection.h"
#include "list.h"
#include "rules.h"
#include "shipped_file.h"

#include <algorithm>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>

namespace {

using Outlines = std::vector<std::vector<Spot>>;

Outlines OutlinesOf(const Record& record) {
    Outlines outlines;
    for (int piece = 0; piece < 7; piece++) {
        const auto& [turn, x, y] = record.pieces[piece];
        outlines.push_back(Moved(Shipped().rows[piece][turn].corners, Spot{double(x), double(y)}));
    }
    return outlines;
}

// Whether a pixel three away from a corner of one outline, in one of the eight directions, lies in the other.
bool Touching(const std::vector<Spot>& a, const std::vector<Spot>& b) {
    const auto near = [](const std::vector<Spot>& outline, const std::vector<Spot>& corners) {
        for (const Spot corner : corners)
            for (const double dx : {-3, 0, 3})
                for (const double dy : {-3, 0, 3})
                    if (Outside(outline, {corner.x + dx, corner.y + dy}) < 0) return true;
        return false;
    };
    return near(a, b) || near(b, a);
}

std::size_t PiecesInFirstGroup(const Outlines& outlines) {
    std::vector<std::size_t> group = {0};
    for (std::size_t i = 0; i < group.size(); i++)
        for (std::size_t other = 0; other < outlines.size(); other++)
            if (std::find(group.begin(), group.end(), other) == group.end()
                && Touching(outlines[group[i]], outlines[other]))
                group.push_back(other);
    return group.size();
}

Spot MostOf(const Outlines& outlines) {
    Spot most{0, 0};
    for (const auto& outline : outlines)
        for (const Spot corner : outline) most = {std::max(most.x, corner.x), std::max(most.y, corner.y)};
    return most;
}

std::string ReadAll(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<Figures::Figure> ShippedSources() {
    return Figures::InPlayingOrder(Figures::ReadSourceFolder(DATA_FOLDER "/figures").figures);
}

} // namespace

TEST(ShippedFigures, LieWhereTheGameWantsThem) {
    int number = 0;
    for (const Record& record : Shipped().records) {
        SCOPED_TRACE("figure " + std::to_string(record.number));
        EXPECT_EQ(record.number, ++number);
        EXPECT_EQ(record.left, 60);
        EXPECT_EQ(record.top, 60);
        Spot least{999, 999};
        for (int piece = 0; piece < 7; piece++) {
            EXPECT_GE(record.pieces[piece].turn, 0);
            EXPECT_LT(record.pieces[piece].turn, piece == 3 ? 2 : 8);
            least = {std::min(least.x, double(record.pieces[piece].x)),
                     std::min(least.y, double(record.pieces[piece].y))};
        }
        EXPECT_EQ(least.x, 60);
        EXPECT_EQ(least.y, 60);
    }
}

TEST(ShippedFigures, FitTogetherAndIntoTheTarget) {
    for (const Record& record : Shipped().records) {
        SCOPED_TRACE("figure " + std::to_string(record.number));
        const Outlines outlines = OutlinesOf(record);
        for (int piece = 0; piece < 7; piece++)
            for (int other = 0; other < piece; other++)
                EXPECT_GE(Clearance(outlines[piece], outlines[other]), -1) << piece << " and " << other;
        EXPECT_EQ(PiecesInFirstGroup(outlines), 7u);
        const Spot most = MostOf(outlines);
        EXPECT_LE(most.x - 60, 228);
        EXPECT_LE(most.y - 60, 226);
        EXPECT_LT(most.x, 350);
        EXPECT_LT(most.y, 390);
        double area = 0;
        for (const auto& outline : outlines) area += Area(outline);
        EXPECT_GE(area / ((most.x - 59) * (most.y - 59) + 1), 0.2);
    }
}

TEST(ShippedFigures, AreWhatTheSourcesGive) {
    const auto source = Figures::ReadSourceFolder(DATA_FOLDER "/figures");
    EXPECT_EQ(source.faults, std::vector<std::string>{});
    EXPECT_EQ(Figures::FaultsOf(source.figures), std::vector<std::string>{});
    EXPECT_TRUE(Figures::WriteCollection(ShippedSources()) == Shipped().text) << "run: figures build";
}

TEST(ShippedFigures, AreListedWithTheirSolutionsAndMostlyHaveOne) {
    const std::string list = ReadAll(DOCS_FOLDER "/collection.md");
    EXPECT_TRUE(Figures::WriteList(ShippedSources()) == list) << "run: figures list";
    std::size_t single = 0;
    for (std::size_t at = 0; (at = list.find("| 1 |\n", at)) != std::string::npos; at++) single++;
    EXPECT_GE(2 * single, Shipped().records.size());
}
