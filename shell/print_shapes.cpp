// The window Print: its design, in twips, and what happens in it.
#include "shell/print_shapes.h"

#include "platform/desktop.h"
#include "shell/all_shapes.h"

#include <string>

PrintWindow PrintShapes;
std::int16_t PrintShowSolution = 0;

namespace {

constexpr int CellsOfAPage = 20;
constexpr int GridStep = 2160;
constexpr std::int16_t EscapeKey = 27;

void SetColours(Surface& surface) {
    const Colour grey = Rgb(100, 100, 100);
    surface.FillColor = grey;
    surface.ForeColor = PrintShowSolution == Game.FlagOff ? grey : QBColor(15);
}

void PrintNumber(Surface& surface, int quillet, int column, int row) {
    surface.CurrentX = GridStep * column - 400;
    surface.CurrentY = GridStep * row - 200;
    surface.ForeColor = QBColor(0);
    surface.Print(" " + std::to_string(quillet));
}

void DrawAnew() {
    PrintShapes.Image.Cls();
    DrawPrintPage();
}

void Form_Activate() {
    ScrollBar& bar = PrintShapes.VScroll1;
    bar.Enabled = Game.QuilletCount > CellsOfAPage;
    if (bar.Enabled) {
        // Rows of 4 and not of 5: the last figure is reached all the same.
        Number rows = FloorNumber(Game.QuilletCount / 4);
        if (rows * 4 < Game.QuilletCount) rows += 1;
        bar.Max = NearestInt16(rows * 4 - CellsOfAPage);
        bar.SmallChange = bar.LargeChange = 5;
    }
    bar.Value = ViewTop;
    PrintShowSolution = Game.FlagOff;
}

void Form_KeyDown(std::int16_t& KeyCode, std::int16_t) {
    if (KeyCode != EscapeKey) return;
    KeyCode = 0;
    HideForm(PrintShapes);
}

void VScroll1_Change() {
    ViewTop = PrintShapes.VScroll1.Value;
    DrawAnew();
}

void ShowSolx_Click() {
    PrintShowSolution = NearestInt16(Game.FlagOn);
    DrawAnew();
}

void ShowShapex_Click() {
    PrintShowSolution = Game.FlagOff;
    DrawAnew();
}

void Printx_Click() {
    if (MsgBox("Print this page?", BoxButtons::YesNo) == BoxAnswer::Yes) PrintForm(PrintShapes);
}

void Exitx_Click() {
    HideForm(PrintShapes);
}

void Form_Unload(std::int16_t&) {
    HideForm(PrintShapes);
}

} // namespace

void DesignPrintShapes() {
    const PrintWindow blank;
    PrintShapes = blank;
    PrintShapes.Name = "PrintShapes";
    PrintShapes.Caption = "Print Shapes";
    PrintShapes.CloseBox = true;
    PrintShapes.InTaskBar = false;
    PrintShapes.Centred = true;
    PrintShapes.ShowsImage = true;
    PrintShapes.Image.BackColor = Rgb(255, 255, 255);
    PrintShapes.Image.UnitsPerPixel = TwipsPerPixelX();
    Resize(PrintShapes, 11115 + FrameWidth(PrintShapes.Border), 8685 + FrameHeight(PrintShapes.Border));

    ScrollBar& bar = PrintShapes.VScroll1;
    Place(bar, "VScroll1", 10920, 0, 195, 8655);
    bar.SmallChange = bar.LargeChange = 8;
    bar.Max = 496;
    bar.Change = VScroll1_Change;

    PrintShapes.Controls = {&PrintShapes.VScroll1};
    PrintShapes.Menus = {{"Printy",
                          "Print",
                          {{"ShowSolx", "Show Solution", ShowSolx_Click},
                           {"ShowShapex", "Show Shape", ShowShapex_Click},
                           {"Printx", "Print this page", Printx_Click},
                           {"dash1", "-"},
                           {"Exitx", "Exit", Exitx_Click}}}};
    PrintShapes.Activate = Form_Activate;
    PrintShapes.KeyDown = Form_KeyDown;
    PrintShapes.Unload = Form_Unload;
    PrintShowSolution = 0;
}

PageLayout PrintPage() {
    return {PrintShapes,
            5,
            4,
            0.54F,
            GridStep,
            Game.ScreenScaleX * 49.5 * 3,
            Game.ScreenScaleY * 48.0 * 3,
            SetColours,
            PrintNumber};
}

void DrawPrintPage() {
    DrawPage(PrintPage());
}

void px_Click() {
    PrintShowSolution = Game.FlagOff;
    ViewTop = 0;
    DrawAnew();
    PrintShapes.Image.Refresh();
    ShowForm(PrintShapes, Modality::Modal);
    // A View All that stands open goes on showing its own page.
    if (AllShapes.Visible) ViewTop = AllShapes.VScroll1.Value;
}
