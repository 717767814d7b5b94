// The design of the control panel, in twips.
#include "core/panel_window.h"

PanelWindow Form1;

namespace {

struct FrameDesign {
    const char* Caption;
    float Left, Top, Width;
};

constexpr FrameDesign FrameDesigns[] = {
    {"Shape", 30, 0, 2175},
    {"Play difficulty", 2205, 0, 1695},
    {"Select", 30, 810, 3180},
    {"Sound", 3210, 810, 690},
};

struct ButtonDesign {
    std::int16_t Index;
    const char* ToolTipText;
    int FrameIndex;
    float Left;
    const char* Icon;
    const char* Description;
};

constexpr ButtonDesign ButtonDesigns[] = {
    {2, "Remove existing Quillet", 0, 90, "remove", "Takes the shown quillet out of its file"},
    {3, "Append existing Quillet", 0, 585, "append", "Adds what lies on the board to the file"},
    {4, "Reset", 0, 1080, "reset", "Sends all pieces back to where they begin"},
    {5, "Copy", 0, 1575, "copy", "Lays the solution on the board"},
    {14, "Normal", 1, 90, "normal", "All pieces are black"},
    {15, "Easy", 1, 585, "easy", "A piece with its final turn is blue-green"},
    {16, "Very easy", 1, 1080, "very_easy", "The figure shows its pieces in colours"},
    {6, "First", 2, 90, "first", "Shows the file's first quillet"},
    {7, "Left", 2, 585, "left", "Shows the quillet before this one"},
    {8, "Right", 2, 1080, "right", "Shows the quillet after this one"},
    {9, "Last", 2, 1575, "last", "Shows the file's last quillet"},
    {10, "Random", 2, 2070, "random", "Shows any quillet of the file"},
    {0, "View All", 2, 2565, "view_all", "Opens a page of quillets to choose from"},
    {11, "Sound", 3, 90, "sound", "Events can be heard"},
};

void DesignTarget() {
    Frame& frame = Form1.TarQui;
    Place(frame, "TarQui", 12, 1620, 3885, 4425);
    for (Picture& picture : Form1.TargetQui) {
        picture.Name = "TargetQui";
        picture.Top = 210;
        picture.Image.BackColor = ButtonFace;
        Resize(picture, 3680, 4152);
        picture.Image.Cls();
    }
    Form1.TargetQui[0].Left = 120;
    Form1.TargetQui[1].Left = 90;
    Form1.TargetQui[1].SpokenName = "Figure";
    frame.Controls = {&Form1.TargetQui[0], &Form1.TargetQui[1]};
    Form1.Controls.push_back(&frame);
}

void DesignFrames() {
    for (std::size_t i = 0; i < Form1.MFrame.size(); ++i) {
        Frame& frame = Form1.MFrame[i];
        const FrameDesign& design = FrameDesigns[i];
        Place(frame, "MFrame", design.Left, design.Top, design.Width, 780);
        frame.Caption = design.Caption;
        Form1.Controls.push_back(&frame);
    }
}

void DesignButtons() {
    for (const ButtonDesign& design : ButtonDesigns) {
        TileButton& button = Form1.MenuButx[static_cast<std::size_t>(design.Index)];
        Place(button, "MenuButx", design.Left, 240, design.Index == 6 ? 500 : 495, 450);
        button.Index = design.Index;
        button.ToolTipText = design.ToolTipText;
        button.Picture = design.Icon;
        button.Description = design.Description;
        button.Latches = design.Index == 11 || design.FrameIndex == 1;
        Form1.MFrame[static_cast<std::size_t>(design.FrameIndex)].Controls.push_back(&button);
    }
}

} // namespace

void DesignForm1() {
    const PanelWindow blank;
    Form1 = blank;
    Form1.Name = "Form1";
    Form1.Caption = "Quillets";
    Form1.InTaskBar = false;
    Form1.Left = 150;
    Form1.Top = 435;
    Resize(Form1, 3930 + FrameWidth(Form1.Border), 6075 + FrameHeight(Form1.Border));
    DesignFrames();
    DesignButtons();
    DesignTarget();
    Form1.Menus = {{"quisx",
                    "Quillets",
                    {{"px", "Print"},
                     {"Saveasx", "Save as"},
                     {"Openx", "Open"},
                     {"Helpx", "Help"},
                     {"Aboutx", "About"},
                     {"dash1", "-"},
                     {"Exitx", "Exit"}}}};
}
