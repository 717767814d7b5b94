// Forms, control by control. An element's name is the form's and its own; those of an array are numbered.
#include "platform_web/description.h"

#include <array>
#include <cstdio>

namespace {

std::string CssColour(Colour colour) {
    std::array<char, 8> text{};
    std::snprintf(text.data(), text.size(), "#%02x%02x%02x", colour & 0xFF, colour >> 8 & 0xFF,
                  colour >> 16 & 0xFF);
    return text.data();
}

template <typename Item, typename Describe>
std::vector<JsonObject> Each(const std::vector<Item>& items, Describe describe) {
    std::vector<JsonObject> objects;
    for (const Item& item : items) objects.push_back(describe(item));
    return objects;
}

/// The members that a control or a form has beside name and place.
template <typename Record>
void AddMembers(JsonObject& object, const Record& record) {
    if constexpr (requires { record.Caption; }) object.Add("text", record.Caption);
    if constexpr (requires { record.Text; }) object.Add("text", record.Text);
    if constexpr (requires { record.Font; })
        object.Add("bold", record.Font.Bold, "points", record.Font.Points);
    if constexpr (requires { record.Centred; }) object.Add("centred", record.Centred);
    if constexpr (requires { record.AutoSize; })
        object.Add("fits", record.AutoSize, "ink", CssColour(record.ForeColor), "ground",
                   CssColour(record.BackColor));
    if constexpr (requires { record.MouseDown; }) object.Add("mouse", record.MouseDown != nullptr);
    if constexpr (requires { record.MouseUp; }) object.Add("mouse", record.MouseUp != nullptr);
    if constexpr (requires { record.KeyDown; }) object.Add("keys", record.KeyDown != nullptr);
    if constexpr (requires { record.Image; })
        object.Add("surface", &record.Image, "columns", record.Image.Width(), "rows", record.Image.Height());
    if constexpr (requires { record.InWords; })
        object.Add("spoken", record.SpokenName, "words", record.InWords ? record.InWords() : "", "icon",
                   record.Icon);
    if constexpr (requires { record.Latched; })
        object.Add("tip", record.ToolTipText, "description", record.Description, "icon", record.Picture,
                   "latches", record.Latches, "latched", record.Latched);
    if constexpr (requires { record.Max; })
        object.Add("value", record.Value, "max", record.Max, "small", record.SmallChange, "large",
                   record.LargeChange);
}

const Control& ControlOf(const ControlRef& ref) {
    return std::visit([](const auto* record) -> const Control& { return *record; }, ref);
}

/// The control's number among those of its name; nothing where it is the only one.
std::string NumberOf(const ControlRef& ref, const std::vector<ControlRef>& controls) {
    if (TileButton* const* button = std::get_if<TileButton*>(&ref))
        return '_' + std::to_string((*button)->Index);
    int before = 0, all = 0;
    for (const ControlRef& other : controls) {
        if (ControlOf(other).Name != ControlOf(ref).Name) continue;
        before += &other < &ref;
        ++all;
    }
    return all > 1 ? '_' + std::to_string(before) : "";
}

std::vector<JsonObject> DescriptionsOf(const std::vector<ControlRef>& controls, const std::string& form) {
    static constexpr std::array<const char*, std::variant_size_v<ControlRef>> Kinds = {
        "label", "picture", "tile", "frame", "bar", "button", "text", "browser"};
    return Each(controls, [&](const ControlRef& ref) {
        const Control& control = ControlOf(ref);
        const std::string id = form + '.' + control.Name + NumberOf(ref, controls);
        JsonObject object("kind", std::string(Kinds[ref.index()]), "id", id, "visible", control.Visible,
                          "enabled", control.Enabled, "x", PixelsOf(control.Left), "y", PixelsOf(control.Top),
                          "width", PixelsOf(control.Width), "height", PixelsOf(control.Height));
        std::visit([&](const auto* record) { object.Add("record", record), AddMembers(object, *record); },
                   ref);
        if (Frame* const* frame = std::get_if<Frame*>(&ref))
            object.Add("controls", DescriptionsOf((*frame)->Controls, form));
        return object;
    });
}

JsonObject DescriptionOf(const Menu& menu, const std::string& form) {
    const auto describe = [&](const MenuItem& item) {
        return JsonObject("record", &item, "id", form + '.' + item.Name, "text", item.Caption);
    };
    return JsonObject("id", form + '.' + menu.Name, "text", menu.Caption, "items",
                      Each(menu.Items, describe));
}

} // namespace

std::string Json(const std::string& text) {
    std::string json = "\"";
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        const bool besideBreak = text.compare(i + 1, 1, "\n") == 0 || (i > 0 && text[i - 1] == '\n');
        if (c == '\n' || (c == '\r' && !besideBreak)) json += "\\n";
        if (c == '"' || c == '\\') json += '\\';
        if (c < 0 || c >= ' ') json += c;
    }
    return json + '"';
}

std::string Json(double number) {
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.15g", number);
    return text.data();
}

void JsonObject::AddJson(const char* name, const std::string& value) {
    Members.append(Members.empty() ? "\"" : ",\"").append(name).append("\":").append(value);
}

int PixelsOf(float twips) {
    return NearestInt32(twips / TwipsPerPixelX());
}

std::string DescriptionOf(const Form& form, bool modal) {
    JsonObject object("record", &form, "id", form.Name, "visible", form.Visible, "modal", modal, "closes",
                      form.CloseBox, "sizable", form.Border == BorderStyle::Sizable, "quiet",
                      form.OpensQuietly, "showsImage", form.ShowsImage, "x", PixelsOf(form.Left), "y",
                      PixelsOf(form.Top), "width", ClientWidth(form), "height", ClientHeight(form));
    AddMembers(object, form);
    object.Add("controls", DescriptionsOf(form.Controls, form.Name));
    object.Add("menus", Each(form.Menus, [&](const Menu& menu) { return DescriptionOf(menu, form.Name); }));
    object.Add("texts", Each(form.Image.Texts(), [](const Surface::TextItem& text) {
                   return JsonObject("text", text.Text, "ink", CssColour(text.Ink), "x", text.X, "y", text.Y);
               }));
    return Json(object);
}
