// What the panel opens: file dialogs, View All and help; and what it tells those who do not see it.
#include "platform_qt/qt_desktop.h"
#include "shell/all_shapes.h"
#include "tests/windows/stage.h"

#include <QAccessible>
#include <QApplication>
#include <QLabel>
#include <QTextBrowser>
#include <X11/keysym.h>
#include <fstream>
#include <gtest/gtest.h>

TEST(Panel, ACollectionIsSavedUnderAnotherNameAndOpened) {
    StartGame();
    const std::string shipped = Content(SHIPPED "/QUILLET.qui"), own = Folder() / "QUILLET.qui";
    const std::string copy = Folder() / "copy.qui", question = copy + "\n file already exists, overwrite?";
    const auto saveAs = [&](const char* typed) {
        Choose("Form1", "Save as");
        TypeName(typed);
    };
    std::ofstream(copy) << "precious";
    saveAs("copy");
    Answer(question, XK_Return);
    EXPECT_EQ(Content(copy), "precious");
    saveAs("copy");
    Answer(question, XK_y, XK_Alt_L);
    Answer(own + "\ncopied as:\n" + copy, XK_Return);
    EXPECT_EQ(Content(copy), shipped);
    EXPECT_EQ(Content(own), shipped);
    Choose("Form1", "Open");
    TypeName("copy.qui");
    Await("its title", [&] { return Part("FormMain")->windowTitle().toStdString() == "File: " + copy; });
    AwaitBoardOnScreen();
}

TEST(Panel, ViewAllOpensBesideTheGameByItsButtonAndAloneByTheTarget) {
    constexpr QPoint ThirdInSecondRow(2 * 48 + 20, 48 + 20);
    const auto open = [] { return Part("AllShapes") && Part("AllShapes")->isVisible(); };
    StartGame();
    Click(Part("Form1", "MenuButx_0"));
    Await("View All", open);
    Drag(2, 60, 300);
    EXPECT_EQ(Ask([] { return Game.PieceY[2]; }), 300);
    QWidget* page = Ask([] { return ClientAreaOf(AllShapes); });
    PointAt(page, ThirdInSecondRow);
    Await("its number",
          [] { return dynamic_cast<QLabel*>(Part("AllShapes", "Label1"))->text().toInt() == 11; });
    Click(page, ThirdInSecondRow);
    Await("the chosen quillet", [] { return Game.CurrentQuillet == 11 && Game.PieceX == Game.HomeX; });
    QWidget* bar = Part("AllShapes", "VScroll1");
    Click(bar, {bar->width() / 2, bar->height() - 5});
    Await("the next row", [] { return ViewTop == 8; });
    PressKey(XK_Escape);
    Await("the end of View All", [&] { return !open(); });
    Click(Part("Form1", "TargetQui"), {120, 60}, MouseButton::Right);
    Await("View All alone", [] { return QApplication::activeModalWidget() == Part("AllShapes"); });
    Click(page, ThirdInSecondRow, MouseButton::Right);
    Await("the end of View All", [&] { return !open(); });
}

TEST(Panel, HelpStaysInTheProgramsFolder) {
    std::ofstream(Folder().parent_path() / "outside.htm") << "outside";
    std::ofstream(Folder() / "quillets.htm")
        << "<p><a href='missing.htm'>a link</a></p><p><a href='../outside.htm'>a link</a>"
           "</p><p><a href='http://127.0.0.1/'>a link</a></p><p><a href='#far'>a link</a></p>"
        << std::string(4000, '\n') << "<p><a name='far'>far</a></p>";
    StartGame();
    Choose("Form1", "Help");
    Await("help", [] { return Part("HelpForm") && Part("HelpForm")->isActiveWindow(); });
    auto* view = dynamic_cast<QTextBrowser*>(Part("HelpForm", "WebBrowser1"));
    const auto shown = [&] { return Ask([&] { return view->source().fileName() + view->toPlainText(); }); };
    const QString first = shown();
    QString followed;
    for (int y = 0; y < 150; y += 3)
        if (const QString link = Ask([&] {
                return view->anchorAt({14, y});
            });
            !link.isEmpty() && !followed.endsWith(link)) {
            followed += link;
            Click(view->viewport(), {14, y});
            EXPECT_EQ(shown(), first) << link.toStdString();
        }
    EXPECT_EQ(followed, "missing.htm../outside.htmhttp://127.0.0.1/#far");
    Await("the jump", [&] { return view->source().fragment() == "far"; });
    Click(Part("HelpForm", "Command1"));
    Await("the way back", [&] { return view->source().fragment().isEmpty(); });
}

TEST(Panel, ItsButtonsTellWhatTheyAre) {
    StartGame();
    Click(Part("Form1", "MenuButx_15"));
    Await("the level", [] { return Game.PlayLevel == EasyLevel; });
    OnGameThread([] {
        for (const int index : {0, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 14, 15, 16}) {
            QWidget* button = Part("Form1", ("MenuButx_" + std::to_string(index)).c_str());
            QAccessibleInterface* told = QAccessible::queryAccessibleInterface(button);
            EXPECT_FALSE(button->toolTip().isEmpty());
            EXPECT_EQ(told->text(QAccessible::Name), button->toolTip());
            EXPECT_EQ(told->state().checkable, index == 11 || index >= 14) << index;
            EXPECT_EQ(told->state().checked, index == 15) << index;
        }
    });
}
