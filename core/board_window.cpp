// The design of the board window, in twips.
#include "core/board_window.h"

BoardWindow FormMain;

void DesignFormMain() {
    const BoardWindow blank;
    FormMain = blank;
    FormMain.Name = "FormMain";
    FormMain.Caption = "Quillets";
    FormMain.Left = 1500;
    FormMain.Top = 1785;
    FormMain.Image.BackColor = ButtonFace;
    Resize(FormMain, 5460, 7005);
    FitImage(FormMain);
    FormMain.Image.Cls();

    Place(FormMain.Picture1, "Picture1", 60, 90, 5220, 5895);
    FormMain.Picture1.Image.BackColor = Rgb(192, 192, 192);
    Resize(FormMain.Picture1, 5220, 5895);
    FormMain.Picture1.Image.Cls();
    FormMain.Picture1.SpokenName = "Board";

    Label& standard = FormMain.PStandard;
    Place(standard, "PStandard", 90, 6180, 5220, 300);
    standard.Font = {"Arial", 9, true};
    standard.ForeColor = Rgb(255, 255, 255);
    standard.BackColor = Rgb(192, 0, 0);
    standard.Centred = true;

    FormMain.Controls = {&FormMain.Picture1, &FormMain.PStandard};
}
