// The records of forms and controls: plain data that the game reads and writes, and that a desktop shows.
// Places and sizes are twips (1/1440 inch, 15 to the pixel), those of a control inside its container.
#pragma once

#include "platform/surface.h"

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

/// 15 in both directions, always: a pixel of the game is 1/96 inch, whatever the display makes of it.
constexpr std::int16_t TwipsPerPixelX() {
    return 15;
}
constexpr std::int16_t TwipsPerPixelY() {
    return 15;
}

/// The face of windows, frames and buttons, fixed on every desktop: light enough for black text and figures,
/// and dark enough for a yellow piece of the figure.
constexpr Colour ButtonFace = Rgb(192, 192, 192);
constexpr Colour WindowText = Rgb(0, 0, 0);
constexpr Colour Highlight3D = Rgb(255, 255, 255);
constexpr Colour Shadow3D = Rgb(128, 128, 128);

/// What a desktop calls for events. Mouse: Button 1 left, 2 right, 4 middle; Shift 1 Shift, 2 Ctrl, 4 Alt,
/// added up. X and Y in pixels on a picture, in twips on a form.
using MouseHandler = void (*)(std::int16_t Button, std::int16_t Shift, float X, float Y);
/// KeyCode is a virtual key code; a handler that sets it to 0 has used the key up.
using KeyHandler = void (*)(std::int16_t& KeyCode, std::int16_t Shift);
using PlainHandler = void (*)();
using IndexHandler = void (*)(std::int16_t Index);

struct Font {
    std::string Family = "Arial";
    float Points = 8.25F;
    bool Bold = false;
};

/// What every control has.
struct Control {
    std::string Name;
    float Left = 0;
    float Top = 0;
    float Width = 0;
    float Height = 0;
    bool Visible = true;
    bool Enabled = true;
};

struct Label : Control {
    std::string Caption;
    ::Font Font;
    Colour ForeColor = Rgb(0, 0, 0);
    Colour BackColor = ButtonFace;
    bool Centred = false;
    /// The size follows the text; an empty label does not show.
    bool AutoSize = false;
    MouseHandler MouseUp = nullptr;
};

/// A surface that takes the mouse and, when it has the focus, the keyboard.
struct Picture : Control {
    Surface Image;
    /// What a screen reader calls the picture, and how it describes it when asked. It skips a picture without
    /// a name.
    std::string SpokenName;
    std::string (*InWords)() = nullptr;
    /// An icon shown over the surface: a file name without folder and extension.
    std::string Icon;
    MouseHandler MouseDown = nullptr;
    MouseHandler MouseMove = nullptr;
    MouseHandler MouseUp = nullptr;
    KeyHandler KeyDown = nullptr;
    /// The mouse was taken away for good while a button was down: no MouseUp will follow.
    PlainHandler MouseLost = nullptr;
};

/// The panel's icon button: without a caption, its command is its hover text.
struct TileButton : Control {
    std::int16_t Index = 0;
    std::string ToolTipText;
    /// What the button does, for a screen reader, which says the command before it.
    std::string Description;
    /// The icon: a file name without folder and extension.
    std::string Picture;
    std::string Caption;
    ::Font Font = {"MS Sans Serif", 8.25F, false};
    Colour ForeColor = WindowText;
    Colour BackColor = ButtonFace;
    /// The ground behind the icon.
    Colour PicBack = ButtonFace;
    Colour BorderTop = Highlight3D;
    Colour BorderLeft = Highlight3D;
    Colour BorderRight = Shadow3D;
    Colour BorderBottom = Shadow3D;
    /// Natural size, in 0.01 mm.
    std::int32_t ExtentX = 873;
    std::int32_t ExtentY = 794;
    /// 0: the icon in the middle.
    std::int16_t DrawStyle = 0;
    /// Whether the button is one that can be switched on at all.
    bool Latches = false;
    bool Latched = false;
    IndexHandler Pressed = nullptr;
    void LatchOn() { Latched = true; }
    void LatchOff() { Latched = false; }
};

/// A vertical bar; the player moves Value between 0 and Max.
struct ScrollBar : Control {
    std::int16_t Value = 0;
    std::int16_t Max = 0;
    std::int16_t SmallChange = 1;
    std::int16_t LargeChange = 1;
    PlainHandler Change = nullptr;
};

struct CommandButton : Control {
    std::string Caption;
    ::Font Font;
    PlainHandler Click = nullptr;
};

/// Several lines of text to be read only.
struct TextBox : Control {
    std::string Text;
    ::Font Font;
    Colour BackColor = ButtonFace;
    MouseHandler MouseDown = nullptr;
};

/// Shows pages of the program's folder; driven by Navigate and its company in desktop.h.
struct WebBrowser : Control {};

struct Frame;
using ControlRef =
    std::variant<Label*, Picture*, TileButton*, Frame*, ScrollBar*, CommandButton*, TextBox*, WebBrowser*>;

struct Frame : Control {
    std::string Caption;
    ::Font Font;
    std::vector<ControlRef> Controls;
};

struct MenuItem {
    std::string Name;
    /// "-" is a separator.
    std::string Caption;
    PlainHandler Click = nullptr;
};

struct Menu {
    std::string Name;
    std::string Caption;
    std::vector<MenuItem> Items;
};

enum class BorderStyle { FixedSingle, Sizable };

/// A top-level window.
struct Form {
    std::string Name;
    std::string Caption;
    BorderStyle Border = BorderStyle::FixedSingle;
    bool CloseBox = false;
    bool InTaskBar = true;
    /// Opens in the centre of the screen, and not at Left and Top.
    bool Centred = false;
    /// Shown modeless it leaves the keyboard where it is.
    bool OpensQuietly = false;
    /// Bears the program's icon.
    bool HasIcon = true;
    /// The whole window with its border, as FrameWidth and FrameHeight count it, and its place on the screen.
    float Left = 0;
    float Top = 0;
    float Width = 0;
    float Height = 0;
    bool Visible = false;
    bool Loaded = false;
    /// The window's own surface; see FitImage.
    Surface Image;
    /// On where the player sees that surface.
    bool ShowsImage = false;
    std::vector<ControlRef> Controls;
    std::vector<Menu> Menus;
    ::Font Font = {"MS Sans Serif", 8.25F, false};
    PlainHandler Load = nullptr;
    /// Called whenever the form is shown or its window becomes the active one.
    PlainHandler Activate = nullptr;
    /// Called when the form is shown and whenever the player gives its window another size.
    PlainHandler Resized = nullptr;
    KeyHandler KeyDown = nullptr;
    MouseHandler MouseMove = nullptr;
    MouseHandler MouseUp = nullptr;
    /// Setting Cancel to anything but 0 keeps the form loaded.
    void (*Unload)(std::int16_t& Cancel) = nullptr;
    /// Answers the window manager's wish to close the form; without it the form is unloaded.
    PlainHandler CloseRequest = nullptr;
};

/// What border and caption bar take of a form's size, in twips: the metrics of the classic desktop that the
/// forms' sizes were drawn for. The frame that a window manager really draws lies around the client area.
constexpr float FrameWidth(BorderStyle border) {
    return (border == BorderStyle::FixedSingle ? 6.0F : 8.0F) * TwipsPerPixelX();
}
constexpr float FrameHeight(BorderStyle border) {
    return (border == BorderStyle::FixedSingle ? 25.0F : 27.0F) * TwipsPerPixelY();
}

/// Size of the client area, without frame and menu bar, in pixels.
int ClientWidth(const Form& form);
int ClientHeight(const Form& form);

/// Names a control and sets it at its design place, in twips inside its container.
void Place(Control& control, const char* name, float left, float top, float width, float height);

/// Gives the form a new size, in twips; a picture also its surface, where what was drawn stays.
void Resize(Form& form, float width, float height);
void Resize(Picture& picture, float width, float height);

/// Gives the form's own surface the size of its client area; what was drawn stays. Few forms are drawn on,
/// and these only when they are first opened: a surface takes up to two megabytes.
void FitImage(Form& form);
