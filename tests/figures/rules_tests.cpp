// The rules refuse what the game could not show or the player could not lay.
// One good figure, and one change for each rule.
#include "rules.h"

#include <gtest/gtest.h>

using namespace Figures;

namespace {

// A square of the two large triangles with the small pieces beside it; D and G are placed by the case.
Figure FigureWith(const std::string& square, const std::string& slope, const std::string& category = "tool") {
    const std::string line = "Try | " + category
                             + " | A:nw B:se ne=A.ne F:n sw=A.nw C:sw sw=B.se E:se se=A.sw D:flat " + square
                             + " G:4 " + slope;
    return ReadSource(line, "try").figures.at(0);
}

std::vector<std::string> FaultsWith(const std::string& square, const std::string& slope) {
    return FaultsOf({FigureWith(square, slope)});
}

} // namespace

TEST(Rules, PassAGoodFigure) {
    EXPECT_EQ(FaultsWith("sw=C.nw", "sw=F.n"), std::vector<std::string>{});
}

TEST(Rules, RefuseOverlapLoosePiecesAndSize) {
    EXPECT_EQ(FaultsWith("sw=B.sw", "sw=F.n"), std::vector<std::string>{"try:1: pieces A and D overlap"});
    EXPECT_EQ(FaultsWith("sw=C.nw(1,-1)", "sw=F.n"),
              std::vector<std::string>{"try:1: the pieces do not hang together"});
    EXPECT_EQ(FaultsWith("sw=C.se", "sw=D.ne"),
              std::vector<std::string>{"try:1: too large: 336 by 144 pixels"});
}

TEST(Rules, HoldPiecesTogetherAcrossThreePixelsAndNoMore) {
    // 5 - 7/2 sqrt(2), taken twice, is two pixels; the square side less sqrt(2) is fourteen.
    EXPECT_TRUE(Connected(FigureWith("sw=C.nw(10-7r,0)", "sw=F.n").layout));
    EXPECT_FALSE(Connected(FigureWith("sw=C.nw(2-1r,-2+1r)", "sw=F.n").layout));
}

TEST(Rules, RefuseTheSameOutlineTwiceUnlessBothArePictures) {
    const Figure tool = FigureWith("sw=C.nw", "sw=F.n"), find = FigureWith("sw=C.nw", "sw=F.n", "find");
    EXPECT_TRUE(FaultsOf({tool, tool}).empty());
    EXPECT_EQ(FaultsOf({tool, find}), std::vector<std::string>{"try:1: same outline as try:1"});
    EXPECT_EQ(FaultsOf({find, find}).size(), 1u);
}

TEST(Rules, ShareCountsTheRimOfTheBox) {
    const Layout square =
        ReadSource("S | x | A:e B:s nw=A.nw D:tilt w=A.e C:w ne=B.ne E:n n=A.e G:3 sw=A.sw F:se ne=D.e", "s")
            .figures.at(0)
            .layout;
    EXPECT_EQ(FilledShare(square), 99);
}
