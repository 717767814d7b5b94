// How long the steps of play take.
#include "core/board_rendering.h"
#include "core/board_window.h"
#include "core/game_state.h"
#include "files/append_quillet.h"
#include "files/collection_files.h"
#include "files/collection_reader.h"
#include "files/quality_checks.h"
#include "full_game.h"
#include "platform_scripted/scripted_desktop.h"
#include "play/copy_to_board.h"
#include "shell/all_shapes.h"
#include "shell/control_panel.h"
#include "shell/print_shapes.h"

namespace {

BENCHMARK_F(FullGame, DragStep)(benchmark::State& state) {
    BeginDrag();
    for (auto step : state) DragStep();
}

BENCHMARK_F(FullGame, FullRedraw)(benchmark::State& state) {
    for (auto step : state) DrawAllPieces();
}

BENCHMARK_F(FullGame, ViewAllPage)(benchmark::State& state) {
    for (auto step : state) DrawThumbnails();
}

// Numbers on the page cost a list entry here; the desktop draws their glyphs.
BENCHMARK_F(FullGame, PrintPage)(benchmark::State& state) {
    for (auto step : state) DrawPrintPage();
}

BENCHMARK_F(FullGame, LoadQuillets)(benchmark::State& state) {
    for (auto step : state)
        if (!LoadQuillets()) state.SkipWithError("the collection was refused");
}

BENCHMARK_F(FullGame, FilledPercent)(benchmark::State& state) {
    for (auto step : state) benchmark::DoNotOptimize(FilledPercent(20, 20, 340, 340));
}

// Removes the last of 500 and appends it again, so each round finds the same file.
BENCHMARK_F(FullGame, RemoveAndAppend)(benchmark::State& state) {
    SelectQuillet(MostQuillets);
    CopyToBoard();
    for (auto step : state) {
        RemoveQuillet();
        AppendQuillet();
        if (Game.QuilletCount != MostQuillets) state.SkipWithError("the collection has changed");
        Desktop.Calls.clear();
        Desktop.Boxes.clear();
    }
}

} // namespace
