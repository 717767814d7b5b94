// Open, Save as, Remove, Copy and Append: what they ask, what they write, and what they never lose.
#include "core/board_rendering.h"
#include "files/append_quillet.h"
#include "files/collection_files.h"
#include "files/quality_checks.h"
#include "game_on_script.h"
#include "play/copy_to_board.h"
#include "shell/control_panel.h"

namespace fs = std::filesystem;

namespace {

class CollectionFilesTest : public GameTest {
  protected:
    CollectionFilesTest() {
        PutFiveFigures();
        EXPECT_TRUE(Start());
        SwitchSoundOn();
        SelectQuillet(1);
        TakeCues();
    }

    std::string Collection() { return ReadText(Game.QuilletFile); }
    fs::path In(const std::string& name) { return Folder / name; }

    /// The records of the collection, without their numbers.
    std::vector<std::string> Records() {
        std::vector<std::string> records;
        const std::string text = Collection();
        for (std::size_t at = ShippedHead().size(); at < text.size(); at = text.find('\n', at) + 1)
            records.push_back(text.substr(text.find(',', at), text.find('\r', at) - text.find(',', at)));
        return records;
    }

    /// Runs an operation; the texts of the boxes that it showed, without the program's paths.
    std::vector<std::string> BoxesOf(void (*operation)()) {
        Desktop.Boxes.clear();
        EXPECT_TRUE(Deliver(operation));
        std::vector<std::string> texts;
        for (const BoxCall& box : Desktop.Boxes) {
            std::string text = box.Text;
            for (std::size_t at; (at = text.find(Folder.string() + "/")) != std::string::npos;)
                text.erase(at, Folder.string().size() + 1);
            texts.push_back(text);
        }
        return texts;
    }

    using Texts = std::vector<std::string>;
};

TEST_F(CollectionFilesTest, OpenAsksLoadsAndShowsARandomQuilletOfTheOtherFile) {
    WriteText(In("other.qui"), ShippedHead() + TextOf(Record{}));
    DragTo(3, 100, 100);
    TakeCues();
    const auto places = Game.PieceX;
    Desktop.Paths = {In("other.qui").string()};
    ChooseMenuItem(Form1, "Open");
    EXPECT_EQ(TakeCues(), (Texts{"click2", "click2", "shsh-dot"}));
    const OpenFileName& asked = Desktop.FileDialogs.at(0);
    EXPECT_EQ(asked.lStructSize, 76);
    EXPECT_EQ(asked.hwndOwner, &FormMain);
    EXPECT_EQ(asked.lpstrFilter, "Quillet files");
    EXPECT_EQ(asked.lpstrFile, "*.qui" + std::string(249, ' '));
    EXPECT_EQ(asked.nMaxFile, 255);
    EXPECT_EQ(asked.lpstrInitialDir, Game.AppPath);
    EXPECT_EQ(asked.lpstrTitle, "Quillets");
    EXPECT_EQ(asked.Flags, 4100);
    EXPECT_EQ(Game.QuilletFile, In("other.qui").string());
    EXPECT_EQ(Form1.TarQui.Caption, "Quillet (1 of 1)");
    EXPECT_EQ(FormMain.Caption, "File: " + In("other.qui").string());
    EXPECT_EQ(Game.PieceX, places);
    EXPECT_TRUE(FormMain.Picture1.Enabled);
}

TEST_F(CollectionFilesTest, OpenThatIsCancelledOrMeetsNoCollectionLeavesAllAsItWas) {
    WriteText(In("broken.qui"), ShippedHead() + "1,2,3\r\n");
    WriteText(In("headless.qui"),
              "x\r\n" + ShippedHead().substr(ShippedHead().find('\n') + 1)); // no start could read it
    const std::string file = Game.QuilletFile, caption = FormMain.Caption;
    const Number count = Game.QuilletCount;
    for (const std::string& path :
         {std::string(), std::string("*.qui"), In("broken.qui").string(), In("headless.qui").string(),
          In("nowhere.qui").string(), Folder.string()}) {
        Desktop.Paths = {path};
        const std::size_t boxes = path.empty() || path == "*.qui" ? 0 : 1;
        EXPECT_EQ(BoxesOf(OpenCollection).size(), boxes) << path;
        EXPECT_EQ(Game.QuilletFile, file);
        EXPECT_EQ(FormMain.Caption, caption);
        EXPECT_EQ(Game.QuilletCount, count);
        EXPECT_TRUE(FormMain.Picture1.Enabled);
    }
    EXPECT_EQ(Desktop.Boxes.back().Text,
              "Quillet shapes file cannot be read:\n\r" + Folder.string() + "\n\rLine 1: it is not a file.");
}

TEST_F(CollectionFilesTest, AnotherCollectionsPieceTableIsNotTaken) {
    std::string head = ShippedHead();
    head.replace(head.find("\r\n", head.find("\r\n") + 2) - 1, 1, "9"); // the second piece starts elsewhere
    WriteText(In("other.qui"), head + TextOf(Record{}));
    const auto home = Game.HomeY;
    Desktop.Paths = {In("other.qui").string()};
    OpenCollection();
    EXPECT_EQ(Game.QuilletCount, 1);
    EXPECT_EQ(Game.HomeY, home);
}

TEST_F(CollectionFilesTest, SaveAsGivesTheExtensionAndCopiesByteForByte) {
    fs::create_directories(In("a.b"));
    const std::pair<const char*, const char*> names[] = {
        {"set2", "set2.qui"}, {"set3.txt", "set3.qui"}, {"set4.QUI", "set4.qui"}, {"set5.qui", "set5.qui"}};
    for (const auto& [typed, saved] : names) {
        Desktop.Paths = {In(typed).string()};
        EXPECT_EQ(BoxesOf(SaveCollectionAs), Texts{"QUILLET.qui\n\rcopied as:\n\r" + std::string(saved)});
        EXPECT_EQ(ReadText(In(saved)), Collection());
    }
    EXPECT_EQ(Desktop.FileDialogs.at(0).Flags, 4);
    EXPECT_EQ(Desktop.FileDialogs.at(0).lpstrFilter, "*.qui");
    Desktop.Paths = {In("a.b").string() + "/set"}; // everything behind a folder's dot goes
    EXPECT_EQ(BoxesOf(SaveCollectionAs), Texts{"QUILLET.qui\n\rcopied as:\n\ra.qui"});
    EXPECT_EQ(Game.QuilletFile, In("QUILLET.qui").string());
}

TEST_F(CollectionFilesTest, SaveAsRefusesTheLoadedFileAndAsksBeforeOverwriting) {
    const std::string before = Collection();
    WriteText(In("quillet.qui"), "another");
    fs::create_symlink(In("QUILLET.qui"), In("link.qui"));
    for (const char* same : {"QUILLET.qui", "quillet.qui", "link.qui"}) {
        Desktop.Paths = {In(same).string()};
        EXPECT_EQ(BoxesOf(SaveCollectionAs),
                  Texts{"file:QUILLET.qui\r\nalready loaded and saved, use another filename to save as"});
    }
    WriteText(In("kept.qui"), "kept");
    Desktop.Paths = {In("kept.qui").string(), In("kept.qui").string()};
    Desktop.Answers = {BoxAnswer::No};
    EXPECT_EQ(BoxesOf(SaveCollectionAs), Texts{"kept.qui\n\r file already exists, overwrite?"});
    EXPECT_EQ(Desktop.Boxes[0].Buttons, BoxButtons::YesNo);
    EXPECT_EQ(Desktop.Boxes[0].Icon, BoxIcon::Warning);
    EXPECT_EQ(Desktop.Boxes[0].Preset, BoxDefault::Second);
    EXPECT_EQ(ReadText(In("kept.qui")), "kept");
    Desktop.Answers = {BoxAnswer::Yes};
    EXPECT_EQ(BoxesOf(SaveCollectionAs).size(), 2u);
    EXPECT_EQ(ReadText(In("kept.qui")), before);
    WriteText(In("empty.qui"), "");
    Desktop.Paths = {In("empty.qui").string()};
    EXPECT_EQ(BoxesOf(SaveCollectionAs), Texts{"QUILLET.qui\n\rcopied as:\n\rempty.qui"});
    EXPECT_EQ(Collection(), before);
}

TEST_F(CollectionFilesTest, ACopyThatCannotBeWrittenIsNotCalledOne) {
    Desktop.Paths = {In("no/such/folder/x.qui").string()};
    EXPECT_EQ(BoxesOf(SaveCollectionAs),
              Texts{"The file could not be written:\n\rno/such/folder/x.qui\n\rNo such file or directory."});
}

TEST_F(CollectionFilesTest, RemoveDropsTheShownQuilletAndNumbersTheOthersAnew) {
    const auto before = Records();
    SelectQuillet(3);
    EXPECT_EQ(BoxesOf(RemoveQuillet), Texts{"Remove this Quillet ( 3) ?"});
    EXPECT_EQ(Desktop.Boxes[0].Title, "Quillets");
    EXPECT_EQ(Desktop.Boxes[0].Buttons, BoxButtons::YesNo);
    auto expected = before;
    expected.erase(expected.begin() + 2);
    EXPECT_EQ(Records(), expected);
    EXPECT_TRUE(Collection().starts_with(ShippedHead() + "1,"));
    EXPECT_NE(Collection().find("\r\n3,"), std::string::npos);
    EXPECT_EQ(Game.CurrentQuillet, 3);
    EXPECT_EQ(Game.QuilletCount, static_cast<Number>(before.size()) - 1);
    EXPECT_EQ(ReadText("QuiFile.tmp"), Collection());
    SelectQuillet(Game.QuilletCount);
    BoxesOf(RemoveQuillet);
    EXPECT_EQ(Game.CurrentQuillet, Game.QuilletCount);
    EXPECT_EQ(Game.QuilletCount, static_cast<Number>(before.size()) - 2);
    Desktop.Answers = {BoxAnswer::No};
    const std::string kept = Collection();
    BoxesOf(RemoveQuillet);
    EXPECT_EQ(Collection(), kept);
}

TEST_F(CollectionFilesTest, RemoveCountsSkippedRecordsAndKeepsTheHeadByteForByte) {
    std::string head = ShippedHead();
    std::erase(head, '\r');
    head.replace(head.rfind('\n', head.size() - 2), std::string::npos, "\n  figures  \n");
    Record skipped, shown;
    skipped.Number = -4;
    shown.Pieces[0] = {1, 2, 3};
    WriteText(Game.QuilletFile, head + TextOf(skipped) + TextOf(shown) + "\r\n");
    ASSERT_TRUE(Start());
    ASSERT_EQ(Game.QuilletCount, 1);
    BoxesOf(RemoveQuillet); // counts all records: the skipped one goes
    EXPECT_EQ(Collection(), head.substr(0, head.size() - 12) + "figures\r\n" + TextOf(shown));
}

TEST_F(CollectionFilesTest, AnEmptiedCollectionIsPlayedFromNothing) {
    PutCollection({Record{}});
    ASSERT_TRUE(Start());
    BoxesOf(RemoveQuillet);
    EXPECT_EQ(Game.QuilletCount, 0);
    EXPECT_EQ(Game.CurrentQuillet, 0);
    EXPECT_EQ(Collection(), ShippedHead());
    BoxesOf(RemoveQuillet);
    EXPECT_EQ(Game.CurrentQuillet, 0);
    BoxesOf(AppendQuillet); // the pieces at home: isolated, but the player may
    EXPECT_EQ(Game.QuilletCount, 1);
    EXPECT_EQ(Game.CurrentQuillet, 1);
    Game.LastPiece = 0;
    DragTo(0, Game.PieceX[0] + 2, Game.PieceY[0]);
    EXPECT_EQ(Desktop.Boxes.back().Text, "You got it - congratulations");
}

TEST_F(CollectionFilesTest, CopiedAppendedAndRemovedEveryFigureComesBackTheSame) {
    PutShippedCollection();
    ASSERT_TRUE(Start());
    const Number count = Game.QuilletCount;
    const std::string before = Collection();
    const auto last = static_cast<std::size_t>(count) + 1;
    for (std::size_t q = 1; q <= static_cast<std::size_t>(count); ++q) {
        SelectQuillet(static_cast<Number>(q));
        CopyToBoard();
        const auto places = Game.PieceX;
        ASSERT_EQ(BoxesOf(AppendQuillet), Texts{"Append this Quillet to file:\n\rQUILLET.qui ?"}) << q;
        ASSERT_EQ(Game.QuilletCount, count + 1);
        EXPECT_EQ(Game.CurrentQuillet, count + 1);
        EXPECT_EQ(Game.PieceX, places);
        for (int p = 0; p < PieceCount; ++p) {
            EXPECT_EQ(Game.SolTurn[p][last], Game.SolTurn[p][q]);
            EXPECT_EQ(Game.SolX[p][last], Game.SolX[p][q]);
            EXPECT_EQ(Game.SolY[p][last], Game.SolY[p][q]);
        }
        BoxesOf(RemoveQuillet);
        ASSERT_EQ(Collection(), before);
    }
}

TEST_F(CollectionFilesTest, AppendAtTheEasyLevelAnnouncesNothingAndLeavesTheBoardAlive) {
    Game.PlayLevel = EasyLevel;
    CopyToBoard();
    BoxesOf(AppendQuillet);
    EXPECT_EQ(Desktop.Boxes.size(), 1u);
    EXPECT_TRUE(FormMain.Picture1.Enabled);
    for (int p = 0; p < PieceCount; ++p) EXPECT_EQ(PickedAt(InsideOf(p)), p);
}

TEST_F(CollectionFilesTest, AppendRefusesWarnsAndAsksInThisOrder) {
    const std::string before = Collection();
    const auto lay = [](int piece, double x, double y) {
        Game.PieceX[piece] = x;
        Game.PieceY[piece] = y;
    };
    const auto show = [] {
        FormMain.Image.Cls();
        FormMain.Picture1.Image.Cls();
        DrawAllPieces();
    };
    const Texts isolated = {"A block appears isolated !\n\rProceed anyway ?"};
    const Texts cluster = {"A cluster of blocks appear isolated !\n\rProceed anyway ?"};
    const std::string sparse = "Quillet appears sparse; may be too easy to solve !\n\rAppend anyway ?";
    const std::string last = "Append this Quillet to file:\n\rQUILLET.qui ?";

    // An isolated square shows in its own colour while the question stands; its distance sets the extent.
    for (const auto& [extent, refused] : {std::pair{320.0, false}, {321.0, true}}) {
        LaySolution(0, 0);
        const double size = Game.PieceWidth[3][static_cast<std::size_t>(Game.PieceTurn[3])];
        lay(3, extent - size, 320 - size);
        show();
        bool shown = false;
        Desktop.WhileModal = [&] {
            shown |= FormMain.Picture1.Image.Point(InsideOf(3).X, InsideOf(3).Y) == Game.PieceRGB[3];
        };
        Desktop.Answers = {BoxAnswer::Cancel};
        EXPECT_EQ(BoxesOf(AppendQuillet), refused ? Texts{"Quillet is too wide or too tall"} : isolated);
        EXPECT_EQ(shown, !refused);
        Desktop.WhileModal = nullptr;
        EXPECT_EQ(Game.PlayLevel, NormalLevel);
    }
    Desktop.Answers = {BoxAnswer::Ok, BoxAnswer::Ok, BoxAnswer::Cancel};
    lay(3, Game.PieceX[3] - 1, Game.PieceY[3]);
    show();
    EXPECT_EQ(BoxesOf(AppendQuillet), (Texts{isolated[0], sparse, last}));
    EXPECT_EQ(Desktop.Boxes[1].Buttons, BoxButtons::OkCancel);
    EXPECT_EQ(Desktop.Boxes[1].Icon, BoxIcon::Information);
    EXPECT_EQ(Desktop.Boxes[1].Title, "Quillets");
    const Surface& board = FormMain.Picture1.Image;
    for (int y = 0; y < board.Height(); ++y)
        for (int x = 0; x < board.Width(); ++x) ASSERT_NE(board.Point(x, y), QBColor(14));

    // Two clusters: the small triangles one on the other, far from the rest.
    LaySolution(0, 0);
    lay(2, 200, 260);
    lay(4, 200, 260);
    Game.PieceTurn[2] = Game.PieceTurn[4] = 0;
    Game.PieceX[4] += 50;
    show();
    std::int16_t result = 0;
    CheckConnected(result);
    EXPECT_EQ(result, -99);
    Desktop.Answers = {BoxAnswer::Cancel};
    EXPECT_EQ(BoxesOf(AppendQuillet), cluster);
    EXPECT_EQ(Collection(), before);
}

TEST_F(CollectionFilesTest, TouchingReachesThreePixelsAndIsMutual) {
    for (int p = 0; p < PieceCount; ++p) Game.PieceTurn[p] = 0;
    const auto touching = [](double gap, double shift) {
        for (int p = 0; p < PieceCount; ++p) Game.PieceX[p] = Game.PieceY[p] = 2000; // nowhere
        Game.PieceX[3] = 20, Game.PieceY[3] = 20;
        Game.PieceX[0] = 20 + Game.PieceWidth[3][0] + gap, Game.PieceY[0] = 20 + shift;
        FormMain.Image.Cls();
        DrawAllPieces();
        return TouchingPieces(3);
    };
    // The outline pixel of the neighbour is no colour of its own, so its inside begins one pixel behind the
    // gap.
    EXPECT_EQ(touching(2, 0), " 0");
    EXPECT_EQ(touching(3, 0), "");
    EXPECT_EQ(touching(2, 40), " 0");
    EXPECT_EQ(TouchingPieces(0), " 3");
    EXPECT_EQ(touching(2, 60), "");
}

TEST_F(CollectionFilesTest, DensityCountsBothEdgesAndIsNeverFull) {
    Surface& board = FormMain.Picture1.Image;
    board.Cls();
    board.FillStyle = FillMode::Solid;
    board.FillColor = Game.BlackColor;
    board.Line(100, 100, 107, 102, Game.BlackColor); // 24 pixels
    EXPECT_EQ(FilledPercent(100, 100, 110, 110), 19);
    board.Line(100, 103, 100, 103, Game.BlackColor);
    EXPECT_EQ(FilledPercent(100, 100, 110, 110), 20);
    board.Line(100, 100, 110, 110, Game.BlackColor);
    EXPECT_EQ(FilledPercent(100, 100, 110, 110), 99);
}

TEST_F(CollectionFilesTest, ALastLineWithoutAnEndIsEndedBeforeTheNewRecord) {
    std::string text = Collection();
    text.resize(text.size() - 2);
    WriteText(Game.QuilletFile, text);
    CopyToBoard();
    BoxesOf(AppendQuillet);
    EXPECT_TRUE(Collection().starts_with(text + "\r\n"));
    EXPECT_EQ(Collection().find("\r\n", text.size() + 2), Collection().size() - 2);
    WriteText(Game.QuilletFile, text + "\r"); // half an end
    BoxesOf(AppendQuillet);
    EXPECT_TRUE(Collection().starts_with(text + "\r\n"));
    EXPECT_EQ(Collection().find("\r\r"), std::string::npos);
}

TEST_F(CollectionFilesTest, TheFiveHundredAndFirstRecordIsWrittenAndEndsTheProgram) {
    PutCollection(std::vector<Record>(500));
    ASSERT_TRUE(Start());
    EXPECT_FALSE(Deliver(AppendQuillet));
    EXPECT_EQ(Desktop.Boxes.back().Text, "Cannot handle more than 500 Quillets");
    EXPECT_EQ(Records().size(), 501u);
}

TEST_F(CollectionFilesTest, FailuresAreToldWithFileAndReasonAndLeaveTheCollection) {
    CopyToBoard();
    const std::string file = Game.QuilletFile, text = Collection();
    fs::remove(file);
    EXPECT_EQ(BoxesOf(AppendQuillet).back(),
              "The Quillet was not appended to the file:\n\rQUILLET.qui\n\rNo such file or directory.");
    EXPECT_EQ(BoxesOf(RemoveQuillet).back(),
              "The Quillet was not removed from the file:\n\rQUILLET.qui\n\rNo such file or directory.");
    WriteText(file, text + "oops\r\n"); // somebody else changed it
    EXPECT_NE(BoxesOf(RemoveQuillet).back().find("a record has 24 numbers"), std::string::npos);
    EXPECT_EQ(Collection(), text + "oops\r\n");
    WriteText(file, text);
    WriteText("QuiFile.tmp", text); // opened as the collection, it is spared
    Game.QuilletFile = In("QuiFile.tmp").string();
    EXPECT_NE(BoxesOf(RemoveQuillet).back().find("Remove itself"), std::string::npos);
    EXPECT_EQ(Collection(), text);
    Game.QuilletFile = file;
    fs::remove("QuiFile.tmp");
    fs::create_directories("QuiFile.tmp");
    EXPECT_EQ(BoxesOf(RemoveQuillet).back(),
              "The Quillet was not removed from the file:\n\rQUILLET.qui\n\rQuiFile.tmp: Is a directory.");
    EXPECT_EQ(Collection(), text);
}

TEST_F(CollectionFilesTest, CopyLaysTheFigureSixtyPixelsFromTheCorner) {
    CopyToBoard();
    EXPECT_EQ(TakeCues(), Texts{"whoosh1"});
    EXPECT_EQ(Game.SolutionShown, Game.FlagOn);
    EXPECT_EQ(*std::min_element(Game.PieceX.begin(), Game.PieceX.end()), 50);
    const Surface& board = FormMain.Picture1.Image;
    int left = board.Width(), top = board.Height();
    for (int y = 0; y < board.Height(); ++y)
        for (int x = 0; x < board.Width(); ++x)
            if (board.Point(x, y) == Game.BlackColor) left = std::min(left, x), top = std::min(top, y);
    EXPECT_EQ(left, 60);
    EXPECT_EQ(top, 60);
    Game.PieceX[3] += 1;
    DragTo(3, Game.PieceX[3], Game.PieceY[3]);
    EXPECT_TRUE(Desktop.Boxes.empty());
}

} // namespace
