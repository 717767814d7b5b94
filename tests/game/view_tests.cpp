// View All, Print, Help and About.
#include "game_on_script.h"
#include "shell/about_form.h"
#include "shell/all_shapes.h"
#include "shell/help_form.h"
#include "shell/page_window.h"
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

    static void RightClickOnTarget() { MouseUp(Form1.TargetQui[1], 2, 5, 5); }
    static void Click(std::int16_t button, float x, float y) { AllShapes.MouseUp(button, 0, x, y); }
    static void ClickOnLabel(std::int16_t button = 1) { AllShapes.Label1.MouseUp(button, 0, 0, 0); }
    static void PressKey(Form& form, std::int16_t code = 27) {
        std::int16_t key = code;
        form.KeyDown(key, 0);
        EXPECT_EQ(key, code == 27 ? 0 : code); // Escape is used up
    }
};

TEST_F(ViewTest, TheButtonOpensTheFirstPageBesideTheGameTheTargetTheOneWhereItStoodAndPrintAsks) {
    View(100);
    ScrollTo(AllShapes.VScroll1, 16);
    EXPECT_EQ(CallsOf(RightClickOnTarget), "show AllShapes"); // open already: it is raised
    EXPECT_EQ(ViewTop, 16);
    EXPECT_EQ(CallsOfButton("View All"), "show AllShapes; focus FormMain");
    EXPECT_EQ(std::pair(ViewTop, AllShapes.VScroll1.Value), std::pair(NearestInt16(0), NearestInt16(0)));
    ScrollTo(AllShapes.VScroll1, 24);
    PrintShowSolution = 1;
    Desktop.WhileModal = [] { EXPECT_EQ(ViewTop + PrintShowSolution, 0); };
    EXPECT_EQ(CallsOfMenu("Print"), "show modal PrintShapes"); // borrows the page
    Click(2, 1, 1);
    Desktop.WhileModal = [] { EXPECT_EQ(AllShapes.VScroll1.Value, 24); };
    EXPECT_EQ(CallsOf(RightClickOnTarget), "show modal AllShapes");
    EXPECT_EQ(CallsOf([] { MouseUp(Form1.TargetQui[1], 1, 5, 5); }), "");
    Desktop.Answers = {BoxAnswer::No, BoxAnswer::Yes};
    for (const char* printed : {"", "; print PrintShapes"})
        EXPECT_EQ(CallsOf([] { ChooseMenuItem(PrintShapes, "Print this page"); }),
                  "box Print this page? [Yes, No]" + std::string(printed));
}

TEST_F(ViewTest, TheLabelTellsTheQuilletUnderThePointerAndClicksChooseIt) {
    View(10);
    const Label& label = AllShapes.Label1;
    const std::tuple<float, float, std::string, float> cases[] = {
        {2165, 100, "    4", 2165},
        {5765, 90, "    9", 5765}, // beside the grid: the next row's first
        {1440, 720, "", 5765}};    // an empty cell
    for (const auto& [x, y, caption, left] : cases) {
        AllShapes.MouseMove(0, 0, x, y);
        EXPECT_EQ(std::pair(label.Caption, label.Left), std::pair(caption, left));
    }
    Game.SolutionShown = Game.FlagOn;
    EXPECT_EQ(CallsOf([] { Click(1, 4321, 1); }), "cue whoosh1");
    EXPECT_EQ(std::pair(Game.CurrentQuillet, Game.SolutionShown), std::pair(7., 0.));
    Click(1, 4321, 721); // no figure there
    EXPECT_EQ(Game.CurrentQuillet, 7);
    AllShapes.MouseMove(0, 0, 725, 725);
    ClickOnLabel();
    EXPECT_EQ(Game.CurrentQuillet, 10);
    CallsOfButton("Remove existing Quillet");
    ClickOnLabel(); // older than the removal
    EXPECT_EQ(Game.CurrentQuillet, 9);
    EXPECT_TRUE(AllShapes.Visible);
}

TEST_F(ViewTest, EveryWayOutHidesItsWindow) {
    const std::pair<Form*, std::function<void()>> waysOut[] = {
        {&AllShapes, [] { Click(2, 1, 1); }},
        {&AllShapes, [] { ClickOnLabel(2); }},
        {&AllShapes, [] { AllShapes.MouseMove(0, 0, -9999, 0), ClickOnLabel(); }}, // without a number
        {&AllShapes, [] { PressKey(AllShapes); }},
        {&PrintShapes, [] { PressKey(PrintShapes); }},
        {&PrintShapes, [] { ChooseMenuItem(PrintShapes, "Exit"); }},
        {&HelpForm, [] { HelpForm.Command3.Click(); }},
        {&AboutForm, [] { AboutForm.AboutOk.Click(); }},
        {&AboutForm, [] { AboutForm.AboutText.MouseDown(2, 0, 0, 0); }}};
    for (const auto& [form, wayOut] : waysOut) {
        ShowForm(*form, Modality::Modeless);
        AllShapes.MouseMove(0, 0, 1, 1);
        EXPECT_TRUE(CallsOf(wayOut).ends_with((form == &AboutForm ? "unload " : "hide ") + form->Name));
    }
    EXPECT_EQ(CallsOf([] { PressKey(AllShapes, 65), PressKey(PrintShapes, 65); }), "");
    EXPECT_EQ(CallsOfMenu("About"), "cue click2; show modal AboutForm");
    EXPECT_EQ(CallsOfMenu("Help"), "cue click2; show HelpForm");
    FollowLink(In("quillets.htm#keys"));
    HelpForm.Command1.Click();
    EXPECT_EQ(LocationURL(HelpForm.WebBrowser1), In("quillets.htm"));
    HelpForm.Command2.Click(); // acts at an anchor alone
    EXPECT_EQ(LocationURL(HelpForm.WebBrowser1), In("quillets.htm"));
}

TEST_F(ViewTest, TheScrollBarsReachEveryQuilletAndFollowThePage) {
    const auto most = [](const ScrollBar& bar) { return bar.Enabled ? int{bar.Max} : -1; };
    const int cases[][3] = {{20, -1, -1}, {21, -1, 4}, {64, -1, 44}, {65, 8, 48}, {500, 440, 480}};
    for (const auto& [count, viewMost, printMost] : cases) {
        View(count);
        CallsOfMenu("Print");
        EXPECT_EQ(std::pair(most(AllShapes.VScroll1), most(PrintShapes.VScroll1)),
                  std::pair(viewMost, printMost));
    }
    EXPECT_EQ(PrintShapes.VScroll1.SmallChange + PrintShapes.VScroll1.LargeChange, 5 + 5);
    ScrollTo(PrintShapes.VScroll1, 5);
    EXPECT_EQ(PrintShapes.Image.Texts().front().Text, " 6");
    AllShapes.MouseMove(0, 0, 10, 10);
    ScrollTo(AllShapes.VScroll1, 437);
    EXPECT_EQ(AllShapes.Label1.Caption, "");
    EXPECT_EQ(ThumbIndex(10, 10), 438);
}

} // namespace
