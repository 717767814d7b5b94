// Forms in the words of JSON, for the page.
#pragma once

#include "platform/forms.h"

#include <string>
#include <vector>

/// Line breaks of any kind are one character there.
std::string Json(const std::string& text);
std::string Json(double number);
/// A record is known by its address, in both directions.
inline std::string Json(const void* record) {
    return Json(static_cast<double>(reinterpret_cast<std::uintptr_t>(record)));
}

template <typename Item>
std::string Json(const std::vector<Item>& items);

/// One object. It takes names and values in turn.
struct JsonObject {
    std::string Members;
    template <typename... Rest>
    explicit JsonObject(const Rest&... rest) {
        Add(rest...);
    }
    void Add() {}
    template <typename Value, typename... Rest>
    void Add(const char* name, const Value& value, const Rest&... rest) {
        AddJson(name, Json(value));
        Add(rest...);
    }
    void AddJson(const char* name, const std::string& value);
};
inline std::string Json(const JsonObject& object) {
    return '{' + object.Members + '}';
}

template <typename Item>
std::string Json(const std::vector<Item>& items) {
    std::string text = "[";
    for (const Item& item : items) text += (text.size() > 1 ? "," : "") + Json(item);
    return text + ']';
}

/// Visits all controls, those in frames as well.
template <typename Visitor>
void EachControl(const std::vector<ControlRef>& controls, const Visitor& visitor) {
    for (const ControlRef& ref : controls) {
        std::visit([&](auto* control) { visitor(*control); }, ref);
        if (Frame* const* frame = std::get_if<Frame*>(&ref)) EachControl((*frame)->Controls, visitor);
    }
}

/// Whole pixels, as every desktop places controls.
int PixelsOf(float twips);

/// All that the page has to know of a form but the pixels of its surfaces.
std::string DescriptionOf(const Form& form, bool modal);
