// The start-up: what it makes, what it refuses, and in what state the first event finds the game.
#include "game_on_script.h"

#include <set>

namespace {

using StartTest = GameTest;

const std::string DefaultSettings = "QUILLET.qui\r\n-1,-1,-1,-1\r\n";

TEST_F(StartTest, WithoutACollectionItMakesSettingsAndEndsAtOnceWithOneItComesUp) {
    EXPECT_EQ(CallsOf([&] { EXPECT_FALSE(Start()); }), "box Quillet shapes file not found:/QUILLET.qui; end");
    EXPECT_EQ(ReadText(In("Quillets.cfg")), DefaultSettings);
    WriteText(In("QUILLET.qui"), ShippedHead + Records(1));
    WriteText(In("Quillets.cfg"), "");
    EXPECT_EQ(CallsOf([&] { EXPECT_TRUE(Start()); }), "show Form1; show FormMain");
    EXPECT_EQ(ReadText(In("Quillets.cfg")), DefaultSettings);
    EXPECT_EQ(Scene().substr(0, Scene().find('\n')),
              "shown 0 last 0 active -1 enabled 1; File: " + In("QUILLET.qui")
                  + "; Play difficulty: NORMAL; Quillet (1 of 1)");
    EXPECT_EQ(PlacesNow(), HomePlaces());
    EXPECT_EQ(Game.HomeTurn, (PerPiece<std::int16_t>{0, 2, 1, 0, 0, 0, 0}));
    ExpectCleanPicture();
    EXPECT_EQ(FormMain.Height, 6800);
    EXPECT_EQ(FormMain.PStandard.Top, 90 + 390 * 15);
    EXPECT_EQ(Board.Image.Width(), 350);
    EXPECT_EQ(Board.Image.Height(), 390);
    PutFiveFigures();
    std::set<Number> seen;
    for (Desktop.Clock = 0; Desktop.Clock < 50; ++Desktop.Clock) {
        Start();
        seen.insert(Game.CurrentQuillet);
    }
    EXPECT_EQ(seen, (std::set<Number>{1, 2, 3, 4, 5}));
}

TEST_F(StartTest, SettingsChooseTheCollectionAndThePlacesOfTheWindows) {
    constexpr std::array<float, 4> Design = {150, 435, 1500, 1785}; // panel left, top, board left, top
    const std::pair<const char*, std::array<float, 4>> cases[] = {
        {"other.qui\r\n 450  600  4500.5  615 \r\n", {450, 600, 4500.5F, 615}},
        {"\"other.qui\"\r\n-2,2 , 3 ,4 \r\n", {-2, 2, 3, 4}},
        {"other.qui\r\n-1,600,700,800\r\n", Design},
        {"other.qui\r\n300\r\n", Design},
        {"other.qui\r\n1 1e39 3 4\r\n", Design},
        {"other.qui\r\n1e2 +2 3 4\r\n", Design},
        {"other.qui\r\n1.2.3 2 3 4\r\n", Design},
        {"other.qui\r\n1e 2 3 4\r\n", Design},
        {"other.qui\r\n15e-1 .25e+2 3. 1E2\r\n", {1.5, 25, 3, 100}},
        {"other.qui", Design}};
    WriteText(In("other.qui"), ShippedHead);
    for (const auto& [settings, places] : cases) {
        WriteText(In("Quillets.cfg"), settings);
        ASSERT_TRUE(Start()) << settings;
        EXPECT_EQ(Game.QuilletFile, In("other.qui"));
        EXPECT_EQ((std::array{Form1.Left, Form1.Top, FormMain.Left, FormMain.Top}), places) << settings;
        EXPECT_EQ(ReadText(In("Quillets.cfg")), settings);
    }
}

TEST_F(StartTest, SettingsWithABrokenFirstLineAreNoneAndNoneAreWritten) {
    PutFiveFigures();
    for (const std::string& broken :
         {std::string(36, '\0'), std::string("\xEF\xBB\xBFQUILLET.qui\r\n1 2 3 4\r\n"),
          std::string("QUILLET.qui\r1 2 3 4\r"), std::string("a\tb.qui\r\n1 2 3 4")}) {
        WriteText("Quillets.cfg", broken);
        EXPECT_EQ(CallsOf([&] { EXPECT_TRUE(Start()); }), "show Form1; show FormMain");
        EXPECT_EQ(Game.QuilletFile, In("QUILLET.qui"));
        EXPECT_EQ(Form1.Left, 150) << "by its design";
    }
    Game.QuilletFile = In("two\nlines.qui");
    Form1.Left = 0.1F;
    Form1.Top = 1e30F;
    CallsOf(Form1.CloseRequest);
    const std::string settings = ReadText("Quillets.cfg");
    EXPECT_EQ(settings.substr(0, 19), "QUILLET.qui\r\n 0.1  ");
    ASSERT_TRUE(Start());
    EXPECT_EQ(Form1.Top, 1e30F);
}

} // namespace
