// The start-up: what it makes, what it refuses, and in what state the first event finds the game.
#include "game_on_script.h"
#include "platform/files.h"
#include "shell/start_and_stop.h"

namespace {

const std::string DefaultSettings = "QUILLET.qui\r\n-1,-1,-1,-1\r\n";

class StartTest : public GameTest {};

TEST_F(StartTest, FirstRunWithoutCollectionMakesSettingsAndEndsWithAMessage) {
    EXPECT_FALSE(Start());
    ASSERT_EQ(Desktop.Boxes.size(), 1u);
    EXPECT_EQ(Desktop.Boxes[0].Text,
              "Quillet shapes file not found:\n\r" + (Folder / "QUILLET.qui").string());
    EXPECT_EQ(Desktop.Boxes[0].Buttons, BoxButtons::Ok);
    EXPECT_EQ(Desktop.Boxes[0].Title, "");
    EXPECT_EQ(ReadText(Folder / "Quillets.cfg"), DefaultSettings);
    // At once: no stop order, no window.
    EXPECT_EQ(Desktop.Calls.back(), "end");
    EXPECT_TRUE(Desktop.MediaCommands.empty());
    EXPECT_FALSE(Form1.Visible);
}

TEST_F(StartTest, ComesUpWithOneQuilletShownAndThePiecesAtHome) {
    PutFiveFigures();
    WriteText(Folder / "Quillets.cfg", "");
    ASSERT_TRUE(Start());
    EXPECT_EQ(ReadText(Folder / "Quillets.cfg"), DefaultSettings);
    EXPECT_EQ(Game.AppPath, Folder.string() + PathSeparator);
    EXPECT_EQ(Game.PieceX, Game.HomeX);
    EXPECT_EQ(Game.PieceY, Game.HomeY);
    EXPECT_EQ(Game.PieceTurn, (PerPiece<Number>{0, 2, 1, 0, 0, 0, 0}));
    EXPECT_EQ(Game.HomeTurn, (PerPiece<std::int16_t>{0, 2, 1, 0, 0, 0, 0}));
    EXPECT_EQ(Game.BoardX0, 10);
    EXPECT_GE(Game.CurrentQuillet, 1);
    EXPECT_LE(Game.CurrentQuillet, Game.QuilletCount);
    for (int p = 0; p < PieceCount; ++p) {
        EXPECT_EQ(PickedAt(InsideOf(p)), p);
        EXPECT_EQ(QBColor(Game.PieceQBColor[p]), Game.PieceRGB[p]);
        EXPECT_NE(Game.PieceRGB[p], FormMain.Image.BackColor);
    }
    EXPECT_TRUE(FormMain.Picture1.Enabled);
    EXPECT_EQ(FormMain.Picture1.Image.Width(), 350);
    EXPECT_EQ(FormMain.Picture1.Image.Height(), 390);
    EXPECT_EQ(FormMain.Width, 5600);
    EXPECT_EQ(FormMain.Height, 6800);
    EXPECT_EQ(FormMain.PStandard.Top, 90 + 390 * 15);
    EXPECT_EQ(FormMain.PStandard.Width, 350 * 15);
    EXPECT_GE(FormMain.Image.Width(), 350);
    EXPECT_GE(FormMain.Image.Height(), 390);
    EXPECT_EQ(FormMain.Caption, "File: " + (Folder / "QUILLET.qui").string());
    EXPECT_EQ(Desktop.Calls, (std::vector<std::string>{"show Form1", "show FormMain"}));
}

TEST_F(StartTest, SettingsChooseTheCollectionAndThePlacesOfTheWindows) {
    struct Case {
        const char* Settings;
        std::array<float, 4> Places; // panel left, top, board left, top
    };
    constexpr std::array<float, 4> Design = {150, 435, 1500, 1785};
    const Case cases[] = {
        {"other.qui\r\n 450  600  4500.5  615 \r\n", {450, 600, 4500.5F, 615}},
        {"other.qui\n0,-15,30,45\n", {0, -15, 30, 45}},
        {"other.qui\r\n-1,600,700,800\r\n", Design},
        {"other.qui\r\n1, 2 , 3 ,4 \r\n", {1, 2, 3, 4}},
        {"other.qui\r\n300\r\n", Design},
        {"other.qui\r\n1 x 3 4\r\n", Design},
        {"other.qui\r\n1 1e39 3 4\r\n", Design},
        {"other.qui\r\nhere and there\r\n", Design},
        {"other.qui", Design},
        {"\"other.qui\"\r\n-1,-1,-1,-1\r\n", Design},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Settings);
        WriteText(Folder / "other.qui", ShippedHead());
        WriteText(Folder / "Quillets.cfg", c.Settings);
        ASSERT_TRUE(Start());
        EXPECT_EQ(Game.QuilletFile, (Folder / "other.qui").string());
        EXPECT_EQ((std::array{Form1.Left, Form1.Top, FormMain.Left, FormMain.Top}), c.Places);
        EXPECT_EQ(ReadText(Folder / "Quillets.cfg"), c.Settings);
    }
}

TEST_F(StartTest, EveryQuilletCanComeFirstAndNoOther) {
    PutCollection({Record{}, Record{}, Record{}});
    std::array<int, 5> seen{};
    for (int second = 0; second < 100; ++second) {
        Desktop.Clock = static_cast<float>(second);
        ASSERT_TRUE(Start());
        ++seen.at(static_cast<std::size_t>(Game.CurrentQuillet));
    }
    EXPECT_EQ(seen[0] + seen[4], 0);
    EXPECT_GT(std::min({seen[1], seen[2], seen[3]}), 10);
}

TEST_F(StartTest, AnEmptyCollectionShowsThePiecesInAHeapAndCountsOneOfNone) {
    PutCollection({});
    ASSERT_TRUE(Start());
    EXPECT_EQ(Game.QuilletCount, 0);
    EXPECT_EQ(Game.CurrentQuillet, 1);
    EXPECT_EQ(Form1.TarQui.Caption, "Quillet (1 of 0)");
    EXPECT_EQ(Form1.TargetQui[0].Image.Point(5, 14), Game.BlackColor);
    EXPECT_EQ(Form1.TargetQui[0].Image.Point(4, 14), Form1.TargetQui[0].Image.BackColor);
}

TEST_F(StartTest, ASolvedArrangementAtHomeIsNotAnnouncedAndLeavesTheBoardAlive) {
    // A quillet whose solution is the pieces' home: the turn tests of the start find it solved.
    PutCollection({});
    ASSERT_TRUE(Start());
    Record home;
    for (int p = 0; p < PieceCount; ++p) home.Pieces[p] = {Game.PieceTurn[p], Game.PieceX[p], Game.PieceY[p]};
    home.Left = *std::min_element(Game.PieceX.begin(), Game.PieceX.end());
    home.Top = *std::min_element(Game.PieceY.begin(), Game.PieceY.end());
    PutCollection({home});
    ASSERT_TRUE(Start());
    EXPECT_TRUE(Desktop.Boxes.empty());
    EXPECT_TRUE(FormMain.Picture1.Enabled);
    for (int p = 0; p < PieceCount; ++p) {
        EXPECT_EQ(PickedAt(InsideOf(p)), p);
        EXPECT_EQ(FormMain.Picture1.Image.Point(InsideOf(p).X, InsideOf(p).Y), Game.BlackColor);
    }
}

TEST_F(StartTest, UnloadingTheBoardClosesTheSoundAndEnds) {
    PutFiveFigures();
    ASSERT_TRUE(Start());
    SwitchSoundOn();
    const std::string settings = ReadText(Folder / "Quillets.cfg");
    EXPECT_FALSE(Deliver([] { UnloadForm(FormMain); }));
    EXPECT_EQ(TakeCues(), (std::vector<std::string>{"stop mp3", "close all", "thank"}));
    EXPECT_EQ(Desktop.Calls.back(), "end");
    EXPECT_EQ(ReadText(Folder / "Quillets.cfg"), settings);
}

} // namespace
