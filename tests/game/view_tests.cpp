// View All and Print.
#include "game_on_script.h"
#include "shell/all_shapes.h"
#include "shell/print_shapes.h"

namespace {

class ViewTest : public RunningGame {
  protected:
    /// Starts with so many quillets, the five over and over, and opens View All.
    void View(int count) {
        std::string records;
        for (std::size_t at = 0; count-- > 0; at = (FiveFigures.find('\n', at) + 1) % FiveFigures.size())
            records += FiveFigures.substr(at, FiveFigures.find('\n', at) + 1 - at);
        StartWith(records);
        CallsOfButton("View All");
    }

    /// The first quillet on the page of View All.
    static int FirstShown() { return ThumbIndex(0, 0); }
    static void RightClickOnTarget() { MouseUp(Form1.TargetQui[1], 2, 5, 5); }
    static inline ScrollBar &Bar = AllShapes.VScroll1, &PrintBar = PrintShapes.VScroll1;
};

TEST_F(ViewTest, TheButtonOpensTheFirstPageBesideTheGameAndTheTargetTheOneWhereItStood) {
    View(100);
    AllShapes.MouseMove(0, 0, 1, 1);
    Scroll(Bar, Bar.SmallChange);
    EXPECT_EQ(AllShapes.Label1.Caption, "") << "the page moved away under the pointer";
    Scroll(Bar, Bar.LargeChange);
    EXPECT_EQ(CallsOf(RightClickOnTarget), "show AllShapes") << "open already: it is raised";
    EXPECT_EQ(FirstShown(), 17) << "a step is a row";
    EXPECT_EQ(CallsOfButton("View All"), "show AllShapes; focus FormMain");
    EXPECT_EQ(FirstShown(), 1);
    EXPECT_EQ(Bar.Value, 0);
    Scroll(Bar, 24);
    HideForm(AllShapes);
    EXPECT_EQ(CallsOf(RightClickOnTarget), "show modal AllShapes");
    EXPECT_EQ(FirstShown(), 25);
    EXPECT_EQ(Bar.Value, 24);
    EXPECT_EQ(CallsOf([] { MouseUp(Form1.TargetQui[1], 1, 5, 5); }), "") << "the left button";
}

TEST_F(ViewTest, PrintBorrowsThePageAndKeepsItWhereNobodyElseShowsOne) {
    View(100);
    Scroll(Bar, 24);
    ChooseMenuItem(PrintShapes, "Show Solution");
    Desktop.WhileModal = [] {
        EXPECT_EQ(PrintShapes.Image.Texts().front().Text, " 1");
        EXPECT_EQ(PrintShowSolution, Game.FlagOff);
        Scroll(PrintBar, PrintBar.SmallChange);
        Scroll(PrintBar, PrintBar.LargeChange);
        EXPECT_EQ(PrintShapes.Image.Texts().front().Text, " 11") << "a step is a row";
        Scroll(PrintBar, 1000);
    };
    EXPECT_EQ(CallsOfMenu("Print"), "show modal PrintShapes");
    EXPECT_EQ(FirstShown(), 25) << "View All is open";
    HideForm(AllShapes);
    CallsOfMenu("Print");
    Desktop.WhileModal = [] {
        EXPECT_EQ(FirstShown(), 81);
        EXPECT_EQ(Bar.Value, 40) << "its bar ends before that page";
    };
    EXPECT_EQ(CallsOf(RightClickOnTarget), "show modal AllShapes");
    Desktop.WhileModal = nullptr;
    Desktop.Answers = {BoxAnswer::No, BoxAnswer::Yes};
    for (const char* printed : {"", "; print PrintShapes"})
        EXPECT_EQ(CallsOf([] { ChooseMenuItem(PrintShapes, "Print this page"); }),
                  "box Print this page? [Yes, No]" + std::string(printed));
}

TEST_F(ViewTest, TheLabelTellsTheQuilletUnderThePointerAndClicksChooseIt) {
    View(10);
    const Label& label = AllShapes.Label1;
    const auto click = [](float x, float y) { AllShapes.MouseUp(1, 0, x, y); };
    const auto clickOnLabel = [] { AllShapes.Label1.MouseUp(1, 0, 0, 0); };
    const std::tuple<float, float, std::string> pointers[] = {
        {1, 1, "    1"},
        {2165, 100, "    4"},
        {5765, 90, "    9"}, // beside the grid: the next row's first
        {725, 725, "    10"}};
    for (const auto& [x, y, caption] : pointers) {
        AllShapes.MouseMove(0, 0, x, y);
        EXPECT_EQ(label.Caption, caption);
        EXPECT_EQ(label.Left, x);
        EXPECT_EQ(label.Top, y);
    }
    Game.SolutionShown = Game.FlagOn;
    EXPECT_EQ(CallsOf([&] { click(4321, 1); }), "cue whoosh1");
    EXPECT_EQ(Game.CurrentQuillet, 7);
    EXPECT_EQ(Game.SolutionShown, Game.FlagOff);
    clickOnLabel();
    EXPECT_EQ(Game.CurrentQuillet, 10);
    CallsOfButton("Remove existing Quillet");
    clickOnLabel(); // older than the removal
    EXPECT_EQ(Game.CurrentQuillet, 9);
    AllShapes.MouseMove(0, 0, 725, 5);
    AllShapes.MouseMove(0, 0, 1440, 720);
    EXPECT_EQ(label.Caption, "") << "an empty cell";
    AllShapes.MouseMove(0, 0, 725, 5);
    click(1440, 720);
    EXPECT_EQ(label.Caption, "");
    EXPECT_EQ(Game.CurrentQuillet, 9);
    EXPECT_TRUE(AllShapes.Visible);
}

TEST_F(ViewTest, TheScrollBarsReachEveryQuillet) {
    constexpr int Off = -1;
    const auto endOf = [](const ScrollBar& bar) { return bar.Enabled ? int{bar.Max} : Off; };
    const std::tuple<int, int, int> cases[] = {
        {20, Off, Off}, {21, Off, 4}, {64, Off, 44}, {65, 8, 48}, {500, 440, 480}};
    for (const auto& [count, viewEnd, printEnd] : cases) {
        View(count);
        CallsOfMenu("Print");
        EXPECT_EQ(endOf(Bar), viewEnd) << count << " quillets";
        EXPECT_EQ(endOf(PrintBar), printEnd) << count << " quillets";
    }
}

} // namespace
