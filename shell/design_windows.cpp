// Which procedure answers which event of the two main windows.
#include "shell/design_windows.h"

#include "core/board_in_words.h"
#include "core/board_window.h"
#include "core/panel_window.h"
#include "play/keyboard_play.h"
#include "play/mouse_play.h"
#include "shell/about_form.h"
#include "shell/all_shapes.h"
#include "shell/control_panel.h"
#include "shell/help_form.h"
#include "shell/print_shapes.h"
#include "shell/start_and_stop.h"

namespace {

void SetMenuHandler(Form& form, const char* name, PlainHandler handler) {
    for (Menu& menu : form.Menus)
        for (MenuItem& item : menu.Items)
            if (item.Name == name) item.Click = handler;
}

} // namespace

void DesignWindows() {
    DesignFormMain();
    FormMain.Load = Form_Load;
    FormMain.Unload = Form_Unload;
    FormMain.Picture1.MouseDown = Picture1_MouseDown;
    FormMain.Picture1.MouseMove = Picture1_MouseMove;
    FormMain.Picture1.MouseUp = Picture1_MouseUp;
    FormMain.Picture1.MouseLost = Picture1_MouseLost;
    FormMain.Picture1.KeyDown = Picture1_KeyDown;
    FormMain.Picture1.InWords = BoardInWords;

    DesignForm1();
    Form1.CloseRequest = Exitx_Click;
    for (TileButton& button : Form1.MenuButx) button.Pressed = ButtonPressed;
    Form1.TargetQui[1].MouseUp = [](std::int16_t Button, std::int16_t Shift, float X, float Y) {
        TargetQui_MouseUp(1, Button, Shift, X, Y);
    };
    SetMenuHandler(Form1, "px", px_Click);
    SetMenuHandler(Form1, "Saveasx", Saveasx_Click);
    SetMenuHandler(Form1, "Openx", Openx_Click);
    SetMenuHandler(Form1, "Helpx", Helpx_Click);
    SetMenuHandler(Form1, "Aboutx", Aboutx_Click);
    SetMenuHandler(Form1, "Exitx", Exitx_Click);

    // These windows name their own handlers.
    ViewTop = 0;
    DesignAllShapes();
    DesignPrintShapes();
    DesignHelpForm();
    DesignAboutForm();
}
