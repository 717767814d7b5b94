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

    const std::string Chosen = " home; cue whoosh1; focus FormMain", Refused = " shown; focus FormMain";
};

TEST_F(PanelTest, NavigationMovesAndResetsAndRefusesAtTheEndsInSilence) {
    Button("Copy").ToolTipText = "first"; // the text alone tells what a button does
    const std::tuple<const char*, int, std::string> moves[] = {
        {"First", 3, "1" + Chosen},  {"Last", 2, "5" + Chosen},
        {"Left", 3, "2" + Chosen},   {"Left", 1, "1" + Refused},
        {"Right", 4, "5" + Chosen},  {"Right", 5, "5" + Refused},
        {"first", 3, "3" + Refused}, {"Reset", 2, "2 home shown; cue whoosh1; focus FormMain"}};
    for (const auto& [command, from, after] : moves) EXPECT_EQ(After(command, from), after);
    PressButton(Button("Sound"));
    EXPECT_EQ(After("Reset", 1), "1 home shown; focus FormMain") << "without sound";
}

TEST_F(PanelTest, RandomTakesAnyQuilletByTheClockAlone) {
    std::set<std::string> seen;
    for (Desktop.Clock = 0; Desktop.Clock < 40; ++Desktop.Clock) seen.insert(After("Random", 1));
    EXPECT_EQ(seen, (std::set{"1" + Chosen, "2" + Chosen, "3" + Chosen, "4" + Chosen, "5" + Chosen}));
    EXPECT_EQ(After("Random", 1), After("Random", 2));
}

TEST_F(PanelTest, NavigationInAnEmptyCollectionIsHarmless) {
    StartWith("");
    const std::pair<const char*, std::string> moves[] = {
        {"First", "1" + Chosen}, {"Last", "0" + Chosen}, {"Random", "0" + Chosen}, {"Right", "1" + Refused}};
    for (const auto& [command, after] : moves) EXPECT_EQ(After(command, 1), after);
}

TEST_F(PanelTest, EveryChangeOfLevelShowsWhatTheLevelGivesAwayAndMovesNothing) {
    Places places = HomePlaces();
    places[5][2] = Game.SolTurn[5][1]; // the level Easy shows it by its colour
    Lay(places);
    EXPECT_EQ(CallsOfButton("Normal"), "focus FormMain") << "set already: only the latch changes";
    for (const char* level : {"Easy", "Very easy", "Easy", "Normal", "Very easy", "Normal"}) {
        Board.Enabled = false;
        const bool veryEasy = level == std::string("Very easy");
        EXPECT_EQ(CallsOfButton(level),
                  veryEasy ? "cue GiveUp; focus FormMain" : "cue click2; focus FormMain");
        EXPECT_TRUE(Board.Enabled);
        EXPECT_EQ(PlacesNow(), places);
        for (const char* other : {"Normal", "Easy", "Very easy"})
            EXPECT_EQ(Button(other).Latched, other == std::string(level)) << other << " at " << level;
        const std::string scene = Scene();
        EXPECT_EQ(CallsOfButton(level), "focus FormMain") << "pressed again";
        EXPECT_EQ(Scene(), scene);
        ExpectCleanPicture();
    }
}

TEST_F(PanelTest, TheBoardIsToldInWords) {
    std::string words = "Quillet (1 of 5), Play difficulty: NORMAL, piece last handled: ";
    EXPECT_EQ(Board.InWords(), words + "first large triangle");
    LaySolution(30, 30);
    TurnByMouse(6);
    PressButton(Button("Easy"));
    words = Replaced(words, "NORMAL", "EASY");
    for (const char* name : {"first large triangle", "second large triangle", "first small triangle",
                             "square", "second small triangle", "middle triangle", "parallelogram"}) {
        EXPECT_EQ(Board.InWords(), words + name + ", pieces with their final turn: 6 of 7");
        ++Game.LastPiece;
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
