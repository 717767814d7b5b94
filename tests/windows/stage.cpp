// Runs one case beside the game, with real events and a look at the real screen.
#include "windows/stage.h"

#include "core/board_window.h"
#include "platform_qt/qt_desktop.h"
#include "shell/design_windows.h"

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QMouseEvent>
#include <QScreen>
#include <QThread>
#include <atomic>
#include <cmath>
#include <fstream>
#include <future>
#include <gtest/gtest.h>
// clang-format off: the words that these define break every header after them
#define Font XFont
#include <X11/Xutil.h>
#include <X11/extensions/XTest.h>
#include <X11/keysym.h>
#undef Font
// clang-format on

namespace {

constexpr std::chrono::seconds Patience(10);

std::promise<void> Curtain;
std::atomic<bool> EndExpected = false;

/// What the game's windows have had of the mouse; the pointer in pixels of the display.
int ButtonEvents = 0;
QPoint Pointer;
class Watcher : public QObject {
    bool eventFilter(QObject* receiver, QEvent* event) override {
        const auto* mouse = receiver->isWindowType() ? dynamic_cast<QMouseEvent*>(event) : nullptr;
        if (mouse) ButtonEvents += mouse->type() != QEvent::MouseMove;
        if (mouse) Pointer = (mouse->globalPosition() * qApp->devicePixelRatio()).toPoint();
        return false;
    }
};
Watcher* TheWatcher = nullptr;

void Fail(const std::string& complaint) {
    std::puts(complaint.c_str());
    std::_Exit(EXIT_FAILURE);
}

/// A connection of the player's own.
Display* Connection() {
    static Display* connection = XOpenDisplay(nullptr);
    return connection;
}

/// The pixel of the display, within the window's frame, that shows the middle of one of the window's own.
QPoint DevicePixel(const QWidget* window, QPoint pixel) {
    const QPointF place = (pixel + QPointF(0.5, 0.5)) * window->devicePixelRatio();
    return {static_cast<int>(place.x()), static_cast<int>(place.y())};
}

void SendButton(MouseButton button, bool down) {
    const int before = Ask([] { return ButtonEvents; });
    XTestFakeButtonEvent(Connection(), static_cast<unsigned>(button), down, CurrentTime);
    XSync(Connection(), False);
    Await("a button event", [&] { return ButtonEvents > before; });
}

QImage Seen(const QWidget* window) {
    return window->screen()->grabWindow(window->winId()).toImage();
}

template <typename Dialog>
Dialog* Shown() {
    return dynamic_cast<Dialog*>(QApplication::activeModalWidget());
}

/// The dialog once it has the keyboard. Without a window manager that comes and goes.
template <typename Dialog>
Dialog* Open() {
    auto* dialog = Shown<Dialog>();
    return dialog && dialog->isActiveWindow() ? dialog : nullptr;
}

} // namespace

std::filesystem::path Folder() {
    return std::getenv("PROGRAM_FOLDER");
}

std::string Content(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void StartGame() {
    Curtain.set_value();
    OnGameThread([] { qApp->installEventFilter(TheWatcher); });
    AwaitBoardOnScreen();
    Await("the panel", [] { return Part("Form1")->isVisible(); });
}

void ExpectEnd(const std::function<void()>& act) {
    EndExpected = true;
    act();
    std::this_thread::sleep_for(Patience);
    Fail("The game goes on");
}

void OnGameThread(const std::function<void()>& call) {
    const bool there = QThread::currentThread() == TheWatcher->thread();
    QMetaObject::invokeMethod(TheWatcher, call, there ? Qt::DirectConnection : Qt::BlockingQueuedConnection);
}

void Await(const std::string& what, const std::function<bool()>& condition) {
    const auto deadline = std::chrono::steady_clock::now() + Patience;
    while (!Ask(condition)) {
        if (std::chrono::steady_clock::now() > deadline) Fail("Waited in vain for " + what);
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
}

QWidget* Part(const char* window, const char* name) {
    return Ask([&]() -> QWidget* {
        for (QWidget* part : QApplication::allWidgets())
            if (part->window()->objectName() == window
                && (name ? part->objectName() == name && part->isVisible() : part->isWindow()))
                return part;
        return nullptr;
    });
}

void PointAt(QWidget* widget, QPoint place) {
    // Aimed again until the window is where it is going to stand.
    Await("the pointer", [&] {
        const QWidget* window = widget->window();
        const QPoint aim = CornerOf(window->winId()) + DevicePixel(window, widget->mapTo(window, place));
        XTestFakeMotionEvent(Connection(), -1, aim.x(), aim.y(), CurrentTime);
        XSync(Connection(), False);
        return Pointer == aim;
    });
}

void Release() {
    SendButton(MouseButton::Left, false);
}

void Click(QWidget* widget, QPoint place, MouseButton button) {
    PointAt(widget, place);
    SendButton(button, true);
    SendButton(button, false);
}

QPoint InsideOf(int piece) {
    const auto shows = [&](int x, int y) { return FormMain.Image.Point(x, y) == Game.PieceRGB[piece]; };
    return Ask([&] {
        for (int i = 0;; ++i)
            if (const int x = i % FormMain.Image.Width(), y = i / FormMain.Image.Width();
                shows(x, y) && shows(x - 4, y) && shows(x + 4, y) && shows(x, y - 4) && shows(x, y + 4))
                return QPoint(x, y);
    });
}

void Carry(int piece, Number x, Number y) {
    const QPoint way = Ask([&] { return QPointF(x - Game.PieceX[piece], y - Game.PieceY[piece]).toPoint(); });
    const QPoint inside = InsideOf(piece), hold = inside + QPoint(3, -2);
    PointAt(Part("FormMain", "Picture1"), inside);
    SendButton(MouseButton::Left, true);
    // The piece follows from the first move on.
    for (const QPoint step : {QPoint(), way / 2, way}) PointAt(Part("FormMain", "Picture1"), hold + step);
}

void Drag(int piece, Number x, Number y) {
    Carry(piece, x, y);
    Release();
}

void Choose(const char* window, const char* item) {
    auto* bar = Ask([&] { return Part(window)->findChild<QMenuBar*>(); });
    Await("the menu bar",
          [&] { return QApplication::topLevelAt(bar->mapToGlobal(QPoint(9, 9))) == bar->window(); });
    Click(bar, Ask([&] { return bar->actionGeometry(bar->actions().first()).center(); }));
    Await(std::string("the menu of ") + window + " for " + item,
          [] { return QApplication::activePopupWidget(); });
    auto* menu = Ask([] { return dynamic_cast<QMenu*>(QApplication::activePopupWidget()); });
    for (QAction* action : Ask([&] { return menu->actions(); }))
        if (action->text() == item)
            return Click(menu, Ask([&] { return menu->actionGeometry(action).center(); }));
}

void PressKey(unsigned long key, unsigned long modifier) {
    for (const auto& [symbol, down] :
         {std::pair(modifier, True), {key, True}, {key, False}, {modifier, False}})
        if (symbol)
            XTestFakeKeyEvent(Connection(), XKeysymToKeycode(Connection(), symbol), down, CurrentTime);
    XSync(Connection(), False);
}

void Answer(const std::string& text, unsigned long key, unsigned long modifier) {
    const auto box = [&] { return Open<QMessageBox>() ? Open<QMessageBox>()->text().toStdString() : ""; };
    Await("the box: " + text, [&] { return box() == text; });
    PressKey(key, modifier);
    Await("the end of the box",
          [&] { return !Shown<QMessageBox>() || Shown<QMessageBox>()->text().toStdString() != text; });
}

QLineEdit* NameBox() {
    const auto* dialog = Open<QFileDialog>();
    return dialog ? dialog->findChild<QLineEdit*>("fileNameEdit") : nullptr;
}

void TypeName(const std::string& name) {
    Await("a file dialog", NameBox);
    PressKey(XK_a, XK_Control_L);
    for (const char c : name) PressKey(static_cast<unsigned char>(c), c == '"' || c == '*' ? XK_Shift_L : 0);
    Await("the name", [&] { return NameBox() && NameBox()->text().toStdString() == name; });
    PressKey(XK_Return);
    Await("the end of the dialog", [] { return !Shown<QFileDialog>(); });
}

QPoint CornerOf(unsigned long window) {
    int x = 0, y = 0;
    Window child = 0;
    XTranslateCoordinates(Connection(), window, DefaultRootWindow(Connection()), 0, 0, &x, &y, &child);
    return {x, y};
}

void RequestClose(const char* window) {
    const auto atom = [](const char* name) { return XInternAtom(Connection(), name, False); };
    const Window receiver = Ask([&] { return Part(window)->winId(); });
    XEvent event{};
    event.xclient = {ClientMessage, 0, True, nullptr, receiver, atom("WM_PROTOCOLS"), 32, {}};
    event.xclient.data.l[0] = static_cast<long>(atom("WM_DELETE_WINDOW"));
    XSendEvent(Connection(), receiver, False, NoEventMask, &event);
    XSync(Connection(), False);
}

void AwaitBoardOnScreen() {
    Await("the board on the screen", [] {
        QWidget* window = Part("FormMain");
        const QImage shot = Seen(window).scaled(window->size());
        const QPoint board = window->findChild<QWidget*>("Picture1")->pos();
        const Surface& surface = FormMain.Picture1.Image;
        int differing = shot.pixel(1, 1) == 0xFFC0C0C0 ? 0 : shot.width() * shot.height();
        for (int y = 0; y < surface.Height(); ++y)
            for (int x = 0; x < surface.Width(); ++x)
                differing += shot.pixel(board + QPoint(x, y)) != surface.Row(y)[x];
        // Where the scale is a fraction, the edges have the steps of the display.
        return differing <= (std::fmod(window->devicePixelRatio(), 1) == 0 ? 0 : 1000);
    });
    // What was painted in parts looks as if it were painted at once.
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    const auto colours = [](const QImage& image) { return image.convertToFormat(QImage::Format_RGB32); };
    QWidget* window = Part("FormMain");
    Await("the end of what is gone",
          [&] { return colours(Seen(window)) == colours(window->grab().toImage()); });
}

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    Watcher watcher;
    TheWatcher = &watcher;
    for (const auto watchEnd : {std::atexit, std::at_quick_exit})
        watchEnd([] {
            if (!EndExpected) Fail("The game ended the process");
        });
    setvbuf(stdout, nullptr, _IONBF, 0); // the case ends the process without ado
    std::thread([] { std::_Exit(RUN_ALL_TESTS()); }).detach();
    Curtain.get_future().wait();
    DesignWindows();
    std::filesystem::current_path(Folder()); // as the program does
    return RunDesktop(argc, argv, FormMain, Folder());
}
