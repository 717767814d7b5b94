// The window property that task bars read.
#include "platform_qt/task_bar.h"

#include <QGuiApplication>
#include <QWidget>
#include <cstdlib>
#include <string_view>
#include <xcb/xcb.h>

namespace {

xcb_atom_t Atom(xcb_connection_t* display, std::string_view name) {
    const auto cookie = xcb_intern_atom(display, 0, static_cast<std::uint16_t>(name.size()), name.data());
    xcb_intern_atom_reply_t* reply = xcb_intern_atom_reply(display, cookie, nullptr);
    const xcb_atom_t atom = reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
    std::free(reply);
    return atom;
}

} // namespace

void LeaveTaskBar(QWidget& window) {
    // Windows off the screen have that interface too, without a display behind it.
    const auto* application = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    if (!application || QGuiApplication::platformName() != "xcb") return;
    xcb_connection_t* display = application->connection();
    static const xcb_atom_t state = Atom(display, "_NET_WM_STATE");
    static const xcb_atom_t skip = Atom(display, "_NET_WM_STATE_SKIP_TASKBAR");
    xcb_change_property(display, XCB_PROP_MODE_REPLACE, static_cast<xcb_window_t>(window.winId()), state,
                        XCB_ATOM_ATOM, 32, 1, &skip);
}
