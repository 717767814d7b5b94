// The panel's buttons and menu: navigation, levels, sound, settings and the way out.
#include "core/board_rendering.h"
#include "game_on_script.h"
#include "shell/control_panel.h"

#include <set>

namespace {

class PanelTest : public GameTest {
  protected:
    PanelTest() {
        PutFiveFigures();
        EXPECT_TRUE(Start());
        SwitchSoundOn();
    }

    static TileButton& Button(const std::string& toolTip) {
        for (TileButton& button : Form1.MenuButx)
            if (button.ToolTipText == toolTip) return button;
        throw std::out_of_range(toolTip);
    }

    /// Presses the button; the focus has to be on the board afterwards.
    static void Press(const std::string& toolTip) {
        Desktop.Focused = nullptr;
        PressButton(Button(toolTip));
        EXPECT_EQ(Desktop.Focused, &FormMain) << toolTip;
    }

    static void MoveAPiece() {
        Game.PieceX[3] += 7;
        FormMain.Image.Cls();
        DrawAllPieces();
    }

    /// What a press does to quillet, pieces and cues, after one piece was moved.
    struct Effect {
        Number Quillet;
        bool PiecesHome;
        std::vector<std::string> Cues;
        bool operator==(const Effect&) const = default;
    };

    static Effect EffectOf(const std::string& toolTip, Number from) {
        Game.CurrentQuillet = from;
        MoveAPiece();
        TakeCues();
        Press(toolTip);
        const bool home = Game.PieceX == Game.HomeX;
        Game.PieceX = Game.HomeX;
        return {Game.CurrentQuillet, home, TakeCues()};
    }
};

const std::vector<std::string> Whoosh = {"whoosh1"};

TEST_F(PanelTest, NavigationMovesAndResetsAndRefusesAtTheEndsInSilence) {
    const Number last = Game.QuilletCount;
    ASSERT_GE(last, 4);
    const Effect refused1{1, false, {}}, refusedLast{last, false, {}};
    EXPECT_EQ(EffectOf("First", 3), (Effect{1, true, Whoosh}));
    EXPECT_EQ(EffectOf("First", 1), (Effect{1, true, Whoosh}));
    EXPECT_EQ(EffectOf("Last", 2), (Effect{last, true, Whoosh}));
    EXPECT_EQ(EffectOf("Last", last), (Effect{last, true, Whoosh}));
    EXPECT_EQ(EffectOf("Left", 3), (Effect{2, true, Whoosh}));
    EXPECT_EQ(EffectOf("Left", 1), refused1);
    EXPECT_EQ(EffectOf("Right", 2), (Effect{3, true, Whoosh}));
    EXPECT_EQ(EffectOf("Right", last), refusedLast);
    EXPECT_EQ(EffectOf("Reset", 2), (Effect{2, true, Whoosh}));
    Press("Last");
    EXPECT_EQ(Form1.TarQui.Caption, "Quillet (" + std::to_string(NearestInt32(last)) + " of "
                                        + std::to_string(NearestInt32(last)) + ")");
}

TEST_F(PanelTest, RandomReachesEveryQuilletAndSeedsAnewAtEachPress) {
    std::set<Number> seen;
    for (int second = 0; second < 200; ++second) {
        Desktop.Clock = static_cast<float>(second);
        Press("Random");
        seen.insert(Game.CurrentQuillet);
    }
    EXPECT_EQ(seen.size(), static_cast<std::size_t>(Game.QuilletCount));
    EXPECT_EQ(*seen.begin(), 1);
    const Number shown = Game.CurrentQuillet;
    MoveAPiece();
    Press("Random"); // the same second, the same number: the pieces go home all the same
    EXPECT_EQ(Game.CurrentQuillet, shown);
    EXPECT_EQ(Game.PieceX, Game.HomeX);
}

TEST_F(PanelTest, AnEmptyCollectionCanBeWalkedThrough) {
    PutCollection({});
    ASSERT_TRUE(Start());
    EXPECT_EQ(EffectOf("First", 1).Quillet, 1);
    EXPECT_EQ(EffectOf("Left", 1).Quillet, 1);
    EXPECT_EQ(EffectOf("Right", 1).Quillet, 1);
    EXPECT_EQ(EffectOf("Last", 1).Quillet, 0);
    EXPECT_EQ(EffectOf("Random", 1).Quillet, 0);
}

TEST_F(PanelTest, OnlyTheChoiceOfAQuilletTakesTheShownSolutionBack) {
    Game.SolutionShown = Game.FlagOn;
    Press("Reset");
    EXPECT_EQ(Game.SolutionShown, Game.FlagOn);
    Press("First");
    EXPECT_EQ(Game.SolutionShown, Game.FlagOff);
}

TEST_F(PanelTest, ATextThatNobodyKnowsDoesNothingButReturnTheFocus) {
    TileButton& button = Button("First");
    button.ToolTipText = "first";
    EXPECT_EQ(EffectOf("first", 3), (Effect{3, false, {}}));
    button.ToolTipText = "Last"; // and the text alone tells what a button does
    EXPECT_EQ(EffectOf("Last", 3).Quillet, Game.QuilletCount);
}

TEST_F(PanelTest, LevelsLatchSoundTheirCueOnceAndShowWhatTheyGiveAway) {
    struct Case {
        const char* Text;
        std::int16_t Level;
        const char* Cue;
        const char* Status;
    };
    const Case cases[] = {{"Easy", 2, "click2", "Play difficulty: EASY"},
                          {"Very easy", 1, "GiveUp", "Play difficulty: VERY EASY"},
                          {"Easy", 2, "click2", "Play difficulty: EASY"},
                          {"Normal", 3, "click2", "Play difficulty: NORMAL"},
                          {"Very easy", 1, "GiveUp", "Play difficulty: VERY EASY"},
                          {"Normal", 3, "click2", "Play difficulty: NORMAL"}};
    for (const int index : {14, 15, 16})
        EXPECT_FALSE(Form1.MenuButx[static_cast<std::size_t>(index)].Latched);
    MoveAPiece();
    const auto places = Game.PieceX;
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Text);
        Press(c.Text);
        EXPECT_EQ(TakeCues(), std::vector<std::string>{c.Cue});
        Press(c.Text);
        EXPECT_TRUE(TakeCues().empty());
        EXPECT_EQ(Game.PlayLevel, c.Level);
        EXPECT_EQ(FormMain.PStandard.Caption, c.Status);
        for (const char* text : {"Normal", "Easy", "Very easy"})
            EXPECT_EQ(Button(text).Latched, std::string(text) == c.Text);
        EXPECT_EQ(Game.PieceX, places);
        EXPECT_TRUE(FormMain.Picture1.Enabled);
        const auto quillet = static_cast<std::size_t>(Game.CurrentQuillet);
        for (int p = 0; p < PieceCount; ++p) {
            const bool matched = Game.TurnMatched[p] == Game.FlagOn;
            const Colour own = Game.PieceRGB[p];
            const Colour expected = c.Level == 1              ? own
                                    : c.Level == 2 && matched ? QBColor(3)
                                                              : Game.BlackColor;
            EXPECT_EQ(FormMain.Picture1.Image.Point(InsideOf(p).X, InsideOf(p).Y), expected);
            if (p == 3) { // the square's middle shows in the target whatever lies around it
                const double half =
                    Game.PieceWidth[3][static_cast<std::size_t>(Game.SolTurn[3][quillet])] / 2;
                EXPECT_EQ(Form1.TargetQui[0].Image.Point(5 + Game.SolX[3][quillet] + half,
                                                         14 + Game.SolY[3][quillet] + half),
                          c.Level == 1 ? own : Game.BlackColor);
            }
        }
    }
}

TEST_F(PanelTest, AChangeOfLevelRevivesABoardAndTheSetLevelDoesNot) {
    FormMain.Picture1.Enabled = false;
    Press("Normal");
    EXPECT_FALSE(FormMain.Picture1.Enabled);
    Press("Very easy");
    EXPECT_TRUE(FormMain.Picture1.Enabled);
}

TEST_F(PanelTest, EnteringEasyPlayOverASolvedArrangementIsNotAnnounced) {
    LaySolution(60, 60);
    Press("Easy");
    EXPECT_TRUE(Desktop.Boxes.empty());
    EXPECT_TRUE(FormMain.Picture1.Enabled);
    for (int p = 0; p < PieceCount; ++p)
        EXPECT_EQ(FormMain.Picture1.Image.Point(InsideOf(p).X, InsideOf(p).Y), QBColor(3));
}

TEST_F(PanelTest, SoundTogglesWithItsLatchAndInSilence) {
    Game.SoundOn = Game.FlagOff;
    Press("Reset");
    EXPECT_TRUE(Desktop.MediaCommands.empty());
    Press("Sound");
    EXPECT_EQ(Game.SoundOn, 1);
    EXPECT_TRUE(Button("Sound").Latched);
    Press("Sound");
    EXPECT_EQ(Game.SoundOn, 0);
    EXPECT_FALSE(Button("Sound").Latched);
    EXPECT_TRUE(Desktop.MediaCommands.empty());
}

TEST_F(PanelTest, ExitSavesTheSettingsClosesTheSoundAndEndsInOrder) {
    Form1.Left = 300.5F, Form1.Top = -15, FormMain.Left = 4500, FormMain.Top = 1;
    Desktop.Calls.clear();
    ChooseMenuItem(Form1, "Exit");
    EXPECT_TRUE(Desktop.Ended);
    EXPECT_EQ(ReadText(Folder / "Quillets.cfg"), "QUILLET.qui\r\n 300.5  -15  4500  1 \r\n");
    EXPECT_EQ(TakeCues(),
              (std::vector<std::string>{"stop mp3", "close all", "stop mp3", "close all", "thank"}));
    ASSERT_GE(Desktop.Calls.size(), 3u);
    EXPECT_EQ(Desktop.Calls[2], "unload FormMain");
    EXPECT_EQ(Desktop.Calls.back(), "end");
    ASSERT_TRUE(Start()); // and the next start finds the windows there
    EXPECT_EQ((std::array{Form1.Left, Form1.Top, FormMain.Left, FormMain.Top}),
              (std::array{300.5F, -15.F, 4500.F, 1.F}));
}

TEST_F(PanelTest, AnyNameOfACollectionComesBackFromTheSettings) {
    for (const char* name :
         {"a, b.qui", "plain.qui", " blank .qui", "with \"quotes\".qui", "\"a\",b.qui", "\ttab.qui"}) {
        WriteText(Folder / name, ShippedHead());
        Game.QuilletFile = "/some/other/folder/" + std::string(name);
        ChooseMenuItem(Form1, "Exit");
        ASSERT_TRUE(Start()) << name;
        EXPECT_EQ(Game.QuilletFile, (Folder / name).string());
    }
}

TEST_F(PanelTest, SettingsThatCannotBeWrittenAreToldAndTheOldOnesStay) {
    // A folder in the place of the file: it can't be written, whoever runs the test.
    std::filesystem::remove(Folder / "Quillets.cfg");
    std::filesystem::create_directories(Folder / "Quillets.cfg" / "full");
    ChooseMenuItem(Form1, "Exit");
    ASSERT_EQ(Desktop.Boxes.size(), 1u);
    EXPECT_EQ(Desktop.Boxes[0].Text, "The settings could not be saved:\n\r"
                                         + (Folder / "Quillets.cfg").string() + "\n\rIs a directory.");
    EXPECT_TRUE(Desktop.Ended);
    EXPECT_FALSE(std::filesystem::exists(Folder / "Quillets.cfg.new1"));
}

} // namespace
