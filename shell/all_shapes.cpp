// The window View All: its design, in twips, and what happens in it.
#include "shell/all_shapes.h"

#include "platform/desktop.h"
#include "shell/control_panel.h"

#include <cstdlib>
#include <string>

AllShapesWindow AllShapes;

namespace {

constexpr int Columns = 8;
constexpr int Rows = 8;
constexpr int CellTwips = 720;
constexpr std::int16_t RightButton = 2;

void Form_Activate() {
    SetBar(AllShapes.VScroll1, Columns * Rows, Columns);
}

void Form_KeyDown(std::int16_t& KeyCode, std::int16_t) {
    HideOnEscape(AllShapes, KeyCode);
}

void Form_MouseMove(std::int16_t, std::int16_t, float X, float Y) {
    Label& label = AllShapes.Label1;
    const int n = ThumbIndex(X, Y);
    if (n == 0) {
        label.Caption.clear();
        return;
    }
    label.Left = X;
    label.Top = Y;
    const std::string text = "    " + std::to_string(n);
    if (label.Caption != text) label.Caption = text;
}

void Form_MouseUp(std::int16_t Button, std::int16_t, float X, float Y) {
    if (Button == RightButton) return HideForm(AllShapes);
    const int n = ThumbIndex(X, Y);
    if (n == 0)
        AllShapes.Label1.Caption.clear();
    else
        SelectQuillet(n);
}

void Label1_MouseUp(std::int16_t Button, std::int16_t, float, float) {
    const std::string& text = AllShapes.Label1.Caption;
    if (text.empty() || Button == RightButton) return HideForm(AllShapes);
    // A Remove may have shortened the collection since the label was set.
    const int n = std::atoi(text.c_str());
    if (n <= Game.QuilletCount) SelectQuillet(n);
}

void VScroll1_Change() {
    AllShapes.Label1.Caption.clear();
    ViewTop = AllShapes.VScroll1.Value;
    RedrawPage(AllShapesPage());
    AllShapes.Label1.Caption.clear();
}

/// The close box discards the window: the next one comes up as designed.
void Form_Unload(std::int16_t&) {
    HideForm(AllShapes);
    DesignAllShapes();
}

void Redraw() {
    RedrawPage(AllShapesPage());
    AllShapes.Image.Refresh();
}

} // namespace

void DesignAllShapes() {
    const AllShapesWindow blank;
    AllShapes = blank;
    DesignPageWindow(AllShapes, "AllShapes", "Click to select, right-click to close", Rgb(192, 192, 192),
                     6015, 5775);
    AllShapes.OpensQuietly = true;
    Place(AllShapes.VScroll1, "VScroll1", 5805, 0, 195, 5775);
    AllShapes.VScroll1.Change = VScroll1_Change;

    Label& label = AllShapes.Label1;
    Place(label, "Label1", 4920, 1950, 45, 195);
    label.BackColor = Rgb(255, 255, 255);
    label.AutoSize = true;
    label.MouseUp = Label1_MouseUp;

    AllShapes.Controls.push_back(&AllShapes.Label1);
    AllShapes.Activate = Form_Activate;
    AllShapes.KeyDown = Form_KeyDown;
    AllShapes.MouseMove = Form_MouseMove;
    AllShapes.MouseUp = Form_MouseUp;
    AllShapes.Unload = Form_Unload;
}

PageLayout AllShapesPage() {
    return {AllShapes, Columns, Rows, 0.18F, CellTwips, Game.ScreenScaleX * 49.5, Game.ScreenScaleY * 48.0,
            nullptr,   nullptr};
}

void DrawThumbnails() {
    DrawPage(AllShapesPage());
}

void OpenAllShapes() {
    ViewTop = 0;
    Redraw();
    ShowForm(AllShapes, Modality::Modeless);
}

void TargetQui_MouseUp(std::int16_t, std::int16_t Button, std::int16_t, float, float) {
    if (Button != RightButton) return;
    const bool open = AllShapes.Visible;
    Redraw();
    ShowForm(AllShapes, open ? Modality::Modeless : Modality::Modal);
}

int ThumbIndex(float X, float Y) {
    const Number n = ViewTop + 1 + FloorNumber(X / CellTwips) + Columns * FloorNumber(Y / CellTwips);
    return n >= 1 && n <= Game.QuilletCount ? NearestInt32(n) : 0;
}
