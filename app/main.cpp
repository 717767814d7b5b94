// The program: finds its folder and hands the game's first window to the desktop.
#include "core/board_window.h"
#include "platform_qt/qt_desktop.h"
#include "program_folder.h"
#include "shell/design_windows.h"

int main(int argc, char** argv) {
    const std::string folder = ProgramFolder();
    DesignWindows();
    return RunDesktop(argc, argv, FormMain, folder);
}
