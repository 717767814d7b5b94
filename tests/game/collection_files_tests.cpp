// Open, Save as, Remove, Copy and Append: what they ask, what they write, and what they never lose.
#include "files/quality_checks.h"
#include "game_on_script.h"

namespace fs = std::filesystem;

namespace {

const std::string Asks = " [OK, Cancel] information by Quillets; ", Focus = "focus FormMain";
const std::string Isolated = "box A block appears isolated !/Proceed anyway ?" + Asks;
const std::string Cluster = "box A cluster of blocks appear isolated !/Proceed anyway ?" + Asks;
const std::string Sparse = "box Quillet appears sparse; may be too easy to solve !/Append anyway ?" + Asks;
const std::string Last = "box Append this Quillet to file:/QUILLET.qui ?" + Asks;
const std::string TooLarge = "box Quillet is too wide or too tall; ";

class CollectionFilesTest : public RunningGame {
  protected:
    static std::string Collection() { return ReadText(Game.QuilletFile); }
    static std::string Append() { return CallsOfButton("Append existing Quillet"); }
    static std::string Remove() { return CallsOfButton("Remove existing Quillet"); }

    /// Chooses the path in the dialog of the menu item, and tells how that was asked.
    static std::string Choose(const char* item, const std::string& path) {
        Desktop.Paths = {path};
        const std::string calls = CallsOfMenu(item);
        const OpenFileName& asked = Desktop.FileDialogs.back();
        EXPECT_EQ(std::tuple(asked.hwndOwner, asked.lpstrInitialDir, asked.lpstrTitle, asked.lpstrFile),
                  std::tuple(&FormMain, Game.AppPath, "Quillets", "*.qui" + std::string(249, ' ')));
        return calls + " by " + asked.lpstrFilter + std::to_string(asked.Flags);
    }
};

TEST_F(CollectionFilesTest, OpenLoadsAnotherFileForTheSamePiecesOrLeavesAllAsItWas) {
    std::string head = ShippedHead;
    head.replace(head.find("\r\n", head.find("\r\n") + 2) - 1, 1, "9"); // the second piece starts elsewhere
    WriteText("other.qui", head + Records(1));
    WriteText("headless.qui", "x\r\n" + head.substr(head.find('\n') + 1)); // no start could read it
    const Places home = HomePlaces();
    DragTo(Square, 100, 100);
    const Places places = PlacesNow();
    const std::string fault = "; cue shsh-dot; box Quillet shapes file cannot be read:", scene = Scene();
    const std::pair<std::string, std::string> cases[] = {
        {"", ""},
        {"*.qui", ""},
        {In("headless.qui"), fault + "/headless.qui/Line 1: \"x\" is not a number."},
        {In("no.qui"), fault + "/no.qui/Line 1: No such file or directory."},
        {In("other.qui"), "; cue shsh-dot"}};
    for (const auto& [path, calls] : cases) {
        EXPECT_EQ(Scene(), scene);
        EXPECT_EQ(Choose("Open", path),
                  "cue click2; cue click2; dialog open" + calls + " by Quillet files4100");
    }
    EXPECT_EQ(FormMain.Caption + Form1.TarQui.Caption, "File: " + In("other.quiQuillet (1 of 1)"));
    EXPECT_EQ(std::tuple(PlacesNow(), HomePlaces(), Board.Enabled), std::tuple(places, home, true));
}

TEST_F(CollectionFilesTest, SaveAsGivesTheExtensionAsksBeforeItOverwritesAndCopiesByteForByte) {
    WriteText("kept.qui", "kept");
    WriteText("empty.qui", "");
    WriteText("quillet.qui", "another");
    fs::create_symlink("QUILLET.qui", "link.qui");
    const std::string copied = "box QUILLET.qui/copied as:/", collection = Collection(), scene = Scene();
    const std::string refused =
        "box file:QUILLET.qui\r\nalready loaded and saved, use another filename to save as";
    const std::string asked =
        "box kept.qui/ file already exists, overwrite? [Yes, No] warning second by Quillets";
    const std::tuple<const char*, const char*, std::string> cases[] = {
        {"set2", "set2.qui", copied + "set2.qui"},
        {"set3.b.txt", "set3.b.qui", copied + "set3.b.qui"},
        {"a.b/set", "a.qui", copied + "a.qui"}, // everything behind a folder's dot goes
        {"empty.qui", "empty.qui", copied + "empty.qui"},
        {"kept.qui", "kept.qui", asked},
        {"kept.qui", "kept.qui", asked + "; " + copied + "kept.qui"},
        {"quillet.qui", "quillet.qui", refused},
        {"link.qui", "link.qui", refused},
        {"no/x.qui", "no/x.qui", "box The file could not be written:/no/x.qui/No such file or directory."}};
    for (const auto& [typed, saved, boxes] : cases) {
        const std::string before = ReadText(saved);
        Desktop.Answers = {boxes == asked ? BoxAnswer::No : BoxAnswer::Yes};
        EXPECT_EQ(Choose("Save as", In(typed)),
                  "cue click2; cue click2; dialog save; " + boxes + " by *.qui4");
        EXPECT_EQ(ReadText(saved), boxes.ends_with(copied + saved) ? collection : before) << typed;
        EXPECT_EQ(Scene(), scene);
    }
}

TEST_F(CollectionFilesTest, RemoveDropsTheShownQuilletNumbersTheOthersAnewAndKeepsTheHeadByteForByte) {
    const std::string text = Replaced(ShippedHead, "\r", ""), // other line ends, and blanks at the free field
        head = text.substr(0, text.rfind('\n', text.size() - 2) + 1), first = Records(1, "1,0,0", "1,1,1");
    WriteText("QUILLET.qui", head + "  figures  \n" + first + Records(1, "7,0,0", "2,2,2")
                                 + Records(1, "3,0,0", "3,3,3") + Records(1, "-4,0,0", "4,4,4")
                                 + Records(1, "5,0,0", "5,5,5") + "\r\n");
    ASSERT_TRUE(Start());
    const std::string content = head + "figures\r\n" + first + Records(1, "2,0,0", "3,3,3")
                                + Records(1, "3,0,0", "4,4,4"); // the one passed over has a number now
    SelectQuillet(2);
    Desktop.Answers = {BoxAnswer::No};
    for (const std::string& left : {Collection(), content + Records(1, "4,0,0", "5,5,5")}) {
        EXPECT_EQ(Remove(), "box Remove this Quillet ( 2) ? [Yes, No] by Quillets; " + Focus);
        EXPECT_EQ(Collection(), left);
        EXPECT_EQ(Form1.TarQui.Caption, "Quillet (2 of 4)");
    }
    EXPECT_EQ(ReadText("QuiFile.tmp"), Collection());
    SelectQuillet(4);
    Remove();
    EXPECT_EQ(Collection() + Form1.TarQui.Caption, content + "Quillet (3 of 3)");
    ExpectCleanPicture();
    StartWith(Records(1));
    Remove(), Remove();
    EXPECT_EQ(Collection() + Form1.TarQui.Caption, ShippedHead + "Quillet (0 of 0)");
    EXPECT_EQ(Append(), "cue click2; " + Isolated + Last + Focus); // the pieces at home
    EXPECT_TRUE(CallsOf([] { DragTo(0, Game.PieceX[0] + 2, Game.PieceY[0]); }).starts_with("cue clap4"));
    StartWith(FiveFigures.substr(0, FiveFigures.find('\n') + 1));
    Remove();
    SelectQuillet(1), CallsOfButton("Copy");
    const Places none = PlacesNow();
    EXPECT_EQ(std::ranges::count(none, none[0]), PieceCount) << "of what was removed nothing is left";
}

TEST_F(CollectionFilesTest, CopiedAppendedAndRemovedEveryFigureComesBackTheSame) {
    StartWith(Shipped.substr(ShippedHead.size(), Shipped.size() - ShippedHead.size() - 2)); // no last end
    const std::string before = Shipped;
    const int last = NearestInt32(Game.QuilletCount) + 1;
    const std::string appended = before + std::to_string(last) + ",60,60,";
    const std::string asked = "cue click2; " + Last + Focus;
    for (int q = 1; q < last; ++q) {
        SelectQuillet(q);
        EXPECT_EQ(CallsOfButton("Copy"), "cue whoosh1; " + Focus);
        const Places places = PlacesNow();
        ASSERT_EQ(Append(), asked) << q;
        EXPECT_TRUE(Collection().starts_with(appended));
        LaySolution(50, 50);
        EXPECT_EQ(PlacesNow(), places);
        Remove();
        ASSERT_EQ(Collection(), before);
    }
}

TEST_F(CollectionFilesTest, AppendRefusesWarnsAndAsksInThisOrderAndCancelLeavesNoTrace) {
    LaySolution(0, 0);
    const Places solution = PlacesNow();
    const Number turn = solution[Square][2], size = Game.PieceWidth[Square][NearestInt16(turn)];
    Desktop.WhileModal = [] {
        const bool isolated = Desktop.Boxes.back().Text.starts_with("A block");
        EXPECT_EQ(ColourOf(Square), isolated ? Game.PieceRGB[Square] : Game.BlackColor);
    };
    const std::tuple<int, int, std::string, std::size_t> cases[] = {{321, 320, TooLarge, 0},
                                                                    {320, 321, TooLarge, 0},
                                                                    {320, 320, Isolated + Sparse, 1},
                                                                    {320, 320, Isolated + Sparse + Last, 2},
                                                                    {280, 280, Isolated + Last, 1}};
    for (const auto& [width, height, boxes, yes] : cases) {
        Places places = solution;
        places[Square] = {width - size, height - size, turn}; // in the far corner
        Lay(places);
        const std::string before = Collection() + Scene();
        Desktop.Answers.assign(yes, BoxAnswer::Ok);
        if (boxes != TooLarge) Desktop.Answers.push_back(BoxAnswer::Cancel);
        std::string asked = "cue click2; ";
        asked.append(boxes).append(Focus);
        EXPECT_EQ(Append(), asked) << width << " by " << height;
        EXPECT_EQ(Collection() + Scene(), before);
    }
    Desktop.WhileModal = nullptr;
    Places places = solution; // the small triangles one beside the other, far from the rest
    places[2] = {200, 260, 0};
    places[4] = {250, 260, 0};
    Lay(places);
    EXPECT_EQ(Append(), "cue click2; " + Cluster + Last + Focus);
}

TEST_F(CollectionFilesTest, TouchingReachesThreePixels) {
    for (const auto& [gap, shift, touching] :
         {std::tuple(2, 0, true), {3, 0, false}, {2, 40, true}, {2, 60, false}}) {
        Places places;
        places.fill({2000, 2000, 0}); // nowhere
        places[Square] = {20, 20, 0};
        // The neighbour's outline is no colour of its own: its inside begins one pixel behind the gap.
        places[0] = {20 + Game.PieceWidth[Square][0] + gap, 20. + shift, 0};
        Lay(places);
        EXPECT_EQ(TouchingPieces(Square) + " and" + TouchingPieces(0), touching ? " 0 and 3" : " and");
    }
}

TEST_F(CollectionFilesTest, FailuresAreToldWithFileAndReasonAndLeaveTheCollection) {
    const std::string text = Collection();
    const std::string removing = "box Remove this Quillet ( 1) ? [Yes, No] by Quillets; "
                                 "box The Quillet was not removed from the file:/QUILLET.qui/";
    fs::remove("QUILLET.qui");
    EXPECT_EQ(Append(), "cue click2; " + Isolated + Last
                            + "box The Quillet was not appended to the file:/QUILLET.qui/"
                              "No such file or directory.; "
                            + Focus);
    WriteText("QUILLET.qui", text + "oops");
    EXPECT_EQ(Remove(), removing + "Line 71: a record has 24 numbers.; " + Focus);
    EXPECT_EQ(Collection(), text + "oops");
    WriteText("QuiFile.tmp", text); // opened as the collection, it is spared
    Game.QuilletFile = In("QuiFile.tmp");
    EXPECT_NE(Remove().find("Remove itself"), text.npos);
    EXPECT_EQ(Collection(), text);
}

} // namespace
