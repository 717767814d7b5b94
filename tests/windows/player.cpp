// Real events and real screenshots.
#include "tests/windows/player.h"

#include "tests/windows/game_thread.h"

#include <QWidget>
#include <algorithm>
#include <cmath>
// clang-format off: the words that these define break every header after them
#include <X11/Xutil.h>
#include <X11/extensions/XTest.h>
#include <X11/keysym.h>
// clang-format on

namespace {

Display* Connection() {
    static Display* connection = XOpenDisplay(nullptr);
    return connection;
}

Window Root() {
    return DefaultRootWindow(Connection());
}

Atom AtomOf(const char* name) {
    return XInternAtom(Connection(), name, False);
}

/// The bytes of a property; a list of 32-bit values comes as longs.
std::string Property(Window window, const char* name) {
    Atom type = 0;
    int format = 0;
    unsigned long count = 0, rest = 0;
    unsigned char* data = nullptr;
    XGetWindowProperty(Connection(), window, AtomOf(name), 0, 4096, False, AnyPropertyType, &type, &format,
                       &count, &rest, &data);
    if (!data) return {};
    const std::string bytes(reinterpret_cast<char*>(data),
                            count * (format == 32 ? sizeof(long) : static_cast<std::size_t>(format) / 8));
    XFree(data);
    return bytes;
}

std::vector<unsigned long> LongsOf(Window window, const char* name) {
    const std::string bytes = Property(window, name);
    const auto* first = reinterpret_cast<const unsigned long*>(bytes.data());
    return {first, first + bytes.size() / sizeof(long)};
}

void SendMessage(Window receiver, Window about, const char* kind, long first, long mask) {
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = about;
    event.xclient.message_type = AtomOf(kind);
    event.xclient.format = 32;
    event.xclient.data.l[0] = first;
    event.xclient.data.l[1] = CurrentTime;
    XSendEvent(Connection(), receiver, False, mask, &event);
    XSync(Connection(), False);
}

QPoint OnScreen(Window window, QPoint place) {
    int x = 0, y = 0;
    Window child = 0;
    XTranslateCoordinates(Connection(), window, Root(), place.x(), place.y(), &x, &y, &child);
    return {x, y};
}

/// The middle of a board pixel in device pixels of the board's window.
QPoint OnDevice(QPoint pixel) {
    const auto middle = Ask([&] {
        QWidget* board = WindowNamed("FormMain");
        const auto* picture = board->findChild<QWidget*>("Picture1");
        return QPointF(picture->mapTo(board, pixel) + QPointF(0.5, 0.5)) * board->devicePixelRatio();
    });
    return {static_cast<int>(std::floor(middle.x())), static_cast<int>(std::floor(middle.y()))};
}

/// Sends a button event and waits for the board to count it.
void SendButton(MouseButton button, bool down, int BoardEvents::*counter) {
    const int before = SeenByBoard().*counter;
    XTestFakeButtonEvent(Connection(), static_cast<unsigned>(button), down, CurrentTime);
    XSync(Connection(), False);
    Await("a button event on the board", [&] { return SeenByBoard().*counter > before; });
}

} // namespace

void MoveTo(int x, int y) {
    const QPoint target = OnScreen(IdOf("FormMain"), OnDevice({x, y}));
    XTestFakeMotionEvent(Connection(), -1, target.x(), target.y(), CurrentTime);
    XSync(Connection(), False);
    Await("the pointer on the board at " + std::to_string(x) + ", " + std::to_string(y),
          [&] { return SeenByBoard().Pixel == QPoint(x, y); });
}

void Press(MouseButton button) {
    SendButton(button, true, &BoardEvents::Presses);
}

void Release(MouseButton button) {
    SendButton(button, false, &BoardEvents::Releases);
}

void LetGo(MouseButton button) {
    XTestFakeButtonEvent(Connection(), static_cast<unsigned>(button), False, CurrentTime);
    XSync(Connection(), False);
}

void PressEnter() {
    const unsigned key = XKeysymToKeycode(Connection(), XK_Return);
    XTestFakeKeyEvent(Connection(), key, True, CurrentTime);
    XTestFakeKeyEvent(Connection(), key, False, CurrentTime);
    XSync(Connection(), False);
}

std::vector<WindowId> Clients() {
    return LongsOf(Root(), "_NET_CLIENT_LIST");
}

std::string TitleOf(WindowId window) {
    return Property(window, "_NET_WM_NAME");
}

bool Resizable(WindowId window) {
    const std::vector<unsigned long> actions = LongsOf(window, "_NET_WM_ALLOWED_ACTIONS");
    return std::count(actions.begin(), actions.end(), AtomOf("_NET_WM_ACTION_RESIZE")) > 0;
}

WindowId IdOf(const char* name) {
    return Ask([&] { return static_cast<WindowId>(WindowNamed(name)->winId()); });
}

QImage ScreenAt(WindowId window) {
    XWindowAttributes attributes;
    XGetWindowAttributes(Connection(), window, &attributes);
    const QPoint corner = OnScreen(window, {0, 0});
    const auto width = static_cast<unsigned>(attributes.width),
               height = static_cast<unsigned>(attributes.height);
    XImage* shot = XGetImage(Connection(), Root(), corner.x(), corner.y(), width, height, AllPlanes, ZPixmap);
    QImage result(attributes.width, attributes.height, QImage::Format_RGB32);
    for (int y = 0; y < result.height(); ++y)
        for (int x = 0; x < result.width(); ++x)
            result.setPixel(x, y, static_cast<unsigned>(XGetPixel(shot, x, y)));
    XDestroyImage(shot);
    return result;
}

void DragAside(WindowId window) {
    XMoveWindow(Connection(), window, 900, 20);
    XSync(Connection(), False);
}

void Close(WindowId window) {
    SendMessage(window, window, "WM_PROTOCOLS", static_cast<long>(AtomOf("WM_DELETE_WINDOW")), NoEventMask);
}

void TurnToAnotherProgram() {
    const Window window = XCreateSimpleWindow(Connection(), Root(), 800, 500, 200, 200, 0, 0, 0);
    XMapWindow(Connection(), window);
    Await("another window", [&] { return std::ranges::count(Clients(), window) == 1; });
    constexpr long FromThePlayer = 2;
    SendMessage(Root(), window, "_NET_ACTIVE_WINDOW", FromThePlayer,
                SubstructureRedirectMask | SubstructureNotifyMask);
    Await("its activation", [&] { return LongsOf(Root(), "_NET_ACTIVE_WINDOW").at(0) == window; });
}
