// The design of every window: its texts, and that all its controls lie where they are seen and can be used.
#include "game_on_script.h"
#include "shell/about_form.h"
#include "shell/all_shapes.h"
#include "shell/help_form.h"
#include "shell/print_shapes.h"

namespace {

/// All that can be read in a window, "; " between two texts, and how it stands on the desktop.
std::string TextsOf(const std::vector<ControlRef>& controls);

std::string TextOf(const Label& label) {
    std::ostringstream text;
    text << "; " << label.Caption << (label.Font.Bold ? " bold" : "") << (label.Centred ? " centred" : "")
         << std::hex << " " << label.ForeColor << " on " << label.BackColor;
    return text.str();
}
std::string TextOf(const TileButton& button) {
    EXPECT_TRUE(std::filesystem::exists(DATA_FOLDER "/icons/" + button.Picture + ".svg")) << button.Picture;
    return "; " + button.ToolTipText + (button.Latches ? " latches" : "");
}
std::string TextOf(const Picture& picture) {
    EXPECT_EQ(picture.Image.Width(), NearestInt32(picture.Width / 15)) << picture.Name;
    EXPECT_EQ(picture.Image.Height(), NearestInt32(picture.Height / 15)) << picture.Name;
    EXPECT_TRUE(std::filesystem::exists(DATA_FOLDER "/icons/" + (picture.Icon + ".svg").substr())
                || picture.Icon.empty());
    return picture.Visible ? "; picture " + picture.SpokenName : "";
}
std::string TextOf(const Frame& frame) {
    return "; " + frame.Caption + TextsOf(frame.Controls);
}
std::string TextOf(const CommandButton& button) {
    return "; " + button.Caption;
}
std::string TextOf(const TextBox& box) {
    return "; " + box.Text;
}
std::string TextOf(const Control&) {
    return "";
}

std::string TextsOf(const std::vector<ControlRef>& controls) {
    std::string texts;
    for (const ControlRef& control : controls)
        texts += std::visit([](const auto* each) { return TextOf(*each); }, control);
    return texts;
}

std::string Described(const Form& form) {
    return form.Caption + (form.CloseBox ? ", close box" : "") + (form.InTaskBar ? ", task bar" : "")
           + (form.Centred ? ", centred" : "") + (form.HasIcon ? ", icon" : "")
           + (form.Border == BorderStyle::Sizable ? ", sizable" : "") + TextsOf(form.Controls);
}

/// Within two pixels every control lies inside its container, a frame's below its caption, and covers no
/// other one that shows; and no empty band of more than `slack` twips is left at the right and the bottom.
void ExpectLaidOut(const std::string& name, const std::vector<ControlRef>& controls, float width,
                   float height, float top, float slack) {
    constexpr float Near = 30;
    float right = 0, bottom = 0;
    std::vector<const Control*> before;
    for (const ControlRef& reference : controls) {
        const Control& control = *std::visit([](const Control* each) { return each; }, reference);
        const auto endOf = [](const Control& each) {
            return std::pair(each.Left + each.Width, each.Top + each.Height);
        };
        EXPECT_GE(control.Left, 0) << control.Name << " in " << name;
        EXPECT_GE(control.Top, top) << control.Name << " in " << name;
        EXPECT_GE(std::min(control.Width, control.Height), control.Name == "Label1" ? 0 : 195)
            << control.Name;
        const auto [controlRight, controlBottom] = endOf(control);
        for (const Control* other : before) {
            const auto [otherRight, otherBottom] = endOf(*other);
            const bool apart = controlRight < other->Left + 9 || otherRight < control.Left + 9
                               || controlBottom < other->Top + 9 || otherBottom < control.Top + 9;
            EXPECT_TRUE(apart || !control.Visible || !other->Visible)
                << control.Name << " covers " << other->Name << " in " << name;
        }
        before.push_back(&control);
        right = std::max(right, controlRight);
        bottom = std::max(bottom, controlBottom);
        if (Frame* const* frame = std::get_if<Frame*>(&reference))
            ExpectLaidOut((*frame)->Caption, (*frame)->Controls, control.Width, control.Height, 195, slack);
    }
    EXPECT_NEAR(right, width, right > width ? Near : slack) << name;
    EXPECT_NEAR(bottom, height, bottom > height ? Near : slack) << name;
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
         "Quillets, icon; Shape; Remove existing Quillet; Append existing Quillet; Reset; Copy; Play "
         "difficulty; "
         "Normal latches; Easy latches; Very easy latches; Select; First; Left; Right; Last; Random; View "
         "All; "
         "Sound; Sound latches; Quillet (1 of 5); picture Figure"},
        {&AllShapes, 120.F, "Click to select, right-click to close, close box, centred, icon;  0 on ffffff"},
        {&PrintShapes, 120.F, "Print Shapes, close box, centred, icon"},
        {&HelpForm, 120.F, "Quillets Help, close box, task bar, centred, sizable; Back; Forward; Exit"},
        {&AboutForm, 120.F,
         "About Quillets, centred, icon; \r\nQuillets, by the founders of "
         "Quillets\r\nfounders@quillets.example\r\n"
         "November 2026; picture ; OK; Version 1.1 bold centred ffffff on 0"}};
    for (const auto& [form, slack, texts] : windows) {
        EXPECT_EQ(Described(*form), texts);
        ExpectLaidOut(form->Name, form->Controls, float(15 * ClientWidth(*form)),
                      float(15 * ClientHeight(*form)), 0, slack);
    }
}

TEST_F(WindowsTest, EveryWayOutHidesItsWindowAndOnlyTheCloseBoxDiscardsIt) {
    const auto key = [](Form& form, std::int16_t code) {
        form.KeyDown(code, 0);
        return code;
    };
    const std::pair<Form*, std::function<void()>> waysOut[] = {
        {&AllShapes, [] { AllShapes.MouseUp(2, 0, 1, 1); }},
        {&AllShapes, [] { AllShapes.Label1.MouseUp(2, 0, 0, 0); }},
        {&AllShapes, [] { AllShapes.MouseMove(0, 0, -9999, 0), AllShapes.Label1.MouseUp(1, 0, 0, 0); }},
        {&AllShapes, [key] { EXPECT_EQ(key(AllShapes, 27), 0) << "Escape is used up"; }},
        {&PrintShapes, [key] { EXPECT_EQ(key(PrintShapes, 27), 0); }},
        {&PrintShapes, [] { ChooseMenuItem(PrintShapes, "Exit"); }},
        {&PrintShapes, [] { UnloadForm(PrintShapes); }},
        {&HelpForm, [] { HelpForm.Command3.Click(); }},
        {&HelpForm, [] { UnloadForm(HelpForm); }},
        {&AboutForm, [] { AboutForm.AboutOk.Click(); }},
        {&AboutForm, [] { AboutForm.AboutText.MouseDown(2, 0, 0, 0); }}};
    for (const auto& [form, wayOut] : waysOut) {
        ShowForm(*form, Modality::Modeless);
        AllShapes.MouseMove(0, 0, 1, 1);
        EXPECT_TRUE(CallsOf(wayOut).ends_with((form == &AboutForm ? "unload " : "hide ") + form->Name));
    }
    for (Form* form : {static_cast<Form*>(&AllShapes), static_cast<Form*>(&PrintShapes)})
        EXPECT_EQ(CallsOf([&] { EXPECT_EQ(key(*form, 65), 65); }), "") << "another key does nothing";
    AllShapes.MouseMove(0, 0, 1, 1);
    EXPECT_EQ(CallsOf([] { UnloadForm(AllShapes); }), "unload AllShapes; hide AllShapes");
    EXPECT_EQ(AllShapes.Label1.Caption, "") << "the next window comes up as designed";
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
    Resize(HelpForm, HelpForm.Width + 300, HelpForm.Height + 450);
    HelpForm.Resized();
    EXPECT_EQ(HelpForm.WebBrowser1.Width, before.Width + 300);
    EXPECT_EQ(HelpForm.WebBrowser1.Height, before.Height + 450);
    Resize(HelpForm, 100, 100);
    HelpForm.Resized();
    EXPECT_EQ(HelpForm.WebBrowser1.Width, before.Width + 300) << "a size below nothing is not taken";
    EXPECT_EQ(HelpForm.WebBrowser1.Height, before.Height + 450);
}

} // namespace
