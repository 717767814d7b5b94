// What the buttons of the panel do.
#include "shell/control_panel.h"

#include "core/board_rendering.h"
#include "core/board_window.h"
#include "core/game_state.h"
#include "core/panel_window.h"
#include "files/append_quillet.h"
#include "files/collection_files.h"
#include "files/settings.h"
#include "files/sound_cues.h"
#include "platform/desktop.h"
#include "platform/random.h"
#include "play/copy_to_board.h"
#include "play/win_flow.h"
#include "shell/all_shapes.h"
#include "shell/levels.h"

#include <algorithm>
#include <string>

namespace {

TileButton& Button(std::int16_t index) {
    return Form1.MenuButx[static_cast<std::size_t>(index)];
}

void SelectFirst(std::int16_t) {
    SelectQuillet(1);
}

void SelectLast(std::int16_t) {
    SelectQuillet(Game.QuilletCount);
}

void SelectLeft(std::int16_t) {
    if (Game.CurrentQuillet - 1 > 0) SelectQuillet(Game.CurrentQuillet - 1);
}

void SelectRight(std::int16_t) {
    if (Game.CurrentQuillet + 1 < Game.QuilletCount + 1) SelectQuillet(Game.CurrentQuillet + 1);
}

void SelectRandom(std::int16_t) {
    Randomize(Timer());
    Number chosen = FloorNumber(Rnd() * Game.QuilletCount) + 1;
    if (chosen < 1) chosen = 1;
    if (chosen > Game.QuilletCount) chosen = Game.QuilletCount;
    SelectQuillet(chosen);
}

void Reset(std::int16_t) {
    ResetPieces();
}

void Copy(std::int16_t) {
    CopyToBoard();
    Game.SolutionShown = Game.FlagOn;
}

void Append(std::int16_t) {
    PlayCue("click2");
    AppendQuillet();
}

void Remove(std::int16_t) {
    RemoveQuillet();
}

/// Latches the pressed level button alone, then plays its level.
void SwitchLevel(std::int16_t index, void (*play)()) {
    for (const std::int16_t level : {std::int16_t{14}, std::int16_t{15}, std::int16_t{16}})
        Button(level).LatchOff();
    Button(index).LatchOn();
    play();
}

void ToggleSound(std::int16_t index) {
    if (Game.SoundOn == Game.FlagOn) {
        Game.SoundOn = Game.FlagOff;
        Button(index).LatchOff();
    } else {
        Game.SoundOn = FlagOf(true);
        Button(index).LatchOn();
    }
}

/// The first loaded form whose caption is not the panel's.
Form* FirstOtherForm() {
    const std::vector<Form*> loaded = LoadedForms();
    const auto found = std::find_if(loaded.begin(), loaded.end(),
                                    [](const Form* form) { return form->Caption != Form1.Caption; });
    return found == loaded.end() ? nullptr : *found;
}

struct Command {
    const char* Text;
    void (*Run)(std::int16_t index);
};

constexpr Command Commands[] = {
    {"First", SelectFirst},
    {"Last", SelectLast},
    {"Left", SelectLeft},
    {"Right", SelectRight},
    {"Random", SelectRandom},
    {"Reset", Reset},
    {"Copy", Copy},
    {"View All", [](std::int16_t) { OpenAllShapes(); }},
    {"Append existing Quillet", Append},
    {"Remove existing Quillet", Remove},
    {"Normal", [](std::int16_t index) { SwitchLevel(index, Normal_Play); }},
    {"Easy", [](std::int16_t index) { SwitchLevel(index, Easy_Play); }},
    {"Very easy", [](std::int16_t index) { SwitchLevel(index, VeryEasy_Play); }},
    {"Sound", ToggleSound},
};

} // namespace

void ButtonPressed(std::int16_t Index) {
    const std::string& text = Button(Index).ToolTipText;
    const auto command = std::find_if(std::begin(Commands), std::end(Commands),
                                      [&](const Command& known) { return text == known.Text; });
    if (command != std::end(Commands)) command->Run(Index);
    SetFocus(FormMain);
}

void SelectQuillet(double n) {
    Game.CurrentQuillet = n;
    ShowQuillet();
    Game.SolutionShown = Game.FlagOff;
    ResetPieces();
}

void Saveasx_Click() {
    PlayCue("click2");
    SaveCollectionAs();
}

void Openx_Click() {
    PlayCue("click2");
    OpenCollection();
}

void Exitx_Click() {
    WriteSettings({Form1.Left, Form1.Top, FormMain.Left, FormMain.Top});
    CloseSound();
    while (Form* form = LoadedForms().size() > 1 ? FirstOtherForm() : nullptr) UnloadForm(*form);
    UnloadForm(Form1);
    EndProgram();
}
