// The game that the benchmarks run.
#include "full_game.h"

#include "core/board_window.h"
#include "core/game_state.h"
#include "platform_scripted/scripted_desktop.h"
#include "shell/design_windows.h"

#include <fstream>
#include <unistd.h>
#include <vector>

namespace {

constexpr int PieceInHand = 3;
constexpr float Grip = 24;

float Shift = 0;

void MoveTo(float shift) {
    const auto x = static_cast<float>(Game.BoardX0 + Game.HomeX[PieceInHand]) + Grip;
    const auto y = static_cast<float>(Game.BoardY0 + Game.HomeY[PieceInHand]) + Grip;
    FormMain.Picture1.MouseMove(1, 0, x + shift, y + shift / 2);
}

} // namespace

std::string FullCollection() {
    std::ifstream shipped(DATA_FOLDER "/QUILLET.qui", std::ios::binary);
    std::string text, line;
    std::vector<std::string> records;
    for (int n = 1; std::getline(shipped, line); ++n)
        if (n <= 65)
            text += line + '\n';
        else
            records.push_back(line.substr(line.find(',')));
    for (std::size_t n = 1; n <= MostQuillets; ++n)
        text += std::to_string(n) + records[n % records.size()] + '\n';
    return text;
}

void FullGame::SetUp(benchmark::State&) {
    Folder = std::filesystem::temp_directory_path() / ("quillets-bench-" + std::to_string(::getpid()));
    std::filesystem::create_directories(Folder);
    std::ofstream(Folder / "QUILLET.qui", std::ios::binary) << FullCollection();
    // As the program does at its start.
    std::filesystem::current_path(Folder);
    Game = GameState{};
    DesignWindows();
    StartProgram(FormMain, Folder.string());
}

void FullGame::TearDown(benchmark::State&) {
    std::filesystem::current_path(Folder.parent_path());
    std::filesystem::remove_all(Folder);
}

void BeginDrag() {
    Game.ActivePiece = PieceInHand;
    Game.DragButton = 1;
    MoveTo(Shift = 0);
}

void DragStep() {
    Shift = Shift > 40 ? -40 : Shift + 1;
    MoveTo(Shift);
}
