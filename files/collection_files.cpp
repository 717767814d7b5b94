// Open, Save as and Remove.
#include "files/collection_files.h"

#include "core/board_rendering.h"
#include "core/board_window.h"
#include "core/game_state.h"
#include "core/solution_check.h"
#include "files/collection_reader.h"
#include "files/field_reader.h"
#include "files/open_save_dialog.h"
#include "files/sound_cues.h"
#include "platform/desktop.h"
#include "platform/files.h"
#include "platform/random.h"

#include <algorithm>
#include <filesystem>
#include <string>
#include <utility>

namespace {

constexpr const char* Pattern = "*.qui";
constexpr const char* TemporaryFile = "QuiFile.tmp";
constexpr int LinesCopiedAsTheyAre = 64;
constexpr int FieldsOfARecord = 24;

std::string UpperCase(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; });
    return text;
}

bool IsLoadedFile(const std::string& path) {
    return UpperCase(path) == UpperCase(Game.QuilletFile) || SameFile(path, Game.QuilletFile);
}

/// False when the player keeps the file that stands under the chosen name, or has to.
bool MayWriteTo(const std::string& path) {
    // A file that can't be read may hold something all the same.
    if (FileLength(path) < 1 && !HoldsSomething(path)) return true;
    if (IsLoadedFile(path)) {
        MsgBox("file:" + Game.QuilletFile + "\r\nalready loaded and saved, use another filename to save as");
        return false;
    }
    return MsgBox(path + Game.LineBreak + " file already exists, overwrite?", BoxButtons::YesNo,
                  BoxIcon::Warning, "Quillets", BoxDefault::Second)
           == BoxAnswer::Yes;
}

FileError CopyFile(const std::string& from, const std::string& to) {
    std::string content;
    const FileError error = ReadFile(from, LargestCollection, content);
    return error.empty() ? ReplaceFile(to, content) : error;
}

/// The collection without its record number `dropped`, counted among all records.
std::string Without(Number dropped, const std::string& collection) {
    FieldReader reader(collection);
    for (int line = 1; line <= LinesCopiedAsTheyAre; ++line) reader.SkipLine();
    std::string result;
    result.reserve(collection.size());
    result.append(collection, 0, collection.size() - reader.Remaining());
    result.append(reader.NextField()).append("\r\n");
    int number = 0, kept = 0;
    while (!reader.AtEnd()) {
        reader.SkipEmptyLines();
        if (++number == dropped) {
            reader.SkipLine();
            continue;
        }
        reader.NextField();
        result.append(std::to_string(++kept));
        for (int field = 2; field <= FieldsOfARecord; ++field)
            result.append(1, ',').append(reader.NextField());
        result.append("\r\n");
    }
    return result;
}

/// The whole content is on the disk when it returns without an error; on failure there is no such file.
FileError WriteTemporary(LockedFile& temporary, const std::string& content) {
    if (!temporary.Error().empty()) return temporary.Error();
    FileError error = temporary.Overwrite(content);
    std::error_code none;
    if (!error.empty()) std::filesystem::remove(TemporaryFile, none);
    return error;
}

/// Takes the shown quillet out of the file; false after a message when that failed.
bool RemoveFromFile() {
    const auto fail = [](const std::string& what, const std::string& reason, const std::string& where = "") {
        MsgBox(what + Game.LineBreak + Game.QuilletFile + Game.LineBreak + reason + "." + where);
        return false;
    };
    const std::string notRemoved = "The Quillet was not removed from the file:";
    if (SameFile(TemporaryFile, Game.QuilletFile))
        return fail(notRemoved, "it is the file that Remove itself writes; save it under another name first");
    LockedFile file(Game.QuilletFile);
    if (!file.Error().empty()) return fail(notRemoved, file.Error());
    std::string content;
    FileError error = file.Read(LargestCollection, content);
    if (error.empty()) error = FaultOfCollection(content);
    if (!error.empty()) return fail(notRemoved, error);
    const std::string without = Without(Game.CurrentQuillet, content);
    // The whole new content is on the disk before the old one is touched, and no other Remove writes over it.
    LockedFile temporary(TemporaryFile, LockedFile::WhenMissing::IsMade);
    error = WriteTemporary(temporary, without);
    if (!error.empty()) return fail(notRemoved, std::string(TemporaryFile) + ": " + error);
    error = file.Overwrite(without);
    if (error.empty()) return true;
    std::error_code none;
    return fail("The file could not be written:", error,
                Game.LineBreak + "Its whole new content is in the file:" + Game.LineBreak
                    + std::filesystem::absolute(TemporaryFile, none).string());
}

} // namespace

void OpenCollection() {
    PlayCue("click2");
    const std::string path = FileDialog(FormMain, 0, "Quillets", "Quillet files", Pattern, Game.AppPath);
    if (path.empty() || path == Pattern) return;
    FormMain.Picture1.Enabled = false;
    PlayCue("shsh-dot");
    const std::string before = std::exchange(Game.QuilletFile, path);
    if (LoadQuillets()) {
        Randomize(Timer());
        Game.CurrentQuillet = FloorNumber(Game.QuilletCount * Rnd() + 1);
        ShowQuillet();
        CheckAllTurns();
    } else {
        Game.QuilletFile = before;
    }
    FormMain.Picture1.Enabled = true;
}

void SaveCollectionAs() {
    PlayCue("click2");
    const std::string path = FileDialog(FormMain, 1, "Quillets", Pattern, Pattern, Game.AppPath);
    if (path.empty() || !MayWriteTo(path)) return;
    const FileError error = CopyFile(Game.QuilletFile, path);
    if (error.empty())
        MsgBox(Game.QuilletFile + Game.LineBreak + "copied as:" + Game.LineBreak + path);
    else
        MsgBox("The file could not be written:" + Game.LineBreak + path + Game.LineBreak + error + ".");
}

void RemoveQuillet() {
    const std::string question =
        "Remove this Quillet ( " + std::to_string(NearestInt32(Game.CurrentQuillet)) + ") ?";
    if (MsgBox(question, BoxButtons::YesNo, BoxIcon::None, "Quillets") != BoxAnswer::Yes) return;
    if (!RemoveFromFile()) return;
    if (Game.CurrentQuillet == Game.QuilletCount) Game.CurrentQuillet -= 1;
    LoadQuillets();
    // Another program may have added some or taken some away; of an empty collection 0 or 1 is shown.
    Game.CurrentQuillet = std::clamp<Number>(Game.CurrentQuillet, std::min<Number>(Game.QuilletCount, 1),
                                             std::max<Number>(Game.QuilletCount, 1));
    ShowQuillet();
    CheckAllTurns();
    DrawAllPieces();
}
