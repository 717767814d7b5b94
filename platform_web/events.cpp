// The calls of the page: the player's deeds, and what the page has found out. Addresses of records come from
// descriptions.
#include "platform/desktop.h"
#include "platform/scaled_surface.h"
#include "platform_web/description.h"
#include "platform_web/tasks.h"
#include "platform_web/web_desktop.h"

#include <emscripten.h>
#include <functional>

namespace {

enum class Deed { Down, Move, Up };

/// Visits the form's record of that address: its own, or that of a control.
template <typename Visitor>
void AtRecord(Form& form, const void* address, const Visitor& visitor) {
    if (address == &form) visitor(form);
    EachControl(form.Controls, [&](auto& control) {
        if (address == &control && control.Enabled) visitor(control);
    });
}

template <typename Record>
MouseHandler HandlerOf(const Record& record, Deed deed) {
    if constexpr (requires { record.MouseDown; })
        if (deed == Deed::Down) return record.MouseDown;
    if constexpr (requires { record.MouseMove; })
        if (deed == Deed::Move) return record.MouseMove;
    if constexpr (requires { record.MouseUp; })
        if (deed == Deed::Up) return record.MouseUp;
    return nullptr;
}

/// Moves of the mouse are Unseen until ShowMoves, as many of them make one picture. A Command ends a drag
/// first.
enum class EventKind { Plain, Unseen, Command };

/// Runs a handler as an event of the form, and shows what it changed.
void Deliver(const Form& form, EventKind kind, const std::function<void()>& handler) {
    if (IsHeldUp(form)) return;
    RunTask([=] {
        if (kind == EventKind::Command) LoseMouse();
        handler();
        if (kind != EventKind::Unseen) ShowAll();
    });
}

char* Room(std::string& text, int size) {
    text.assign(static_cast<std::size_t>(size), '\0');
    return text.data();
}

} // namespace

extern "C" {

/// Rooms for a text, and for the content of the file that it names; the page fills them.
EMSCRIPTEN_KEEPALIVE char* RoomForLetter(int size) {
    return Room(Letter, size);
}
EMSCRIPTEN_KEEPALIVE char* RoomForFile(int size) {
    return Room(FileOfFolder(Letter), size);
}
EMSCRIPTEN_KEEPALIVE void Mouse(Form* form, const void* address, int deed, std::int16_t button,
                                std::int16_t shift, float x, float y) {
    const bool moves = static_cast<Deed>(deed) == Deed::Move;
    const auto unit = static_cast<float>(address == form ? TwipsPerPixelX() : 1);
    AtRecord(*form, address, [&](auto& record) {
        if (const MouseHandler handler = HandlerOf(record, static_cast<Deed>(deed)))
            Deliver(*form, moves ? EventKind::Unseen : EventKind::Plain,
                    [=] { handler(button, shift, x * unit, y * unit); });
    });
}

/// The browser has taken the mouse away.
EMSCRIPTEN_KEEPALIVE void MouseLost() {
    RunTask([] {
        LoseMouse();
        ShowAll();
    });
}

EMSCRIPTEN_KEEPALIVE void ShowMoves() {
    RunTask(ShowAll);
}

EMSCRIPTEN_KEEPALIVE void Key(Form* form, const void* address, std::int16_t code, std::int16_t shift) {
    AtRecord(*form, address, [&](auto& record) {
        if constexpr (requires { record.KeyDown; })
            if (const KeyHandler handler = record.KeyDown)
                Deliver(*form, EventKind::Plain, [=, key = code]() mutable { handler(key, shift); });
    });
}

/// A button or a menu item.
EMSCRIPTEN_KEEPALIVE void Press(Form* form, const void* address) {
    AtRecord(*form, address, [&](auto& record) {
        if constexpr (requires { record.Pressed; })
            Deliver(*form, EventKind::Command, [&record] { record.Pressed(record.Index); });
        if constexpr (requires { record.Click; }) Deliver(*form, EventKind::Command, record.Click);
    });
    for (const Menu& menu : form->Menus)
        for (const MenuItem& item : menu.Items)
            if (address == &item && item.Click) Deliver(*form, EventKind::Command, item.Click);
}

EMSCRIPTEN_KEEPALIVE void Scroll(Form* form, ScrollBar* bar, std::int16_t value) {
    if (value == bar->Value) return;
    Deliver(*form, EventKind::Plain, [=] {
        bar->Value = value;
        if (bar->Change) bar->Change();
    });
}

/// The player has turned to the form, which is told when another one was active before.
EMSCRIPTEN_KEEPALIVE void Activate(Form* form) {
    if (TurnTo(*form) && form->Activate) Deliver(*form, EventKind::Command, form->Activate);
}

EMSCRIPTEN_KEEPALIVE void Close(Form* form) {
    Deliver(*form, EventKind::Command,
            [=] { form->CloseRequest ? form->CloseRequest() : UnloadForm(*form); });
}

EMSCRIPTEN_KEEPALIVE void Moved(Form* form, int x, int y) {
    form->Left = static_cast<float>(x * TwipsPerPixelX());
    form->Top = static_cast<float>(y * TwipsPerPixelY());
}

/// The client area of a sizable form has another size.
EMSCRIPTEN_KEEPALIVE void Resized(Form* form, int width, int height) {
    Resize(*form, static_cast<float>(width * TwipsPerPixelX()) + FrameWidth(form->Border),
           static_cast<float>(height * TwipsPerPixelY()) + FrameHeight(form->Border));
    if (form->Resized) Deliver(*form, EventKind::Plain, form->Resized);
}

EMSCRIPTEN_KEEPALIVE void Answer(int answer) {
    TakeAnswer(answer);
    ResumeTasks();
}

/// Rows first to last - 1 of a surface on a display where all of it takes so many pixels, in the order of
/// bytes that a canvas wants.
EMSCRIPTEN_KEEPALIVE const Surface::Pixel* DisplayRows(const Surface* surface, int width, int height,
                                                       int first, int last) {
    static std::vector<Surface::Pixel> pixels;
    pixels.resize(static_cast<std::size_t>(width) * static_cast<std::size_t>(last - first));
    ScaleSurface(*surface, GridOf(*surface, width, height, {first, last}), pixels.data(), width);
    for (Surface::Pixel& pixel : pixels)
        pixel = (pixel & 0xFF00FF00) | (pixel & 0xFF) << 16 | (pixel >> 16 & 0xFF);
    return pixels.data();
}

} // extern "C"
