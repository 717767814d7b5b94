// The start-up and the stop of the board window, each in its order.
#include "shell/start_and_stop.h"

#include "core/board_rendering.h"
#include "core/board_window.h"
#include "core/game_state.h"
#include "core/panel_window.h"
#include "core/solution_check.h"
#include "files/collection_reader.h"
#include "files/settings.h"
#include "files/sound_cues.h"
#include "platform/desktop.h"
#include "platform/files.h"
#include "platform/random.h"

namespace {

void SetConstants() {
    Game.AppPath = ApplicationFolder();
    if (!Game.AppPath.ends_with(PathSeparator)) Game.AppPath += PathSeparator;
    Game.LineBreak = "\n\r";
    Game.FlagOn = 1;
    Game.FlagOff = 0;
    Game.ScreenScaleX = Single(15.0 / TwipsPerPixelX());
    Game.ScreenScaleY = Single(15.0 / TwipsPerPixelY());
}

void EndWithoutCollection() {
    MsgBox("Quillet shapes file not found:" + Game.LineBreak + Game.QuilletFile + HintAtTemporary());
    EndProgram();
}

void SetColours() {
    Game.PieceRGB = {0x800080, 0x00FFFF, 0x008000, 0xFF0000, 0x000080, 0xFFFF00, 0x0000FF};
    Game.BoardColor = FormMain.Picture1.Image.BackColor;
    Game.WhiteColor = QBColor(15);
    Game.BlackColor = QBColor(0);
    Game.PieceQBColor = {5, 14, 2, 9, 4, 11, 12};
}

/// The board gets 350 by 390 pixels; the window holds the board and the label below it.
void SizeBoard() {
    constexpr int BoardWidth = 350, BoardHeight = 390;
    Label& standard = FormMain.PStandard;
    Resize(FormMain.Picture1, BoardWidth * TwipsPerPixelX(), BoardHeight * TwipsPerPixelY());
    const float labelHeight = standard.Height / TwipsPerPixelY();
    Resize(FormMain, (TwipsPerPixelX() + 1) * BoardWidth,
           (TwipsPerPixelY() + 1) * (1.5F * labelHeight + BoardHeight) + 80);
    FitImage(FormMain);
    standard.Top = FormMain.Picture1.Top + FormMain.Picture1.Height;
    standard.Width = FormMain.Picture1.Width;
}

void PlaceWindows(const Settings& settings) {
    const auto& place = settings.Placement;
    if (place[0] == -1) return;
    Form1.Left = place[0];
    Form1.Top = place[1];
    FormMain.Left = place[2];
    FormMain.Top = place[3];
}

} // namespace

void Form_Load() {
    SetConstants();
    EnsureSettings();
    const Settings settings = ReadSettings();
    Game.QuilletFile = Game.AppPath + settings.CollectionName;
    if (FileLength(Game.QuilletFile) == Game.FlagOff) EndWithoutCollection();
    FormMain.PStandard.Caption = "Play difficulty: NORMAL";
    LoadPieceTable();
    Game.ActivePiece = -1;
    Game.PlayLevel = NormalLevel;
    Game.SolutionShown = Game.FlagOff;
    Game.SoundOn = Game.FlagOff;
    SetColours();
    // The home places were read with an origin of 100 and keep it.
    Game.BoardX0 = 10;
    Game.BoardY0 = 10;
    if (!LoadQuillets()) EndProgram();
    Randomize(Timer());
    Game.CurrentQuillet = FloorNumber(Game.QuilletCount * Rnd() + 1);
    ShowQuillet();
    CheckAllTurns();
    SizeBoard();
    DrawAllPieces();
    PlaceWindows(settings);
    ShowForm(Form1, Modality::Modeless);
}

void Form_Unload(std::int16_t&) {
    CloseSound();
    PlayCue("thank");
    HideForm(FormMain);
    EndProgram();
}
