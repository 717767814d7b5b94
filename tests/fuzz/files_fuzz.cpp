// Fuzzed files. The readers take each one whole or refuse it, with a message that names one of its lines;
// with QUILLETS_PLAY set a collection is also opened, looked at, appended to, removed from and saved, and
// nothing is lost.
#include "files/collection_reader.h"
#include "files/settings.h"
#include "game/game_on_script.h"
#include "shell/all_shapes.h"
#include "shell/print_shapes.h"

#include <cstdio>
#include <cstdlib>
#include <ctime>

namespace {

struct GameToFuzz : GameTest {
    void TestBody() override {}
    bool Begin() {
        std::filesystem::remove("Quillets.cfg");
        WriteText("QUILLET.qui", ShippedHead + FiveFigures);
        return Start();
    }
};

/// Ends the run, which keeps the input, unless `right`.
void Insist(bool right, const char* what) {
    if (right) return;
    std::fprintf(stderr, "Not so: %s\n", what);
    for (const BoxCall& box : Desktop.Boxes) std::fprintf(stderr, "Box: %s\n", box.Text.c_str());
    std::abort();
}

bool NamesALineOf(const std::string& text) {
    const std::string& message = Desktop.Boxes.back().Text;
    const std::size_t at = message.rfind("\n\rLine ");
    const long line = at == message.npos ? 0 : std::atol(message.c_str() + at + 7);
    return Desktop.Boxes.size() == 1 && line >= 1 && line <= std::count(text.begin(), text.end(), '\n') + 1;
}

/// Count, turns and places of all quillets.
using Tables = std::vector<Number>;

Tables TablesNow() {
    Tables tables;
    for (std::size_t q = 1; q <= static_cast<std::size_t>(Game.QuilletCount); ++q)
        for (int p = 0; p < PieceCount; ++p)
            tables.insert(tables.end(), {Game.SolTurn[p][q], Game.SolX[p][q], Number(Game.SolY[p][q])});
    return tables;
}

void ReadAsPieceTable(const std::string& text) {
    WriteText("QUILLET.qui", text);
    Game.QuilletFile = Game.AppPath + "QUILLET.qui";
    const auto shapes = Game.PieceShape;
    Desktop.Boxes.clear();
    if (!Deliver(LoadPieceTable))
        Insist(NamesALineOf(text) && Game.PieceShape == shapes, "refused, the shapes stay");
    Desktop.Ended = false;
}

void ReadAsSettings(const std::string& text) {
    WriteText("Quillets.cfg", text);
    Desktop.Boxes.clear();
    EnsureSettings();
    const Settings read = ReadSettings();
    Game.QuilletFile = Game.AppPath + read.CollectionName;
    const std::string name = read.CollectionName.substr(read.CollectionName.rfind('/') + 1);
    WriteSettings(read.Placement);
    const Settings again = ReadSettings();
    Insist(again.CollectionName == (name.empty() ? "QUILLET.qui" : name), "the name comes back");
    Insist(again.Placement == read.Placement, "the places come back");
    Insist(Desktop.Boxes.empty(), "nothing is said");
}

/// True when it is loaded.
bool OpenCollectionOf(const std::string& text) {
    const Tables before = TablesNow();
    const std::string file = Game.QuilletFile;
    WriteText("fuzzed.qui", text);
    Desktop.Boxes.clear();
    Desktop.Paths = {Game.AppPath + "fuzzed.qui"};
    ChooseMenuItem(Form1, "Open");
    if (Desktop.Boxes.empty() || Desktop.Ended) return !Desktop.Ended;
    Insist(NamesALineOf(text), "a refusal names a line");
    Insist(TablesNow() == before && Game.QuilletFile == file && FormMain.Picture1.Enabled,
           "refused, all stays");
    return false;
}

void Press(std::initializer_list<const char*> commands) {
    for (const char* command : commands)
        for (TileButton& button : Form1.MenuButx)
            if (button.ToolTipText == command) PressButton(button);
}

/// Appends the shown figure or, where that is too large, the pieces at home, and takes it away again.
void AppendAndRemove() {
    const std::string before = ReadText("fuzzed.qui");
    Press({"Copy", "Append existing Quillet"});
    if (ReadText("fuzzed.qui") == before) Press({"Reset", "Append existing Quillet"});
    const std::string after = ReadText("fuzzed.qui");
    Insist(after.starts_with(before) && after != before && after.ends_with("\r\n"),
           "a record comes to the end");
    Press({"Remove existing Quillet"});
}

/// The first Remove numbers all records anew, also those that did not count; from then on nothing changes any
/// more.
void Play() {
    const Tables figures = TablesNow();
    Press({"First", "View All", "Last"});
    AllShapes.MouseUp(1, 0, 1000, 100);
    ChooseMenuItem(Form1, "Print");
    ChooseMenuItem(PrintShapes, "Show Solution");
    AppendAndRemove();
    const std::string plain = ReadText("fuzzed.qui");
    const Tables known = TablesNow();
    if (!Desktop.Ended) AppendAndRemove();
    if (Desktop.Ended) return;
    Insist(known.size() != figures.size() || known == figures, "the figures stay");
    Insist(ReadText("fuzzed.qui") == plain && TablesNow() == known, "what comes and goes leaves no trace");
    Desktop.Paths = {Game.AppPath + "copy.qui"};
    ChooseMenuItem(Form1, "Save as");
    Insist(ReadText("copy.qui") == plain, "a copy is a copy");
}

/// Behind the letter s the input is a settings file, behind an r the records of a collection; else it is a
/// collection.
void Try(std::string text) {
    static const bool Plays = std::getenv("QUILLETS_PLAY") != nullptr;
    static GameToFuzz game;
    if (Desktop.Ended || !FormMain.Visible) Insist(game.Begin(), "the game starts");
    const char kind = text.empty() ? ' ' : text[0];
    if (kind == 'r') text.replace(0, 1, ShippedHead);
    if (kind == 's')
        ReadAsSettings(text.substr(1));
    else if (OpenCollectionOf(text) && Plays)
        Play();
    else if (kind != 'r' && !Plays)
        ReadAsPieceTable(text);
    Desktop.Calls.clear();
    Desktop.FileDialogs.clear();
}

} // namespace

/// An input is slow when it is slow three times: the machine has other things to do.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    for (int time = 1; time <= 3; ++time) {
        const std::clock_t start = std::clock();
        Try({data, data + size});
        if (std::clock() - start < CLOCKS_PER_SEC / 20) return 0;
    }
    Insist(false, "done within 50 ms");
    return 0;
}
