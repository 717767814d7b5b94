// The panel's buttons and menu: navigation, levels, sound, settings and the way out.
#include "game_on_script.h"

#include <set>

namespace {

class PanelTest : public RunningGame {
  protected:
    /// The button is pressed while the solution of quillet `from` is shown and the pieces lie elsewhere: the
    /// quillet then, and what is left of that.
    static std::string After(const std::string& command, Number from) {
        SelectQuillet(from);
        Game.SolutionShown = Game.FlagOn;
        LaySolution(33, 44);
        const std::string calls = CallsOfButton(command);
        ExpectCleanPicture();
        return std::to_string(NearestInt32(Game.CurrentQuillet))
               + (PlacesNow() == HomePlaces() ? " home" : "")
               + (Game.SolutionShown == Game.FlagOn ? " shown; " : "; ") + calls;
    }
};

TEST_F(PanelTest, NavigationMovesAndResetsAndRefusesAtTheEndsInSilence) {
    const std::string chosen = " home; cue whoosh1; focus FormMain", refused = " shown; focus FormMain";
    Button("Copy").ToolTipText = "first"; // the text alone tells what a button does
    const std::tuple<const char*, int, std::string> moves[] = {
        {"First", 3, "1" + chosen},  {"Last", 2, "5" + chosen},
        {"Left", 3, "2" + chosen},   {"Left", 1, "1" + refused},
        {"Right", 4, "5" + chosen},  {"Right", 5, "5" + refused},
        {"first", 3, "3" + refused}, {"Reset", 2, "2 home shown; cue whoosh1; focus FormMain"}};
    for (const auto& [command, from, after] : moves) EXPECT_EQ(After(command, from), after);
    std::set<std::string> seen;
    for (Desktop.Clock = 0; Desktop.Clock < 40; ++Desktop.Clock) seen.insert(After("Random", 1));
    EXPECT_EQ(seen, (std::set{"1" + chosen, "2" + chosen, "3" + chosen, "4" + chosen, "5" + chosen}));
    EXPECT_EQ(After("Random", 1), After("Random", 2)); // seeded anew at each press
    PressButton(Button("Sound"));
    EXPECT_EQ(After("Reset", 1), "1 home shown; focus FormMain");
    PressButton(Button("Sound"));
    StartWith("");
    EXPECT_EQ(After("Last", 1), "0" + chosen);
    EXPECT_EQ(After("Random", 1), "0" + chosen);
    EXPECT_EQ(After("Right", 1), "1" + refused);
}

TEST_F(PanelTest, LevelsLatchSoundTheirCueOnceAndShowWhatTheyGiveAway) {
    EXPECT_EQ(CallsOfButton("Normal"), "focus FormMain"); // set already: only the latch changes
    Places places = HomePlaces();
    places[5][2] = Game.SolTurn[5][1]; // and no other of the two looked at
    Lay(places);
    const Number half = Game.PieceWidth[Square][NearestInt16(Game.SolTurn[Square][1])] / 2;
    const Number x = 5 + Game.SolX[Square][1] + half, y = 14 + Game.SolY[Square][1] + half;
    const std::string last[] = {"Very easy", "Easy", "Normal"};
    for (const std::size_t level : {1u, 0u, 1u, 2u, 0u, 2u}) {
        Board.Enabled = false;
        EXPECT_EQ(CallsOfButton(last[level]),
                  level == 0 ? "cue GiveUp; focus FormMain" : "cue click2; focus FormMain");
        const std::string scene = Scene();
        EXPECT_EQ(CallsOfButton(last[level]), "focus FormMain");
        EXPECT_EQ(Scene(), scene);
        EXPECT_EQ(std::pair(Board.Enabled, PlacesNow()), std::pair(true, places));
        const char* captions[] = {"VERY EASY", "EASY", "NORMAL"};
        EXPECT_EQ(FormMain.PStandard.Caption, std::string("Play difficulty: ") + captions[level]);
        for (const std::string& command : last) EXPECT_EQ(Button(command).Latched, command == last[level]);
        const auto own = [&](int piece, Colour otherwise) {
            return level == 0 ? Game.PieceRGB[piece] : otherwise;
        };
        const std::array expected = {own(5, level == 1 ? QBColor(3) : 0), own(6, 0), own(Square, 0)};
        EXPECT_EQ((std::array{ColourOf(5), ColourOf(6), Form1.TargetQui[0].Image.Point(x, y)}), expected);
    }
}

TEST_F(PanelTest, ExitSavesTheSettingsClosesTheSoundAndEndsInOrder) {
    const std::string end = "unload FormMain; media stop mp3; media close all; cue thank; hide FormMain; end";
    EXPECT_EQ(CallsOf([] { UnloadForm(FormMain); }), end);
    for (const char* name : {"a, b.qui", " blank .qui", "\"a\",b.qui"}) {
        StartWith("");
        WriteText(In(name), ShippedHead);
        Game.QuilletFile = "/some/other/folder/" + std::string(name);
        Form1.Left = 300.5F, Form1.Top = -15, FormMain.Left = 4500, FormMain.Top = 1;
        EXPECT_EQ(CallsOf(Form1.CloseRequest), "media stop mp3; media close all; " + end);
        EXPECT_TRUE(ReadText(In("Quillets.cfg")).ends_with("\r\n 300.5  -15  4500  1 \r\n"));
        ASSERT_TRUE(Start()); // and the next start finds all that
        EXPECT_EQ(Game.QuilletFile, In(name));
        EXPECT_EQ((std::array{Form1.Left, Form1.Top, FormMain.Left, FormMain.Top}),
                  (std::array{300.5F, -15.F, 4500.F, 1.F}));
    }
    std::filesystem::remove("Quillets.cfg");
    std::filesystem::create_directories("Quillets.cfg"); // nobody can write it
    EXPECT_TRUE(CallsOfMenu("Exit").starts_with(
        "box The settings could not be saved:/Quillets.cfg/Is a directory.; "));
    EXPECT_TRUE(Desktop.Ended);
}

} // namespace
