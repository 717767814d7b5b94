// The notation of figure sources.
// What it reads, what it refuses, and that it writes what it reads.
#include "source.h"

#include <gtest/gtest.h>

using namespace Figures;

namespace {

const std::string Boat = "A:se C:ne nw=A.sw E:sw sw=C.se F:s nw=E.nw G:4 n=F.ne B:sw sw=A.se D:flat sw=A.ne";

Source ReadPieces(const std::string& pieces) {
    return ReadSource("# a comment\n\nBoat | boat | " + pieces + "\n", "f");
}

} // namespace

TEST(Source, ReadsNamesPlacesAndContacts) {
    const Source source = ReadPieces(Boat);
    ASSERT_EQ(source.figures.size(), 1u);
    const Figure& boat = source.figures[0];
    EXPECT_EQ(boat.name, "Boat");
    EXPECT_EQ(boat.category, "boat");
    EXPECT_EQ(boat.place, "f:3");
    EXPECT_EQ(boat.layout[3].at, (Point{{4 * UnitGrains, 0}, {-2 * UnitGrains, 0}}));
    const Layout moved =
        ReadPieces("A:e D:tilt n/e=A.nw/sw(1-2r,-3) B:e nw=A.nw(9,0) C:e nw=(20,1r) E:e nw=A.e F:e nw=A.sw "
                   "G:0 nw=C.e")
            .figures.at(0)
            .layout;
    // The middle of the upper right side of a tilted square lies three quarters to the right and a quarter
    // down.
    EXPECT_EQ(moved[3].at + (Point{{0, 3 * UnitGrains / 2}, {0, UnitGrains / 2}}),
              (Point{{UnitGrains, -2 * UnitGrains}, {-3 * UnitGrains, 2 * UnitGrains}}));
    EXPECT_EQ(moved[2].at, (Point{{20 * UnitGrains, 0}, {0, UnitGrains}}));
    EXPECT_EQ(moved[1].at, (Point{{9 * UnitGrains, 0}, {}}));
}

TEST(Source, RefusesWhatIsWrongWithPlaceAndReason) {
    const std::vector<std::pair<std::string, std::string>> cases = {
        {"A:se C:ne nw=A.sw", "fewer than seven pieces"},
        {Boat + " D:flat", "more than seven pieces"},
        {"A:up " + Boat.substr(5), "no new piece with a turn in 'A:up'"},
        {"A:se A:ne nw=A.sw", "no new piece with a turn in 'A:ne'"},
        {"A:se C:ne s=A.sw", "no corner of that piece in 's=A.sw'"},
        {"A:se C:ne nw=B.sw", "no such place in 'nw=B.sw'"},
        {"A:se C:ne nw=A.e", "no such place in 'nw=A.e'"},
        {"A:se C:ne nw=A.sw(1)", "no such place in 'nw=A.sw(1)'"},
        {"A:se C:ne nw=A.sw(1,2x)", "no such place in 'nw=A.sw(1,2x)'"},
    };
    for (const auto& [pieces, reason] : cases) {
        const Source source = ReadPieces(pieces);
        EXPECT_TRUE(source.figures.empty()) << pieces;
        EXPECT_EQ(source.faults, std::vector<std::string>{"f:3: " + reason}) << pieces;
    }
    EXPECT_EQ(ReadSource("Boat | boat\n", "g").faults.size(), 1u);
    EXPECT_EQ(ReadSource(" | boat | " + Boat, "g").faults.size(), 1u);
    EXPECT_EQ(ReadSourceFiles({"no/such/file"}).faults.size(), 1u);
    EXPECT_EQ(ReadSourceFolder("no/such/folder").faults.size(), 1u);
}

TEST(Source, WrittenLayoutsReadBackTheSame) {
    for (const Figure& figure : ReadSourceFolder(DATA_FOLDER "/figures").figures) {
        const Source again = ReadPieces(WriteLayout(figure.layout));
        ASSERT_EQ(again.figures.size(), 1u) << figure.place;
        const Layout& layout = again.figures[0].layout;
        for (int piece = 0; piece < PieceCount; piece++) {
            EXPECT_EQ(layout[piece].turn, figure.layout[piece].turn) << figure.place;
            EXPECT_EQ(layout[piece].at - layout[0].at, figure.layout[piece].at - figure.layout[0].at)
                << figure.place;
        }
    }
}
