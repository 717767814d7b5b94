// The calls of the page: the player's deeds, and what the page has found out. Addresses of records come from
// descriptions.
#include "platform/desktop.h"
#include "platform/scaled_surface.h"
#include "platform_web/letter.h"
#include "platform_web/tasks.h"
#include "platform_web/web_desktop.h"
#include "platform_web/web_files.h"

#include <emscripten.h>
#include <vector>

namespace {

enum class Deed { Down, Move, Up };

/// What the player does with the mouse on a picture, and what is no move of play: the pointer's own moves and
/// the press that takes a piece up.
void DeliverMouse(Form& form, Picture& picture, Deed deed, MouseHandler handler, std::int16_t button,
                  std::int16_t shift, float x, float y) {
    const auto call = [=] { handler(button, shift, x, y); };
    const bool turns = deed == Deed::Down && button == 2, drops = deed == Deed::Up && button == 1;
    if (turns || drops)
        DeliverPlay(form, picture, call);
    else if (deed == Deed::Move)
        DeliverUnseen(form, call);
    else
        Deliver(form, call);
}

} // namespace

extern "C" {

/// Room for a text of so many bytes, which the page fills before its next call.
EMSCRIPTEN_KEEPALIVE char* RoomForLetter(int size) {
    Letter.assign(static_cast<std::size_t>(size), '\0');
    return Letter.data();
}

/// Room for the content of the file that the letter names.
EMSCRIPTEN_KEEPALIVE char* RoomForFile(int size) {
    std::string& content = FileOfFolder(Letter);
    content.assign(static_cast<std::size_t>(size), '\0');
    return content.data();
}

/// Room for a file of the player's own, which the letter names in the answer to come.
EMSCRIPTEN_KEEPALIVE char* RoomForOffer(int size) {
    OfferedFile.assign(static_cast<std::size_t>(size), '\0');
    return OfferedFile.data();
}

EMSCRIPTEN_KEEPALIVE void MouseOnPicture(Form* form, Picture* picture, int deed, int button, int shift,
                                         float x, float y) {
    const MouseHandler handlers[] = {picture->MouseDown, picture->MouseMove, picture->MouseUp};
    if (!picture->Enabled || !handlers[deed]) return;
    DeliverMouse(*form, *picture, static_cast<Deed>(deed), handlers[deed], static_cast<std::int16_t>(button),
                 static_cast<std::int16_t>(shift), x, y);
}

EMSCRIPTEN_KEEPALIVE void MouseOnForm(Form* form, int deed, int button, int shift, float x, float y) {
    const MouseHandler handlers[] = {nullptr, form->MouseMove, form->MouseUp};
    if (const MouseHandler handler = handlers[deed])
        Deliver(*form, [=] {
            handler(static_cast<std::int16_t>(button), static_cast<std::int16_t>(shift), x * TwipsPerPixelX(),
                    y * TwipsPerPixelY());
        });
}

EMSCRIPTEN_KEEPALIVE void MouseOnLabel(Form* form, Label* label, int deed, int button, int shift, float x,
                                       float y) {
    if (static_cast<Deed>(deed) == Deed::Up && label->MouseUp)
        Deliver(*form, [=] {
            label->MouseUp(static_cast<std::int16_t>(button), static_cast<std::int16_t>(shift), x, y);
        });
}

EMSCRIPTEN_KEEPALIVE void MouseOnText(Form* form, TextBox* text, int deed, int button, int shift, float x,
                                      float y) {
    if (static_cast<Deed>(deed) == Deed::Down && text->MouseDown)
        Deliver(*form, [=] {
            text->MouseDown(static_cast<std::int16_t>(button), static_cast<std::int16_t>(shift), x, y);
        });
}

/// The mouse went elsewhere for good.
EMSCRIPTEN_KEEPALIVE void MouseLost() {
    TakeMouse();
}

/// Shows what moves of the mouse have changed; a page tells of many between two pictures.
EMSCRIPTEN_KEEPALIVE void ShowMoves() {
    ShowAll();
}

EMSCRIPTEN_KEEPALIVE void KeyOnPicture(Form* form, Picture* picture, int code, int shift) {
    if (!picture->Enabled || !picture->KeyDown) return;
    const auto call = [=, key = static_cast<std::int16_t>(code)]() mutable {
        picture->KeyDown(key, static_cast<std::int16_t>(shift));
    };
    constexpr int Shift = 16, Alt = 18;
    if (code >= Shift && code <= Alt)
        Deliver(*form, call);
    else
        DeliverPlay(*form, *picture, call);
}

EMSCRIPTEN_KEEPALIVE void KeyOnForm(Form* form, int code, int shift) {
    if (form->KeyDown)
        Deliver(*form, [=, key = static_cast<std::int16_t>(code)]() mutable {
            form->KeyDown(key, static_cast<std::int16_t>(shift));
        });
}

EMSCRIPTEN_KEEPALIVE void PressTile(Form* form, TileButton* button) {
    if (button->Pressed) DeliverCommand(*form, [=] { button->Pressed(button->Index); });
}

EMSCRIPTEN_KEEPALIVE void PressButton(Form* form, CommandButton* button) {
    if (button->Click) DeliverCommand(*form, button->Click);
}

EMSCRIPTEN_KEEPALIVE void ChooseItem(Form* form, MenuItem* item) {
    if (item->Click) DeliverCommand(*form, item->Click);
}

EMSCRIPTEN_KEEPALIVE void Scroll(Form* form, ScrollBar* bar, int value) {
    if (value == bar->Value) return;
    Deliver(*form, [=] {
        bar->Value = static_cast<std::int16_t>(value);
        if (bar->Change) bar->Change();
    });
}

/// The player has turned to the pane.
EMSCRIPTEN_KEEPALIVE void Activate(Form* form) {
    TurnTo(*form);
}

EMSCRIPTEN_KEEPALIVE void Close(Form* form) {
    DeliverCommand(*form, [=] { form->CloseRequest ? form->CloseRequest() : UnloadForm(*form); });
}

EMSCRIPTEN_KEEPALIVE void Moved(Form* form, int x, int y) {
    form->Left = static_cast<float>(x * TwipsPerPixelX());
    form->Top = static_cast<float>(y * TwipsPerPixelY());
}

/// The client area of a sizable form has another size.
EMSCRIPTEN_KEEPALIVE void Resized(Form* form, int width, int height) {
    Resize(*form, static_cast<float>(width * TwipsPerPixelX()) + FrameWidth(form->Border),
           static_cast<float>(height * TwipsPerPixelY()) + FrameHeight(form->Border));
    if (form->Resized) Deliver(*form, form->Resized);
}

/// The player has followed a link to the address in the letter.
EMSCRIPTEN_KEEPALIVE void FollowLink(WebBrowser* browser) {
    Navigate(*browser, Letter);
}

EMSCRIPTEN_KEEPALIVE void Answer(int button) {
    TakeAnswer(button);
}

/// A letter tells why the file could not be stored.
EMSCRIPTEN_KEEPALIVE void Stored() {
    TakeStored(Letter);
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
