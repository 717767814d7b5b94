// The window Print: its design, in twips, and what happens in it.
#include "shell/print_shapes.h"

#include "platform/desktop.h"
#include "shell/all_shapes.h"

#include <string>

PageWindow PrintShapes;
std::int16_t PrintShowSolution = 0;

namespace {

constexpr int Columns = 5;
constexpr int Rows = 4;
constexpr int GridStep = 2160;

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

void Redraw() {
    RedrawPage(PrintShapesPage());
}

void Form_Activate() {
    ScrollBar& bar = PrintShapes.VScroll1;
    // The bar counts rows of 4 where the page has rows of 5. The last figure is still reached.
    SetBar(bar, Columns * Rows, Rows);
    if (bar.Enabled) bar.SmallChange = bar.LargeChange = 5;
    PrintShowSolution = Game.FlagOff;
}

void Form_KeyDown(std::int16_t& KeyCode, std::int16_t) {
    HideOnEscape(PrintShapes, KeyCode);
}

void VScroll1_Change() {
    ViewTop = PrintShapes.VScroll1.Value;
    Redraw();
}

void ShowSolx_Click() {
    PrintShowSolution = FlagOf(true);
    Redraw();
}

void ShowShapex_Click() {
    PrintShowSolution = Game.FlagOff;
    Redraw();
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
    const PageWindow blank;
    PrintShapes = blank;
    DesignPageWindow(PrintShapes, "PrintShapes", "Print Shapes", Rgb(255, 255, 255), 11115, 8685);
    Place(PrintShapes.VScroll1, "VScroll1", 10920, 0, 195, 8655);
    PrintShapes.VScroll1.Change = VScroll1_Change;
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

PageLayout PrintShapesPage() {
    return {PrintShapes,
            Columns,
            Rows,
            0.54F,
            GridStep,
            Game.ScreenScaleX * 49.5 * 3,
            Game.ScreenScaleY * 48.0 * 3,
            SetColours,
            PrintNumber};
}

void DrawPrintPage() {
    DrawPage(PrintShapesPage());
}

void px_Click() {
    const std::int16_t viewTopBefore = ViewTop;
    PrintShowSolution = Game.FlagOff;
    ViewTop = 0;
    Redraw();
    PrintShapes.Image.Refresh();
    ShowForm(PrintShapes, Modality::Modal);
    // View All, where it is open, still shows its own page.
    if (AllShapes.Visible) ViewTop = viewTopBefore;
}
