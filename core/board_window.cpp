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
    FormMain.ShowsImage = false;
    FormMain.Image.BackColor = ButtonFace;
    Resize(FormMain, 5460, 7005);
    FormMain.Image.Cls();

    FormMain.Picture1.Name = "Picture1";
    FormMain.Picture1.Left = 60;
    FormMain.Picture1.Top = 90;
    FormMain.Picture1.Image.BackColor = Rgb(192, 192, 192);
    Resize(FormMain.Picture1, 5220, 5895);
    FormMain.Picture1.Image.Cls();

    Label& standard = FormMain.PStandard;
    standard.Name = "PStandard";
    standard.Left = 90;
    standard.Top = 6180;
    standard.Width = 5220;
    standard.Height = 300;
    standard.Font = {"Arial", 9, true};
    standard.ForeColor = Rgb(255, 255, 255);
    standard.BackColor = Rgb(192, 0, 0);
    standard.Centred = true;

    FormMain.Controls = {&FormMain.Picture1, &FormMain.PStandard};
}
