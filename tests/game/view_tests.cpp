// View All, Print, Help and About.
#include "game_on_script.h"
#include "shell/about_form.h"
#include "shell/all_shapes.h"
#include "shell/help_form.h"
#include "shell/page_drawing.h"
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

    template <int Code>
    static void PressKey(Form& form) {
        std::int16_t key = Code;
        form.KeyDown(key, 0);
        EXPECT_EQ(key, Code == 27 ? 0 : Code); // Escape is used up
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
    const auto label = [](float x, float y) {
        AllShapes.MouseMove(0, 0, x, y);
        return AllShapes.Label1.Caption
               + testing::PrintToString(std::pair(AllShapes.Label1.Left, AllShapes.Label1.Top));
    };
    EXPECT_EQ(label(2165, 100), "    4(2165, 100)");
    EXPECT_EQ(label(5765, 90), "    9(5765, 90)"); // beside the grid: the next row's first
    EXPECT_EQ(label(1440, 720), "(5765, 90)");     // an empty cell
    Game.SolutionShown = Game.FlagOn;
    EXPECT_EQ(CallsOf([] { Click(1, 4321, 1); }), "cue whoosh1");
    EXPECT_EQ(std::pair(Game.CurrentQuillet, Game.SolutionShown), std::pair(7., 0.));
    Click(1, 4321, 721); // no figure there
    EXPECT_EQ(Game.CurrentQuillet, 7);
    EXPECT_EQ(label(725, 725), "    10(725, 725)");
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
        {&AllShapes, [] { PressKey<27>(AllShapes); }},
        {&AllShapes, [] { UnloadForm(AllShapes); }},
        {&PrintShapes, [] { PressKey<27>(PrintShapes); }},
        {&PrintShapes, [] { ChooseMenuItem(PrintShapes, "Exit"); }},
        {&PrintShapes, [] { UnloadForm(PrintShapes); }},
        {&HelpForm, [] { HelpForm.Command3.Click(); }},
        {&HelpForm, [] { UnloadForm(HelpForm); }}};
    for (const auto& [form, wayOut] : waysOut) {
        ShowForm(*form, Modality::Modeless);
        AllShapes.MouseMove(0, 0, 1, 1);
        EXPECT_TRUE(CallsOf(wayOut).ends_with("hide " + form->Name));
        EXPECT_FALSE(form->Visible);
    }
    EXPECT_EQ(CallsOf([] { PressKey<65>(AllShapes), PressKey<65>(PrintShapes); }), "");
}

TEST_F(ViewTest, BackAndForwardActOnlyAtAnAnchorAndTheBrowserKeepsItsSizeInATooSmallWindow) {
    EXPECT_EQ(CallsOfMenu("Help"), "cue click2; show HelpForm");
    const std::string page = In("quillets.htm");
    FollowLink(page + "#keys");
    FollowLink(page + "#levels");
    const std::pair<CommandButton*, const char*> steps[] = {
        {&HelpForm.Command1, "#keys"}, {&HelpForm.Command2, "#levels"}, {&HelpForm.Command1, "#keys"},
        {&HelpForm.Command1, ""},      {&HelpForm.Command2, ""},        {&HelpForm.Command1, ""}};
    for (const auto& [button, anchor] : steps) {
        button->Click();
        EXPECT_EQ(LocationURL(HelpForm.WebBrowser1), page + anchor);
    }
    Resize(HelpForm, 100, 6000);
    HelpForm.Resized();
    EXPECT_EQ(std::pair(HelpForm.WebBrowser1.Width, HelpForm.WebBrowser1.Height), std::pair(7185.F, 5100.F));
}

TEST_F(ViewTest, AboutIsModalAndBothWaysOutUnloadIt) {
    for (const auto& wayOut :
         {+[] { AboutForm.AboutOk.Click(); }, +[] { AboutForm.AboutText.MouseDown(2, 0, 0, 0); }}) {
        Desktop.WhileModal = wayOut;
        EXPECT_EQ(CallsOfMenu("About"), "cue click2; show modal AboutForm; unload AboutForm");
    }
    EXPECT_EQ(AboutForm.Label1.Caption, "Version 1.1");
}

TEST_F(ViewTest, TheScrollBarsReachEveryQuilletAndFollowThePage) {
    const auto most = [](const ScrollBar& bar) { return bar.Enabled ? int{bar.Max} : -1; };
    const int cases[][3] = {{20, -1, -1}, {21, -1, 4}, {25, -1, 8},    {64, -1, 44},
                            {65, 8, 48},  {72, 8, 52}, {500, 440, 480}};
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
