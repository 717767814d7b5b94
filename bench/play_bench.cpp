// How long the steps of play take: a drag step, a full redraw, loading the largest collection, drawing a
// page.
#include "core/board_rendering.h"
#include "core/board_window.h"
#include "core/game_state.h"
#include "files/collection_reader.h"
#include "platform_scripted/scripted_desktop.h"
#include "shell/all_shapes.h"
#include "shell/events.h"
#include "shell/print_shapes.h"

#include <benchmark/benchmark.h>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

namespace fs = std::filesystem;

/// The shipped head and 500 records, the shipped figures over and over.
std::string FullCollection() {
    std::ifstream shipped(DATA_FOLDER "/QUILLET.qui", std::ios::binary);
    std::string head, line;
    std::vector<std::string> records;
    for (int n = 1; std::getline(shipped, line); ++n)
        if (n <= 65)
            head += line + '\n';
        else
            records.push_back(line.substr(line.find(',')));
    for (std::size_t n = 1; n <= MostQuillets; ++n)
        head += std::to_string(n) + records[n % records.size()] + '\n';
    return head;
}

class RunningGame : public benchmark::Fixture {
  public:
    void SetUp(benchmark::State&) override {
        Folder = fs::temp_directory_path() / ("quillets-bench-" + std::to_string(::getpid()));
        fs::create_directories(Folder);
        std::ofstream(Folder / "QUILLET.qui", std::ios::binary) << FullCollection();
        Game = GameState{};
        DesignWindows();
        StartProgram(FormMain, Folder.string());
    }
    void TearDown(benchmark::State&) override { fs::remove_all(Folder); }

    fs::path Folder;
};

// The bytes that a step must touch at least: six pieces are seven eighths or so of the whole area on two
// surfaces.
void FillSameBytes(benchmark::State& state) {
    constexpr std::size_t WholeArea = 2 * 96 * 96;
    std::vector<Surface::Pixel> pixels(2 * WholeArea);
    int value = 0;
    for (auto step : state) {
        std::memset(pixels.data(), ++value, pixels.size() * sizeof(pixels[0]));
        benchmark::ClobberMemory();
    }
}
BENCHMARK(FillSameBytes);

BENCHMARK_F(RunningGame, DragStep)(benchmark::State& state) {
    Picture& board = FormMain.Picture1;
    const auto x = static_cast<float>(Game.BoardX0 + Game.PieceX[3] + 24);
    const auto y = static_cast<float>(Game.BoardY0 + Game.PieceY[3] + 24);
    board.MouseDown(1, 0, x, y);
    float shift = 0;
    for (auto step : state) {
        shift = shift > 40 ? -40 : shift + 1;
        board.MouseMove(1, 0, x + shift, y + shift / 2);
    }
    board.MouseUp(1, 0, x, y);
}

BENCHMARK_F(RunningGame, FullRedraw)(benchmark::State& state) {
    for (auto step : state) DrawAllPieces();
}

BENCHMARK_F(RunningGame, LoadQuillets500)(benchmark::State& state) {
    for (auto step : state)
        if (!LoadQuillets()) state.SkipWithError("the collection was refused");
}

BENCHMARK_F(RunningGame, ViewAllPage64)(benchmark::State& state) {
    for (auto step : state) {
        AllShapes.Image.Cls();
        DrawThumbnails();
    }
}

// The page's numbers are noted down here; their glyphs are the desktop's.
BENCHMARK_F(RunningGame, PrintPage20)(benchmark::State& state) {
    for (auto step : state) {
        PrintShapes.Image.Cls();
        DrawPrintPage();
    }
}

} // namespace
