// Real events, and a look at the real screen, on a connection of its own to the display.
#include "core/board_window.h"
#include "tests/windows/stage.h"

#include <QApplication>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <cmath>
#include <gtest/gtest.h>
// clang-format off: the words that these define break every header after them
#define Font XFont
#include <X11/Xutil.h>
#include <X11/extensions/XTest.h>
#include <X11/keysym.h>
#undef Font
// clang-format on

namespace {

Display* Connection() {
    static Display* connection = XOpenDisplay(nullptr);
    return connection;
}

Window Root() {
    return DefaultRootWindow(Connection());
}

QPoint DevicePixel(QPointF place, double scale) {
    return {NearestInt32(std::floor(place.x() * scale)), NearestInt32(std::floor(place.y() * scale))};
}

/// Sends a button event and waits for the board to count it.
void SendButton(MouseButton button, bool down, int BoardEvents::*counter) {
    const int before = SeenByBoard().*counter;
    XTestFakeButtonEvent(Connection(), static_cast<unsigned>(button), down, CurrentTime);
    XSync(Connection(), False);
    Await("a button event on the board", [&] { return SeenByBoard().*counter > before; });
}

/// A pixel where the piece shows on the pick map, and well around it.
QPoint InsideOf(int piece) {
    const auto shows = [&](int x, int y) { return FormMain.Image.Point(x, y) == Game.PieceRGB[piece]; };
    for (int y = 0; y < FormMain.Image.Height(); ++y)
        for (int x = 0; x < FormMain.Image.Width(); ++x)
            if (shows(x, y) && shows(x - 4, y) && shows(x + 4, y) && shows(x, y - 4) && shows(x, y + 4))
                return {x, y};
    ADD_FAILURE() << "piece " << piece << " shows nowhere";
    return {};
}

void SendKey(unsigned long key, bool down) {
    XTestFakeKeyEvent(Connection(), XKeysymToKeycode(Connection(), key), down, CurrentTime);
}

QAction* ItemOf(const QWidget* menu, const char* text) {
    for (QAction* action : menu->actions())
        if (action->text() == text) return action;
    return nullptr;
}

} // namespace

QPoint CornerOnScreen(WindowId window) {
    int x = 0, y = 0;
    Window child = 0;
    XTranslateCoordinates(Connection(), window, Root(), 0, 0, &x, &y, &child);
    return {x, y};
}

void MoveTo(int x, int y) {
    const QPoint target = Ask([&] {
        QWidget* window = WindowNamed("FormMain");
        const QPoint place = window->findChild<QWidget*>("Picture1")->pos() + QPoint(x, y);
        return CornerOnScreen(window->winId())
               + DevicePixel(place + QPointF(0.5, 0.5), window->devicePixelRatio());
    });
    XTestFakeMotionEvent(Connection(), -1, target.x(), target.y(), CurrentTime);
    XSync(Connection(), False);
    Await("the pointer on the board", [&] { return SeenByBoard().Pixel == QPoint(x, y); });
}

void Press(MouseButton button) {
    SendButton(button, true, &BoardEvents::Presses);
}

void Release(MouseButton button) {
    SendButton(button, false, &BoardEvents::Releases);
}

QPoint PressInside(int piece, MouseButton button) {
    const QPoint place = Ask([&] { return InsideOf(piece); });
    MoveTo(place.x(), place.y());
    Press(button);
    return place;
}

Hold TakeInHand(int piece) {
    Hold hold;
    OnGameThread([&] { hold = {Game.PieceX[piece], Game.PieceY[piece], {}}; });
    hold.Pointer = PressInside(piece, MouseButton::Left) + QPoint(3, -2);
    MoveTo(hold.Pointer.x(), hold.Pointer.y());
    return hold;
}

void Carry(const Hold& hold, Number x, Number y) {
    const QPoint way = QPointF(x - hold.FromX, y - hold.FromY).toPoint();
    MoveTo(hold.Pointer.x() + way.x() / 2, hold.Pointer.y() + way.y() / 3);
    MoveTo(hold.Pointer.x() + way.x(), hold.Pointer.y() + way.y());
}

void Drag(int piece, Number x, Number y) {
    Carry(TakeInHand(piece), x, y);
    Release(MouseButton::Left);
}

std::string TitleOf(WindowId window) {
    char* name = nullptr;
    XFetchName(Connection(), window, &name);
    std::string title = name ? name : "";
    XFree(name);
    return title;
}

bool HasFixedSize(WindowId window) {
    XSizeHints hints{};
    long supplied = 0;
    XGetWMNormalHints(Connection(), window, &hints, &supplied);
    return (supplied & PMinSize) && (supplied & PMaxSize) && hints.min_width == hints.max_width
           && hints.min_height == hints.max_height;
}

void MoveAside(WindowId window) {
    XMoveWindow(Connection(), window, 900, 20);
    XSync(Connection(), False);
}

void MoveWindow(const char* name, QPoint place) {
    constexpr int LargestFrame = 60;
    QWidget* window = Ask([&] { return WindowNamed(name); });
    XMoveWindow(Connection(), Ask([&] { return window->winId(); }), place.x(), place.y());
    XSync(Connection(), False);
    Await("the move of a window", [&] {
        return (window->pos() * window->devicePixelRatio() - place).manhattanLength() < LargestFrame;
    });
}

void RequestClose(WindowId window) {
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = window;
    event.xclient.message_type = XInternAtom(Connection(), "WM_PROTOCOLS", False);
    event.xclient.format = 32;
    event.xclient.data.l[0] = static_cast<long>(XInternAtom(Connection(), "WM_DELETE_WINDOW", False));
    XSendEvent(Connection(), window, False, NoEventMask, &event);
    XSync(Connection(), False);
}

void PressEnter() {
    PressKey(XK_Return);
}

void PressKey(unsigned long key, unsigned long modifier) {
    if (modifier) SendKey(modifier, true);
    SendKey(key, true);
    SendKey(key, false);
    if (modifier) SendKey(modifier, false);
    XSync(Connection(), False);
}

void PointAt(QWidget* widget, QPoint place) {
    const QPoint target = Ask([&] {
        const QWidget* window = widget->window();
        return CornerOnScreen(window->winId())
               + DevicePixel(widget->mapTo(window, place) + QPointF(0.5, 0.5), window->devicePixelRatio());
    });
    XTestFakeMotionEvent(Connection(), -1, target.x(), target.y(), CurrentTime);
    XSync(Connection(), False);
    Await("the pointer on a widget", [&] { return widget->underMouse(); });
}

void Click(QWidget* widget, QPoint place, MouseButton button) {
    PointAt(widget, place);
    const int before = ReleasesSeen();
    for (const int down : {True, False})
        XTestFakeButtonEvent(Connection(), static_cast<unsigned>(button), down, CurrentTime);
    XSync(Connection(), False);
    Await("a click", [&] { return ReleasesSeen() > before; });
}

void ChooseFromMenu(const char* window, const char* item) {
    auto* bar = Ask([&] { return WindowNamed(window)->findChild<QMenuBar*>(); });
    Click(bar, Ask([&] { return bar->actionGeometry(bar->actions().first()).center(); }));
    Await("the open menu", [] { return dynamic_cast<QMenu*>(QApplication::activePopupWidget()); });
    auto* menu = Ask([] { return dynamic_cast<QMenu*>(QApplication::activePopupWidget()); });
    Click(menu, Ask([&] { return menu->actionGeometry(ItemOf(menu, item)).center(); }));
}

void OpenAnotherProgram() {
    XMapWindow(Connection(), XCreateSimpleWindow(Connection(), Root(), 800, 500, 200, 200, 0, 0, 0));
    XSync(Connection(), False);
}

std::vector<Surface::Pixel> BoardWindowOnScreen() {
    return Ask([] {
        const QWidget* window = WindowNamed("FormMain");
        const double scale = window->devicePixelRatio();
        const QPoint corner = CornerOnScreen(window->winId());
        const QPoint size = DevicePixel(QPointF(window->width(), window->height()), scale);
        XImage* shot =
            XGetImage(Connection(), Root(), corner.x(), corner.y(), static_cast<unsigned>(size.x()),
                      static_cast<unsigned>(size.y()), AllPlanes, ZPixmap);
        std::vector<Surface::Pixel> pixels;
        for (int y = 0; y < window->height(); ++y)
            for (int x = 0; x < window->width(); ++x) {
                const QPoint place = DevicePixel({x + 0.5, y + 0.5}, scale);
                pixels.push_back(0xFF000000U | static_cast<unsigned>(XGetPixel(shot, place.x(), place.y())));
            }
        XDestroyImage(shot);
        return pixels;
    });
}

void AwaitBoardOnScreen() {
    Await("the board on the screen", [] {
        const std::vector<Surface::Pixel> screen = BoardWindowOnScreen();
        const QWidget* window = WindowNamed("FormMain");
        const QRect picture = window->findChild<QWidget*>("Picture1")->geometry();
        const QRect label = window->findChild<QLabel*>()->geometry();
        auto shown = screen.begin();
        for (int y = 0; y < window->height(); ++y)
            for (int x = 0; x < window->width(); ++x, ++shown) {
                constexpr Surface::Pixel Face = 0xFFF0F0F0;
                const bool board = picture.contains(x, y);
                const Surface& surface = FormMain.Picture1.Image;
                if (!label.contains(x, y)
                    && *shown != (board ? surface.Row(y - picture.top())[x - picture.left()] : Face))
                    return false;
            }
        return true;
    });
}

void AwaitBox(const std::string& text) {
    Await("a box with the keyboard", [] {
        Window focus = 0;
        int revert = 0;
        XGetInputFocus(Connection(), &focus, &revert);
        return OpenBox() && OpenBox()->isActiveWindow() && focus == OpenBox()->winId();
    });
    EXPECT_EQ(Ask([] { return OpenBox()->text().toStdString(); }), text);
}
