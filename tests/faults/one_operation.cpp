// The game without a display, for one operation on its files, which runs between two marks in the list of its
// system calls. Says what each message box said, one line a box.
// Usage: one_operation FOLDER append TIMES SHIFT | remove NUMBER TIMES | saveas PATH | settings
#include "core/board_rendering.h"
#include "core/board_window.h"
#include "core/game_state.h"
#include "core/panel_window.h"
#include "files/append_quillet.h"
#include "files/collection_files.h"
#include "files/collection_reader.h"
#include "platform_scripted/scripted_desktop.h"
#include "play/copy_to_board.h"
#include "shell/control_panel.h"
#include "shell/design_windows.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <unistd.h>

namespace {

/// Shifts the figure so that its corner tells the process and the round apart.
void Append(int times, int shift) {
    for (int round = 0; round < times; ++round) {
        CopyToBoard();
        for (Number& x : Game.PieceX) x += shift;
        for (Number& y : Game.PieceY) y += round;
        DrawAllPieces();
        AppendQuillet();
    }
}

/// Waits for others to append where there is nothing to remove.
void Remove(int number, int times) {
    for (int done = 0; done < times;) {
        if (Game.QuilletCount >= number) {
            SelectQuillet(number);
            RemoveQuillet();
            ++done;
        } else {
            ::usleep(1'000);
            LoadQuillets();
        }
    }
}

void PrintBoxes() {
    for (const BoxCall& box : Desktop.Boxes) {
        std::string line = box.Text;
        std::erase(line, '\r');
        std::replace(line.begin(), line.end(), '\n', '|');
        std::puts(line.c_str());
    }
}

void Run(const std::string& operation, const char* first, const char* second) {
    if (operation == "append") Append(std::atoi(first), std::atoi(second));
    if (operation == "remove") Remove(std::atoi(first), std::atoi(second));
    Desktop.Paths = {first};
    if (operation == "saveas") SaveCollectionAs();
    Form1.Left += 15; // for settings that differ from those before
    if (operation == "settings") Deliver(Form1.CloseRequest);
}

} // namespace

int main(int argc, char** argv) {
    const auto argument = [&](int index) { return index < argc ? argv[index] : "."; };
    DesignWindows();
    const bool started = StartProgram(FormMain, argument(1));
    if (started) {
        SelectQuillet(1);
        static_cast<void>(::access("/quillets-operation-begins", F_OK));
        Run(argument(2), argument(3), argument(4));
        static_cast<void>(::access("/quillets-operation-ends", F_OK));
    }
    PrintBoxes();
    return started ? 0 : 1;
}
