// The program in a browser: hands the game's first window to the page.
#include "core/board_window.h"
#include "platform_web/web_desktop.h"
#include "shell/design_windows.h"

#include <emscripten.h>

/// Called by the page when the folder is laid out.
extern "C" EMSCRIPTEN_KEEPALIVE void Start() {
    RunDesktop(FormMain, DesignWindows);
}
