// The design of every window: its texts, and that all its controls lie where they are seen and can be used.
#include "game_on_script.h"
#include "shell/about_form.h"
#include "shell/all_shapes.h"
#include "shell/help_form.h"
#include "shell/print_shapes.h"

#include <cmath>

namespace {

void ExpectIcon(const std::string& name) {
    EXPECT_TRUE(std::filesystem::exists(DATA_FOLDER "/icons/" + name + ".svg")) << name;
}

/// All that can be read in the controls, each behind "; ", and whether it is set off from other text.
std::string TextsOf(const std::vector<ControlRef>& controls) {
    std::ostringstream texts;
    const auto tell = [&](const auto* each) {
        if constexpr (requires { each->Centred; }) {
            texts << "; " << each->Caption << (each->Font.Bold ? " bold" : "");
            texts << std::hex << (each->Centred ? " centred " : " ") << each->ForeColor << " on "
                  << each->BackColor;
        } else if constexpr (requires { each->Latches; }) {
            texts << "; " << each->ToolTipText << (each->Latches ? " latches" : "");
            EXPECT_FALSE(each->Description.empty() || each->Description == each->ToolTipText);
            ExpectIcon(each->Picture);
        } else if constexpr (requires { each->SpokenName; }) {
            if (each->Visible) texts << "; picture " << each->SpokenName;
            if (!each->Icon.empty()) ExpectIcon(each->Icon);
            EXPECT_EQ(each->Image.Width(), NearestInt32(each->Width / 15)) << each->Name;
            EXPECT_EQ(each->Image.Height(), NearestInt32(each->Height / 15)) << each->Name;
        } else if constexpr (requires { each->Text; })
            texts << "; " << each->Text;
        else if constexpr (requires { each->Caption; })
            texts << "; " << each->Caption;
        if constexpr (requires { each->Controls; }) texts << TextsOf(each->Controls);
    };
    for (const ControlRef& control : controls) std::visit(tell, control);
    return texts.str();
}

std::string Described(const Form& form) {
    std::string menus;
    for (const Menu& menu : form.Menus) menus += ", menu " + menu.Caption;
    return form.Caption + menus + (form.CloseBox ? ", close box" : "") + (form.InTaskBar ? ", task bar" : "")
           + (form.Centred ? ", centred" : "") + (form.HasIcon ? ", icon" : "")
           + (form.ShowsImage ? ", page" : "") + (form.Border == BorderStyle::Sizable ? ", sizable" : "")
           + TextsOf(form.Controls);
}

/// Every control lies inside its container, in a frame below the caption, and covers no other one that shows;
/// they reach to within `slack` twips of its right and lower end. The classic desktop forgives two pixels.
void ExpectLaidOut(const std::string& name, const std::vector<ControlRef>& controls, float width,
                   float height, float top, float slack) {
    float right = 0, bottom = 0;
    std::vector<const Control*> before;
    for (const ControlRef& reference : controls) {
        const Control& a = *std::visit([](const Control* each) { return each; }, reference);
        EXPECT_GE(a.Left, 0) << a.Name << " in " << name;
        EXPECT_GE(a.Top, top) << a.Name << " in " << name;
        EXPECT_GE(std::min(a.Width, a.Height), a.Name == "Label1" ? 0 : 195) << a.Name << " in " << name;
        for (const Control* b : before) {
            const float across = std::min(a.Left + a.Width - b->Left, b->Left + b->Width - a.Left);
            const float down = std::min(a.Top + a.Height - b->Top, b->Top + b->Height - a.Top);
            EXPECT_FALSE(std::min(across, down) > 9 && a.Visible && b->Visible)
                << a.Name << " covers " << b->Name;
        }
        before.push_back(&a);
        right = std::max(right, a.Left + a.Width);
        bottom = std::max(bottom, a.Top + a.Height);
        if (Frame* const* frame = std::get_if<Frame*>(&reference))
            ExpectLaidOut((*frame)->Caption, (*frame)->Controls, a.Width, a.Height, 195, slack);
    }
    EXPECT_NEAR(right, width, right > width ? 30 : slack) << name;
    EXPECT_NEAR(bottom, height, bottom > height ? 30 : slack) << name;
}

using WindowsTest = RunningGame;

TEST_F(WindowsTest, EveryControlLiesInItsContainerAndTellsItsText) {
    CallsOfButton("View All");
    for (const char* item : {"Print", "Help", "About"}) CallsOfMenu(item);
    const std::tuple<const Form*, float, std::string> windows[] = {
        {&FormMain, 200.F,
         "File: " + Game.QuilletFile
             + ", task bar, icon; picture Board; Play difficulty: NORMAL bold centred ffffff on c0"},
        {&Form1, 120.F,
         "Quillets, menu Quillets, icon; Shape; Remove existing Quillet; Append existing Quillet; Reset; "
         "Copy; Play "
         "difficulty; "
         "Normal latches; Easy latches; Very easy latches; Select; First; Left; Right; Last; Random; View "
         "All; "
         "Sound; Sound latches; Quillet (1 of 5); picture Figure"},
        {&AllShapes, 120.F,
         "Click to select, right-click to close, close box, centred, icon, page;  0 on ffffff"},
        {&PrintShapes, 120.F, "Print Shapes, menu Print, close box, centred, icon, page"},
        {&HelpForm, 120.F, "Quillets Help, close box, task bar, centred, sizable; Back; Forward; Exit"},
        {&AboutForm, 120.F,
         "About Quillets, centred, icon; \r\nQuillets, by the founders of "
         "Quillets\r\nfounders@quillets.example\r\n"
         "November 2026; picture The seven pieces; OK; Version 1.1 bold centred ffffff on 0"}};
    for (const auto& [form, slack, texts] : windows) {
        EXPECT_EQ(Described(*form), texts);
        ExpectLaidOut(form->Name, form->Controls, float(15 * ClientWidth(*form)),
                      float(15 * ClientHeight(*form)), 0, slack);
    }
}

TEST_F(WindowsTest, EveryPieceOfTheFigureStandsOutFromTheFace) {
    const auto light = [](Colour colour) {
        const auto part = [&](int shift) {
            const double value = (colour >> shift & 0xFF) / 255.0;
            return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * part(0) + 0.7152 * part(8) + 0.0722 * part(16) + 0.05;
    };
    for (const std::int32_t entry : Game.PieceQBColor) {
        const double contrast = light(QBColor(entry)) / light(ButtonFace);
        EXPECT_GE(std::max(contrast, 1 / contrast), 1.4) << entry;
    }
    EXPECT_GE(light(ButtonFace) / light(WindowText), 4.5);
}

TEST_F(WindowsTest, EveryWayOutHidesItsWindowAndOnlyTheCloseBoxDiscardsIt) {
    const auto press = [](Form& form, std::int16_t key) {
        form.KeyDown(key, 0);
        return key;
    };
    const std::pair<Form*, std::function<void()>> waysOut[] = {
        {&AllShapes, [] { AllShapes.MouseUp(2, 0, 1, 1); }},
        {&AllShapes, [] { AllShapes.Label1.MouseUp(2, 0, 0, 0); }},
        {&AllShapes, [] { AllShapes.MouseMove(0, 0, -9999, 0), AllShapes.Label1.MouseUp(1, 0, 0, 0); }},
        {&AllShapes, [=] { EXPECT_EQ(press(AllShapes, 27), 0) << "Escape is used up"; }},
        {&AllShapes, [] { UnloadForm(AllShapes); }},
        {&PrintShapes, [=] { EXPECT_EQ(press(PrintShapes, 27), 0); }},
        {&PrintShapes, [] { ChooseMenuItem(PrintShapes, "Exit"); }},
        {&PrintShapes, [] { UnloadForm(PrintShapes); }},
        {&HelpForm, [] { HelpForm.Command3.Click(); }},
        {&HelpForm, [] { UnloadForm(HelpForm); }},
        {&AboutForm, [] { AboutForm.AboutOk.Click(); }},
        {&AboutForm, [=] { EXPECT_EQ(press(AboutForm, 27), 0); }},
        {&AboutForm, [] { AboutForm.AboutText.MouseDown(2, 0, 0, 0); }}};
    for (const auto& [form, wayOut] : waysOut) {
        ShowForm(*form, Modality::Modeless);
        const auto pressA = [=, shown = form] { return !shown->KeyDown || press(*shown, 65) == 65; };
        EXPECT_EQ(CallsOf([&] { EXPECT_TRUE(pressA()); }), "") << "another key does nothing";
        AllShapes.MouseMove(0, 0, 1, 1);
        EXPECT_TRUE(CallsOf(wayOut).ends_with((form == &AboutForm ? "unload " : "hide ") + form->Name));
    }
    ShowForm(AllShapes, Modality::Modeless);
    AllShapes.MouseMove(0, 0, 1, 1);
    UnloadForm(AllShapes);
    EXPECT_EQ(AllShapes.Label1.Caption, "") << "the next window comes up as designed";
    EXPECT_EQ(AllShapes.VScroll1.Max, 496);
}

TEST_F(WindowsTest, HelpGoesBackAndForwardAmongItsAnchorsAndGrowsWithItsWindow) {
    EXPECT_EQ(CallsOfMenu("About"), "cue click2; show modal AboutForm");
    EXPECT_EQ(CallsOfMenu("Help"), "cue click2; show HelpForm");
    FollowLink(In("quillets.htm#keys"));
    FollowLink(In("quillets.htm#levels"));
    const std::tuple<PlainHandler, const char*, const char*> steps[] = {
        {HelpForm.Command1.Click, "quillets.htm#keys", "Back"},
        {HelpForm.Command2.Click, "quillets.htm#levels", "Forward"},
        {HelpForm.Command1.Click, "quillets.htm#keys", "Back"},
        {HelpForm.Command1.Click, "quillets.htm", "Back"},
        {HelpForm.Command2.Click, "quillets.htm", "Forward on the plain page"}};
    for (const auto& [click, page, step] : steps) {
        click();
        EXPECT_EQ(LocationURL(HelpForm.WebBrowser1), In(page)) << step;
    }
    const Control before = HelpForm.WebBrowser1;
    for (const float width : {HelpForm.Width + 300, 100.F}) { // no size below nothing is taken
        Resize(HelpForm, width, HelpForm.Height + width - HelpForm.Width);
        HelpForm.Resized();
        EXPECT_EQ(HelpForm.WebBrowser1.Width, before.Width + 300);
        EXPECT_EQ(HelpForm.WebBrowser1.Height, before.Height + 300);
    }
}

} // namespace
