// The windows beside the game: View All, help and the about box.
#include "core/board_window.h"
#include "platform_qt/qt_desktop.h"
#include "shell/about_form.h"
#include "shell/all_shapes.h"
#include "shell/help_form.h"
#include "shell/page_drawing.h"
#include "tests/windows/stage.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QScrollBar>
#include <QTextBrowser>
#include <X11/keysym.h>
#include <arpa/inet.h>
#include <fstream>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/socket.h>

namespace {

/// A widget of a window by name; an empty one is the client area.
QWidget* Part(Form& form, const char* name) {
    return Ask([&] {
        return *name ? WindowNamed(form.Name.c_str())->findChild<QWidget*>(name) : ClientAreaOf(form);
    });
}

void ClickPart(Form& form, const char* name) {
    Click(Part(form, name), {9, 9});
}

void AwaitOpen(const Form& form) {
    Await("the open " + form.Name, [&] {
        const QWidget* window = WindowNamed(form.Name.c_str());
        return window && QApplication::activeWindow() == window;
    });
}

void AwaitClosed(const Form& form) {
    Await("the end of " + form.Name, [&] { return !WindowNamed(form.Name.c_str())->isVisible(); });
}

bool IsModal(const Form& form) {
    return Ask([&] { return QApplication::activeModalWidget() == WindowNamed(form.Name.c_str()); });
}

/// To a place in the game's own pixels.
void Place(const char* name, QPoint place) {
    MoveWindow(name, place * Ask([] { return qApp->devicePixelRatio(); }));
}

/// The board on the left, the panel so low that View All leaves its figure free.
void StartForViewAll() {
    StartGame();
    Place("FormMain", {2, 30});
    Place("Form1", {460, 300});
}

void OpenByButton() {
    QWidget* button = Ask([] { return WindowNamed("Form1")->findChild<QWidget*>("MenuButx_0"); });
    Click(button, {9, 9});
    Await("View All", [] { return WindowNamed("AllShapes") && WindowNamed("AllShapes")->isVisible(); });
    EXPECT_FALSE(IsModal(AllShapes));
    Place("AllShapes", {400, 26});
}

void RightClickTarget() {
    QWidget* target = Ask([] {
        for (QWidget* picture : WindowNamed("Form1")->findChildren<QWidget*>("TargetQui"))
            if (picture->isVisible()) return picture;
        return static_cast<QWidget*>(nullptr);
    });
    Click(target, {120, 60}, MouseButton::Right);
}

constexpr QPoint ThirdInSecondRow(2 * 48 + 20, 48 + 20);
constexpr int ItsNumber = 11;

void ExpectNumberUnderPointer(int number) {
    QWidget* page = Part(AllShapes, "");
    auto* label = dynamic_cast<QLabel*>(Part(AllShapes, "Label1"));
    PointAt(page, {300, 300});
    PointAt(page, ThirdInSecondRow);
    Await("the number", [&] { return label->isVisible() && label->text().toInt() == number; });
    Await("the number under the pointer", [&] { return label->pos() == ThirdInSecondRow; });
}

/// A door of the machine's own, to see whether anybody knocks.
class Door {
  public:
    Door() : Socket(socket(AF_INET, SOCK_STREAM, 0)) {
        sockaddr_in address{AF_INET, 0, {htonl(INADDR_LOOPBACK)}, {}};
        socklen_t size = sizeof address;
        EXPECT_EQ(bind(Socket, reinterpret_cast<sockaddr*>(&address), size), 0);
        listen(Socket, 8);
        getsockname(Socket, reinterpret_cast<sockaddr*>(&address), &size);
        Port = ntohs(address.sin_port);
    }
    std::string Address() const { return "http://127.0.0.1:" + std::to_string(Port) + "/"; }
    bool HeardAKnock() const {
        pollfd wish{Socket, POLLIN, 0};
        return poll(&wish, 1, 200) > 0;
    }

  private:
    int Socket, Port;
};

QTextBrowser* HelpView() {
    return dynamic_cast<QTextBrowser*>(Part(HelpForm, "WebBrowser1"));
}

void ClickLink(const std::string& link) {
    QWidget* page = Ask([] { return WindowNamed("HelpForm")->findChild<QTextBrowser*>()->viewport(); });
    const auto* view = HelpView();
    const QPoint place = Ask([&] {
        for (int y = 0; y < page->height(); y += 3)
            if (view->anchorAt({14, y}).toStdString() == link) return QPoint(14, y);
        return QPoint(-1, -1);
    });
    ASSERT_NE(place, QPoint(-1, -1)) << link;
    Click(page, place);
}

} // namespace

TEST(Views, ViewAllStandsBesideTheGameAndIsChosenFrom) {
    StartForViewAll();
    OpenByButton();
    Drag(2, 60, 300);
    EXPECT_EQ(Ask([] { return Game.PieceY[2]; }), 300);
    ExpectNumberUnderPointer(ItsNumber);
    Click(Part(AllShapes, ""), ThirdInSecondRow);
    Await("the chosen quillet", [] { return Game.CurrentQuillet == ItsNumber; });
    EXPECT_EQ(Ask([] { return Game.PieceX; }), Ask([] { return Game.HomeX; }));
    EXPECT_TRUE(Ask([] { return WindowNamed("AllShapes")->isVisible(); }));
    QWidget* bar = Part(AllShapes, "VScroll1");
    Click(bar, Ask([&] { return QPoint(bar->width() / 2, bar->height() - 5); }));
    Await("the next row", [] { return ViewTop == 8; });
    ExpectNumberUnderPointer(ItsNumber + 8);
}

TEST(Views, ViewAllIsClosedInThreeWays) {
    StartForViewAll();
    const std::function<void()> ways[] = {
        [] {
            Click(Part(AllShapes, ""), ThirdInSecondRow);
            Await("the keyboard", [] { return QApplication::activeWindow() == WindowNamed("AllShapes"); });
            PressKey(XK_Escape);
        },
        [] { Click(Part(AllShapes, ""), ThirdInSecondRow, MouseButton::Right); },
        [] { RequestClose(Ask([] { return WindowNamed("AllShapes")->winId(); })); },
    };
    for (const auto& close : ways) {
        OpenByButton();
        close();
        AwaitClosed(AllShapes);
    }
}

TEST(Views, ARightClickOnTheTargetKeepsThePage) {
    StartForViewAll();
    OpenByButton();
    QWidget* bar = Part(AllShapes, "VScroll1");
    Click(bar, Ask([&] { return QPoint(bar->width() / 2, bar->height() - 5); }));
    Await("the next row", [] { return ViewTop == 8; });
    const auto picture = [] { return ClientAreaOf(AllShapes)->grab({0, 0, 380, 380}).toImage(); };
    const QImage page = Ask(picture);
    OnGameThread([] { Deliver([] { AllShapes.Image.Cls(); }); });
    ASSERT_NE(Ask(picture), page);
    RightClickTarget();
    Await("the page drawn anew", [&] { return picture() == page; });
    Await("the page in front", [] {
        QWidget* window = WindowNamed("AllShapes");
        return QApplication::topLevelAt(window->mapToGlobal(QPoint(200, 350))) == window;
    });
    EXPECT_FALSE(IsModal(AllShapes));
    Click(Part(AllShapes, ""), ThirdInSecondRow, MouseButton::Right);
    AwaitClosed(AllShapes);
    RightClickTarget();
    AwaitOpen(AllShapes);
    EXPECT_TRUE(IsModal(AllShapes));
    EXPECT_EQ(Ask([] { return ViewTop; }), 8);
    Click(Part(AllShapes, ""), ThirdInSecondRow, MouseButton::Right);
    AwaitClosed(AllShapes);
}

TEST(Views, HelpStaysInTheProgramsFolder) {
    const Door door;
    std::ofstream(Folder().parent_path() / "outside.htm") << "outside";
    std::ofstream page(Folder() / "quillets.htm");
    const std::string links[] = {"missing.htm", door.Address(), "../outside.htm"};
    for (const std::string& link : links) page << "<p><a href='" << link << "'>a link that is dead</a></p>";
    page << "<p><a href='#far'>a link that is not</a></p><p><img src='" << door.Address() << "'></p>";
    for (int line = 0; line < 80; ++line) page << "<p>a line</p>";
    page << "<p><a name='far'>far</a></p>";
    page.close();

    StartGame();
    MoveWindow("Form1", {702, 132});
    ChooseFromMenu("Form1", "Help");
    AwaitOpen(HelpForm);
    EXPECT_FALSE(IsModal(HelpForm));
    const QTextBrowser* view = HelpView();
    const auto shown = [&] { return std::pair(view->source(), view->toPlainText()); };
    Await("the page", [&] { return shown().second.contains("a link that is dead"); });
    const auto first = Ask(shown);
    for (const std::string& link : links) {
        ClickLink(link);
        EXPECT_EQ(Ask(shown), first) << link;
    }
    ClickLink("#far");
    Await("the jump",
          [&] { return view->source().fragment() == "far" && view->verticalScrollBar()->value() > 0; });
    ClickPart(HelpForm, "Command1");
    Await("the way back", [&] { return shown() == first && view->verticalScrollBar()->value() == 0; });
    EXPECT_FALSE(door.HeardAKnock());
    ClickPart(HelpForm, "Command3");
    AwaitClosed(HelpForm);
    AwaitBoardOnScreen();
}

TEST(Views, AboutClosesByItsButtonAndItsText) {
    StartGame();
    MoveWindow("Form1", {702, 132});
    for (const char* part : {"AboutOk", "AboutText"}) {
        ChooseFromMenu("Form1", "About");
        AwaitOpen(AboutForm);
        EXPECT_TRUE(IsModal(AboutForm));
        ClickPart(AboutForm, part);
        AwaitClosed(AboutForm);
    }
}
