// The one table of the game's events.
#include "shell/events.h"

#include "core/board_window.h"
#include "core/panel_window.h"
#include "play/mouse_play.h"
#include "shell/start_and_stop.h"

void DesignWindows() {
    DesignFormMain();
    FormMain.Load = Form_Load;
    FormMain.Unload = Form_Unload;
    FormMain.Picture1.MouseDown = Picture1_MouseDown;
    FormMain.Picture1.MouseMove = Picture1_MouseMove;
    FormMain.Picture1.MouseUp = Picture1_MouseUp;
    FormMain.Picture1.MouseLost = Picture1_MouseLost;

    DesignForm1();
}
