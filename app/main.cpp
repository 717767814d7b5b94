// The program: finds its folder and hands the game's first window to the desktop.
#include "core/board_window.h"
#include "platform_qt/qt_desktop.h"
#include "program_folder.h"
#include "shell/design_windows.h"

int main(int, char** argv) {
    const std::string folder = ProgramFolder();
    DesignWindows();
    // The game takes no command line, and the desktop would take its own options from it.
    char* nameAlone[] = {argv[0], nullptr};
    return RunDesktop(1, nameAlone, FormMain, folder);
}
