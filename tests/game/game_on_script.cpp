// The player of the tests.
#include "game_on_script.h"

#include "core/board_rendering.h"
#include "core/piece_geometry.h"
#include "shell/events.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <sstream>
#include <unistd.h>

namespace fs = std::filesystem;

std::string TextOf(const Record& record) {
    std::ostringstream text;
    text << record.Number << ',' << record.Left << ',' << record.Top;
    for (const auto& piece : record.Pieces) text << ',' << piece[0] << ',' << piece[1] << ',' << piece[2];
    return text.str() + "\r\n";
}

std::string ReadText(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void WriteText(const fs::path& path, const std::string& text) {
    std::ofstream(path, std::ios::binary) << text;
}

const std::string& ShippedHead() {
    static const std::string Head = [] {
        const std::string text = ReadText(DATA_FOLDER "/QUILLET.qui");
        std::size_t end = 0;
        for (int line = 1; line <= 65; ++line) end = text.find('\n', end) + 1;
        return text.substr(0, end);
    }();
    return Head;
}

const std::string FiveFigures =
    "1,60,60,3,60,60,5,60,60,7,162,60,1,128,94,1,94,128,3,128,128,3,60,162\r\n"
    "2,60,60,0,108,156,4,108,156,6,204,156,0,204,204,4,60,204,0,108,108,4,156,60\r\n"
    "3,60,60,0,60,60,4,60,60,4,204,108,0,156,108,6,156,60,4,156,60,2,204,60\r\n"
    "4,60,60,4,60,108,6,156,108,2,60,204,0,156,60,6,108,204,4,108,204,4,156,204\r\n"
    "5,60,60,6,60,60,6,156,156,4,108,204,0,60,204,6,60,156,4,60,156,2,108,156\r\n";

GameTest::GameTest() : Folder(fs::temp_directory_path() / ("quillets-test-" + std::to_string(::getpid()))) {
    fs::remove_all(Folder);
    fs::create_directories(Folder);
    fs::current_path(Folder);
    Desktop = ScriptedDesktop{};
}

GameTest::~GameTest() {
    fs::current_path(fs::temp_directory_path());
    fs::remove_all(Folder);
}

void GameTest::PutCollection(const std::vector<Record>& records) {
    std::string text = ShippedHead();
    for (const Record& record : records) text += TextOf(record);
    WriteText(Folder / "QUILLET.qui", text);
}

void GameTest::PutFiveFigures() {
    WriteText(Folder / "QUILLET.qui", ShippedHead() + FiveFigures);
}

void GameTest::PutShippedCollection() {
    WriteText(Folder / "QUILLET.qui", ReadText(DATA_FOLDER "/QUILLET.qui"));
}

bool GameTest::Start() {
    Game = GameState{};
    DesignWindows();
    return StartProgram(FormMain, Folder.string());
}

Vertex InsideOf(int piece) {
    PolygonPoints polygon;
    BuildPolygon(piece, NearestInt16(Game.PieceTurn[piece]), Game.BoardX0 + Game.PieceX[piece],
                 Game.BoardY0 + Game.PieceY[piece], polygon);
    // Halfway between two middles of sides: inside of any of the seven outlines.
    const auto middle = [](Vertex a, Vertex b) { return Vertex{(a.X + b.X) / 2, (a.Y + b.Y) / 2}; };
    return middle(middle(polygon[0], polygon[1]), middle(polygon[1], polygon[2]));
}

int PickedAt(Vertex pixel) {
    const Colour colour = FormMain.Image.Point(pixel.X, pixel.Y);
    const auto found = std::find(Game.PieceRGB.begin(), Game.PieceRGB.end(), colour);
    return found == Game.PieceRGB.end() ? -1 : static_cast<int>(found - Game.PieceRGB.begin());
}

Vertex GripOf(int piece) {
    if (PickedAt(InsideOf(piece)) == piece) return InsideOf(piece);
    for (int y = 0; y < FormMain.Image.Height(); ++y)
        for (int x = 0; x < FormMain.Image.Width(); ++x)
            if (PickedAt({x, y}) == piece) return {x, y};
    ADD_FAILURE() << "piece " << piece << " is nowhere to be seen";
    return {};
}

void DragTo(int piece, double x, double y) {
    const Vertex grip = GripOf(piece);
    const auto fromX = static_cast<float>(grip.X), fromY = static_cast<float>(grip.Y);
    const float toX = fromX + Single(x - Game.PieceX[piece]), toY = fromY + Single(y - Game.PieceY[piece]);
    MouseDown(FormMain.Picture1, 1, fromX, fromY);
    MouseMove(FormMain.Picture1, 1, fromX, fromY);
    MouseMove(FormMain.Picture1, 1, (fromX + toX) / 2, (fromY + toY) / 2);
    MouseMove(FormMain.Picture1, 1, toX, toY);
    MouseUp(FormMain.Picture1, 1, toX, toY);
}

void TurnByMouse(int piece) {
    const Vertex pixel = GripOf(piece);
    MouseDown(FormMain.Picture1, 2, static_cast<float>(pixel.X), static_cast<float>(pixel.Y));
    MouseUp(FormMain.Picture1, 2, static_cast<float>(pixel.X), static_cast<float>(pixel.Y));
}

void LaySolution(double left, double top) {
    const auto quillet = static_cast<std::size_t>(Game.CurrentQuillet);
    for (int p = 0; p < PieceCount; ++p) {
        Game.PieceX[p] = left + Game.SolX[p][quillet];
        Game.PieceY[p] = top + Game.SolY[p][quillet];
        Game.PieceTurn[p] = Game.SolTurn[p][quillet];
    }
    FormMain.Image.Cls();
    FormMain.Picture1.Image.Cls();
    DrawAllPieces();
}

void BuildFigure(double left, double top) {
    const auto quillet = static_cast<std::size_t>(Game.CurrentQuillet);
    for (int p = 0; p < PieceCount; ++p)
        for (int step = 0; step < TurnCount && Game.PieceTurn[p] != Game.SolTurn[p][quillet]; ++step)
            TurnByMouse(p);
    for (int p = 0; p < PieceCount; ++p) DragTo(p, left + Game.SolX[p][quillet], top + Game.SolY[p][quillet]);
}

void SwitchSoundOn() {
    Game.SoundOn = 1;
}

std::vector<std::string> TakeCues() {
    std::vector<std::string> cues;
    for (std::string command : std::exchange(Desktop.MediaCommands, {})) {
        const std::string play = "play " + Game.AppPath;
        if (command.starts_with(play))
            command = command.substr(play.size(), command.size() - play.size() - 4);
        cues.push_back(command);
    }
    return cues;
}
