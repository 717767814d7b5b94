// Open, Save as, Remove, Copy and Append: what they ask, what they write, and what they never lose.
#include "files/quality_checks.h"
#include "game_on_script.h"
#include "platform/files.h"

#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>

namespace fs = std::filesystem;

namespace {

const std::string Asks = " [OK, Cancel] information by Quillets; ", Focus = "focus FormMain";
const std::string Isolated = "box A block appears isolated !/Proceed anyway ?" + Asks;
const std::string Cluster = "box A cluster of blocks appear isolated !/Proceed anyway ?" + Asks;
const std::string Sparse = "box Quillet appears sparse; may be too easy to solve !/Append anyway ?" + Asks;
const std::string Last = "box Append this Quillet to file:/QUILLET.qui ?" + Asks;
const std::string TooLarge = "box Quillet is too wide or too tall; ";
const std::string NotWritten = "box The file could not be written:/";

std::string Asked(const std::string& target) {
    return "box " + target + "/ file already exists, overwrite? [Yes, No] warning second by Quillets";
}

class CollectionFilesTest : public RunningGame {
  protected:
    ~CollectionFilesTest() override {
        EXPECT_EQ(::seteuid(::getuid()), 0);
        fs::permissions(Folder, fs::perms::all);
    }

    /// From now on the game has no more rights than any player. The collection can be written.
    void BecomeAPlayer(unsigned modeOfFolder) {
        constexpr uid_t Nobody = 65534;
        fs::permissions("QUILLET.qui", fs::perms(0666));
        fs::permissions(Folder, fs::perms(modeOfFolder));
        ASSERT_TRUE(::geteuid() != 0 || ::seteuid(Nobody) == 0);
    }

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
    static std::string SaveAs(const std::string& path) {
        const std::string calls = Choose("Save as", path);
        const std::string before = "cue click2; cue click2; dialog save; ", after = " by *.qui4";
        EXPECT_TRUE(calls.starts_with(before) && calls.ends_with(after)) << calls;
        return calls.substr(before.size(), calls.size() - before.size() - after.size());
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
        {In("no.qui"), fault + "/no.qui/No such file or directory."},
        {In("other.qui"), "; cue shsh-dot"}};
    for (const auto& [path, calls] : cases) {
        EXPECT_EQ(Scene(), scene);
        EXPECT_EQ(Choose("Open", path),
                  "cue click2; cue click2; dialog open" + calls + " by Quillet files4100");
    }
    EXPECT_EQ(FormMain.Caption, "File: " + In("other.qui"));
    EXPECT_EQ(Form1.TarQui.Caption, "Quillet (1 of 1)");
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
    const std::string asked = Asked("kept.qui");
    const std::string longest = std::string(251, 'n') + ".qui", tooLong = "n" + longest;
    const std::tuple<std::string, std::string, std::string> cases[] = {
        {"set2", "set2.qui", copied + "set2.qui"},
        {"set3.b.txt", "set3.b.qui", copied + "set3.b.qui"},
        {"set4.QUI", "set4.qui", copied + "set4.qui"},
        {"a.b/set", "a.qui", copied + "a.qui"}, // everything behind a folder's dot goes
        {"empty.qui", "empty.qui", copied + "empty.qui"},
        {"kept.qui", "kept.qui", asked},
        {"kept.qui", "kept.qui", asked + "; " + copied + "kept.qui"},
        {"quillet.qui", "quillet.qui", refused},
        {"link.qui", "link.qui", refused},
        {longest, longest, copied + longest},
        {tooLong, tooLong, NotWritten + tooLong + "/File name too long."},
        {"no/x.qui", "no/x.qui", NotWritten + "no/x.qui/No such file or directory."}};
    for (const auto& [typed, saved, boxes] : cases) {
        const std::string before = ReadText(saved);
        Desktop.Answers = {boxes == asked ? BoxAnswer::No : BoxAnswer::Yes};
        EXPECT_EQ(SaveAs(In(typed)), boxes);
        EXPECT_EQ(ReadText(saved), boxes.ends_with(copied + saved) ? collection : before) << typed;
        EXPECT_EQ(Scene(), scene);
    }
    EXPECT_EQ(Choose("Save as", ""), "cue click2; cue click2; dialog save by *.qui4") << "Cancel";
    EXPECT_FALSE(fs::exists("*.qui"));
}

TEST_F(CollectionFilesTest, SaveAsKeepsLinksAndModesAndRefusesWhatItMayNotWrite) {
    fs::create_directories("folder.qui");
    fs::create_symlink("folder.qui/new", "dangling.qui");
    ASSERT_EQ(::mkfifo("pipe.qui", 0666), 0);
    for (const auto& [name, mode] : {std::pair("secret.qui", 0640), {"sealed.qui", 0}, {"fixed.qui", 0444}}) {
        WriteText(name, "old");
        fs::permissions(name, fs::perms(mode));
    }
    const std::string collection = Collection();
    for (const char* name : {"secret.qui", "sealed.qui", "dangling.qui"}) {
        SaveAs(In(name));
        EXPECT_TRUE(ReadText(name) == collection || ::geteuid() != 0) << name;
    }
    EXPECT_EQ(fs::status("secret.qui").permissions(), fs::perms(0640));
    EXPECT_EQ(fs::status("sealed.qui").permissions(), fs::perms(::geteuid() == 0 ? 0600 : 0));
    EXPECT_EQ(fs::read_symlink("dangling.qui"), "folder.qui/new");
    EXPECT_EQ(SaveAs(In("folder.qui")), NotWritten + "folder.qui/Is a directory.");
    EXPECT_EQ(SaveAs(In("pipe.qui")), NotWritten + "pipe.qui/it is not a file.");
    WriteText(FreshName(), "left by a killed game, perhaps another user's");
    BecomeAPlayer(0777);
    EXPECT_EQ(SaveAs(In("new.qui")), "box QUILLET.qui/copied as:/new.qui");
    for (const char* name : {"fixed.qui", "sealed.qui"}) // the second cannot even be read
        EXPECT_EQ(SaveAs(In(name)), Asked(name) + "; " + NotWritten + name + "/Permission denied.");
    EXPECT_EQ(ReadText("fixed.qui"), "old");
    fs::remove("QUILLET.qui");
    EXPECT_EQ(SaveAs(In("set.qui")),
              "box The file could not be read:/QUILLET.qui/No such file or directory.");
    EXPECT_FALSE(fs::exists("set.qui"));
}

TEST_F(CollectionFilesTest, RemoveDropsTheShownQuilletNumbersTheOthersAgainAndKeepsTheHeadByteForByte) {
    const std::string text = Replaced(ShippedHead, "\r", ""); // other line ends, and blanks at the free field
    const std::string head = text.substr(0, text.rfind('\n', text.size() - 2) + 1);
    const std::string first = Records(1, "1,0,0", "1,1,1");
    WriteText("QUILLET.qui", head + "  figures  \n" + first + Records(1, "7,0,0", "2,2,2")
                                 + Records(1, "3,0,0", "3,3,3") + Records(1, "-4,0.5,0", "4,4,4")
                                 + Records(1, "5,0,0", "5,5,5") + "\r\n");
    ASSERT_TRUE(Start());
    const std::string content = head + "figures\r\n" + first + Records(1, "2,0,0", "3,3,3")
                                + Records(1, "3,0.5,0", "4,4,4"); // the one passed over has a number now
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
    EXPECT_EQ(Collection(), content);
    EXPECT_EQ(Form1.TarQui.Caption, "Quillet (3 of 3)");
    ExpectCleanPicture();
    WriteText("QUILLET.qui", ShippedHead + first); // another program leaves one
    Remove();
    EXPECT_EQ(Form1.TarQui.Caption, "Quillet (1 of 1)");
}

TEST_F(CollectionFilesTest, TheOnlyQuilletIsRemovedAndTheEmptyCollectionTakesAnother) {
    StartWith(FiveFigures.substr(0, FiveFigures.find('\n') + 1));
    Remove();
    EXPECT_EQ(Collection(), ShippedHead);
    EXPECT_EQ(Form1.TarQui.Caption, "Quillet (0 of 0)");
    EXPECT_EQ(Append(), "cue click2; " + Isolated + Last + Focus) << "the pieces at home";
    EXPECT_TRUE(CallsOf([] { DragTo(0, Game.PieceX[0] + 2, Game.PieceY[0]); }).starts_with("cue clap4"));
    Remove();
    SelectQuillet(1);
    CallsOfButton("Copy");
    const Places none = PlacesNow();
    EXPECT_EQ(std::ranges::count(none, none[0]), PieceCount) << "of what was removed nothing is left";
}

TEST_F(CollectionFilesTest, CopiedAppendedAndRemovedEveryFigureComesBackTheSame) {
    StartWith(Shipped.substr(ShippedHead.size(), Shipped.size() - ShippedHead.size() - 2)); // no last end
    const int last = NearestInt32(Game.QuilletCount) + 1;
    const std::string appended = Shipped + std::to_string(last) + ",60,60,";
    const std::string asked = "cue click2; " + Last + Focus;
    for (int q = 1; q < last; ++q) {
        SelectQuillet(q);
        EXPECT_EQ(CallsOfButton("Copy"), "cue whoosh1; " + Focus);
        const Places places = PlacesNow();
        ASSERT_EQ(Append(), asked) << q;
        EXPECT_TRUE(Collection().starts_with(appended));
        EXPECT_EQ(Form1.TarQui.Caption, Replaced("Quillet (n of n)", "n", std::to_string(last)));
        LaySolution(50, 50);
        EXPECT_EQ(PlacesNow(), places);
        Remove();
        ASSERT_EQ(Collection(), Shipped);
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
        EXPECT_EQ(Append(), std::string("cue click2; ").append(boxes).append(Focus))
            << width << " by " << height;
        EXPECT_EQ(Collection() + Scene(), before);
    }
    Desktop.WhileModal = nullptr;
    Places places = solution; // the small triangles one beside the other, far from the rest
    places[2] = {200, 260, 0};
    places[4] = {250, 260, 0};
    Lay(places);
    EXPECT_EQ(Append(), "cue click2; " + Cluster + Last + Focus);
}

TEST_F(CollectionFilesTest, TouchingReachesThreePixelsAndGoesOnFromPieceToPiece) {
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
    const TouchLists chain = Mutual({"", " 0", " 1", " 2", " 3", " 4", " 5"});
    EXPECT_EQ(chain, (TouchLists{" 1", " 0 2", " 1 3", " 2 4", " 3 5", " 4 6", " 5"}));
    EXPECT_EQ(Connection(chain), AllConnected);
    EXPECT_EQ(Connection(Mutual({" 1", "", " 3", "", "", " 4", " 5"})), InGroups);
    EXPECT_EQ(Connection(Mutual({" 1", "", "", " 4", "", "", " 1"})), 2) << "the first of two alone";
    EXPECT_EQ(Percentage(24, 97), 19) << "24 of 121 pixels";
    EXPECT_EQ(Percentage(99, 0), 99) << "never 100";
}

TEST_F(CollectionFilesTest, ACollectionThatBecameGarbageIsLeftAloneAndNoBoxHoldsTheFile) {
    const std::string garbage = Collection() + "oops", fault = "Line 71: a record has 24 numbers.; " + Focus;
    Desktop.WhileModal = [] {
        std::string content;
        EXPECT_EQ(ReadFile("QUILLET.qui", 1 << 20, content), "") << Desktop.Boxes.back().Text;
    };
    WriteText("QUILLET.qui", garbage);
    EXPECT_TRUE(Append().ends_with("box The Quillet was not appended to the file:/QUILLET.qui/" + fault));
    EXPECT_TRUE(Remove().ends_with("box The Quillet was not removed from the file:/QUILLET.qui/" + fault));
    EXPECT_EQ(Collection(), garbage);
    WriteText("QuiFile.tmp", ShippedHead + FiveFigures);
    Game.QuilletFile = In("QuiFile.tmp");
    EXPECT_NE(Remove().find("Remove itself"), std::string::npos);
    EXPECT_EQ(Collection(), ShippedHead + FiveFigures);
    fs::create_directories("other/" + FreshName()); // in the way of the new file
    fs::copy("QuiFile.tmp", "other/five.qui");
    Game.QuilletFile = In("other/five.qui");
    EXPECT_TRUE(
        Remove().ends_with("/other/five.qui/another program is using it./The new content is in the file:/"
                           "QuiFile.tmp; "
                           + Focus));
    EXPECT_EQ(Collection(), ShippedHead + FiveFigures);
    EXPECT_EQ(std::ranges::count(ReadText("QuiFile.tmp"), '\n'), 65 + 4);
}

TEST_F(CollectionFilesTest, AFigureFarOutsideIsShownInAllWindowsRefusedByAppendAndRemoved) {
    std::string far = Records(1, "1,-1e9,1e4", "7,-32768,-22000"),
                near = Records(1, "1,0,0", "0,32767,32767");
    StartWith(far + near);
    for (const char* command : {"View All", "Very easy", "Right", "Easy", "Left", "Copy"})
        CallsOfButton(command);
    CallsOfMenu("Print");
    EXPECT_EQ(Append(), "cue click2; " + TooLarge + Focus);
    Remove();
    EXPECT_EQ(Collection(), ShippedHead + near);
}

TEST_F(CollectionFilesTest, InAFolderThatMayNotBeWrittenTheFileIsChangedInPlaceOrKept) {
    const std::string text = Collection();
    BecomeAPlayer(0555);
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit tight{text.size() + 20, RLIM_INFINITY}, wide{RLIM_INFINITY, RLIM_INFINITY};
    ::setrlimit(RLIMIT_FSIZE, &tight);
    EXPECT_TRUE(Append().ends_with("/QUILLET.qui/the file is too large.; " + Focus));
    EXPECT_EQ(Collection(), text) << "a part of the record was written and taken away again";
    ::setrlimit(RLIMIT_FSIZE, &wide);
    EXPECT_TRUE(Append().ends_with(Last + Focus));
    EXPECT_TRUE(Collection().starts_with(text + "6,"));
    EXPECT_TRUE(Remove().ends_with("/QUILLET.qui/QuiFile.tmp: Permission denied.; " + Focus));
}

} // namespace
