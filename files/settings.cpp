// Reading and making the settings file.
#include "files/settings.h"

#include "core/game_state.h"
#include "files/field_reader.h"
#include "platform/desktop.h"
#include "platform/files.h"

#include <charconv>
#include <cmath>
#include <optional>
#include <string_view>

namespace {

constexpr std::size_t LargestFile = 64 << 10;

std::string SettingsPath() {
    return Game.AppPath + "Quillets.cfg";
}

/// The shortest decimal text that reads back as the same number, with a point in every language.
std::string Decimal(float number) {
    std::array<char, 64> text;
    const auto end =
        std::to_chars(text.data(), text.data() + text.size(), number, std::chars_format::fixed).ptr;
    return {text.data(), end};
}

/// The file name behind the last separator; in double quotes, those within it doubled, where it would not
/// come back as it is.
std::string CollectionField() {
    std::string name = Game.QuilletFile.substr(Game.QuilletFile.rfind(PathSeparator) + 1);
    const std::string_view blanks = " \t";
    const bool plain = name.find_first_of(",\"") == std::string::npos && !name.empty()
                       && blanks.find(name.front()) == blanks.npos && blanks.find(name.back()) == blanks.npos;
    if (plain) return name;
    std::string quoted = "\"";
    for (const char c : name) quoted += c == '"' ? "\"\"" : std::string(1, c);
    return quoted + '"';
}

} // namespace

void EnsureSettings() {
    // Settings that can't be read just now are not missing. A folder that can't be written leaves the game
    // with the same defaults, so a failure needs no answer.
    if (FileLength(SettingsPath()) == Game.FlagOff && !HoldsSomething(SettingsPath()))
        ReplaceFile(SettingsPath(), "QUILLET.qui\r\n-1,-1,-1,-1\r\n");
}

Settings ReadSettings() {
    Settings settings;
    std::string text;
    ReadFile(SettingsPath(), LargestFile, text);
    FieldReader reader(text);
    if (const std::string name = reader.NextQuotedField(); !name.empty()) settings.CollectionName = name;
    // A place with a part that can't be read is none.
    std::array<float, 4> placement{};
    for (float& place : placement) {
        const std::optional<double> number = ParseNumber(reader.NextBlankSeparatedField());
        if (!number || !std::isfinite(Single(*number))) return settings;
        place = Single(*number);
    }
    settings.Placement = placement;
    return settings;
}

void WriteSettings(const std::array<float, 4>& placement) {
    std::string text = CollectionField() + "\r\n";
    for (const float place : placement) text += ' ' + Decimal(place) + ' ';
    const FileError error = ReplaceFile(SettingsPath(), text + "\r\n");
    if (!error.empty())
        MsgBox("The settings could not be saved:" + Game.LineBreak + SettingsPath() + Game.LineBreak + error
               + ".");
}
