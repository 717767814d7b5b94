// The window View All: its design, in twips, and what happens in it.
#include "shell/all_shapes.h"

#include "platform/desktop.h"
#include "shell/control_panel.h"

#include <cstdlib>
#include <string>

ThumbnailWindow AllShapes;

namespace {

constexpr int CellsOfAPage = 64;
constexpr int CellsOfARow = 8;
constexpr Number CellTwips = 720;
constexpr std::int16_t EscapeKey = 27;
constexpr std::int16_t RightButton = 2;

void Form_Activate() {
    ScrollBar& bar = AllShapes.VScroll1;
    bar.Enabled = Game.QuilletCount > CellsOfAPage;
    if (bar.Enabled) {
        Number rows = FloorNumber(Game.QuilletCount / CellsOfARow);
        if (rows * CellsOfARow < Game.QuilletCount) rows += 1;
        bar.Max = NearestInt16(rows * CellsOfARow - CellsOfAPage);
    }
    bar.Value = ViewTop;
}

void Form_KeyDown(std::int16_t& KeyCode, std::int16_t) {
    if (KeyCode != EscapeKey) return;
    KeyCode = 0;
    HideForm(AllShapes);
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
    // The label may be older than the last Remove.
    const int n = std::atoi(text.c_str());
    if (n <= Game.QuilletCount) SelectQuillet(n);
}

void VScroll1_Change() {
    AllShapes.Label1.Caption.clear();
    ViewTop = AllShapes.VScroll1.Value;
    AllShapes.Image.Cls();
    DrawThumbnails();
    AllShapes.Label1.Caption.clear();
}

void Form_Unload(std::int16_t&) {
    HideForm(AllShapes);
}

void DrawAnew() {
    AllShapes.Image.Cls();
    DrawThumbnails();
    AllShapes.Image.Refresh();
}

} // namespace

void DesignAllShapes() {
    const ThumbnailWindow blank;
    AllShapes = blank;
    AllShapes.Name = "AllShapes";
    AllShapes.Caption = "Click to select, right-click to close";
    AllShapes.CloseBox = true;
    AllShapes.InTaskBar = false;
    AllShapes.Centred = true;
    AllShapes.OpensQuietly = true;
    AllShapes.ShowsImage = true;
    AllShapes.Image.BackColor = Rgb(192, 192, 192);
    AllShapes.Image.UnitsPerPixel = TwipsPerPixelX();
    Resize(AllShapes, 6015 + FrameWidth(AllShapes.Border), 5775 + FrameHeight(AllShapes.Border));

    ScrollBar& bar = AllShapes.VScroll1;
    Place(bar, "VScroll1", 5805, 0, 195, 5775);
    bar.SmallChange = bar.LargeChange = 8;
    bar.Max = 496;
    bar.Change = VScroll1_Change;

    Label& label = AllShapes.Label1;
    Place(label, "Label1", 4920, 1950, 45, 195);
    label.BackColor = Rgb(255, 255, 255);
    label.AutoSize = true;
    label.MouseUp = Label1_MouseUp;

    AllShapes.Controls = {&AllShapes.VScroll1, &AllShapes.Label1};
    AllShapes.Activate = Form_Activate;
    AllShapes.KeyDown = Form_KeyDown;
    AllShapes.MouseMove = Form_MouseMove;
    AllShapes.MouseUp = Form_MouseUp;
    AllShapes.Unload = Form_Unload;
    ViewTop = 0;
}

PageLayout ThumbnailPage() {
    return {AllShapes, 8,      8, 0.18F, 720, Game.ScreenScaleX * 49.5, Game.ScreenScaleY * 48.0,
            nullptr,   nullptr};
}

void DrawThumbnails() {
    DrawPage(ThumbnailPage());
}

void OpenThumbnails() {
    ViewTop = 0;
    DrawAnew();
    ShowForm(AllShapes, Modality::Modeless);
}

void TargetQui_MouseUp(std::int16_t, std::int16_t Button, std::int16_t, float, float) {
    if (Button != RightButton) return;
    const bool open = AllShapes.Visible;
    DrawAnew();
    ShowForm(AllShapes, open ? Modality::Modeless : Modality::Modal);
}

int ThumbIndex(float X, float Y) {
    const Number n = ViewTop + 1 + FloorNumber(X / CellTwips) + CellsOfARow * FloorNumber(Y / CellTwips);
    return n >= 1 && n <= Game.QuilletCount ? NearestInt32(n) : 0;
}
