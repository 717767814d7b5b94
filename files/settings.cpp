// Reading and making the settings file.
#include "files/settings.h"

#include "core/game_state.h"
#include "files/field_reader.h"
#include "platform/desktop.h"
#include "platform/files.h"

#include <algorithm>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <optional>
#include <string_view>

namespace {

constexpr std::size_t LargestFile = 64 << 10;

std::string SettingsPath() {
    return Game.AppPath + "Quillets.cfg";
}

/// As few digits as read back to the same number, with a point in every language.
std::string Decimal(float number) {
    constexpr int UsualDigits = 7, MostDigits = 9;
    const std::string point = std::localeconv()->decimal_point;
    std::string decimal;
    for (int digits = UsualDigits; digits <= MostDigits; ++digits) {
        std::array<char, 32> text{};
        std::snprintf(text.data(), text.size(), "%.*g", digits, double{number});
        decimal = text.data();
        if (const std::size_t at = decimal.find(point); at != std::string::npos)
            decimal.replace(at, point.size(), ".");
        if (Single(ParseNumber(decimal).value_or(0)) == number) break;
    }
    return decimal;
}

/// What editors put at the start of a file, and what would be taken for that.
constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";

/// Whether line 1 can hold the name.
bool CanBeStored(const std::string& name) {
    const auto isControl = [](unsigned char c) { return c < ' ' || c == 0x7f; };
    return std::none_of(name.begin(), name.end(), isControl);
}

/// Whether the name needs double quotes to come back as it is.
bool NeedsQuotes(const std::string& name) {
    return name.empty() || name.find_first_of(",\"") != std::string::npos || name.front() == ' '
           || name.back() == ' ' || name.starts_with(ByteOrderMark);
}

/// Line 1: the name behind the last separator.
std::string CollectionField() {
    std::string name = Game.QuilletFile.substr(Game.QuilletFile.rfind(PathSeparator) + 1);
    if (!CanBeStored(name)) name = Settings{}.CollectionName;
    if (!NeedsQuotes(name)) return name;
    std::string quoted = "\"";
    for (const char c : name) quoted += c == '"' ? "\"\"" : std::string(1, c);
    return quoted + '"';
}

/// The four places; none where one of them cannot be read.
std::optional<std::array<float, 4>> ReadPlacement(FieldReader& reader) {
    std::array<float, 4> placement{};
    for (float& place : placement) {
        const std::optional<double> number = ParseNumber(reader.NextBlankSeparatedField());
        if (!number || !std::isfinite(Single(*number))) return std::nullopt;
        place = Single(*number);
    }
    return placement;
}

} // namespace

void EnsureSettings() {
    // Settings that cannot be read just now are not missing. In a folder that cannot be written the game goes
    // on with the same defaults, so a failure needs no message.
    if (FileLength(SettingsPath()) == Game.FlagOff && !HoldsSomething(SettingsPath()))
        ReplaceFile(SettingsPath(), "QUILLET.qui\r\n-1,-1,-1,-1\r\n");
}

Settings ReadSettings() {
    Settings settings;
    std::string text;
    ReadFile(SettingsPath(), LargestFile, text);
    FieldReader reader(text);
    const std::string name = reader.NextQuotedField();
    if (text.starts_with(ByteOrderMark) || !CanBeStored(name)) return settings;
    if (!name.empty()) settings.CollectionName = name;
    settings.Placement = ReadPlacement(reader).value_or(settings.Placement);
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
