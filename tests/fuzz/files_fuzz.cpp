// Fuzzed files. The readers take each one whole or refuse it; what Append and Remove make of a whole one is
// whole. With QUILLETS_PLAY set a collection is also opened, looked at, appended to and removed from.
#include "files/collection_format.h"
#include "files/settings.h"
#include "game/game_on_script.h"
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

/// What Append and Remove make of a whole collection is whole, and one record more or less is one quillet.
void ChangeText(const std::string& text) {
    Collection before, after;
    if (!ReadCollection(text, before).empty()) return;
    const std::string grown = WithRecord(text, RecordText(before.QuilletCount + 1, Figure{}));
    Insist(ReadCollection(grown, after).empty(), "a collection with one more is whole");
    Insist(after.QuilletCount == before.QuilletCount + 1, "it holds one more");
    const std::string plain = WithoutRecord(grown, 0), all = WithoutRecord(plain, 0);
    Collection numbered;
    Insist(ReadCollection(plain, numbered).empty() && plain == all, "numbers are only given once");
    const std::string shrunk = WithoutRecord(
        WithRecord(plain, RecordText(numbered.QuilletCount + 1, Figure{})), numbered.QuilletCount + 1);
    Insist(shrunk == plain, "what comes and goes leaves no trace");
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
    const Collection before = Game;
    const std::string file = Game.QuilletFile;
    WriteText("fuzzed.qui", text);
    Desktop.Boxes.clear();
    Desktop.Paths = {Game.AppPath + "fuzzed.qui"};
    ChooseMenuItem(Form1, "Open");
    if (Desktop.Boxes.empty() || Desktop.Ended) return !Desktop.Ended;
    Insist(NamesALineOf(text), "a refusal names a line");
    Insist(std::tie(before.QuilletCount, before.SolTurn, before.SolX, before.SolY)
               == std::tie(Game.QuilletCount, Game.SolTurn, Game.SolX, Game.SolY),
           "refused, the collection stays");
    Insist(Game.QuilletFile == file && FormMain.Picture1.Enabled, "refused, all stays");
    return false;
}

/// Looks at the collection, appends the shown figure if it is small enough, and removes the last.
void Play() {
    for (const char* command : {"First", "View All", "Copy", "Append existing Quillet", "Last",
                                "Remove existing Quillet", "Reset", "Append existing Quillet"})
        for (TileButton& button : Form1.MenuButx)
            if (button.ToolTipText == command) PressButton(button);
    ChooseMenuItem(Form1, "Print");
    ChooseMenuItem(PrintShapes, "Show Solution");
    if (!Desktop.Ended) Insist(FaultOfCollection(ReadText("fuzzed.qui")).empty(), "the collection is whole");
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
    else if (!Plays)
        ChangeText(text);
    else if (OpenCollectionOf(text))
        Play();
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
