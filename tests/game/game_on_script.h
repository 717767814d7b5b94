// Starts the game on the scripted desktop, in a folder of its own, and plays it with the mouse.
#pragma once

#include "core/board_window.h"
#include "core/game_state.h"
#include "core/panel_window.h"
#include "platform_scripted/scripted_desktop.h"

#include <array>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <vector>

/// A quillet as it stands in a collection file.
struct Record {
    double Number = 1;
    double Left = 0;
    double Top = 0;
    /// Turn, x and y of each piece.
    std::array<std::array<double, 3>, PieceCount> Pieces{};
};

std::string TextOf(const Record& record);

/// Lines 1 to 65 of the shipped collection.
const std::string& ShippedHead();

/// Five records, the same whatever the shipped collection comes to hold.
extern const std::string FiveFigures;

std::string ReadText(const std::filesystem::path& path);
void WriteText(const std::filesystem::path& path, const std::string& text);

/// Each test has an empty program folder, and starts the game there when it is ready to.
class GameTest : public testing::Test {
  protected:
    GameTest();
    ~GameTest() override;

    void PutCollection(const std::vector<Record>& records);
    void PutFiveFigures();
    void PutShippedCollection();

    /// True when the game is up; false when it ended itself.
    bool Start();

    std::filesystem::path Folder;
};

/// A pixel of the board well inside the piece.
Vertex InsideOf(int piece);

/// A pixel where the piece can be taken, even if others lie over its middle.
Vertex GripOf(int piece);

/// The piece whose key colour the pick map shows at the pixel; -1 for none.
int PickedAt(Vertex pixel);

/// Drags the piece so that its reference point comes to (x, y), in steps, and drops it.
void DragTo(int piece, double x, double y);

/// A right press and release on the piece.
void TurnByMouse(int piece);

/// Sets the pieces as the shown quillet has them, its corner at (left, top), without any event.
void LaySolution(double left, double top);

/// Turns and drags the pieces into the shown quillet with the mouse alone, its corner at (left, top).
void BuildFigure(double left, double top);

/// The sound of the game, switched on without a press.
void SwitchSoundOn();

/// The media commands since the last call, as bare cue names or whole commands.
std::vector<std::string> TakeCues();
