// The figure tool: exact outlines, the complete solver, what it refuses; and the shipped file and its list.
#include "collection.h"
#include "convex.h"
#include "list.h"
#include "rules.h"
#include "search.h"
#include "solver.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <map>
#include <set>
#include <sstream>

using namespace Figures;

namespace {

const std::string SquareText = "A:e B:s nw=A.nw D:tilt w=A.e C:w ne=B.ne E:n n=A.e G:3 sw=A.sw F:se ne=D.e";

Source ReadPieces(const std::string& pieces, const std::string& category = "tool") {
    return ReadSource("# a comment\n\nTry | " + category + " | " + pieces + "\n", "f");
}

Layout LayoutOf(const std::string& pieces) {
    return ReadPieces(pieces).figures.at(0).layout;
}

const Source& ShippedSources() {
    static const Source sources = ReadSourceFolder(DATA_FOLDER "/figures");
    return sources;
}

std::string ReadAll(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

struct Row {
    bool Slanted;
    double Width, Height, ShiftX, ShiftY;
    std::vector<std::pair<double, double>> Corners; // the four drawn and the fifth
    std::pair<double, double> Middle{0, 0};         // of the different corners
};

/// A shape row of the shipped file, read from its text alone, in pixels.
Row ShippedRow(int piece, int turn) {
    std::istringstream lines(ReadAll(DATA_FOLDER "/QUILLET.qui"));
    std::string line;
    for (int n = 0; n < 8 + 8 * piece + turn; ++n) std::getline(lines, line);
    std::replace(line.begin(), line.end(), ',', ' ');
    std::istringstream values(line);
    const std::vector<double> f{std::istream_iterator<double>(values), {}};
    const double unit = f.at(1) < 0 ? 34 : 24;
    Row row{f[1] < 0, f[2] * unit, f[3] * unit, std::floor(f.at(16) * 24), std::floor(f.at(17) * 24), {}};
    for (std::size_t k = 6; k < 16; k += 2) row.Corners.emplace_back(f[k] * unit, f[k + 1] * unit);
    const std::set<std::pair<double, double>> corners(row.Corners.begin(), row.Corners.end());
    for (const auto& [x, y] : corners)
        row.Middle.first += x / double(corners.size()), row.Middle.second += y / double(corners.size());
    return row;
}

} // namespace

TEST(ShippedFile, IsWhatTheSourcesGiveAndSoIsItsList) {
    EXPECT_EQ(ShippedSources().faults, std::vector<std::string>{});
    EXPECT_EQ(FaultsOf(ShippedSources().figures), std::vector<std::string>{});
    const auto figures = InPlayingOrder(ShippedSources().figures);
    EXPECT_TRUE(WriteCollection(figures) == ReadAll(DATA_FOLDER "/QUILLET.qui")) << "run: figures build";
    const std::string list = WriteList(figures);
    EXPECT_TRUE(list == ReadAll(DOCS_FOLDER "/collection.md")) << "run: figures list";
    std::size_t single = 0;
    for (std::size_t at = 0; (at = list.find("| 1 |\n", at)) != list.npos; ++at) ++single;
    EXPECT_GE(2 * single, figures.size());
    EXPECT_TRUE(300 <= figures.size() && figures.size() <= 400) << figures.size();
    std::map<std::string_view, int> kinds;
    for (const Figure& figure : figures) ++kinds[KindName(figure)];
    EXPECT_EQ(kinds.size(), 3u);
    for (const auto& [kind, count] : kinds) EXPECT_GE(count, 50) << kind;
}

TEST(ShippedFile, RowsAreTheSevenPiecesAndTurnInTheirPlace) {
    const double areas[] = {8, 8, 2, 4, 2, 4, 4}; // in squares of half a side
    for (int piece = 0; piece < 7; ++piece) {
        const Row home = ShippedRow(piece, 0);
        const int turns = piece == 3 ? 2 : 8;
        double x = 0, y = 0;
        for (int step = 1; step <= turns; ++step) {
            const Row row = ShippedRow(piece, step % turns);
            SCOPED_TRACE(testing::Message() << "piece " << piece << " turn " << step % turns);
            EXPECT_EQ(row.Slanted, step % 2 == 1);
            x += row.ShiftX, y += row.ShiftY;
            EXPECT_LE(std::hypot(x + row.Middle.first - home.Middle.first,
                                 y + row.Middle.second - home.Middle.second),
                      3);
            double area = 0, least[] = {99, 99}, most[] = {0, 0};
            for (std::size_t i = 0; i < 4; ++i) {
                const auto& [ax, ay] = row.Corners[i];
                const auto& [bx, by] = row.Corners[(i + 1) % 4];
                area += (ax * by - bx * ay) / 2 / 24 / 24;
                least[0] = std::min(least[0], ax), least[1] = std::min(least[1], ay);
                most[0] = std::max(most[0], ax), most[1] = std::max(most[1], ay);
            }
            EXPECT_NEAR(std::abs(area), areas[piece], 0.03);
            EXPECT_GT(std::count(row.Corners.begin(), row.Corners.end() - 1, row.Corners[4]), 0);
            EXPECT_EQ(std::tuple(least[0], least[1], most[0], most[1]),
                      std::tuple(0, 0, row.Width, row.Height));
        }
        EXPECT_EQ(std::pair(x, y), std::pair(0., 0.)) << piece;
    }
}

TEST(Solver, FindsTheEightSquaresAndTheSameInEveryTurnAndMirrorImage) {
    std::vector<Layout> layouts = SearchFigures({14, 1, false}, 9, 40);
    ASSERT_FALSE(layouts.empty());
    layouts.push_back(LayoutOf(SquareText));
    for (Layout layout : layouts) {
        const auto solutions = Solve(RegionOf(layout)).size();
        const Region standard = Standard(RegionOf(layout));
        for (int turn = 0; turn < 8; turn++) {
            layout = Turned(layout);
            EXPECT_EQ(Standard(RegionOf(layout)), standard);
            EXPECT_EQ(Standard(RegionOf(Mirrored(layout))), standard);
            EXPECT_EQ(Solve(RegionOf(turn % 2 ? layout : Mirrored(layout))).size(), solutions);
        }
    }
    const Region square = RegionOf(LayoutOf(SquareText));
    std::set<std::string> different;
    for (const Layout& layout : Solve(square)) {
        different.insert(WriteLayout(layout));
        EXPECT_EQ(RegionOf(layout), square);
        EXPECT_EQ(FaultOf(layout), "");
    }
    EXPECT_EQ(std::pair(different.size(), Solve(square).size()), (std::pair<std::size_t, std::size_t>(8, 8)));
}

TEST(ConvexFigures, AreThirteenOfTwentyOutlinesAndAllThatFitAreInTheCollection) {
    std::set<Region> shipped;
    for (const Figure& figure : ShippedSources().figures) shipped.insert(Standard(RegionOf(figure.layout)));
    int outlines = 0, laid = 0, fit = 0;
    for (const Region& outline : ConvexOutlines()) {
        const auto layouts = Solve(outline);
        const bool playable = std::any_of(layouts.begin(), layouts.end(), [](const Layout& layout) {
            return FaultOf(layout).empty() || FaultOf(Turned(layout)).empty();
        });
        outlines++, laid += !layouts.empty(), fit += playable;
        EXPECT_TRUE(!playable || shipped.contains(outline)) << outline.size() << " sides";
    }
    EXPECT_EQ(std::tuple(outlines, laid, fit), std::tuple(20, 13, 10));
}

TEST(Sources, AreRefusedWithPlaceAndReason) {
    const std::string boat = "A:nw B:se ne=A.ne F:n sw=A.nw C:sw sw=B.se E:se se=A.sw ",
                      end = "D:flat sw=C.nw G:4 sw=F.n";
    const std::pair<std::string, std::string> cases[] = {
        {"A:se C:ne nw=A.sw", "fewer than seven pieces"},
        {boat + end + " D:flat", "more than seven pieces"},
        {"A:up " + boat.substr(5) + end, "no new piece with a turn in 'A:up'"},
        {"A:se A:ne nw=A.sw", "no new piece with a turn in 'A:ne'"},
        {"A:se C:ne s=A.sw", "no corner of that piece in 's=A.sw'"},
        {"A:se C:ne nw=B.sw", "no such place in 'nw=B.sw'"},
        {"A:se C:ne nw=A.sw(1,2x)", "no such place in 'nw=A.sw(1,2x)'"},
        {boat + "D:flat sw=B.sw G:4 sw=F.n", "pieces A and D overlap"},
        {boat + "D:flat sw=C.nw(1,-1) G:4 sw=F.n", "the pieces do not hang together"},
        {boat + "D:flat sw=C.nw(2-1r,-2+1r) G:4 sw=F.n", "the pieces do not hang together"}, // 14 pixels
        {boat + "D:flat sw=C.se G:4 sw=D.ne", "too large: 336 by 144 pixels"}};
    for (const auto& [pieces, reason] : cases) {
        const Source source = ReadPieces(pieces);
        EXPECT_EQ(source.figures.empty() ? source.faults : FaultsOf(source.figures),
                  std::vector<std::string>{"f:3: " + reason});
    }
    const Figure good = ReadPieces(boat + end).figures.at(0),
                 find = ReadPieces(boat + end, "find").figures.at(0);
    EXPECT_TRUE(FaultsOf({good, good}).empty()); // pictures may look alike
    EXPECT_EQ(FaultsOf({good, find}), std::vector<std::string>{"f:3: same outline as f:3"});
    EXPECT_EQ(ReadSourceFolder("no/such/folder").faults.size()
                  + ReadSourceFiles({"no/such/file"}).faults.size(),
              2u);
    for (const Figure& figure : ShippedSources().figures) // what is written reads back the same
        EXPECT_EQ(WriteLayout(LayoutOf(WriteLayout(figure.layout))), WriteLayout(figure.layout))
            << figure.place;
}
