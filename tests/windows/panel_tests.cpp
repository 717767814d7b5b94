// The control panel by the mouse: its buttons, the keyboard that they leave to the board, and the ways out.
#include "core/board_window.h"
#include "tests/windows/stage.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QGuiApplication>
#include <QLabel>
#include <QRegularExpression>
#include <QScreen>
#include <QToolTip>
#include <X11/keysym.h>
#include <algorithm>
#include <csignal>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <sstream>
#include <unistd.h>

namespace {

enum ButtonIndex { Reset = 4, First = 6, Left, Right, Last, Random, Sound, Normal = 14, Easy, VeryEasy };

QAbstractButton* Button(int index) {
    return Ask(
        [&] { return WindowNamed("Form1")->findChild<QAbstractButton*>(QString("MenuButx_%1").arg(index)); });
}

bool IsLatched(int index) {
    return Ask([&] { return Button(index)->isChecked(); });
}

/// Ctrl nudges all pieces, any other modifier or none the last one alone.
void ExpectNudge(unsigned long key, unsigned long modifier, Number dx, Number dy) {
    const bool all = modifier == XK_Control_L;
    PerPiece<Number> x{}, y{};
    OnGameThread([&] {
        for (int p = 0; p < PieceCount; ++p) {
            const bool moves = all || p == Game.LastPiece;
            x[p] = Game.PieceX[p] + (moves ? dx : 0);
            y[p] = Game.PieceY[p] + (moves ? dy : 0);
        }
    });
    PressKey(key, modifier);
    Await("the nudge", [&] { return Game.PieceX == x && Game.PieceY == y; });
}

void ExpectTurn() {
    const Number before = Ask([] { return Game.PieceTurn[Game.LastPiece]; });
    PressKey(XK_Tab);
    Await("the turn", [&] { return Game.PieceTurn[Game.LastPiece] != before; });
}

/// The keyboard is the board's, and Tab and the arrows are its keys.
void ExpectKeysOnBoard() {
    Await("the keyboard on the board", [] { return WindowNamed("FormMain")->isActiveWindow(); });
    ExpectTurn();
    ExpectNudge(XK_Right, 0, 1, 0);
    ExpectNudge(XK_Up, XK_Shift_L, 0, -5);
    ExpectNudge(XK_Left, XK_Control_L, -1, 0);
}

void PressButton(int index) {
    QAbstractButton* button = Button(index);
    Click(button, Ask([&] { return button->rect().center(); }));
    ExpectKeysOnBoard();
}

void ExpectLevel(int pressed, const std::string& text) {
    PressButton(pressed);
    for (const int level : {Normal, Easy, VeryEasy}) EXPECT_EQ(IsLatched(level), level == pressed) << text;
    EXPECT_EQ(Ask([] { return WindowNamed("FormMain")->findChild<QLabel*>()->text().toStdString(); }),
              "Play difficulty: " + text);
    AwaitBoardOnScreen();
}

int BrightnessOnScreen(const QWidget* widget) {
    return Ask([&] {
        const QPoint place = widget->mapTo(widget->window(), QPoint(3, 3));
        QScreen* screen = QGuiApplication::primaryScreen();
        const QPixmap shot = screen->grabWindow(widget->window()->winId(), place.x(), place.y(), 1, 1);
        return qGray(shot.toImage().pixel(0, 0));
    });
}

std::string TextOf(const char* name) {
    std::ifstream file(Folder() / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

WindowId IdOf(const char* name) {
    return Ask([&] { return static_cast<WindowId>(WindowNamed(name)->winId()); });
}

/// What the game is to leave behind when the windows stand where they are.
std::string SettingsOfNow() {
    const auto twips = [](int pixels) { return ' ' + std::to_string(15 * pixels) + ' '; };
    return Ask([&] {
        const QPoint panel = WindowNamed("Form1")->pos(), board = WindowNamed("FormMain")->pos();
        return "QUILLET.qui\r\n" + twips(panel.x()) + twips(panel.y()) + twips(board.x()) + twips(board.y())
               + "\r\n";
    });
}

void StartBesideThePanel() {
    StartGame();
    MoveWindow("Form1", {702, 132});
}

/// Where both windows really are.
std::string CornersText() {
    const QPoint panel = CornerOnScreen(IdOf("Form1")), board = CornerOnScreen(IdOf("FormMain"));
    std::ostringstream text;
    text << panel.x() << ' ' << panel.y() << ' ' << board.x() << ' ' << board.y();
    return text.str();
}

/// Plays one run in the folder of this case, the first with a move of both windows, and leaves by the menu.
void StartAndExit() {
    const bool first = !std::filesystem::exists(Folder() / "Quillets.cfg");
    StartGame();
    if (first) MoveWindow("Form1", {702, 132});
    if (first) MoveWindow("FormMain", {96, 210});
    std::ofstream(Folder() / "corners") << CornersText();
    ExpectEnd([] { ChooseFromMenu("Form1", "Exit"); },
              [] { return TextOf("Quillets.cfg") == SettingsOfNow(); });
}

/// Each run of the game as a process of its own, all in one folder.
void PlayRunsInThisFolder() {
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    setenv("PROGRAM_FOLDER", Folder().c_str(), 1);
}

} // namespace

TEST(Panel, NavigationLeavesTheKeyboardToTheBoard) {
    StartBesideThePanel();
    ExpectKeysOnBoard();
    const Number count = Ask([] { return Game.QuilletCount; });
    const struct {
        int Button;
        Number Shown;
    } steps[] = {{Last, count}, {Right, count}, {Left, count - 1}, {First, 1},
                 {Left, 1},     {Right, 2},     {Reset, 2}};
    for (const auto& step : steps) {
        PressButton(step.Button);
        EXPECT_EQ(Ask([] { return Game.CurrentQuillet; }), step.Shown) << "button " << step.Button;
    }
    PressButton(Random);
    EXPECT_LE(Ask([] { return Game.CurrentQuillet; }), count);
    ExpectTurn();
    Click(Button(Reset), {5, 5});
    Await("the pieces at home", [] { return Game.PieceX == Game.HomeX && Game.PieceY == Game.HomeY; });
    EXPECT_TRUE(Ask([] { return std::ranges::equal(Game.PieceTurn, Game.HomeTurn); }));
}

TEST(Panel, LevelsLatchAloneAndSoundByItself) {
    StartBesideThePanel();
    for (int round = 0; round < 2; ++round) {
        ExpectLevel(Easy, "EASY");
        ExpectLevel(VeryEasy, "VERY EASY");
        ExpectLevel(VeryEasy, "VERY EASY");
        ExpectLevel(Normal, "NORMAL");
        PressButton(Sound);
        EXPECT_EQ(IsLatched(Sound), round == 0);
        EXPECT_EQ(Ask([] { return Game.SoundOn; }), round == 0);
    }
}

TEST(Panel, TheKeypadNudgesWithNumLockOnAndOff) {
    StartBesideThePanel();
    for (int round = 0; round < 2; ++round) {
        ExpectNudge(XK_KP_Left, 0, -1, 0);
        ExpectNudge(XK_KP_Up, 0, 0, -1);
        ExpectNudge(XK_KP_Right, 0, 1, 0);
        ExpectNudge(XK_KP_Down, 0, 0, 1);
        PressKey(XK_Num_Lock);
    }
}

TEST(Panel, AButtonIsLighterUnderThePointer) {
    StartBesideThePanel();
    for (const int index : {Reset, First, Sound}) {
        QAbstractButton* button = Button(index);
        const int plain = BrightnessOnScreen(button);
        PointAt(button, {9, 9});
        Await("a lighter button", [&] { return BrightnessOnScreen(button) > plain; });
    }
}

TEST(Panel, AButtonTellsItsCommandWhileTheBoardHasTheKeyboard) {
    StartBesideThePanel();
    QAbstractButton* button = Button(First);
    PointAt(Button(Last), {5, 5});
    PointAt(button, {9, 9});
    PointAt(button, {10, 10});
    Await("the tool tip",
          [&] { return QToolTip::isVisible() && QToolTip::text() == button->accessibleName(); });
}

TEST(Panel, ButtonsTellWhatTheyAre) {
    StartBesideThePanel();
    PressButton(Easy);
    OnGameThread([] {
        const auto buttons =
            WindowNamed("Form1")->findChildren<QAbstractButton*>(QRegularExpression("^MenuButx_"));
        EXPECT_EQ(buttons.size(), 14);
        for (QAbstractButton* button : buttons) {
            const int index = button->objectName().section('_', 1).toInt();
            const bool latches = index == Sound || (index >= Normal && index <= VeryEasy);
            QAccessibleInterface* told = QAccessible::queryAccessibleInterface(button);
            ASSERT_TRUE(told);
            EXPECT_FALSE(button->toolTip().isEmpty());
            EXPECT_EQ(told->text(QAccessible::Name), button->toolTip());
            EXPECT_EQ(told->role(), latches ? QAccessible::CheckBox : QAccessible::PushButton) << index;
            EXPECT_EQ(told->state().checkable, latches) << index;
            EXPECT_EQ(told->state().checked, index == Easy) << index;
        }
    });
}

TEST(Panel, TenExitsLeaveBothWindowsWhereTheyWere) {
    PlayRunsInThisFolder();
    std::string settings, corners;
    for (int run = 0; run < 10; ++run) {
        EXPECT_EXIT(StartAndExit(), testing::ExitedWithCode(EXIT_SUCCESS), "");
        if (run == 0) settings = TextOf("Quillets.cfg");
        if (run == 0) corners = TextOf("corners");
        EXPECT_EQ(TextOf("Quillets.cfg"), settings) << "run " << run;
        EXPECT_EQ(TextOf("corners"), corners) << "run " << run;
    }
}

TEST(Panel, ItsCloseRequestIsTheExit) {
    StartBesideThePanel();
    ExpectEnd([] { RequestClose(IdOf("Form1")); }, [] { return TextOf("Quillets.cfg") == SettingsOfNow(); });
}

TEST(Panel, OtherEndsLeaveTheSettingsAlone) {
    PlayRunsInThisFolder();
    const auto end = [](auto act) {
        StartBesideThePanel();
        ExpectEnd(act, [] { return true; });
    };
    const std::string defaults = "QUILLET.qui\r\n-1,-1,-1,-1\r\n";
    EXPECT_EXIT(end([] { RequestClose(IdOf("FormMain")); }), testing::ExitedWithCode(EXIT_SUCCESS), "");
    EXPECT_EQ(TextOf("Quillets.cfg"), defaults);
    EXPECT_EXIT(end([] { kill(getpid(), SIGTERM); }), testing::KilledBySignal(SIGTERM), "");
    EXPECT_EQ(TextOf("Quillets.cfg"), defaults);
}
