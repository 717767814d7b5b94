// View All, Print, Help and About.
#include "game_on_script.h"
#include "shell/about_form.h"
#include "shell/all_shapes.h"
#include "shell/help_form.h"
#include "shell/page_drawing.h"
#include "shell/print_shapes.h"

#include <cstdlib>
#include <sstream>

namespace {

class ViewTest : public GameTest {
  protected:
    ViewTest() {
        PutFiveFigures();
        EXPECT_TRUE(Start());
    }

    static TileButton& ViewAll() { return Form1.MenuButx[0]; }

    /// Starts with so many quillets, the shipped ones over and over.
    void StartWith(int count) {
        std::istringstream records(FiveFigures);
        std::vector<std::string> lines;
        for (std::string line; std::getline(records, line);) lines.push_back(line + "\n");
        std::string text = ShippedHead();
        for (int n = 0; n < count; ++n) text += lines[static_cast<std::size_t>(n) % lines.size()];
        WriteText(Folder / "QUILLET.qui", text);
        ASSERT_TRUE(Start());
    }

    static void OpenByRightClick() { MouseUp(Form1.TargetQui[1], 2, 5, 5); }
    static void MoveOver(float x, float y) { AllShapes.MouseMove(0, 0, x, y); }
    static void Click(std::int16_t button, float x, float y) { AllShapes.MouseUp(button, 0, x, y); }
};

TEST_F(ViewTest, TheButtonOpensTheFirstPageBesideTheGame) {
    ViewTop = 16;
    PressButton(ViewAll());
    EXPECT_EQ(ViewTop, 0);
    EXPECT_TRUE(AllShapes.Visible);
    EXPECT_EQ(Desktop.Calls.back(), "focus FormMain");
    EXPECT_EQ(Desktop.Calls[Desktop.Calls.size() - 2], "show AllShapes");
}

TEST_F(ViewTest, ARightClickOnTheTargetOpensThePageWhereItStood) {
    StartWith(100);
    ViewTop = 24;
    Desktop.WhileModal = [] { EXPECT_EQ(AllShapes.VScroll1.Value, 24); };
    OpenByRightClick();
    EXPECT_EQ(Desktop.Calls.back(), "show modal AllShapes");
    EXPECT_EQ(ViewTop, 24);
    Desktop.WhileModal = nullptr;
    MouseUp(Form1.TargetQui[1], 1, 5, 5);
    EXPECT_EQ(Desktop.Calls.back(), "show modal AllShapes");
    PressButton(ViewAll()); // stands open now: the right click draws it anew and raises it
    OpenByRightClick();
    EXPECT_EQ(Desktop.Calls.back(), "show AllShapes");
}

TEST_F(ViewTest, TheScrollBarReachesEveryQuilletAndFollowsThePage) {
    const std::pair<int, int> maxima[] = {{64, -1}, {65, 8}, {72, 8}, {73, 16}, {500, 440}};
    for (const auto& [count, most] : maxima) {
        StartWith(count);
        PressButton(ViewAll());
        EXPECT_EQ(AllShapes.VScroll1.Enabled, most > 0);
        EXPECT_EQ(AllShapes.VScroll1.Enabled ? AllShapes.VScroll1.Max : -1, most);
    }
    ScrollTo(AllShapes.VScroll1, 437);
    EXPECT_EQ(ViewTop, 437);
    EXPECT_EQ(ThumbIndex(10, 10), 438);
    AllShapes.Visible = false;
    PressButton(ViewAll());
    EXPECT_EQ(AllShapes.VScroll1.Value, 0);
}

TEST_F(ViewTest, TheLabelTellsTheQuilletUnderThePointer) {
    StartWith(10);
    PressButton(ViewAll());
    MoveOver(720 * 3 + 5, 100);
    EXPECT_EQ(AllShapes.Label1.Caption, "    4");
    EXPECT_EQ(AllShapes.Label1.Left, 720 * 3 + 5);
    EXPECT_EQ(AllShapes.Label1.Top, 100);
    MoveOver(720 * 8 + 5, 100); // the strip beside the grid is the next row's first cell
    EXPECT_EQ(AllShapes.Label1.Caption, "    9");
    MoveOver(720 * 4, 720 * 1); // an empty cell
    EXPECT_EQ(AllShapes.Label1.Caption, "");
    EXPECT_EQ(AllShapes.Label1.Left, 720 * 8 + 5);
}

TEST_F(ViewTest, ClicksChooseAndTheWindowStaysAndEveryWayOutHidesIt) {
    StartWith(10);
    PressButton(ViewAll());
    Game.SolutionShown = Game.FlagOn;
    Game.PieceX[3] += 5;
    Click(1, 720 * 6 + 1, 1);
    EXPECT_EQ(Game.CurrentQuillet, 7);
    EXPECT_EQ(Game.SolutionShown, Game.FlagOff);
    EXPECT_EQ(Game.PieceX, Game.HomeX);
    EXPECT_TRUE(AllShapes.Visible);
    Click(1, 720 * 6 + 1, 721); // no figure there
    EXPECT_EQ(Game.CurrentQuillet, 7);
    MoveOver(1, 721);
    AllShapes.Label1.MouseUp(1, 0, 0, 0);
    EXPECT_EQ(Game.CurrentQuillet, 9);
    EXPECT_TRUE(AllShapes.Visible);
    const std::function<void()> waysOut[] = {[] { Click(2, 1, 1); },
                                             [] { AllShapes.Label1.MouseUp(2, 0, 0, 0); },
                                             [] {
                                                 AllShapes.Label1.Caption.clear();
                                                 AllShapes.Label1.MouseUp(1, 0, 0, 0);
                                             },
                                             [] {
                                                 std::int16_t key = 27;
                                                 AllShapes.KeyDown(key, 0);
                                                 EXPECT_EQ(key, 0);
                                             },
                                             [] { UnloadForm(AllShapes); }};
    for (const auto& wayOut : waysOut) {
        PressButton(ViewAll());
        ASSERT_TRUE(AllShapes.Visible);
        wayOut();
        EXPECT_FALSE(AllShapes.Visible);
    }
}

TEST_F(ViewTest, PrintOpensModalAtTheFirstPageAsSilhouettes) {
    StartWith(60);
    ViewTop = 30;
    PrintShowSolution = 1;
    ChooseMenuItem(Form1, "Print");
    EXPECT_EQ(Desktop.Calls.back(), "show modal PrintShapes");
    EXPECT_EQ(ViewTop, 0);
    EXPECT_EQ(PrintShowSolution, 0);
    ChooseMenuItem(PrintShapes, "Show Solution");
    ScrollTo(PrintShapes.VScroll1, 5);
    EXPECT_EQ(PrintShowSolution, 1);
    EXPECT_EQ(ViewTop, 5);
    EXPECT_EQ(PrintShapes.Image.Texts().front().Text, " 6");
    EXPECT_EQ(PrintShapes.Image.Texts().size(), 20u);
    ChooseMenuItem(PrintShapes, "Show Shape");
    EXPECT_EQ(PrintShowSolution, 0);
    const std::pair<int, int> maxima[] = {{20, -1}, {21, 4}, {24, 4}, {25, 8}};
    for (const auto& [count, most] : maxima) {
        StartWith(count);
        ChooseMenuItem(Form1, "Print");
        EXPECT_EQ(PrintShapes.VScroll1.Enabled, most > 0);
        EXPECT_EQ(PrintShapes.VScroll1.Enabled ? PrintShapes.VScroll1.Max : -1, most);
    }
}

TEST_F(ViewTest, PrintingAsksFirst) {
    Desktop.Answers = {BoxAnswer::No, BoxAnswer::Yes};
    ChooseMenuItem(PrintShapes, "Print this page");
    EXPECT_EQ(Desktop.Boxes.at(0).Text, "Print this page?");
    EXPECT_EQ(Desktop.Boxes.at(0).Buttons, BoxButtons::YesNo);
    EXPECT_EQ(Desktop.Calls.back(), "box Print this page?");
    ChooseMenuItem(PrintShapes, "Print this page");
    EXPECT_EQ(Desktop.Calls.back(), "print PrintShapes");
}

TEST_F(ViewTest, BackAndForwardActOnlyAtAnAnchor) {
    const std::string page = (Folder / "quillets.htm").string();
    ChooseMenuItem(Form1, "Help");
    EXPECT_EQ(Desktop.Calls.back(), "show HelpForm");
    EXPECT_EQ(LocationURL(HelpForm.WebBrowser1), page);
    FollowLink(page + "#keys");
    FollowLink(page + "#levels");
    HelpForm.Command1.Click();
    EXPECT_EQ(LocationURL(HelpForm.WebBrowser1), page + "#keys");
    HelpForm.Command2.Click();
    EXPECT_EQ(LocationURL(HelpForm.WebBrowser1), page + "#levels");
    HelpForm.Command1.Click();
    HelpForm.Command1.Click();
    EXPECT_EQ(LocationURL(HelpForm.WebBrowser1), page);
    HelpForm.Command2.Click(); // a way forward there is, but not from the plain page
    EXPECT_EQ(LocationURL(HelpForm.WebBrowser1), page);
    HelpForm.Command3.Click();
    EXPECT_FALSE(HelpForm.Visible);
}

TEST_F(ViewTest, TheBrowserKeepsItsLastSizeInATooSmallWindow) {
    ChooseMenuItem(Form1, "Help");
    const float width = HelpForm.WebBrowser1.Width;
    EXPECT_EQ(width, 7185);
    Resize(HelpForm, 100, 6000);
    HelpForm.Resized();
    EXPECT_EQ(HelpForm.WebBrowser1.Width, width);
    EXPECT_EQ(HelpForm.WebBrowser1.Height, 6000 - 480 - 420);
}

TEST_F(ViewTest, AboutIsModalAndBothWaysOutUnloadIt) {
    const std::function<void()> waysOut[] = {[] { AboutForm.AboutOk.Click(); },
                                             [] { AboutForm.AboutText.MouseDown(2, 0, 0, 0); }};
    for (const auto& wayOut : waysOut) {
        Desktop.WhileModal = wayOut;
        ChooseMenuItem(Form1, "About");
        EXPECT_FALSE(AboutForm.Visible);
        EXPECT_EQ(std::count(Desktop.Loaded.begin(), Desktop.Loaded.end(), &AboutForm), 0);
    }
    EXPECT_EQ(AboutForm.Label1.Caption, "Version 1.1");
}

/// The picture as rows of runs, a letter for each colour as it is met: small, and readable in a difference.
std::string RunsOf(const Surface& surface) {
    std::vector<Colour> seen;
    std::ostringstream runs;
    std::string previous;
    for (int y = 0; y < surface.Height(); ++y) {
        std::ostringstream row;
        for (int x = 0, length = 1; x < surface.Width(); ++x, ++length) {
            const Colour colour = surface.Point(x, y);
            if (surface.Point(x + 1, y) == colour) continue;
            const auto found = std::find(seen.begin(), seen.end(), colour);
            row << length << static_cast<char>('a' + (found - seen.begin()));
            if (found == seen.end()) seen.push_back(colour);
            length = 0;
        }
        runs << (row.str() == previous ? "=" : row.str()) << '\n';
        previous = row.str();
    }
    for (const Surface::TextItem& text : surface.Texts())
        runs << text.X << ',' << text.Y << text.Text << '\n';
    return runs.str();
}

/// Compared with the kept one; GOLDEN_WRITE=1 keeps it anew.
void ExpectGolden(const std::string& name, const std::string& runs) {
    const std::string path = std::string(GOLDEN_FOLDER "/") + name + ".txt";
    if (std::getenv("GOLDEN_WRITE")) WriteText(path, runs);
    EXPECT_TRUE(ReadText(path) == runs) << name << " differs from " << path;
}

TEST_F(ViewTest, PagesLookAsTheyAreKept) {
    for (const int count : {1, 10, 20, 21, 64, 65, 500}) {
        StartWith(count);
        PressButton(ViewAll());
        if (count == 65) ScrollTo(AllShapes.VScroll1, 8);
        if (count == 500) ScrollTo(AllShapes.VScroll1, 437);
        ExpectGolden("view_all_" + std::to_string(count), RunsOf(AllShapes.Image));
        ChooseMenuItem(Form1, "Print");
        if (count == 21) ScrollTo(PrintShapes.VScroll1, 4);
        if (count == 10) ChooseMenuItem(PrintShapes, "Show Solution");
        ExpectGolden("print_" + std::to_string(count), RunsOf(PrintShapes.Image));
    }
}

} // namespace
