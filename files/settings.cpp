// Reading and making the settings file.
#include "files/settings.h"

#include "core/game_state.h"
#include "files/field_reader.h"
#include "platform/files.h"

namespace {

constexpr std::size_t LargestFile = 64 << 10;

std::string SettingsPath() {
    return Game.AppPath + "Quillets.cfg";
}

} // namespace

void EnsureSettings() {
    // A folder that can't be written leaves the game with the same defaults, so a failure needs no answer.
    if (FileLength(SettingsPath()) == Game.FlagOff)
        ReplaceFile(SettingsPath(), "QUILLET.qui\r\n-1,-1,-1,-1\r\n");
}

Settings ReadSettings() {
    Settings settings;
    std::string text;
    ReadFile(SettingsPath(), LargestFile, text);
    FieldReader reader(text);
    if (const std::string_view name = reader.NextQuotedField(); !name.empty()) settings.CollectionName = name;
    for (float& place : settings.Placement)
        if (const auto number = ParseNumber(reader.NextBlankSeparatedField())) place = Single(*number);
    return settings;
}
