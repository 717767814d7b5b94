// What the panel opens: file dialogs, View All and help; and what it tells those who do not see it.
#include "core/panel_window.h"
#include "platform_qt/qt_desktop.h"
#include "shell/all_shapes.h"
#include "windows/stage.h"

#include <QAccessible>
#include <QApplication>
#include <QLineEdit>
#include <QTextBrowser>
#include <X11/keysym.h>
#include <fstream>
#include <gtest/gtest.h>

TEST(Panel, ACollectionIsSavedUnderAnotherNameAndOpened) {
    StartGame();
    const std::string shipped = Content(SHIPPED "/QUILLET.qui"), own = Folder() / "QUILLET.qui";
    const std::string copy = Folder() / R"(a "copy".qui)",
                      question = copy + "\n file already exists, overwrite?";
    std::ofstream(copy) << "precious";
    for (const char* item : {"Save as", "Open"}) {
        Choose("Form1", item);
        TypeName("*.qui"); // as it stands there already: no choice
    }
    for (const unsigned long modifier : {0, XK_Alt_L}) {
        EXPECT_EQ(Content(copy), "precious");
        Choose("Form1", "Save as");
        Await("the pattern", [] { return NameBox() && NameBox()->text() == "*.qui"; });
        EXPECT_EQ(Ask([] { return NameBox()->window()->parentWidget(); }), Part("FormMain"));
        TypeName(R"(a "copy")");
        Answer(question, modifier ? XK_y : XK_Return, modifier);
    }
    Answer(own + "\ncopied as:\n" + copy, XK_Return);
    EXPECT_EQ(Content(copy), shipped);
    EXPECT_EQ(Content(own), shipped);
    Choose("Form1", "Open");
    TypeName(R"(a "copy".qui)");
    Await("its title", [&] { return Part("FormMain")->windowTitle().toStdString() == "File: " + copy; });
    AwaitBoardOnScreen();
}

namespace {

void ExpectBeforeTheBoard(QWidget* window) {
    const auto corner = [] { return CornerOf(Part("FormMain")->winId()); };
    const QPoint before = Ask(corner);
    const QPoint place = Ask([&] { return window->geometry().bottomLeft(); }) - QPoint(280, 80);
    OnGameThread([&] { Part("FormMain")->move(place); });
    // A window manager works in order: what it was asked for before the move is done after it.
    Await("the board beneath", [&] { return corner() != before; });
    EXPECT_EQ(Ask([&] { return QApplication::topLevelAt(place + QPoint(300, 60)); }), window);
}

} // namespace

TEST(Panel, ViewAllOpensBesideTheGameByItsButtonAndAloneByTheTarget) {
    constexpr QPoint Eleventh(2 * 48 + 20, 48 + 20);
    const auto open = [] { return Part("AllShapes") && Part("AllShapes")->isVisible(); };
    StartGame();
    Click(Part("Form1", "MenuButx_0"));
    Await("View All", open);
    ExpectBeforeTheBoard(Part("AllShapes"));
    EXPECT_TRUE(Ask([] { return Part("FormMain")->isActiveWindow(); })) << "it opens quietly";
    const auto corner = [] { return CornerOf(Part("AllShapes")->winId()); };
    const QPoint centred = Ask(corner);
    OnGameThread([] { Part("AllShapes")->move(900, 700); });
    Await("the move", [&] { return corner() != centred; });
    const QPoint left = Ask(corner);
    Drag(2, 60, 300); // the game goes on beside it
    QWidget* page = Ask([] { return ClientAreaOf(AllShapes); });
    Click(page, Eleventh);
    Await("the eleventh, with its pieces at home",
          [] { return Game.CurrentQuillet == 11 && Game.PieceX == Game.HomeX; });
    PressKey(XK_Escape);
    Await("the end of View All", [&] { return !open(); });
    for (int time = 0; time < 2; ++time) {
        Click(Part("Form1", "MenuButx_0"));
        Await("View All where it was left", [&] { return open() && corner() == left; });
        Click(page, Eleventh, MouseButton::Right);
        Await("the end of View All", [&] { return !open(); });
    }
    Click(Part("Form1", "TargetQui"), {120, 60}, MouseButton::Right);
    Await("View All alone", [] { return QApplication::activeModalWidget() == Part("AllShapes"); });
    Click(page, Eleventh, MouseButton::Right);
    Await("the end of View All", [&] { return !open(); });
}

TEST(Panel, HelpStaysInTheProgramsFolder) {
    std::ofstream(Folder() / "../outside.htm") << "outside";
    const char* links[] = {"missing.htm", "../outside.htm", "http://127.0.0.1/", "#here"};
    std::ofstream page(Folder() / "quillets.htm");
    for (const char* link : links) page << "<p><a href='" << link << "'>a link</a></p>" << std::flush;
    StartGame();
    Choose("Form1", "Help");
    Await("help", [] { return Part("HelpForm") && Part("HelpForm")->isActiveWindow(); });
    auto* view = dynamic_cast<QTextBrowser*>(Part("HelpForm", "WebBrowser1"));
    const auto shown = [&] { return view->source().fileName() + view->toPlainText(); };
    const QString first = Ask(shown);
    for (const QString link : links) {
        int y = 0;
        while (Ask([&] { return view->anchorAt({14, y}); }) != link) ++y;
        Click(view->viewport(), {14, y});
        EXPECT_EQ(Ask(shown), first) << link.toStdString();
    }
    Await("the only jump", [&] { return view->source().fragment() == "here"; });
}

TEST(Panel, ScreenReadersHearWhatTheButtonsAreAndWhatTheBoardShows) {
    StartGame();
    Click(Part("FormMain", "Picture1"), InsideOf(3));
    Click(Part("Form1", "MenuButx_6"));
    Click(Part("Form1", "MenuButx_15"));
    Await("the level", [] { return Game.PlayLevel == EasyLevel; });
    OnGameThread([] {
        for (const int index : {0, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 14, 15, 16}) {
            QWidget* button = Part("Form1", ("MenuButx_" + std::to_string(index)).c_str());
            QAccessibleInterface* told = QAccessible::queryAccessibleInterface(button);
            EXPECT_FALSE(button->toolTip().isEmpty());
            EXPECT_EQ(told->text(QAccessible::Name), button->toolTip());
            EXPECT_NE(told->text(QAccessible::Description), button->toolTip());
            EXPECT_EQ(told->role(), index >= 14   ? QAccessible::RadioButton
                                    : index == 11 ? QAccessible::CheckBox
                                                  : QAccessible::Button)
                << index;
            EXPECT_EQ(told->state().checkable, index == 11 || index >= 14) << index;
            EXPECT_EQ(told->state().checked, index == 15) << index;
        }
        auto* board = QAccessible::queryAccessibleInterface(Part("FormMain", "Picture1"));
        EXPECT_EQ(std::pair(board->role(), board->text(QAccessible::Name)),
                  std::pair(QAccessible::Graphic, QString("Board")));
        EXPECT_EQ(board->text(QAccessible::Description).toStdString(),
                  Form1.TarQui.Caption
                      + ", Play difficulty: EASY, piece last handled: square, "
                        "pieces with their final turn: 1 of 7");
        EXPECT_EQ(QAccessible::queryAccessibleInterface(Part("Form1"))->role(), QAccessible::Window);
    });
}
