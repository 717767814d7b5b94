// Forms, control by control. An element's name is the form's and its own; those of an array are numbered.
#include "platform_web/description.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace {

std::string Quoted(const std::string& text) {
    std::string quoted = "\"";
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        const char next = i + 1 < text.size() ? text[i + 1] : '\0';
        if (c == '\r' && next != '\n' && (i == 0 || text[i - 1] != '\n')) quoted += "\\n";
        if (c == '\n') quoted += "\\n";
        if (c == '"' || c == '\\') quoted += '\\';
        if (c < 0 || c >= ' ') quoted += c;
    }
    return quoted + '"';
}

std::string CssColour(Colour colour) {
    std::array<char, 8> text{};
    std::snprintf(text.data(), text.size(), "#%02x%02x%02x", colour & 0xFF, colour >> 8 & 0xFF,
                  colour >> 16 & 0xFF);
    return text.data();
}

template <typename Item, typename Describe>
std::vector<std::string> Each(const std::vector<Item>& items, Describe describe) {
    std::vector<std::string> objects;
    for (const Item& item : items) objects.push_back(describe(item));
    return objects;
}

void AddFont(Description& object, const Font& font) {
    object.Number("points", font.Points).Flag("bold", font.Bold);
}

void AddSurface(Description& object, const Surface& surface) {
    object.Record("surface", &surface).Number("columns", surface.Width()).Number("rows", surface.Height());
}

void Add(Description& object, const Label& label) {
    object.Text("kind", "label").Text("text", label.Caption).Flag("centred", label.Centred);
    object.Flag("fits", label.AutoSize).Flag("mouse", label.MouseUp);
    object.Text("ink", CssColour(label.ForeColor)).Text("ground", CssColour(label.BackColor));
    AddFont(object, label.Font);
}

void Add(Description& object, const Picture& picture) {
    object.Text("kind", "picture").Text("spoken", picture.SpokenName).Text("icon", picture.Icon);
    object.Flag("mouse", picture.MouseDown || picture.MouseUp).Flag("keys", picture.KeyDown);
    AddSurface(object, picture.Image);
}

void Add(Description& object, const TileButton& button) {
    object.Text("kind", "tile").Text("tip", button.ToolTipText).Text("icon", button.Picture);
    object.Flag("latches", button.Latches).Flag("latched", button.Latched);
}

void Add(Description& object, const ScrollBar& bar) {
    object.Text("kind", "bar").Flag("enabled", bar.Enabled);
    object.Number("value", bar.Value).Number("max", bar.Max);
    object.Number("small", bar.SmallChange).Number("large", bar.LargeChange);
}

void Add(Description& object, const CommandButton& button) {
    object.Text("kind", "button").Text("text", button.Caption);
    AddFont(object, button.Font);
}

void Add(Description& object, const TextBox& box) {
    object.Text("kind", "text").Text("text", box.Text).Flag("mouse", box.MouseDown);
    AddFont(object, box.Font);
}

void Add(Description& object, const WebBrowser&) {
    object.Text("kind", "browser");
}

std::vector<std::string> DescriptionsOf(const std::vector<ControlRef>& controls, const std::string& form);

/// The form's name stands before the caption, as frames of an array differ by their captions alone.
void Add(Description& object, const Frame& frame, const std::string& form) {
    object.Text("kind", "frame").Text("text", frame.Caption);
    object.Objects("controls", DescriptionsOf(frame.Controls, form));
}

const Control& ControlOf(const ControlRef& ref) {
    return std::visit([](const auto* record) -> const Control& { return *record; }, ref);
}

/// The control's number among those of its name; nothing where it is the only one.
std::string NumberOf(const ControlRef& ref, const std::vector<ControlRef>& controls) {
    if (TileButton* const* button = std::get_if<TileButton*>(&ref))
        return "_" + std::to_string((*button)->Index);
    int before = 0, all = 0;
    for (const ControlRef& other : controls) {
        if (ControlOf(other).Name != ControlOf(ref).Name) continue;
        if (&other < &ref) ++before;
        ++all;
    }
    return all > 1 ? "_" + std::to_string(before) : "";
}

std::string DescriptionOf(const ControlRef& ref, const std::vector<ControlRef>& controls,
                          const std::string& form) {
    const Control& control = ControlOf(ref);
    Description object;
    object.Record("record", std::visit([](const auto* record) -> const void* { return record; }, ref));
    object.Text("id", form + "." + control.Name + NumberOf(ref, controls));
    object.Number("x", PixelsOf(control.Left)).Number("y", PixelsOf(control.Top));
    object.Number("width", PixelsOf(control.Width)).Number("height", PixelsOf(control.Height));
    object.Flag("visible", control.Visible);
    if (Frame* const* frame = std::get_if<Frame*>(&ref))
        Add(object, **frame, form);
    else
        std::visit(
            [&](const auto* record) {
                if constexpr (!std::is_same_v<decltype(record), const Frame*>) Add(object, *record);
            },
            ref);
    return object.Whole();
}

std::vector<std::string> DescriptionsOf(const std::vector<ControlRef>& controls, const std::string& form) {
    return Each(controls, [&](const ControlRef& ref) { return DescriptionOf(ref, controls, form); });
}

std::string DescriptionOf(const Menu& menu, const std::string& form) {
    const auto describe = [&](const MenuItem& item) {
        return Description()
            .Record("record", &item)
            .Text("id", form + "." + item.Name)
            .Text("text", item.Caption)
            .Whole();
    };
    return Description()
        .Text("id", form + "." + menu.Name)
        .Text("text", menu.Caption)
        .Objects("items", Each(menu.Items, describe))
        .Whole();
}

std::string DescriptionOf(const Surface::TextItem& text) {
    return Description()
        .Text("text", text.Text)
        .Text("ink", CssColour(text.Ink))
        .Number("x", text.X)
        .Number("y", text.Y)
        .Whole();
}

} // namespace

void Description::Name(const char* name) {
    if (!Members.empty()) Members += ',';
    Members.append(1, '"').append(name).append("\":");
}

Description& Description::Text(const char* name, const std::string& text) {
    Name(name);
    Members += Quoted(text);
    return *this;
}

Description& Description::Texts(const char* name, const std::vector<std::string>& texts) {
    return Objects(name, Each(texts, Quoted));
}

Description& Description::Number(const char* name, double number) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.15g", number);
    Name(name);
    Members += text.data();
    return *this;
}

Description& Description::Flag(const char* name, bool flag) {
    Name(name);
    Members += flag ? "true" : "false";
    return *this;
}

Description& Description::Record(const char* name, const void* record) {
    return Number(name, static_cast<double>(reinterpret_cast<std::uintptr_t>(record)));
}

Description& Description::Objects(const char* name, const std::vector<std::string>& objects) {
    Name(name);
    Members += '[';
    for (const std::string& object : objects) {
        if (!Members.ends_with('[')) Members += ',';
        Members += object;
    }
    Members += ']';
    return *this;
}

int PixelsOf(float twips) {
    return NearestInt32(twips / TwipsPerPixelX());
}

std::string DescriptionOf(const Form& form, bool modal) {
    Description object;
    object.Record("record", &form).Text("id", form.Name).Text("caption", form.Caption);
    object.Flag("visible", form.Visible).Flag("modal", modal).Flag("closes", form.CloseBox);
    object.Flag("centred", form.Centred).Flag("sizable", form.Border == BorderStyle::Sizable);
    object.Flag("quiet", form.OpensQuietly).Flag("keys", form.KeyDown).Flag("mouse", form.MouseUp);
    object.Number("x", PixelsOf(form.Left)).Number("y", PixelsOf(form.Top));
    object.Number("width", ClientWidth(form)).Number("height", ClientHeight(form));
    object.Objects("controls", DescriptionsOf(form.Controls, form.Name));
    object.Objects("menus",
                   Each(form.Menus, [&](const Menu& menu) { return DescriptionOf(menu, form.Name); }));
    if (form.ShowsImage) {
        AddSurface(object, form.Image);
        object.Objects("texts",
                       Each(form.Image.Texts(), [](const auto& text) { return DescriptionOf(text); }));
    }
    return object.Whole();
}

std::vector<Picture*> PicturesIn(const std::vector<ControlRef>& controls) {
    std::vector<Picture*> pictures;
    for (const ControlRef& control : controls) {
        if (Picture* const* picture = std::get_if<Picture*>(&control)) pictures.push_back(*picture);
        if (Frame* const* frame = std::get_if<Frame*>(&control))
            for (Picture* picture : PicturesIn((*frame)->Controls)) pictures.push_back(picture);
    }
    return pictures;
}
