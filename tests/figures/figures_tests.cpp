// The figure tool: exact outlines, the complete solver, what it refuses; and the shipped file and its list.
#include "collection.h"
#include "convex.h"
#include "list.h"
#include "rules.h"
#include "search.h"
#include "solver.h"

#include <algorithm>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <map>
#include <set>

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
    EXPECT_GE(100 * single, 55 * figures.size());
    EXPECT_LE(figures.size(), 400u);
}

TEST(ShippedOrder, CutsNoFigureAndGetsHarder) {
    auto figures = InPlayingOrder(ShippedSources().figures);
    ASSERT_EQ(figures.size(), ShippedSources().figures.size());
    EXPECT_EQ(figures[0].name, FirstFigure);
    EXPECT_EQ(CutFigures(figures), std::vector<std::string>{});
    double before = 1000;
    for (std::size_t part = 0; part < 8; part++) {
        double ease = 0;
        const std::size_t begin = part * figures.size() / 8, end = (part + 1) * figures.size() / 8;
        for (std::size_t i = begin; i < end; i++) ease += EaseOf(figures[i].layout);
        EXPECT_LT(ease / static_cast<double>(end - begin), before) << "part " << part + 1;
        before = ease / static_cast<double>(end - begin);
    }
    for (std::size_t i = 0; i + 1 < figures.size(); i++) {
        const bool first = figures[i].category == "pair" && figures[i].name.ends_with("first");
        EXPECT_TRUE(!first || figures[i + 1].source == figures[i].source + 1) << figures[i].name;
    }
    std::reverse(figures.begin(), figures.end()); // the wide ones stand right
    EXPECT_GT(CutFigures(figures).size(), figures.size() / 8);
}

TEST(ShippedPictures, AreManyAndOfManyKindsAndTheirSetsAreComplete) {
    std::map<std::string, int> families;
    std::map<std::string, std::set<std::string>> names;
    int pictures = 0;
    for (const Figure& figure : ShippedSources().figures) {
        if (KindName(figure) != "picture") continue;
        pictures++, families[std::string(FamilyName(figure))]++;
        EXPECT_TRUE(names[figure.category].insert(figure.name).second) << figure.place << ": name used twice";
    }
    EXPECT_GE(pictures, 230);
    EXPECT_LE(3 * families["People"], pictures);
    EXPECT_EQ(names["digit"].size(), 10u);
    EXPECT_EQ(names["calendar"].size(), 12u);
    for (const char* piece : {"King", "Queen", "Rook", "Bishop", "Knight", "Pawn"})
        EXPECT_TRUE(names["chess"].contains(piece)) << piece;
}

TEST(Solver, FindsTheEightSquaresAndTheSameInEveryTurnAndMirrorImage) {
    Layout square = LayoutOf(SquareText);
    const Region region = RegionOf(square);
    for (int turn = 0; turn < 8; turn++) {
        square = turn == 4 ? Mirrored(square) : Turned(square);
        EXPECT_EQ(Standard(RegionOf(square)), Standard(region));
        const auto solutions = Solve(RegionOf(square));
        std::set<std::string> different;
        for (const Layout& layout : solutions) {
            different.insert(WriteLayout(layout));
            EXPECT_EQ(RegionOf(layout), RegionOf(square));
        }
        EXPECT_EQ(std::pair(different.size(), solutions.size()), (std::pair<std::size_t, std::size_t>(8, 8)));
    }
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
        {"A:up " + boat.substr(5) + end, "no new piece with a turn in 'A:up'"},
        {"A:se C:ne s=A.sw", "no corner of that piece in 's=A.sw'"},
        {"A:se C:ne nw=B.sw", "no such place in 'nw=B.sw'"},
        {boat + "D:flat sw=B.sw G:4 sw=F.n", "pieces A and D overlap"},
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
    EXPECT_EQ(FaultsOf(ReadPieces(boat + end, "bird house").figures),
              std::vector<std::string>{"f:3: no category 'bird house'"});
    EXPECT_EQ(FaultsOf({good, find}), std::vector<std::string>{"f:3: same outline as f:3"});
    EXPECT_EQ(ReadSourceFolder("no/such/folder").faults.size()
                  + ReadSourceFiles({"no/such/file"}).faults.size(),
              2u);
    for (const Figure& figure : ShippedSources().figures) // what is written reads back the same
        EXPECT_EQ(WriteLayout(LayoutOf(WriteLayout(figure.layout))), WriteLayout(figure.layout))
            << figure.place;
}
