// Starts the game on the scripted desktop, in a folder of its own, plays it with mouse, keys and buttons, and
// tells as text what is to be seen and what was asked of the desktop.
#pragma once

#include "core/board_rendering.h"
#include "core/board_window.h"
#include "core/game_state.h"
#include "core/panel_window.h"
#include "core/piece_geometry.h"
#include "core/solution_check.h"
#include "platform_scripted/scripted_desktop.h"
#include "shell/control_panel.h"
#include "shell/design_windows.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <sstream>
#include <unistd.h>

inline std::string ReadText(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

inline void WriteText(const std::string& path, const std::string& text) {
    std::ofstream(path, std::ios::binary) << text;
}

inline std::string Replaced(std::string text, const std::string& what, const std::string& with) {
    for (std::size_t at; (at = text.find(what)) != std::string::npos;) text.replace(at, what.size(), with);
    return text;
}

/// The shipped collection, its lines 1 to 65, and five records that stay whatever it comes to hold.
inline const std::string Shipped = ReadText(DATA_FOLDER "/QUILLET.qui");
inline const std::string ShippedHead = Shipped.substr(0, Shipped.find("\n1,60,60,") + 1);
inline const std::string FiveFigures =
    "1,60,60,3,60,60,5,60,60,7,162,60,1,128,94,1,94,128,3,128,128,3,60,162\r\n"
    "2,60,60,0,108,156,4,108,156,6,204,156,0,204,204,4,60,204,0,108,108,4,156,60\r\n"
    "3,60,60,0,60,60,4,60,60,4,204,108,0,156,108,6,156,60,4,156,60,2,204,60\r\n"
    "4,60,60,4,60,108,6,156,108,2,60,204,0,156,60,6,108,204,4,108,204,4,156,204\r\n"
    "5,60,60,6,60,60,6,156,156,4,108,204,0,60,204,6,60,156,4,60,156,2,108,156\r\n";

/// Records that start with these three numbers; all pieces lie at (0, 0) in turn 0 but piece 0.
inline std::string Records(int count, const std::string& start = "1,0,0",
                           const std::string& piece0 = "0,0,0") {
    const std::string record = start + "," + piece0 + ",0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0,0\r\n";
    std::string text;
    while (count-- > 0) text += record;
    return text;
}

/// x, y and turn of each piece.
using Places = PerPiece<std::array<Number, 3>>;

constexpr int Square = 3;

/// Each test has an empty program folder, and starts the game there when it is ready to.
class GameTest : public testing::Test {
  protected:
    GameTest() {
        std::filesystem::remove_all(Folder);
        std::filesystem::create_directories(Folder);
        std::filesystem::current_path(Folder);
        Desktop = ScriptedDesktop{};
    }
    ~GameTest() override {
        std::filesystem::current_path(Folder.parent_path());
        std::filesystem::remove_all(Folder);
    }

    std::string In(const std::string& name) const { return (Folder / name).string(); }
    void PutFiveFigures() { WriteText(In("QUILLET.qui"), ShippedHead + FiveFigures); }

    /// True when the game is up; false when it ended itself.
    bool Start() {
        Game = GameState{};
        DesignWindows();
        return StartProgram(FormMain, Folder.string());
    }

    /// Starts with these records, the first of them shown, and with the sound on.
    void StartWith(const std::string& records) {
        WriteText(In("QUILLET.qui"), ShippedHead + records);
        EXPECT_TRUE(Start());
        PressButton(Button("Sound"));
        SelectQuillet(1);
    }

    /// All that the player sees and that play goes by: texts, pieces, latches, and a sum of each picture.
    static std::string Scene() {
        std::ostringstream text;
        text << "shown " << Game.SolutionShown << " last " << Game.LastPiece << " active " << Game.ActivePiece
             << " enabled " << Board.Enabled << "; " << FormMain.Caption << "; " << FormMain.PStandard.Caption
             << "; " << Form1.TarQui.Caption << "\n";
        for (const auto& [x, y, turn] : PlacesNow()) text << x << ',' << y << " turn " << turn << "; ";
        for (const TileButton& button : Form1.MenuButx)
            if (button.Latched) text << button.ToolTipText << " latched; ";
        std::string picks;
        for (int n = 0; n < 350 * 390; ++n) picks += static_cast<char>(PickedAt({n % 350, n / 350}));
        text << "\n"
             << Game.QuilletFile << "\nboard " << SumOf(Board.Image) << ", figure "
             << SumOf(Form1.TargetQui[1].Image) << ", what can be picked " << std::hash<std::string>{}(picks);
        return text.str();
    }
    static std::size_t SumOf(const Surface& image) {
        const std::u32string pixels(image.Row(0), image.Row(image.Height() - 1) + image.Width());
        return std::hash<std::u32string>{}(pixels);
    }

    /// The scene is the one of these pieces and this figure drawn on clean surfaces.
    static void ExpectCleanPicture() {
        const std::string scene = Scene();
        ShowQuillet();
        Lay(PlacesNow());
        EXPECT_EQ(Scene(), scene);
    }

    /// All that the box bears; "/" stands for the line break of messages.
    static std::string Told(const BoxCall& box) {
        static constexpr const char* Buttons[] = {"", " [OK, Cancel]", " [Yes, No]"};
        static constexpr const char* Icons[] = {"", " information", " warning"};
        return "box " + Replaced(box.Text, "\n\r", "/") + Buttons[static_cast<int>(box.Buttons)]
               + Icons[static_cast<int>(box.Icon)] + (box.Preset == BoxDefault::Second ? " second" : "")
               + (box.Title.empty() ? "" : " by " + box.Title);
    }

    /// What an event asks of the desktop, in its order: "cue NAME", "box TEXT", "show NAME" and so on,
    /// without the folder.
    static std::string CallsOf(const std::function<void()>& event) {
        Desktop.Calls.clear();
        Desktop.Boxes.clear();
        Deliver(event);
        std::string calls;
        auto box = Desktop.Boxes.begin();
        for (const std::string& call : Desktop.Calls)
            calls += (calls.empty() ? "" : "; ") + (call.starts_with("box ") ? Told(*box++) : call);
        calls = Replaced(Replaced(calls, "media play ", "cue "), ".wav", "");
        return Replaced(calls, Desktop.Folder + "/", "");
    }
    static std::string CallsOfButton(const std::string& command) {
        return CallsOf([&] { PressButton(Button(command)); });
    }
    static std::string CallsOfMenu(const char* item) {
        return CallsOf([&] { ChooseMenuItem(Form1, item); });
    }
    static TileButton& Button(const std::string& command) {
        return *std::ranges::find(Form1.MenuButx, command, &TileButton::ToolTipText);
    }

    static Places PlacesNow() { return Gathered(Game.PieceX, Game.PieceY, Game.PieceTurn); }
    static Places HomePlaces() { return Gathered(Game.HomeX, Game.HomeY, Game.HomeTurn); }
    static Places Gathered(const auto& x, const auto& y, const auto& turn) {
        Places places;
        for (int p = 0; p < PieceCount; ++p) places[p] = {Number(x[p]), Number(y[p]), Number(turn[p])};
        return places;
    }

    /// Set the pieces without any event, on clean surfaces; the solution with its corner at (left, top).
    static void Lay(const Places& places) {
        for (int p = 0; p < PieceCount; ++p)
            std::tie(Game.PieceX[p], Game.PieceY[p], Game.PieceTurn[p]) = std::tuple_cat(places[p]);
        FormMain.Image.Cls();
        Board.Image.Cls();
        DrawAllPieces();
    }
    static void LaySolution(double left, double top) {
        const Solution solution = SolutionOf(Game, ShownQuillet());
        Places places = Gathered(solution.X, solution.Y, solution.Turn);
        for (auto& [x, y, turn] : places) x += left, y += top;
        Lay(places);
    }

    /// A pixel of the board well inside the piece, and one where it can be taken even if others lie there.
    static Vertex InsideOf(int piece) {
        PolygonPoints polygon;
        PolygonOfPiece(piece, polygon);
        // Halfway between two middles of sides: inside of any of the seven outlines.
        const auto& [a, b, c] = std::tie(polygon[0], polygon[1], polygon[2]);
        return {(a.X + 2 * b.X + c.X) / 4, (a.Y + 2 * b.Y + c.Y) / 4};
    }
    static Vertex GripOf(int piece) {
        Vertex grip = InsideOf(piece);
        for (int n = 0; PickedAt(grip) != piece && n < 350 * 390; ++n) grip = {n % 350, n / 350};
        return grip;
    }

    static Colour ColourOf(int piece) { return Board.Image.Point(InsideOf(piece).X, InsideOf(piece).Y); }
    /// The piece whose key colour the pick map shows at the pixel; -1 for none.
    static int PickedAt(Vertex pixel) {
        const Colour colour = FormMain.Image.Point(pixel.X, pixel.Y);
        const auto found = std::ranges::find(Game.PieceRGB, colour);
        return found == Game.PieceRGB.end() ? -1 : static_cast<int>(found - Game.PieceRGB.begin());
    }

    static void Press(std::int16_t button, Vertex v) { MouseDown(Board, button, float(v.X), float(v.Y)); }
    static void MoveTo(Vertex v) { MouseMove(Board, 0, float(v.X), float(v.Y)); }
    static void Release(std::int16_t button, Vertex v) { MouseUp(Board, button, float(v.X), float(v.Y)); }
    static void Key(int code, int shift = 0) { KeyDown(Board, NearestInt16(code), NearestInt16(shift)); }
    static void TurnByMouse(int piece) {
        Press(2, GripOf(piece));
        Release(2, GripOf(piece));
    }

    /// Drags the piece so that its reference point comes to (x, y), in steps, and drops it.
    static void DragTo(int piece, double x, double y) {
        const Vertex grip = GripOf(piece);
        const int dx = NearestInt32(x - Game.PieceX[piece]), dy = NearestInt32(y - Game.PieceY[piece]);
        Press(1, grip);
        for (const int quarters : {0, 2, 4}) MoveTo({grip.X + dx * quarters / 4, grip.Y + dy * quarters / 4});
        Release(1, {grip.X + dx, grip.Y + dy});
    }

    static inline Picture& Board = FormMain.Picture1;
    const std::filesystem::path Folder =
        std::filesystem::temp_directory_path() / ("quillets-test-" + std::to_string(::getpid()));
};

/// The first of five figures is shown, and the sound is on.
class RunningGame : public GameTest {
  protected:
    RunningGame() { StartWith(FiveFigures); }
};
